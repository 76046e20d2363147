// A working day of polling on the virtual clock, with a machine and a line that are disturbed at
// random. After each tick the panels and the line's quality are held against what really came over
// the line; after the day the heap and the ticks must be what they were at its beginning.
#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>
#endif

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "shell/TestProgram.h"

namespace tintbench::testing {

namespace {

constexpr double kHour = 3600;
#ifdef TINTBENCH_SANITIZED
constexpr double kDay = 2 * kHour;  // for the sanitizers' slowness
#else
constexpr double kDay = 8 * kHour;
#endif
constexpr double kCalm = 120;  // seconds in which the machine gets over what it was told by mistake
constexpr std::size_t kTicksCompared = 8;
constexpr std::size_t kLeastOfEach = 100;
constexpr const char* kInvalid = "[ INVALID DATA ]";

constexpr std::array kFaults{
    "drop 0.05",    "garble 0.1", "garble 0.01",   "flip 0.1",     "insert 0.05", "double 0.05",
    "double 0.001", "silent",     "silent 1 #ir*", "silent 1 #s*", "late 1",      "late 5 #s*",
    "short 3",      "short 2",    "long 2",        "pause 0.3",    "refuse #ir*", "refuse #ur*",
    "foreign",      "twice",      "reset 2",       "babble 3",
};

#if defined(__GLIBC__) && !defined(TINTBENCH_SANITIZED)
constexpr bool kHeapIsMeasured = true;
std::size_t HeapInUse() { return mallinfo2().uordblks; }
#else
constexpr bool kHeapIsMeasured = false;
std::size_t HeapInUse() { return 0; }
#endif
// What the allocator keeps at hand goes up and down; a byte lost by each transaction is more.
constexpr std::size_t kHeapPlay = 8U << 10U;

enum Worth : std::size_t { kGood, kSilent, kBad, kWorths };

struct Question {
  std::string Command;
  std::string Answer;
  double Start;
  double End;
};

Worth Judge(const Question& question) {
  const std::string& answer = question.Answer;
  if (answer.empty()) return kSilent;
  const char first = static_cast<char>(std::toupper(static_cast<unsigned char>(answer[0])));
  if (question.Command == "#s*") {
    return std::string_view("NKEB").find(first) != std::string_view::npos ? kGood : kBad;
  }
  return first == 'A' && answer.size() == (question.Command == "#ir*" ? 9 : 5) ? kGood : kBad;
}

// True if the bit has that level in a text of hexadecimal digits, its last digit being the lowest.
bool HasLevel(const std::string& digits, int bit, bool level) {
  const char digit = digits[digits.size() - 1 - static_cast<std::size_t>(bit / 4)];
  const int folded = std::tolower(static_cast<unsigned char>(digit));
  const auto value = std::string_view("0123456789abcdef").find(static_cast<char>(folded));
  return value != std::string_view::npos && ((value >> (bit % 4)) & 1U) == (level ? 1U : 0U);
}

class LongPolling : public ::testing::TestWithParam<std::uint32_t> {
 protected:
  void Watch() {
    NotingPort& port = *test.Port;
    port.Written.clear();
    port.OnWriting = [this, &port] {
      const double now = test.Clock.Now();
      asked_.push_back({std::exchange(port.Written, {}), {}, now, now});
    };
    port.OnReading = [this](const std::string& bytes) {
      asked_.back().Answer += bytes;
      asked_.back().End = test.Clock.Now();
    };
    const ui::Event<> tick = Window().Timer1.Tick;
    Window().Timer1.Tick = [this, tick] {
      tick.Raise();
      if (!HasFailure()) Check(std::exchange(asked_, {}));
    };
  }

  // Lets the machine and the line go wrong in one way after the other until the clock reads `when`.
  void DisturbUntil(double when) {
    while (test.Clock.Now() < when && !HasFailure()) {
      for (int faults = Pick(4); faults > 0; --faults) {
        Tell(std::string("fault ") + kFaults.at(static_cast<std::size_t>(Pick(kFaults.size()))));
      }
      test.Screen.Pass(5 + Pick(55));
      Tell("fault none");
      test.Screen.Pass(Pick(20));
    }
  }
  void Calm() {
    Tell("fault none");
    test.Screen.Pass(kCalm);
  }

  shell::Form1& Window() { return test.MainWindow(); }
  void Tell(const std::string& words) { ASSERT_EQ(test.Machine().Tell(words), "") << words; }
  int Pick(std::size_t count) { return static_cast<int>(random_() % count); }

  // The lengths of the latest ticks in milliseconds, the shortest first.
  std::vector<long> LatestLengths() const {
    std::vector<long> lengths;
    for (const double length : lengths_) lengths.push_back(std::lround(length * 1000));
    std::sort(lengths.begin(), lengths.end());
    return lengths;
  }

  TestProgram test;
  std::size_t Ticks = 0;
  std::array<std::size_t, kWorths> Booked{};

 private:
  void Check(const std::vector<Question>& questions) {
    std::string commands;
    for (const Question& question : questions) {
      commands += question.Command;
      Book(question);
      if (question.Command == "#s*") CheckStatus(question);
      if (question.Command == "#ir*") CheckInputs(question);
      if (question.Command == "#ur*") CheckOutputs(question);
    }
    EXPECT_EQ(commands, Ticks++ % 4 == 0 ? "#s*#ir*#ur*" : "#ir*#ur*");
    const std::string& quality = Window().LblQuality.Caption;
    EXPECT_EQ(quality.substr(std::min(quality.find("Last"), quality.size())), LastMinute());
    lengths_.push_back(questions.back().End - questions.front().Start);
    if (lengths_.size() > kTicksCompared) lengths_.pop_front();
  }

  void Book(const Question& question) {
    ++Booked[Judge(question)];
    minute_.emplace_back(question.End, Judge(question));
    while (minute_.front().first < question.End - 60) minute_.pop_front();
  }
  std::string LastMinute() const {
    std::array<int, kWorths> counts{};
    for (const auto& [when, worth] : minute_) ++counts[worth];
    return "Last minute: " + std::to_string(counts[kSilent]) + " silent, " +
           std::to_string(counts[kBad]) + " bad";
  }

  void CheckBox(const ui::CheckBox& box, bool good, bool active) {
    if (box.Tag->empty()) return;
    EXPECT_EQ(box.Enabled.Get(), good) << box.FullName() << " at tick " << Ticks;
    EXPECT_EQ(box.Value.Get(), good && active ? 1 : 0) << box.FullName() << " at tick " << Ticks;
  }
  void CheckInputs(const Question& question) {
    const bool good = Judge(question) == kGood;
    EXPECT_EQ(Window().Panels.ILabel1.Caption.Get() != kInvalid, good) << question.Answer;
    const std::string digits = good ? question.Answer[1] + question.Answer.substr(3) : "";
    for (int bit = 0; bit < state::kInputBits; ++bit) {
      CheckBox(Window().Panels.ICheck1(bit), good, good && HasLevel(digits, bit, bit >= 20));
    }
  }
  void CheckOutputs(const Question& question) {
    const bool good = Judge(question) == kGood;
    EXPECT_EQ(Window().Panels.OLabel1.Caption.Get(), good ? "" : kInvalid) << question.Answer;
    const std::string digits = good ? question.Answer.substr(1, 2) : "";
    for (int bit = 0; bit < state::kOutputBits; ++bit) {
      CheckBox(Window().Panels.OCheck1(bit), good, good && HasLevel(digits, bit, true));
    }
  }
  void CheckStatus(const Question& question) {
    const bool good = Judge(question) == kGood;
    EXPECT_EQ(Window().Panels.ErLabel1.Caption.Get() != kInvalid, good) << question.Answer;
    EXPECT_TRUE(good || Window().Panels.ErText1.Text->empty()) << question.Answer;
  }

  std::mt19937 random_{GetParam()};
  std::vector<Question> asked_;
  std::deque<std::pair<double, Worth>> minute_;
  std::deque<double> lengths_;
};

TEST_P(LongPolling, EndsTheDayAsItBegan) {
  std::vector<long> first;
  const auto day = [&] {
    Watch();
    test.Screen.Pass(kTicksCompared);
    first = LatestLengths();
    Tell("seed " + std::to_string(GetParam()));
    DisturbUntil(kHour);
    Calm();
    const std::size_t heap = HeapInUse();
    EXPECT_EQ(heap > 0, kHeapIsMeasured);
    DisturbUntil(kDay);
    Tell("input 5 on");
    Tell("error none");
    Tell("error 1103");
    Calm();
    EXPECT_LT(HeapInUse(), heap + kHeapPlay);
  };
  test.Screen.Hand = {day};
  ASSERT_EQ(test.Run(), shell::Program::Result::Good);
  EXPECT_EQ(first, (std::vector<long>{600, 600, 600, 600, 600, 600, 900, 900}));
  EXPECT_EQ(first, LatestLengths());
  EXPECT_TRUE(test.Screen.Boxes.empty());
  for (const std::size_t count : Booked) EXPECT_GT(count, kLeastOfEach);
  shell::Form1& window = Window();
  EXPECT_EQ(window.Panels.ICheck1(4).Value, ui::kChecked);
  EXPECT_EQ(window.Panels.ErText1.Text.Get(), "1103 Encoder damaged on motor-pump unit [ 3 ] \r\n");
}

INSTANTIATE_TEST_SUITE_P(Seeds, LongPolling, ::testing::Values(1U, 2U));

}  // namespace

}  // namespace tintbench::testing
