#include "link/Countdown.h"

#include <array>
#include <string>

#include "base/Text.h"
#include "ui/Controls.h"

namespace tintbench::link {

namespace {

struct Place {
  int Row;
  const char* Label;
};

// The rows that have a sensor panel: inputs, outputs, both, status; and the firmware version, which
// link-up reads.
constexpr std::array<Place, 6> kPlaces{{{0, "ILabel1"},
                                        {1, "OLabel1"},
                                        {2, "ILabel1"},
                                        {2, "OLabel1"},
                                        {3, "ErLabel1"},
                                        {7, "LblLinkWait"}}};

template <typename Kind>
void ShowAtOnce(Kind* control, ui::Property<std::string> Kind::*property, const std::string& text) {
  if (control == nullptr) return;
  control->*property = text;
  control->Refresh();
}

// The report box of the window of commands: that of the menu on show.
ui::TextBox* ReportBox(const ui::Form& form) {
  auto* ofCommandMenu = form.Find<ui::TextBox>("TxtIO", 2);
  if (ofCommandMenu != nullptr && ofCommandMenu->IsShown()) return ofCommandMenu;
  return form.Find<ui::TextBox>("TxtIOm");
}

}  // namespace

void ShowCountdown(ui::Form& form, int row, int seconds) {
  const std::string text = "wait for machine answer [" + std::to_string(seconds) + "]";
  for (const Place& place : kPlaces) {
    if (place.Row != row) continue;
    ShowAtOnce(form.Find<ui::Label>(place.Label), &ui::Label::Caption, text);
  }
  if (base::EqualFolded(form.Name(), "FORMCOMM")) {
    ShowAtOnce(ReportBox(form), &ui::TextBox::Text, text);
  }
}

}  // namespace tintbench::link
