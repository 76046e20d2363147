// The dialog that changes how large a recording may become.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::groups {

struct DlgGrMon final : ui::Form {
  explicit DlgGrMon(ui::Screen& screen);

  ui::Label Label1{*this, "Label1"};
  ui::TextBox TxtKbMax{*this, "TxtKbMax"};
  ui::Button OKButton{*this, "OKButton"};
  ui::Button CancelButton{*this, "CancelButton"};

  // To be called before it is shown: the recording's path and its limit in kb.
  void DlgSetParms(const std::string& path, double limitKb);
  // Behind its closing: whether the operator has changed the limit, and to what.
  bool DlgFsizeModified() const { return modified_; }
  double DlgMaxFileSizeKb() const { return limitKb_; }

  void Form_Load() override;

 private:
  void OKButton_Click();

  ui::Screen& screen_;
  std::string path_;
  double limitKb_ = 0;
  bool modified_ = false;
};

}  // namespace tintbench::groups
