#include <algorithm>
#include <limits>
#include <utility>

#include "simulator/Machine.h"

namespace tintbench::simulator {

namespace {

constexpr double kRestartSeconds = 0.4;   // with a new configuration
constexpr double kSecondsPerGroup = 2.0;  // for each external group to come up
constexpr int kUsualLimit = 10;           // for all of them, in seconds
constexpr double kShareOfLimit = 0.5;     // sound groups take no more of it
constexpr double kWriteSeconds = 0.5;     // to store a received configuration

constexpr int kEndless = std::numeric_limits<int>::max();
constexpr std::size_t kLongestProgram = std::size_t{8} << 20;

// The time in which the external groups come up, well within the limit of the configuration.
double GroupSeconds(const Configuration& configuration) {
  const int groups = std::max(configuration.Number("@GEN", 8, 0), 0);
  const int limit = std::max(configuration.Number("@IND", 3, kUsualLimit), 1);
  return std::min(groups * kSecondsPerGroup, limit * kShareOfLimit);
}

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
    case Task::LoadProgram:
      return BeginTransfer(
          std::make_unique<XmodemReceiver>(options_.AsksForCrc, FaultsOfTransfer(), now_, kEndless),
          task);
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
  Forget(Fault::Babble);
  plant_.Settle(now_);
  plant_.Reset(now_);
  readyAt_ = now_ + seconds + GroupSeconds(plant_.Config);
  if (plant_.DipSwitches[Plant::kLoader]) {
    program_.clear();
    Schedule(readyAt_, "", Task::LoadProgram);
  }
}

void Machine::BreakOff(double seconds) {
  fromMachine_.Cut(now_);
  Restart(seconds);
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
  if (transferTask_ == Task::LoadProgram) {
    return EndLoading(ended->End() == TransferEnd::Good
                          ? static_cast<const XmodemReceiver&>(*ended).Text()
                          : std::string());
  }
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

// A program comes in parts; the line "@PDD" closes the last one.
void Machine::EndLoading(const std::string& part) {
  const bool room = program_.size() + part.size() <= kLongestProgram;
  if (room) program_ += part;
  const bool isLast = part.starts_with("@PDD ") || part.find("\n@PDD ") != std::string::npos;
  if (!isLast) Begin(Task::LoadProgram);
}

TransferFaults Machine::FaultsOfTransfer() const {
  const auto place = [this](Fault fault) { return Place(faults_.Value(fault)); };
  const auto times = [this](Fault fault) {
    const std::optional<double> value = faults_.Value(fault);
    return value == 0.0 ? static_cast<std::size_t>(kEndless) : Place(value);
  };
  return {.CancelAt = place(Fault::Cancel),
          .OneCancelAt = place(Fault::OneCancel),
          .BelAt = place(Fault::Bel),
          .StallAt = place(Fault::Stall),
          .BadBlockAt = place(Fault::BadBlock),
          .BadComplementAt = place(Fault::BadComplement),
          .SkipAt = place(Fault::SkipBlock),
          .RepeatAt = place(Fault::RepeatBlock),
          .NakAt = place(Fault::Nak),
          .LoseAckAt = place(Fault::LoseAck),
          .DoubleAckAt = place(Fault::DoubleAck),
          .LostEots = times(Fault::LoseEot),
          .RefusedEots = times(Fault::NakEot)};
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
