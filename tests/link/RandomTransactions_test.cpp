// A million transactions with a machine that answers whole, half, late, doubled, too long, not at
// all or with what was asked of somebody else. A model of what is due says what each of them gives
// back and when: an answer is whole by its count, or by a line that was quiet; else it is what has
// come at the first look beyond the time-out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <deque>
#include <functional>
#include <random>
#include <string>
#include <utility>

#include "link/ScriptedPort.h"
#include "link/Transaction.h"
#include "ui/NotingScreen.h"

namespace tintbench::link {
namespace {

using testing::NotingScreen;
using testing::Readable;

constexpr std::uint32_t kSeeds = 100;
#ifdef __SANITIZE_ADDRESS__
constexpr int kTransactions = 1000;  // of each seed; a tenth, for the sanitizers' slowness
#else
constexpr int kTransactions = 10000;
#endif

// All times are in microseconds. Looks fall on whole milliseconds, arrivals between them.
using Micros = std::int64_t;
constexpr Micros kMilli = 1000;
constexpr Micros kLook = 300 * kMilli;
constexpr Micros kQuiet = 50 * kMilli;

double Seconds(Micros time) { return static_cast<double>(time) * 1e-6; }

struct Arrival {
  Micros When;
  char Byte;
};
using Arrivals = std::deque<Arrival>;  // by time

// A port whose far end has decided beforehand when each of its bytes will arrive.
class TimetablePort final : public SerialPort {
 public:
  explicit TimetablePort(base::Clock& clock) : clock_(clock) {}

  Arrivals Coming;
  std::string Written;
  std::function<void()> OnOutput;

  int CommPort() const override { return 1; }
  void CommPort(int) override {}
  std::string Settings() const override { return "19200,N,8,1"; }
  void Settings(const std::string&) override {}
  bool PortOpen() const override { return open_; }
  bool PortOpen(bool open) override {
    open_ = open;
    return true;
  }
  int InBufferSize() const override { return 1048; }
  void InBufferSize(int) override {}
  int OutBufferSize() const override { return 1048; }
  void OutBufferSize(int) override {}
  int InputLen() const override { return 0; }
  void InputLen(int) override {}
  std::size_t InBufferCount() override {
    while (!Coming.empty() && Seconds(Coming.front().When) <= clock_.Now()) {
      arrived_ += Coming.front().Byte;
      Coming.pop_front();
    }
    return arrived_.size();
  }
  std::string Input() override {
    InBufferCount();
    return std::exchange(arrived_, {});
  }
  void Output(std::string_view bytes) override {
    Written += bytes;
    if (OnOutput) OnOutput();
  }
  bool WaitForInput(double seconds) override {
    clock_.Sleep(seconds);
    return InBufferCount() > 0;
  }

 private:
  base::Clock& clock_;
  bool open_ = true;
  std::string arrived_;
};

// What is due for one transaction.
struct Due {
  std::string Answer;
  Micros End;
};

// `line` has all bytes that weren't read before; those of the answer are taken out of it. `count`
// is 0 for an answer of unknown length.
Due Model(Arrivals& line, Micros start, std::size_t count, Micros timeout) {
  const auto arrivedBy = [&line](Micros when) {
    const auto later = [when](const Arrival& arrival) { return arrival.When > when; };
    return static_cast<std::size_t>(std::find_if(line.begin(), line.end(), later) - line.begin());
  };
  const Micros last = start + (timeout / kLook + 1) * kLook;
  Micros end = start + kLook;
  for (; end < last; end += kLook) {
    const std::size_t present = arrivedBy(end);
    const bool whole = count > 0 ? present == count : present == arrivedBy(end - kQuiet);
    if (whole && present > 0) break;
  }
  Due due{{}, end};
  for (std::size_t left = arrivedBy(end); left > 0; --left) {
    due.Answer += line.front().Byte;
    line.pop_front();
  }
  return due;
}

// How an answer goes wrong on its way.
enum class Mood { Whole, Half, Late, Doubled, Foreign, Long, Silent, Trickling, Count };

class Desk {
 public:
  explicit Desk(std::uint32_t seed) : random_(seed) {}

  // One transaction. Says what is wrong with it; empty if nothing is.
  std::string Transact() {
    const int row = Pick(kCommandRows);
    CommandCall call(commands_, row, std::string(static_cast<std::size_t>(2 * Pick(6)), '7'));
    const std::string command = call.Row().Command;
    const std::size_t length = AnswerLength(call.Row().AnswerLength, command);
    auto timeout = static_cast<Micros>(call.Row().TimeoutSeconds) * 1000 * kMilli;
    // A look at the very moment of the time-out would hang on the last digit of a sum.
    if (timeout % kLook == 0) timeout += 100 * kMilli;
    call.Row().TimeoutSeconds = static_cast<float>(Seconds(timeout));
    start_ += Pick(3) * 100 * kMilli;
    clock_.SleepUntil(Seconds(start_));
    if (Pick(200) == 0) return TransactOnClosedPort(row);
    Schedule(length == 0 ? 1 + static_cast<std::size_t>(Pick(30)) : length, timeout);
    port_.Coming = unread_;
    const Due due = Model(unread_, start_, length, timeout);
    start_ = due.End;
    return Compare(row, command, due);
  }

 private:
  int Pick(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  static std::size_t AnswerLength(int length, const std::string& command) {
    return length < 0 ? command.size() - 2 : static_cast<std::size_t>(length);
  }

  // An answer of bytes that begin to arrive after `delay`, each `gap` behind the other.
  void Arrive(std::size_t count, Micros delay, Micros gap = kMilli) {
    Micros when = start_ + delay + kMilli / 2;
    if (!unread_.empty()) when = std::max(when, unread_.back().When + kMilli);
    for (; count > 0; --count, when += gap) {
      unread_.push_back({when, static_cast<char>(random_() & 0xFFU)});
    }
  }

  void Schedule(std::size_t length, Micros timeout) {
    const Micros delay = Pick(Pick(4) == 0 ? 1500 : 200) * kMilli;
    switch (static_cast<Mood>(Pick(static_cast<int>(Mood::Count)))) {
      case Mood::Half:
        Arrive(length / 2, delay);
        if (Pick(2) == 0) Arrive(length - length / 2, delay + Pick(4000) * kMilli);
        return;
      case Mood::Late:
        return Arrive(length, timeout - 500 * kMilli + Pick(1000) * kMilli);
      case Mood::Doubled:
        Arrive(length, delay);
        return Arrive(length, delay + Pick(1000) * kMilli);
      case Mood::Foreign:
        return Arrive(1 + static_cast<std::size_t>(Pick(23)), delay);
      case Mood::Long:
        return Arrive(length + 1 + static_cast<std::size_t>(Pick(3)), delay);
      case Mood::Trickling:
        return Arrive(length, delay, (1 + Pick(90)) * kMilli);
      case Mood::Silent:
        return;
      default:
        return Arrive(length, delay);
    }
  }

  std::string TransactOnClosedPort(int row) {
    port_.PortOpen(false);
    const std::string answer = transaction_.SendCommand(form_, row);
    port_.PortOpen(true);
    const bool said = screen_.Boxes.size() == 1;
    screen_.Boxes.clear();
    const bool right = said && answer.empty() && !transaction_.IsSerialBusy();
    return right ? std::string() : "a closed port gave " + Readable(answer);
  }

  std::string Compare(int row, const std::string& command, const Due& due) {
    std::string meanwhile;  // what a transaction gives that begins while this one runs
    port_.OnOutput = [&] { meanwhile = transaction_.SendCommand(form_, Pick(kCommandRows)); };
    port_.Written.clear();
    const std::string answer = transaction_.SendCommand(form_, row);
    const double late = clock_.Now() - Seconds(due.End);
    const std::string which = "to " + command + " ";
    if (answer != due.Answer) {
      return which + Readable(answer) + " came back, and not " + Readable(due.Answer);
    }
    if (std::abs(late) > 0.001) return which + "an answer came late by " + std::to_string(late);
    if (port_.Written != command) return which + Readable(port_.Written) + " was sent";
    if (!meanwhile.empty()) return which + "a second one got " + Readable(meanwhile);
    if (!screen_.Boxes.empty() || transaction_.IsSerialBusy()) return which + "no end was found";
    return {};
  }

  std::mt19937 random_;
  base::VirtualClock clock_;
  base::StandardFileSystem files_;
  TimetablePort port_{clock_};
  CommandTable commands_;
  NotingScreen screen_{clock_};
  DebugLog log_{files_, ""};
  Transaction transaction_{port_, clock_, commands_, screen_, log_};
  ui::Form form_{"Form1"};
  Arrivals unread_;  // what the model hasn't taken yet
  Micros start_ = 0;
};

TEST(RandomTransactions, GiveBackWhatIsDueEachTime) {
  for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
    Desk desk(seed);
    for (int i = 0; i < kTransactions; ++i) {
      const std::string wrong = desk.Transact();
      ASSERT_EQ(wrong, "") << "in transaction " << i << " of seed " << seed;
    }
  }
}

}  // namespace
}  // namespace tintbench::link
