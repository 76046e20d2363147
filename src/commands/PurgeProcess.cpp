#include "commands/PurgeProcess.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr int kWidth = 2;  // digits of an element
constexpr std::size_t kDigits = kWidth;
constexpr int kSpeedDigits = 3;
constexpr int kTooFast = 999;
constexpr const char* kMotorInside = "01";
constexpr const char* kSingleLabel = "PERLIA POMPE MONO";

// Seconds.
constexpr double kAfterCaps = 0.8;
constexpr double kAfterValves = 2.5;
constexpr double kAfterMotors = 0.8;
constexpr double kBeforeVerify = 0.9;
constexpr double kBeforeStatus = 0.3;
constexpr double kBeforeReport = 2.1;
constexpr double kBeforeAskingAgain = 0.1;

std::string Lines(std::initializer_list<std::string_view> lines) { return base::JoinLines(lines); }

std::string WithoutCommas(std::string text) {
  std::erase(text, ',');
  return text;
}

bool AreElements(const std::string& text) {
  return text.size() % kDigits == 0 && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

std::string MapList(std::string_view list, std::string_view keys, std::string_view values,
                    int width, bool unique) {
  std::vector<std::string> found;
  for (const std::string& piece : Pieces(list, static_cast<std::size_t>(width))) {
    std::string value = base::GetField(base::FindField(piece, keys, ","), values, ",");
    if (unique && std::find(found.begin(), found.end(), value) != found.end()) continue;
    found.push_back(std::move(value));
  }
  return base::Join(found, "");
}

void PurgeProcess::Forget() {
  remaining_.clear();
  speeds_.clear();
  motors_.clear();
}

void PurgeProcess::PurgeRun(bool afresh) {
  if (underWay_) return;
  underWay_ = true;
  if (afresh) Forget();
  window_.ShowReportFrame();
  window_.ShowReport("");
  if (!remaining_.empty() || Prepare()) {
    RunBatch(TakeBatch());
  } else {
    Forget();
    window_.AddToReport(
        Framed(Lines({"Process interrupted !", "Cannot start the PURGE process!"})));
  }
  // Nobody was heard while everything was switched off, so what was pressed then was pressed for
  // the purge: a second press to stop it must not begin the next batch.
  window_.Work.Screen.CatchUp();
  underWay_ = false;
}

bool PurgeProcess::Prepare() {
  Forget();
  return shelf_.CheckPurgeConditions() && AskCircuits() && AskSpeeds();
}

// Asks until the answer is one of adjacent circuits, or empty.
bool PurgeProcess::AskCircuits() {
  ui::Question question{
      .Prompt = Lines({"If you prefer, choose manually the circuits to purge",
                       "by inputing N adjacent groups of 2 decimal characters each.", "",
                       "Otherwise the purge will be done automatically",
                       "considering all the circuits of the machine !!"}),
      .Default = WithoutCommas(window_.Work.Facts.ElementLists[config::kCircuits])};
  do {
    remaining_ = window_.Ask(question).value_or("");
    question.Default = remaining_;
  } while (!AreElements(remaining_) && !window_.IsStopped());
  return !remaining_.empty();
}

bool PurgeProcess::AskSpeeds() {
  const config::MachineFacts& facts = window_.Work.Facts;
  const std::string motors = MapList(remaining_, facts.ElementLists[config::kCircuits],
                                     facts.CircuitMotorList, kWidth, true);
  for (const std::string& motor : Pieces(motors, kDigits)) {
    const std::string speed = AskSpeed(motor);
    if (speed.empty()) return false;
    speeds_ += speed + ",";
    motors_ += motor + ",";
  }
  return !speeds_.empty();
}

// Asks until the answer will do. Empty only if the purge is to be stopped: between two questions
// the operator can close the window.
std::string PurgeProcess::AskSpeed(const std::string& motor) {
  const std::string prompt = Lines({"Input 3 decimal characters (001..999)",
                                    "for the wished speed of motor " + base::Bracketed(motor)});
  while (!window_.IsStopped()) {
    const std::optional<std::string> reply = window_.Ask(ui::Question{.Prompt = prompt});
    const int speed = base::LeadingInt(reply.value_or(""));
    if (speed >= 1 && speed < kTooFast) return base::LastDigits(speed, kSpeedDigits);
    if (!reply) window_.AbortableWait(kBeforeAskingAgain);
  }
  return {};
}

// Circuits of the motor inside the machine and others don't go together, and a machine with a
// single pump bears only so many.
std::size_t PurgeProcess::BatchSize() const {
  const config::MachineFacts& facts = window_.Work.Facts;
  const std::size_t most = static_cast<std::size_t>(std::max(0, facts.MaxValves));
  const std::size_t size = std::min(remaining_.size() / kDigits, most);
  std::size_t inside = 0;
  for (const std::string& circuit : Pieces(remaining_.substr(0, size * kDigits), kDigits)) {
    if (MapList(circuit, facts.ElementLists[config::kCircuits], facts.CircuitMotorList, kWidth,
                false) == kMotorInside) {
      ++inside;
    }
  }
  if (inside != 0) return inside;
  if (!base::EqualFolded(facts.MachineLabel, kSingleLabel)) return size;
  return std::min(size, static_cast<std::size_t>(std::max(0, facts.MonoPurgeLimit)));
}

PurgeProcess::Batch PurgeProcess::TakeBatch() {
  const config::MachineFacts& facts = window_.Work.Facts;
  const std::string& circuits = facts.ElementLists[config::kCircuits];
  Batch batch;
  batch.Circuits = remaining_.substr(0, BatchSize() * kDigits);
  remaining_.erase(0, batch.Circuits.size());
  batch.Caps = MapList(batch.Circuits, circuits, facts.CircuitCapList, kWidth, true);
  batch.Motors = MapList(batch.Circuits, circuits, facts.CircuitMotorList, kWidth, true);
  batch.Speeds = MapList(batch.Motors, motors_, speeds_, kWidth, false);
  return batch;
}

void PurgeProcess::RunBatch(const Batch& batch) {
  endDue_ = true;
  const bool started = Start(batch);
  window_.Options.UnlockOptions();
  if (!started) {
    Forget();
    window_.AddToReport(Framed(Lines({"Process interrupted !", "Errors during PURGE process !"})));
  }
  const bool closing = window_.Flags.Closing;
  if (!closing) TellEnd(End(batch));
  endDue_ = false;
}

// True too if the operator stopped it on the way.
bool PurgeProcess::Start(const Batch& batch) {
  window_.ShowReport("");
  // From here on the operator can end the purge, and nothing else.
  window_.Options.AllowOnly({kPurge});
  StopToken batchRuns(window_.Running);
  const Step steps[] = {{CommandId::CapOpen, batch.Caps, kAfterCaps},
                        {CommandId::VerifyDispensing, "", 0},
                        {CommandId::ValvesOn, batch.Circuits, kAfterValves},
                        {CommandId::MotorOn, batch.Motors, kAfterMotors, batch.Speeds}};
  for (const Step& step : steps) {
    if (window_.IsStopped()) return true;
    if (!sender_.SendElements(step.Row, step.Elements, step.Speeds)) return false;
    window_.AbortableWait(step.Pause);
  }
  return window_.IsStopped() || (CheckMachineErrors() && PurgeWatch());
}

// Serves no events: nothing may come between the motors' end and the closing of the caps.
bool PurgeProcess::End(const Batch& batch) {
  const Step steps[] = {{CommandId::MotorOff, batch.Motors, kAfterValves},
                        {CommandId::ValvesOff, batch.Circuits, kAfterCaps},
                        {CommandId::CapClose, batch.Caps, 0}};
  return std::all_of(std::begin(steps), std::end(steps), [this](const Step& step) {
    if (!sender_.SendElements(step.Row, step.Elements)) return false;
    window_.Work.Screen.Time().Sleep(step.Pause);
    return true;
  });
}

void PurgeProcess::TellEnd(bool good) {
  std::string told = Framed("Errors during PURGE process ending!");
  if (!good) {
    Forget();
  } else if (remaining_.empty()) {
    told = "PURGE process ended !";
  } else {
    told = Lines({"PURGE process ended !", "Select PURGE again to continue",
                  "  with the remaining circuits !"});
  }
  window_.Work.Screen.Time().Sleep(kBeforeReport);
  window_.AddToReport(told);
}

bool PurgeProcess::PurgeWatch() {
  const std::string report = window_.TextOutput.Text;
  bool good = true;
  while (good && !window_.IsSaid(Wish::Finish)) {
    window_.ShowReport(report);  // the report of the last round makes way for the next
    good = WatchRound();
  }
  return good;
}

// True too if the operator ended it in one of the waits.
bool PurgeProcess::WatchRound() {
  if (window_.AbortableWait(kBeforeVerify, Wish::Finish)) return true;
  if (!sender_.SendElements(CommandId::VerifyDispensing)) return false;
  if (window_.AbortableWait(kBeforeStatus, Wish::Finish)) return true;
  return CheckMachineErrors();
}

bool PurgeProcess::CheckMachineErrors() {
  if (window_.Work.Decoder.StatusErrorCount(window_.Send(CommandId::ReadStatus)) == 0) return true;
  window_.AddToReport(window_.Description(CommandId::ReadInputs) + " ... " +
                      Lines({"Failure ! Error condition(s) found on the machine!", "",
                             "Please:", "1) wait for the process end,", "2) exit from this menu,",
                             "3) check machine error condition(s)"}));
  return false;
}

}  // namespace tintbench::commands
