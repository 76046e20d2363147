// A screen for tests: it notes every box and answers it, and has no windows and no operator.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "ui/Screen.h"

namespace tintbench::testing {

// Answers every box with OK. Once the main window shows, calls `OnMainWindow` and closes it.
class NotingScreen final : public ui::Screen {
 public:
  explicit NotingScreen(base::Clock& clock) : ui::Screen(clock) {}

  std::vector<ui::Box> Boxes;
  std::function<void()> OnMainWindow;

  ui::Answer Ask(const ui::Box& box) override {
    Boxes.push_back(box);
    return ui::Answer::OK;
  }
  std::optional<std::string> Ask(const ui::Question&) override { return std::nullopt; }
  std::optional<std::string> Ask(const ui::FileRequest&) override { return std::nullopt; }
  double TextWidth(const ui::Form&, std::string_view text) const override {
    return static_cast<double>(text.size());
  }

 protected:
  bool ServeOperator() override {
    if (Front() == nullptr || Front()->IsSplash() || closing_) return false;
    closing_ = true;
    if (OnMainWindow) OnMainWindow();
    CloseByOperator(*Front());
    return true;
  }
  void AwaitOperator(double when) override {
    Time().SleepUntil(std::min(when, Time().Now() + 1.0));
  }
  void Appeared(ui::Form&, bool) override {}
  void Vanished(ui::Form&) override {}

 private:
  bool closing_ = false;
};

}  // namespace tintbench::testing
