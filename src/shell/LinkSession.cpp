#include "shell/LinkSession.h"

#include <utility>

#include "base/Text.h"
#include "link/MasterFrame.h"

namespace tintbench::shell {

LinkSession::LinkSession(const link::LinkUpParts& parts, const base::AppPaths& paths,
                         std::string serialMode, std::string portKey)
    : parts_(parts),
      paths_(paths),
      serialMode_(std::move(serialMode)),
      linkUp_(parts, paths, serialMode_, std::move(portKey)) {}

void LinkSession::Start() {
  hasPort_ = parts_.Ports.DefinePortList();
  if (!hasPort_) {
    parts_.Screen.Ask({.Text = base::JoinLines({"ERROR !!!", "", "NO communication port available",
                                                "", "PROGRAM ABORTED !!"})});
    return;
  }
  parts_.Commands.ClearSerialBusy();
  if (!parts_.Files.DirExists(paths_.ConfigFolder())) {
    // Without the folder no configuration can be received, and link-up says so.
    static_cast<void>(parts_.Files.MakeDir(paths_.ConfigFolder()));
  }
  std::string port;
  std::string settings;
  starting_ = true;
  linkUp_.LinkMachine(port, settings);
  starting_ = false;
}

int LinkSession::LinkMachine(const std::string& port, const std::string& settings) {
  std::string usedPort = port;
  std::string usedSettings = settings;
  return linkUp_.LinkMachine(usedPort, usedSettings);
}

void LinkSession::End() {
  if (serialMode_ == link::kMasterMode) ReturnService();
  parts_.Ports.CloseComPort();
}

// A machine that ends its answer with code 3 never gives exactly "A": the box is then the normal
// outcome.
void LinkSession::ReturnService() {
  parts_.Port.Output("#PY*");
  const std::string answer = link::CollectUntilFrameEnd(parts_.Port, parts_.Screen);
  if (answer != "A") {
    parts_.Screen.Ask(
        {.Text = "ERROR in disactive service on MASTER SERIAL", .Icon = ui::BoxIcon::Exclamation});
  }
}

}  // namespace tintbench::shell
