#include "state/DebugFrame.h"

namespace tintbench::state {

namespace {

void ShowAtOnce(ui::TextBox& box, const std::string& text) {
  box.Text = text;
  box.Refresh();
}

}  // namespace

DebugFrame::DebugFrame(ui::Form& window, int sent)
    : FrmDbg(window, "FrmDbg"), sent_(TxtDbgIO(sent)), received_(TxtDbgIO(1 - sent)) {
  FrmDbg.Caption = "I/O Debug ";
  sent_.ToolTipText = "transmitted string";
  received_.ToolTipText = "Received string";
  TxtDbgIO.Prepare([](ui::TextBox& box, int) { box.Locked = true; });
}

void DebugFrame::ShowSent(const std::string& text) { ShowAtOnce(sent_, text); }

void DebugFrame::ShowReceived(const std::string& text) { ShowAtOnce(received_, text); }

}  // namespace tintbench::state
