// A screen for tests: it notes every box and answers it, and has no windows and no operator.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Screen.h"

namespace tintbench::testing {

// Answers every box with OK, and questions with `Replies` in turn, giving up when there is none
// left. Once the main window shows, calls `OnMainWindow`, does what is in
// `Hand`, one thing at a time between events, and closes the windows from the front one back.
class NotingScreen final : public ui::Screen {
 public:
  explicit NotingScreen(base::Clock& clock) : ui::Screen(clock) {}

  std::vector<ui::Box> Boxes;
  std::vector<ui::Question> Questions;
  std::deque<std::string> Replies;
  std::function<void()> OnMainWindow;
  std::deque<std::function<void()>> Hand;

  // Does something with no other hand moving.
  void Alone(const std::function<void()>& act) {
    const bool before = std::exchange(waiting_, true);
    act();
    waiting_ = before;
  }

  // Lets time pass.
  void Pass(double seconds) {
    Alone([&] {
      for (const double end = Time().Now() + seconds; Time().Now() < end;) Idle(end - Time().Now());
    });
  }

  ui::Answer Ask(const ui::Box& box) override {
    Boxes.push_back(box);
    return ui::Answer::OK;
  }
  std::optional<std::string> Ask(const ui::Question& question) override {
    Questions.push_back(question);
    if (Replies.empty()) return std::nullopt;
    std::string reply = std::move(Replies.front());
    Replies.pop_front();
    return reply;
  }
  std::optional<std::string> Ask(const ui::FileRequest&) override { return std::nullopt; }
  double TextWidth(const ui::Form&, std::string_view text) const override {
    return static_cast<double>(text.size());
  }

 protected:
  bool ServeOperator() override {
    if (Front() == nullptr || Front()->IsSplash() || waiting_) return false;
    if (OnMainWindow) {
      Alone(std::exchange(OnMainWindow, nullptr));
    } else if (!Hand.empty()) {
      const std::function<void()> next = std::move(Hand.front());
      Hand.pop_front();
      next();
    } else {
      Alone([this] { CloseByOperator(*Front()); });
    }
    return true;
  }
  void AwaitOperator(double when) override {
    Time().SleepUntil(std::min(when, Time().Now() + 1.0));
  }
  void Appeared(ui::Form&, bool) override {}
  void Vanished(ui::Form&) override {}

 private:
  bool waiting_ = false;
};

}  // namespace tintbench::testing
