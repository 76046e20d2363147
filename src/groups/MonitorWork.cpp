#include "groups/MonitorWork.h"

#include "base/Text.h"

namespace tintbench::groups {

std::string MonitorWork::Send(link::CommandId row) {
  const std::string command = Parts.Table.Row(row).Command;
  const bool goesOut = Parts.Port.PortOpen();
  const std::string answer = base::ToUpper(Parts.Commands.SendCommand(Line, row));
  if (goesOut) Parts.On.Book(command, answer);
  return answer;
}

std::string MonitorWork::Exchange(const std::string& command, const std::string& answer) const {
  return TheGroup.DebugMode ? ": " + command + " : " + answer : std::string();
}

void MonitorWork::ShowFaults(const std::string& text) {
  Window.StatusBar1.Text = text;
  Window.StatusBar1.Refresh();
}

std::string FaultLine(const std::string& faults, const std::string& whose) {
  return faults.empty() ? faults : faults + ". ERRORS: " + whose;
}

}  // namespace tintbench::groups
