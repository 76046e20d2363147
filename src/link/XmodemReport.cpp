#include "link/XmodemReport.h"

#include "base/Numbers.h"
#include "link/XmodemProtocol.h"

namespace tintbench::link {

namespace {

std::string CaptionOf(int status) {
  switch (status) {
    case kXmodemStarted:
      return "FILE TRANSFER IN PROGRESS";
    case kXmodemCleared:
      return "";
    case kXmodemSuccessful:
      return "FILE TRANSFER SUCCESSFUL";
    default:
      return "ERROR " + base::PlainNumber(status);
  }
}

void ShowNumber(ui::Label& label, std::int64_t number) {
  if (number != -1) label.Caption = base::PlainNumber(number);
}

void Choose(ui::ControlArray<ui::OptionButton>& buttons, int choice) {
  if (choice != -1) buttons(choice == 0 ? 0 : 1).Value = true;
}

}  // namespace

void XmodemReport::ReportStatus(int status, const XmodemProgress& progress) {
  if (!display_) return;
  if (status != kXmodemProgress) {
    display_->LblEstat.Caption = CaptionOf(status);
    display_->LblEstat.Refresh();
  }
  ShowNumber(display_->LblCurrb, progress.Block);
  ShowNumber(display_->LblTotb, progress.Total);
  ShowNumber(display_->LblCurrs, progress.Bytes);
  if (progress.Percent != -1) display_->PrgbTransf.Value = progress.Percent;
  Choose(display_->OptCheck, progress.Crc);
  Choose(display_->OptSize, progress.Size1024);
  if (display_->Told) display_->Told();
}

}  // namespace tintbench::link
