// The screen with real windows: shows each form by the view that is known for it, serves the
// operator's hand, and asks by boxes.
#pragma once

#include <QEventLoop>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <vector>

#include "qt/FormWindow.h"
#include "qt/KeyGate.h"
#include "ui/Screen.h"

namespace tintbench::desktop {

// Needs an Application, or a QApplication, that outlives it.
class DesktopScreen final : public ui::Screen {
 public:
  explicit DesktopScreen(base::Clock& clock);
  ~DesktopScreen() override;

  // Windows of that class are shown by what `make` makes. One without a view of its own is shown by
  // one that puts its controls in rows.
  template <typename Window>
  void AddView(QWidget* (*make)(Window& form, QWidget* parent)) {
    views_[typeid(Window)] = [make](ui::Form& form, QWidget* parent) {
      return make(static_cast<Window&>(form), parent);
    };
  }

  // The window that shows the form; nullptr if it isn't shown.
  FormWindow* WindowFor(const ui::Form& form) const;

  ui::Answer Ask(const ui::Box& box) override;
  std::optional<std::string> Ask(const ui::Question& question) override;
  std::optional<std::string> Ask(const ui::FileRequest& request) override;

  // The toolkit tells what waits only by serving it.
  bool OperatorMayWait() const override { return true; }

  // In logical pixels of the menus' font, the same for all forms.
  double TextWidth(const ui::Form& form, std::string_view text) const override;

 protected:
  bool ServeOperator() override;
  bool ServeBacklog() override;
  void AwaitOperator(double when) override;
  void Appeared(ui::Form& form, bool modal) override;
  void Vanished(ui::Form& form) override;
  void GiveUpBox() override;

 private:
  bool Process(QEventLoop::ProcessEventsFlags flags);
  bool AwaitEvents(double seconds);
  void WaitUntilSeen(const FormWindow& window);
  void StandInFront(FormWindow& window) const;
  void DrawWhatWasCovered();
  ViewFactory ViewFor(const ui::Form& form) const;
  FormWindow* FrontWindow() const;

  KeyGate keys_;
  std::map<std::type_index, ViewFactory> views_;
  std::map<const ui::Form*, std::unique_ptr<FormWindow>> windows_;
  // Windows that are closed, perhaps by a press in them that is still being served.
  std::vector<std::unique_ptr<FormWindow>> closed_;
  int depth_ = 0;  // how many calls that serve events are under way
  bool servedWhileWaiting_ = false;
};

}  // namespace tintbench::desktop
