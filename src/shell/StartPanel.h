// What tells the operator how link-up does while no other window stands: the splash shows the same,
// but the operator can send that away.
#pragma once

#include <vector>

#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// Stays until the program hides it, unless the program is told to end.
struct StartPanel : ui::Form {
  explicit StartPanel(ui::Screen& screen) : ui::Form("StartPanel"), screen_(screen) {}

  ui::Label LblStep{*this, "LblStep"};
  ui::Label LblWait{*this, "LblWait"};

  bool IsSplash() const override { return true; }
  void Form_QueryUnload(bool& cancel) override { cancel = !screen_.IsClosingAll(); }

 private:
  ui::Screen& screen_;
};

// Shows the caption of one label on others too, and draws them at once.
class LabelMirror final : public ui::Observer {
 public:
  LabelMirror(ui::Label& source, std::vector<ui::Label*> images);
  ~LabelMirror() override;
  LabelMirror(const LabelMirror&) = delete;
  LabelMirror& operator=(const LabelMirror&) = delete;

  void PropertyChanged(const ui::PropertyBase& property) override;
  void OwnerGone() override { source_ = nullptr; }

 private:
  ui::Label* source_;
  std::vector<ui::Label*> images_;
};

}  // namespace tintbench::shell
