#include "shell/Splash.h"

namespace tintbench::shell {

frmSplsh::frmSplsh(ui::Screen& screen, const base::AppIdentity& identity)
    : ui::Form("frmSplsh"), screen_(screen) {
  Caption = identity.AppTitle;
  lblProductName.Caption = identity.AppTitle;
  lblVersion.Caption = "Ver. " + identity.AppMajor + "." + identity.AppMinor;
  lblStep.Caption = "Linking to the machine ...";
  for (ui::Control* control : Controls()) control->Click = [this] { Close(); };
}

void frmSplsh::Form_KeyDown(ui::KeyEvent& event) {
  event.Code = 0;
  Close();
}

void frmSplsh::Form_Unload(bool&) {
  SplashClosed = true;
  if (Closed) Closed();
}

}  // namespace tintbench::shell
