#include <algorithm>
#include <utility>

#include "simulator/Machine.h"

namespace tintbench::simulator {

namespace {

constexpr double kResetSeconds = 3.0;     // from power-on to the first answer
constexpr double kRestartSeconds = 0.4;   // with a new configuration
constexpr double kSecondsPerGroup = 2.0;  // for each external group to come up
constexpr double kWriteSeconds = 0.5;     // to store a received configuration

std::size_t Place(std::optional<double> block) {
  return block ? static_cast<std::size_t>(std::min(*block, 1e6)) : 0;
}

}  // namespace

void Machine::Begin(Task task) {
  switch (task) {
    case Task::None:
      return;
    case Task::Reset:
      Restart(kResetSeconds);
      return Schedule(readyAt_, "K", Task::None);
    case Task::Restart:
      if (received_) plant_.Config = *std::exchange(received_, std::nullopt);
      return Restart(kRestartSeconds);
    case Task::SendConfiguration:
      return BeginTransfer(std::make_unique<XmodemSender>(ConfigurationToSend(), options_.BlockSize,
                                                          FaultsOfTransfer(), now_),
                           task);
    case Task::ReceiveConfiguration:
      return BeginTransfer(
          std::make_unique<XmodemReceiver>(options_.AsksForCrc, FaultsOfTransfer(), now_), task);
    case Task::TakeMasterService:
      masterService_ = true;
      return;
    case Task::ReturnMasterService:
      masterService_ = false;
      return;
  }
}

void Machine::Restart(double seconds) {
  pending_.clear();
  transfer_.reset();
  reader_.Clear();
  masterService_ = false;
  readyAt_ = now_ + seconds + kSecondsPerGroup * plant_.Config.Number("@GEN", 8, 0);
}

void Machine::BeginTransfer(std::unique_ptr<Transfer> transfer, Task task) {
  transfer_ = std::move(transfer);
  transferTask_ = task;
  reader_.Clear();
}

void Machine::AfterTransfer() {
  Emit(transfer_->TakeOutput());
  if (transfer_->End() == TransferEnd::Running) return;
  const std::unique_ptr<Transfer> ended = std::move(transfer_);
  if (ended->End() == TransferEnd::Failed) return;
  if (transferTask_ == Task::ReceiveConfiguration) {
    EndReception(static_cast<const XmodemReceiver&>(*ended).Text());
  } else if (!faults_.Value(Fault::NoEnd)) {
    Schedule(now_ + Reply::kPromptSeconds, "K", Task::None);
  }
}

void Machine::EndReception(const std::string& text) {
  const bool answers =
      plant_.FirmwareNumber() >= Plant::kFirstWithConfiguration && !faults_.Value(Fault::NoEnd);
  Configuration configuration = Configuration::Read(text, options_.Slave);
  const bool good = configuration.Fault().empty();
  if (good) received_ = std::move(configuration);
  Schedule(now_ + kWriteSeconds, answers ? (good ? "K" : "N") : "",
           good ? Task::Restart : Task::None);
}

TransferFaults Machine::FaultsOfTransfer() const {
  return {Place(faults_.Value(Fault::Cancel)), Place(faults_.Value(Fault::Stall)),
          Place(faults_.Value(Fault::BadBlock)), Place(faults_.Value(Fault::LoseAck))};
}

// A line of the tag "@@@@" marks a file that isn't to be used.
std::string Machine::ConfigurationToSend() const {
  std::string text = plant_.Config.Text();
  if (faults_.Value(Fault::CorruptConfig)) {
    const std::size_t firstLine = text.find('\n');
    const std::size_t place = firstLine == std::string::npos ? 0 : firstLine + 1;
    text.insert(place, "@@@@ " + std::to_string(options_.Slave) + " 1\r\n");
  }
  return text;
}

}  // namespace tintbench::simulator
