// The frame at a window's foot that shows, at a debug level of its own, what goes over the line.
#pragma once

#include <string>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::state {

struct DebugFrame {
  // `sent` is the index of the field for what is sent, 0 or 1; the other one is for what comes.
  explicit DebugFrame(ui::Form& window, int sent = 0);

  // Both draw at once.
  void ShowSent(const std::string& text);
  void ShowReceived(const std::string& text);

  ui::Frame FrmDbg;
  ui::ControlArray<ui::TextBox> TxtDbgIO{FrmDbg, "TxtDbgIO", 2};

 private:
  ui::TextBox& sent_;
  ui::TextBox& received_;
};

}  // namespace tintbench::state
