#include "groups/DlgGrMon.h"

#include "base/Numbers.h"

namespace tintbench::groups {

DlgGrMon::DlgGrMon(ui::Screen& screen) : ui::Form("DlgGrMon"), screen_(screen) {
  Label1.Caption = "Change file size limit( kb )";
  OKButton.Caption = "OK";
  OKButton.Default = true;
  OKButton.Click = [this] { OKButton_Click(); };
  CancelButton.Caption = "Cancel";
  CancelButton.Cancel = true;
  CancelButton.Click = [this] { screen_.Unload(*this); };
}

void DlgGrMon::DlgSetParms(const std::string& path, double limitKb) {
  path_ = path;
  limitKb_ = limitKb;
  modified_ = false;
}

void DlgGrMon::Form_Load() {
  Caption = path_;
  TxtKbMax.Text = base::PlainNumber(limitKb_);
  TxtKbMax.SetFocus();
}

void DlgGrMon::OKButton_Click() {
  const double limit = base::LeadingNumber(TxtKbMax.Text.Get());
  modified_ = limit != limitKb_;
  limitKb_ = limit;
  screen_.Unload(*this);
}

}  // namespace tintbench::groups
