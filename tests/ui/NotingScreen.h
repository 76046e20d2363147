// A screen for tests: it notes every box and question and answers it, and has no windows; the
// operator does what the test has told, in turn or at its time.
#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Screen.h"

namespace tintbench::testing {

// Answers every box with OK, and gives every question up, unless `Answers` and `Replies` say
// otherwise. Once the main window shows, calls `OnMainWindow`, does what is in `Hand`, one thing at
// a time between events, then what has a time, and closes the windows from the front one back.
class NotingScreen final : public ui::Screen {
 public:
  explicit NotingScreen(base::Clock& clock) : ui::Screen(clock) {}

  std::vector<ui::Box> Boxes;
  std::vector<ui::Question> Questions;
  std::deque<ui::Answer> Answers;   // to the next boxes; OK behind the last
  std::deque<std::string> Replies;  // to the next questions; given up behind the last
  std::vector<ui::FileRequest> Requests;
  std::deque<std::string> Paths;  // to the next file dialogs; given up behind the last
  std::function<void()> OnMainWindow;
  std::deque<std::function<void()>> Hand;

  // Does something with no other hand moving.
  void Alone(const std::function<void()>& act) {
    const bool before = std::exchange(waiting_, true);
    act();
    waiting_ = before;
  }

  // Has the hand do something in so many seconds, whatever process waits then.
  void After(double seconds, std::function<void()> act) {
    later_.emplace(Time().Now() + seconds, std::move(act));
  }

  // Lets time pass.
  void Pass(double seconds) {
    Alone([&] {
      for (const double end = Time().Now() + seconds; Time().Now() < end;) Idle(end - Time().Now());
    });
  }

  ui::Answer Ask(const ui::Box& box) override {
    Boxes.push_back(box);
    if (IsClosingAll()) return ui::WayOut(box.Buttons);
    return Next(Answers).value_or(ui::Answer::OK);
  }
  std::optional<std::string> Ask(const ui::Question& question) override {
    Questions.push_back(question);
    if (IsClosingAll()) return std::nullopt;
    return Next(Replies);
  }
  std::optional<std::string> Ask(const ui::FileRequest& request) override {
    Requests.push_back(request);
    return Next(Paths);
  }
  double TextWidth(const ui::Form&, std::string_view text) const override {
    return static_cast<double>(text.size());
  }

 protected:
  bool ServeOperator() override {
    if (Front() == nullptr || Front()->IsSplash() || waiting_ || IsClosingAll()) return false;
    if (OnMainWindow) {
      Alone(std::exchange(OnMainWindow, nullptr));
    } else if (!Hand.empty()) {
      (*Next(Hand))();
    } else if (!later_.empty()) {
      if (Time().Now() < later_.begin()->first) return false;
      const std::function<void()> act = std::move(later_.begin()->second);
      later_.erase(later_.begin());
      act();
    } else {
      Alone([this] { CloseByOperator(*Front()); });
    }
    return true;
  }
  // What was due before anybody looked.
  bool ServeBacklog() override {
    return !later_.empty() && Time().Now() >= later_.begin()->first && ServeOperator();
  }
  void AwaitOperator(double when) override {
    const double due = later_.empty() ? when : std::max(Time().Now(), later_.begin()->first);
    Time().SleepUntil(std::min({when, due, Time().Now() + 1.0}));
  }
  void Appeared(ui::Form&, bool) override {}
  void Vanished(ui::Form&) override {}

 private:
  // Takes the first one out of a queue.
  template <typename Thing>
  static std::optional<Thing> Next(std::deque<Thing>& queue) {
    if (queue.empty()) return std::nullopt;
    std::optional<Thing> first = std::move(queue.front());
    queue.pop_front();
    return first;
  }

  bool waiting_ = false;
  std::multimap<double, std::function<void()>> later_;
};

}  // namespace tintbench::testing
