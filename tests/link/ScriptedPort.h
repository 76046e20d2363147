// A serial port whose other end plays a script: what the program must write next, what comes back
// and when. A wrong, missing or extra byte fails the test that uses it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "base/Clock.h"
#include "link/SerialPort.h"

namespace tintbench::testing {

// The bytes with their control characters made readable: "A<06>".
inline std::string Readable(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    const unsigned code = static_cast<unsigned char>(byte);
    char hex[8];
    std::snprintf(hex, sizeof hex, "<%02X>", code);
    text += code >= 32 && code < 127 ? std::string(1, byte) : std::string(hex);
  }
  return text;
}

// Steps run in their order. One that lets time pass starts when the step before it is done: an
// `Expect` when its last byte was written, the first step when the port is first touched. While
// time passes or bytes wait to be delivered the program must not write, so a `Wait` is also a
// check that the program took its time.
class ScriptedPort final : public link::SerialPort {
 public:
  // The line of the test that a step was written in.
  struct Where {
    const char* File;
    int Line;
    static Where Current(const char* file = __builtin_FILE(), int line = __builtin_LINE()) {
      return {file, line};
    }
  };

  // An opening that was tried, with what it was tried on.
  struct Opening {
    int Port;
    std::string Settings;
    bool Good;
    friend bool operator==(const Opening&, const Opening&) = default;
  };

  explicit ScriptedPort(base::Clock& clock, bool open = true) : clock_(clock), open_(open) {}
  ~ScriptedPort() override { Finish(); }
  ScriptedPort(const ScriptedPort&) = delete;
  ScriptedPort& operator=(const ScriptedPort&) = delete;

  // The program must write exactly these bytes, in one `Output` or several.
  ScriptedPort& Expect(std::string_view bytes, Where where = Where::Current()) {
    if (!bytes.empty()) steps_.push_back({Want{std::string(bytes)}, where});
    return *this;
  }
  // These bytes arrive, as fast as the input buffer takes them.
  ScriptedPort& Reply(std::string_view bytes, Where where = Where::Current()) {
    if (!bytes.empty()) steps_.push_back({Delivery{std::string(bytes)}, where});
    return *this;
  }
  // The other end is silent for so long.
  ScriptedPort& Wait(double seconds, Where where = Where::Current()) {
    steps_.push_back({Silence{seconds}, where});
    return *this;
  }
  // These bytes arrive one by one with so many seconds before each.
  ScriptedPort& Trickle(std::string_view bytes, double seconds, Where where = Where::Current()) {
    for (const char byte : bytes) Wait(seconds, where).Reply({&byte, 1}, where);
    return *this;
  }
  // The line is lost: the port closes by itself.
  ScriptedPort& Disconnect(Where where = Where::Current()) {
    return Do([this] { Close(); }, where);
  }
  // Something happens at this place of the script.
  ScriptedPort& Do(std::function<void()> action, Where where = Where::Current()) {
    steps_.push_back({Action{std::move(action)}, where});
    return *this;
  }

  // Says which openings succeed; all of them if not set.
  std::function<bool(int port, const std::string& settings)> CanOpen;
  // All openings that were tried, in their order.
  std::vector<Opening> Openings;

  // Fails the test for steps that were not played; only silence may be left. Called at the end of
  // the port's life as well.
  void Finish() {
    Advance();
    while (!steps_.empty() && std::holds_alternative<Silence>(steps_.back().What)) {
      steps_.pop_back();
    }
    if (!broken_ && !steps_.empty()) Fail("the script stopped here" + MissingText());
    steps_.clear();
  }
  // What arrived and was not read.
  const std::string& Unread() const { return input_; }

  int CommPort() const override { return commPort_; }
  void CommPort(int number) override { commPort_ = number; }
  std::string Settings() const override { return settings_; }
  void Settings(const std::string& settings) override { settings_ = settings; }
  int InBufferSize() const override { return inBufferSize_; }
  void InBufferSize(int bytes) override { inBufferSize_ = bytes; }
  int OutBufferSize() const override { return outBufferSize_; }
  void OutBufferSize(int bytes) override { outBufferSize_ = bytes; }
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }

  bool PortOpen() const override { return open_; }
  bool PortOpen(bool open) override {
    Advance();
    if (!open) {
      Close();
      return true;
    }
    const bool good = !open_ && (!CanOpen || CanOpen(commPort_, settings_));
    Openings.push_back({commPort_, settings_, good});
    if (good) {
      input_.clear();
      open_ = true;
    }
    return good;
  }

  std::size_t InBufferCount() override {
    Advance();
    return open_ ? input_.size() : 0;
  }

  std::string Input() override {
    std::size_t count = InBufferCount();
    if (inputLen_ > 0) count = std::min(count, static_cast<std::size_t>(inputLen_));
    const std::string bytes = input_.substr(0, count);
    input_.erase(0, count);
    return bytes;
  }

  void Output(std::string_view bytes) override {
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      Advance();
      if (!open_ || broken_) return;
      Take(bytes.substr(i));
    }
  }

  bool WaitForInput(double seconds) override {
    const double until = clock_.Now() + seconds;
    while (InBufferCount() == 0) {
      if (clock_.Now() >= until) return false;
      clock_.SleepUntil(std::min(until, NextEvent()));
    }
    return true;
  }

 private:
  struct Want {
    std::string Bytes;
    std::size_t Done = 0;
  };
  struct Delivery {
    std::string Bytes;
  };
  struct Silence {
    double Seconds;
  };
  struct Action {
    std::function<void()> Run;
  };
  struct Step {
    std::variant<Want, Delivery, Silence, Action> What;
    Where Place;
  };

  // Waits are sums of parts of seconds; the last digits are no lateness.
  static constexpr double kTolerance = 1e-6;
  static constexpr double kNever = 1e300;

  void Close() {
    open_ = false;
    input_.clear();
  }

  // The time at which the step in hand is over by itself.
  double NextEvent() const {
    if (steps_.empty() || broken_) return kNever;
    const auto* silence = std::get_if<Silence>(&steps_.front().What);
    return silence == nullptr ? kNever : since_ + silence->Seconds;
  }

  // Plays all steps that are due.
  void Advance() {
    if (!started_) since_ = clock_.Now();
    started_ = true;
    while (!broken_ && !steps_.empty() && PlayFirst()) {
    }
  }

  void StepDone(double when) {
    steps_.pop_front();
    since_ = when;
  }

  // True if the first step is over.
  bool PlayFirst() {
    Step& step = steps_.front();
    if (const auto* silence = std::get_if<Silence>(&step.What)) {
      const double end = since_ + silence->Seconds;
      if (clock_.Now() < end - kTolerance) return false;
      StepDone(end);
      return true;
    }
    if (auto* delivery = std::get_if<Delivery>(&step.What)) return Deliver(*delivery);
    if (auto* action = std::get_if<Action>(&step.What)) {
      const auto run = std::move(action->Run);
      StepDone(clock_.Now());
      run();
      return true;
    }
    return false;
  }

  bool Deliver(Delivery& delivery) {
    const std::size_t size = static_cast<std::size_t>(inBufferSize_);
    const std::size_t room = size - std::min(size, input_.size());
    const std::size_t count = std::min(room, delivery.Bytes.size());
    if (open_) input_ += delivery.Bytes.substr(0, count);
    delivery.Bytes.erase(0, open_ ? count : delivery.Bytes.size());
    if (!delivery.Bytes.empty()) return false;
    StepDone(clock_.Now());
    return true;
  }

  // Checks the first of the bytes being written.
  void Take(std::string_view bytes) {
    auto* want = steps_.empty() ? nullptr : std::get_if<Want>(&steps_.front().What);
    if (want == nullptr) return Fail("wrote without being expected to: " + Readable(bytes));
    if (want->Bytes[want->Done] != bytes[0]) {
      return Fail("wrong from byte " + std::to_string(want->Done + 1) + " on\n  expected: " +
                  Readable(want->Bytes.substr(want->Done)) + "\n  written:  " + Readable(bytes));
    }
    if (++want->Done == want->Bytes.size()) StepDone(clock_.Now());
  }

  std::string MissingText() const {
    const auto* want = std::get_if<Want>(&steps_.front().What);
    if (want == nullptr) return "";
    return "\n  never written: " + Readable(want->Bytes.substr(want->Done));
  }

  // After the first failure the line is dead, for what follows would only be its echo.
  void Fail(const std::string& what) {
    broken_ = true;
    const std::string when = "at " + std::to_string(clock_.Now()) + " s: ";
    if (steps_.empty()) {
      ADD_FAILURE() << when << what << "\n  behind the script's end";
    } else {
      const Where& place = steps_.front().Place;
      ADD_FAILURE_AT(place.File, place.Line) << when << what;
    }
  }

  base::Clock& clock_;
  bool open_;
  bool started_ = false;
  bool broken_ = false;
  double since_ = 0;
  std::deque<Step> steps_;
  std::string input_;
  int commPort_ = 1;
  std::string settings_ = "19200,N,8,1";
  int inBufferSize_ = 1048;
  int outBufferSize_ = 1048;
  int inputLen_ = 0;
};

}  // namespace tintbench::testing
