#include "autotest/FormAuto.h"

#include <array>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::autotest {

namespace {

constexpr ui::Colour kBlue{0xFF0000};
constexpr ui::Colour kRed{0x0000FF};

int KindOf(const AutotestCycle& cycle) {
  const int count = base::LeadingInt(cycle.Value);
  return count < 0 ? kBrokenCycle : count > 0 ? kCycleWithErrors : kGoodCycle;
}

std::string NumberText(const std::optional<int>& number) {
  return number ? base::PlainNumber(*number) : std::string();
}

}  // namespace

FormAuto::FormAuto(const AutoParts& parts) : ui::Form("FormAuto"), parts_(parts) {
  struct Titled {
    ui::Label& Title;
    ui::Control& Control;
    const char* Text;
  };
  const std::array<Titled, 6> titles{{{LblCdoneTitle, LblCdone, "CYCLES  DONE"},
                                      {LblCtotalTitle, LblCtotal, "TOTAL  CYCLES"},
                                      {LblListTitle, LstCycles, "Cycles done list"},
                                      {LblCyclesTitle, LblCycles, "Cycle"},
                                      {LblErrorsTitle, LblErrors, "Errors"},
                                      {LblTextTitle, ErText1, "Cycle errors"}}};
  for (const Titled& titled : titles) {
    titled.Title.Caption = titled.Text;
    titled.Control.ToolTipText = titled.Text;
  }
  Caption = "AUTOTEST  INFORMATIONS";
  CmdAutotest.Caption = "REQUEST  AUTOTEST  INFORMATIONS";
  ErText1.Locked = true;
  ErText1.MultiLine = true;
  CmdAutotest.Click = [this] { CmdAutotest_Click(); };
  LstCycles.Click = [this] { LstCycles_Click(); };
}

void FormAuto::Form_Load() {
  Clear();
  Debug.FrmDbg.Visible = parts_.Log.DebugLevel() == link::kDebugCommands;
}

void FormAuto::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code != ui::kKeyEsc || key.Shift != 0) return;
  key.Code = 0;
  parts_.Screen.Unload(*this);
}

void FormAuto::Clear() {
  for (ui::Label* label : {&LblCdone, &LblCtotal, &LblErrInfo, &LblCycles, &LblErrors}) {
    label->Caption = "";
    label->Refresh();
  }
  ErText1.Text = "";
  ErText1.Refresh();
  LstCycles.Clear();
  LstCycles.Refresh();
  record_ = {};
}

void FormAuto::CmdAutotest_Click() {
  Clear();
  const std::string answer =
      base::ToUpper(parts_.Commands.SendCommand(*this, link::CommandId::ReadAutotest));
  if (answer.starts_with('A')) {
    Show(ParseAutotest(answer));
  } else {
    parts_.Screen.Ask({.Text = "Error while requesting autotest informations!",
                       .Icon = ui::BoxIcon::Exclamation});
  }
  if (LstCycles.ListCount() > 0) LstCycles.ListIndex = 0;
}

void FormAuto::Show(AutotestRecord record) {
  record_ = std::move(record);
  LblCdone.Caption = NumberText(record_.Done);
  LblCtotal.Caption = NumberText(record_.Total);
  for (const AutotestCycle& cycle : record_.Cycles) LstCycles.AddItem(cycle.Label, KindOf(cycle));
  if (!record_.Whole) {
    parts_.Screen.Ask(
        {.Text = "Incomplete autotest informations!", .Icon = ui::BoxIcon::Exclamation});
    return;
  }
  LblErrInfo.Caption = record_.Errors == 0 ? "NO ERRORS" : "ERRORS";
  LblErrInfo.ForeColor = record_.Errors == 0 ? kBlue : kRed;
}

void FormAuto::LstCycles_Click() {
  const auto item = static_cast<std::size_t>(LstCycles.ListIndex.Get());
  if (item >= record_.Cycles.size()) return;
  const std::string& value = record_.Cycles[item].Value;
  const int count = base::LeadingInt(value);
  LblCycles.Caption = LstCycles.SelectedText();
  LblErrors.Caption = base::PlainNumber(count);
  ErText1.Text = count < 0 ? "Transmission buffer length error"
                           : ErrorLines(count > 0 ? base::GetField(2, value, ",") : "");
}

std::string FormAuto::ErrorLines(const std::string& codes) const {
  std::string lines;
  const int end = static_cast<int>(codes.size());
  for (int place = 1; place <= end; place += kCodeWidth) {
    const std::string code = base::Mid(codes, place, kCodeWidth);
    lines.append(code).append(parts_.Errors.ErrorText(code)).append(base::kCrLf);
  }
  return lines;
}

}  // namespace tintbench::autotest
