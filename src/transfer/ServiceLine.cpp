#include "transfer/ServiceLine.h"

#include "base/Text.h"
#include "link/CommandId.h"
#include "link/MasterFrame.h"

namespace tintbench::transfer {

bool ServiceLine::StartMaster(const std::string& port, const std::string& settings) {
  if (!parts_.Ports.OpenComPort(port, settings)) return false;
  parts_.Port.Output(link::MasterWireFrame(link::kStartOfService));
  return link::CollectUntilFrameEnd(parts_.Port, parts_.Screen) == link::MasterStartAnswer();
}

bool ServiceLine::ReturnToService(link::LineView& view) {
  const std::string answer = parts_.Commands.SendCommand(view, link::CommandId::ReturnService);
  return base::ToUpper(answer) == "A";
}

}  // namespace tintbench::transfer
