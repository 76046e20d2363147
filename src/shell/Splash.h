// The panel that stands in front of link-up while the program starts.
#pragma once

#include <functional>

#include "base/AppIdentity.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

struct frmSplsh : ui::Form {
  frmSplsh(ui::Screen& screen, const base::AppIdentity& identity);

  ui::Label lblProductName{*this, "lblProductName"};
  ui::Label lblVersion{*this, "lblVersion"};
  // How far link-up has come.
  ui::Label lblStep{*this, "lblStep"};
  ui::Label lblWait{*this, "lblWait"};

  // Set once the panel has been closed, by the operator or by the program.
  bool SplashClosed = false;
  // Called at that moment.
  std::function<void()> Closed;

  bool IsSplash() const override { return true; }
  void Form_Click() override { Close(); }
  void Form_KeyDown(ui::KeyEvent& event) override;
  void Form_Unload(bool& cancel) override;

  void Close() { screen_.Unload(*this); }

 private:
  ui::Screen& screen_;
};

}  // namespace tintbench::shell
