#include "link/Xmodem.h"

#include <tuple>
#include <utility>

#include "base/AppPaths.h"
#include "base/Paths.h"
#include "link/ComPort.h"
#include "link/DebugLog.h"
#include "link/XmodemReceiver.h"
#include "link/XmodemSender.h"

namespace tintbench::link {

namespace {

constexpr const char* kTraceFile = "xmdebug.log";

}  // namespace

Xmodem::Xmodem(SerialPort& port, base::Clock& clock, base::FileSystem& files, XmodemSetup setup)
    : port_(port), setup_(std::move(setup)), session_(port, clock, files, setup_.ServeEvents) {
  XmodemInit();
}

void Xmodem::XmodemInit() {
  session_.Retries = {};
  session_.TempFile = base::AppPaths(setup_.AppPath).ReceptionFile();
}

void Xmodem::XmodemBind(const XmodemDisplay& display, std::function<PortSelection()> selection) {
  XmodemBind(std::move(selection));
  session_.Report.Bind(display);
}

void Xmodem::XmodemBind(std::function<PortSelection()> selection) {
  session_.Report.Unbind();
  selection_ = std::move(selection);
  bound_ = true;
}

int Xmodem::XmodemTransfer(XmodemDirection direction, int size, const std::string& file) {
  if (running_ || !bound_ || !port_.PortOpen()) return kXmodemNoPort;
  running_ = true;
  session_.State = {};
  session_.State.RequestedBlockSize = size;
  session_.State.FileName = file;
  StartTrace();
  const int inputLen = port_.InputLen();
  port_.InputLen(0);
  std::ignore = port_.Input();
  port_.InputLen(1);
  const int status = Run(direction);
  port_.InputLen(inputLen);
  session_.Line.StopTrace();
  running_ = false;
  return status;
}

int Xmodem::XmodemReceiveQuiet(const std::string& file) {
  if (running_) return kXmodemNoPort;
  XmodemInit();
  XmodemBind();
  const int status = XmodemTransfer(kXmodemReceive, kXmodemSmallBlock, file);
  bound_ = false;
  return status;
}

void Xmodem::StartTrace() {
  if (!setup_.DebugLevel || setup_.DebugLevel() != kDebugXmodem) return;
  base::FileResult ignored;
  session_.Line.StartTrace(session_.Files.OpenToWrite(base::JoinPath(setup_.AppPath, kTraceFile),
                                                      base::WriteMode::kCreate, ignored));
}

int Xmodem::Run(XmodemDirection direction) {
  const int status =
      direction == kXmodemSend ? XmodemSender(session_).Run() : XmodemReceiver(session_).Run();
  session_.Report.ReportStatus(status);
  if (status != kXmodemSuccessful && session_.State.XmodemAbortFlag) {
    ReopenPort();
    session_.State.XmodemAbortFlag = false;
  }
  return status;
}

void Xmodem::ReopenPort() {
  const PortSelection chosen =
      selection_ ? selection_() : PortSelection{port_.CommPort(), port_.Settings()};
  if (port_.PortOpen()) port_.PortOpen(false);
  port_.CommPort(chosen.CommPort);
  port_.Settings(chosen.Settings);
  port_.InBufferSize(kPortBufferSize);
  port_.OutBufferSize(kPortBufferSize);
  port_.InputLen(1);
  port_.PortOpen(true);
}

}  // namespace tintbench::link
