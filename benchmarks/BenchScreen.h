// A screen without windows, for measuring programs that run the whole program.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "ui/Screen.h"

namespace tintbench::bench {

// No operator: every box is answered, and the main window closes once `AtMainWindow` is through.
class BenchScreen final : public ui::Screen {
 public:
  using ui::Screen::Screen;
  std::function<void()> AtMainWindow;
  ui::Answer Ask(const ui::Box&) override { return ui::Answer::OK; }
  std::optional<std::string> Ask(const ui::Question&) override { return std::nullopt; }
  std::optional<std::string> Ask(const ui::FileRequest&) override { return std::nullopt; }
  double TextWidth(const ui::Form&, std::string_view text) const override {
    return static_cast<double>(text.size());
  }

 protected:
  bool ServeOperator() override {
    // A transfer serves events too; nobody closes the window while it is measured.
    if (Front() == nullptr || measuring_) return false;
    if (!Front()->IsSplash()) {
      measuring_ = true;
      AtMainWindow();
      measuring_ = false;
    }
    CloseByOperator(*Front());
    return true;
  }
  void AwaitOperator(double when) override { Time().SleepUntil(when); }
  void Appeared(ui::Form&, bool) override {}
  void Vanished(ui::Form&) override {}

 private:
  bool measuring_ = false;
};

}  // namespace tintbench::bench
