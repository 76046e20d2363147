#include <algorithm>
#include <limits>
#include <utility>

#include "base/Numbers.h"
#include "simulator/Machine.h"

namespace tintbench::simulator {

namespace {

constexpr double kRestartSeconds = 0.4;   // with a new configuration
constexpr double kLoaderSeconds = 2.0;    // until the loader stands ready
constexpr double kSecondsPerGroup = 2.0;  // for each external group to come up
constexpr double kSecondsToTeach = 9.0;   // the same, for one that is told what has changed
constexpr int kMostGroups = 32;
constexpr int kUsualLimit = 10;        // for all of them, in seconds
constexpr double kShareOfLimit = 0.5;  // sound groups take no more of it
constexpr double kWriteSeconds = 0.5;  // to store a received configuration

constexpr int kEndless = std::numeric_limits<int>::max();

int CountGroups(const Configuration& configuration) {
  return std::clamp(configuration.Number("@GEN", 8, 0), 0, kMostGroups);
}

// The time in which one external group comes up: all of them do well within the limit of the
// configuration, unless they must be told a new one.
double SecondsPerGroup(const Configuration& configuration, bool known) {
  if (!known) return kSecondsToTeach;
  const int limit = std::max(configuration.Number("@IND", 3, kUsualLimit), 1);
  return std::min(kSecondsPerGroup,
                  limit * kShareOfLimit / std::max(CountGroups(configuration), 1));
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
      if (!loading_) Schedule(readyAt_, "K", Task::None);
      return;
    case Task::Restart:
      if (received_) plant_.Config = *std::exchange(received_, std::nullopt);
      groupsKnow_ = false;
      return Restart(kRestartSeconds);
    case Task::SendConfiguration:
      return BeginTransfer(std::make_unique<XmodemSender>(ConfigurationToSend(), options_.BlockSize,
                                                          FaultsOfTransfer(task), now_),
                           task);
    case Task::ReceiveConfiguration:
      return BeginTransfer(
          std::make_unique<XmodemReceiver>(options_.AsksForCrc, FaultsOfTransfer(task), now_),
          task);
    case Task::LoadProgram:
      return BeginTransfer(std::make_unique<XmodemReceiver>(options_.AsksForCrc,
                                                            FaultsOfTransfer(task), now_, kEndless),
                           task);
    case Task::EndProgram:
      return EndProgram();
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
  loading_ = plant_.DipSwitches[Plant::kLoader];
  if (loading_) {
    loader_.Begin();
    readyAt_ = now_ + std::max(seconds, kLoaderSeconds);
    return Schedule(readyAt_, "", Task::LoadProgram);
  }
  groupsFrom_ = now_ + seconds;
  secondsPerGroup_ = SecondsPerGroup(plant_.Config, std::exchange(groupsKnow_, true));
  readyAt_ = groupsFrom_ + CountGroups(plant_.Config) * secondsPerGroup_;
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

// Behind the last part nothing more is asked for. A program that isn't written to its end is none.
void Machine::EndLoading(const std::string& part) {
  loader_.Take(part);
  if (loader_.Now() != Loader::Stage::Writing) return Begin(Task::LoadProgram);
  flashed_ = loader_.Version().empty() ? plant_.Firmware : loader_.Version();
  plant_.Firmware.clear();
  Schedule(now_ + loader_.WriteSeconds(), "", Task::EndProgram);
}

void Machine::EndProgram() {
  loader_.End();
  plant_.Firmware = flashed_;
  groupsKnow_ = false;
}

std::string Machine::Display() {
  Live();
  return Shown();
}

std::string Machine::Shown() const {
  if (readyAt_ == kNever) return {};
  if (loading_) return now_ < readyAt_ ? "BOOT" : loader_.Display(options_.Slave);
  if (plant_.Firmware.empty()) return "NO PROGRAM";
  if (now_ >= readyAt_) return "READY";
  if (now_ < groupsFrom_ || secondsPerGroup_ <= 0) return "BOOT";
  const int up = static_cast<int>((now_ - groupsFrom_) / secondsPerGroup_);
  return "GROUP " + base::LastDigits(up + 1, 2);
}

TransferFaults Machine::FaultsOfTransfer(Task task) const {
  const std::size_t part = task == Task::LoadProgram ? loader_.Parts().size() + 1 : 0;
  const auto place = [&](Fault fault) { return Place(faults_.Value(fault, part)); };
  const auto times = [&](Fault fault) {
    const std::optional<double> value = faults_.Value(fault, part);
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
          .RefusedEots = times(Fault::NakEot),
          .NoStart = faults_.Value(Fault::NoStart, part).has_value()};
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
