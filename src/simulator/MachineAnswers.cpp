#include <algorithm>
#include <array>
#include <utility>

#include "simulator/Machine.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

// More answers under way than anyone can wait for; what comes beyond them is dropped.
constexpr std::size_t kMostPending = 64;

// The commands that are kept for checks.
constexpr std::size_t kMostHeard = 64;

constexpr std::string_view kMasterFunction = "01SM";
constexpr std::string_view kMasterData = "000";
constexpr std::string_view kMasterAnswer =
    "\x01"
    "01C10043000"
    "\x03";

constexpr std::string_view kMasterRefusal =
    "\x01"
    "01C00042000"
    "\x03";

// The check field of a master frame: an exclusive or over all characters but the field itself,
// each half of the result as one character from "0" up.
std::string MasterCheck(std::string_view text) {
  unsigned check = 0;
  for (const char character : text) check ^= static_cast<unsigned char>(character);
  return {'0', '0', static_cast<char>('0' + (check >> 4)), static_cast<char>('0' + (check & 15U))};
}

bool IsStartOfService(std::string_view text) {
  const std::string checked = std::string(kMasterFunction) + std::string(kMasterData);
  return text == std::string(kMasterFunction) + MasterCheck(checked) + std::string(kMasterData);
}

Reply RefusalOf(const Frame& frame) {
  return frame.IsMaster ? Reply{std::string(kMasterRefusal)} : Refused();
}

Reply AnswerTo(Plant& plant, const Frame& frame, const CommandRow* row, double now) {
  if (frame.IsMaster) {
    return {std::string(kMasterAnswer), Reply::kPromptSeconds, Task::TakeMasterService};
  }
  if (row == nullptr) return Refused();
  const std::string argument = frame.Text.substr(row->Mnemonic.size());
  return Fits(*row, argument) ? row->Run(plant, argument, now) : Refused();
}

// What the machine says to a status enquiry; to that one, which firmware it has.
std::string ForeignAnswer(Plant& plant, std::string_view name, double now) {
  const CommandRow* other = FindCommand(name == "S" ? "JF" : "S");
  return other->Run(plant, {}, now).Text;
}

void GiveWrongEcho(std::string& text) {
  if (text.size() > 1 && AllDigits(text.substr(1, 1))) {
    text[1] = static_cast<char>('0' + '9' - text[1]);
  }
}

}  // namespace

// The service line always takes commands; the master line only between start and return of
// service.
bool Machine::Listens(const Frame& frame) const {
  if (frame.IsMaster) return IsStartOfService(frame.Text);
  return line_ == SerialLine::Service || masterService_;
}

void Machine::Obey(const Frame& frame) {
  if (!Listens(frame)) return;
  if (!frame.IsMaster) {
    if (heard_.size() == kMostHeard) heard_.pop_front();
    heard_.push_back("#" + frame.Text + "*");
  }
  plant_.Settle(now_);
  const CommandRow* row = frame.IsMaster ? nullptr : FindCommand(frame.Text);
  const std::string_view name =
      frame.IsMaster ? kMasterFunction : (row != nullptr ? row->Mnemonic : frame.Text);
  if (faults_.Strike(Fault::Silent, name, frame.Text)) return;
  Reply reply = faults_.Strike(Fault::Refuse, name, frame.Text)
                    ? RefusalOf(frame)
                    : AnswerTo(plant_, frame, row, now_);
  Disturb(reply, name, frame.Text);
}

// Schedules the answer, with the faults that lie on it.
void Machine::Disturb(Reply& reply, std::string_view name, const std::string& text) {
  std::string& answer = reply.Text;
  if (faults_.Strike(Fault::Foreign, name, text)) answer = ForeignAnswer(plant_, name, now_);
  double when = now_ + reply.AfterSeconds;
  if (faults_.Strike(Fault::Fail, name, text) && answer.size() > 1 && answer.back() == 'K') {
    answer.back() = 'N';
  }
  if (faults_.Strike(Fault::Echo, name, text)) GiveWrongEcho(answer);
  if (const auto cut = faults_.Strike(Fault::Short, name, text)) {
    answer.resize(answer.size() - std::min(answer.size(), static_cast<std::size_t>(*cut)));
  }
  if (const auto more = faults_.Strike(Fault::Long, name, text)) {
    answer.append(static_cast<std::size_t>(std::min(*more, 1000.0)), 'X');
  }
  if (faults_.Strike(Fault::Twice, name, text)) answer += answer;
  if (const auto late = faults_.Strike(Fault::Late, name, text)) when += *late;
  if (const auto pause = faults_.Strike(Fault::Pause, name, text)) {
    Schedule(when, answer.substr(0, answer.size() / 2), Task::None);
    answer.erase(0, answer.size() / 2);
    when += *pause;
  }
  Schedule(when, answer, reply.Then);
}

void Machine::Schedule(double when, std::string answer, Task then) {
  if (pending_.size() >= kMostPending) return;
  const auto place =
      std::upper_bound(pending_.begin(), pending_.end(), when,
                       [](double time, const Pending& pending) { return time < pending.When; });
  pending_.insert(place, {when, std::move(answer), then});
}

}  // namespace tintbench::simulator
