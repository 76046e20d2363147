#include "groups/GroupWindow.h"

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

constexpr std::array<const char*, kElements> kElementTitles{"Cap", "Valve", "Stirring", "Motor"};

void TitleSwitch(const GroupWindow::Switch& element, const char* on, const char* off) {
  element.On.Caption = on;
  element.Off.Caption = off;
}

}  // namespace

GroupWindow::GroupWindow() : ui::Form("FormGMon") {
  FrmCmd.Caption = "Commands";
  for (const Element element : {kCap, kValve, kStirring, kMotor}) {
    LblElement(element).Caption = kElementTitles.at(static_cast<std::size_t>(element));
    TitleSwitch(SwitchOf(element), "ON", "OFF");
  }
  TitleSwitch(SwitchOf(kCap), "OPEN", "CLOSE");
  LblMotorSpeed.Caption = "speed";
  ChkEnquire.Caption = "ENQUIRE";
  ChkStopEnquire.Caption = "STOP";
  LblEnqTime.Caption = "time(msec.)";
  TxtEnqTime.ToolTipText = "time(msec.)";
  ChkMemo.Caption = "RECORD";
  FrmInputs(0).Caption = "Digital Inputs";
  LblNCurr.Prepare([](ui::Label& label, int) { label.Caption = "Current"; });
  LblNlow.Prepare([](ui::Label& label, int) { label.Caption = "Low"; });
  LblNHigh.Prepare([](ui::Label& label, int) { label.Caption = "High"; });
}

GroupWindow::Switch GroupWindow::SwitchOf(Element element) {
  const std::array<Switch, kElements> switches{{{ChkCapOn, ChkCapOff, LblCap},
                                                {ChkValveOn, ChkValveOff, LblValve},
                                                {ChkStirringOn, ChkStirringOff, LblStirring},
                                                {ChkMotorOn, ChkMotorOff, LblMotor}}};
  return switches.at(static_cast<std::size_t>(element));
}

ElementState GroupWindow::StateOf(Element element) {
  const Switch boxes = SwitchOf(element);
  const bool on = boxes.On.Value == ui::kChecked;
  const bool off = boxes.Off.Value == ui::kChecked;
  if (on && off) return ElementState::Switching;
  if (on) return boxes.On.Enabled ? ElementState::Switching : ElementState::On;
  if (off) return boxes.Off.Enabled ? ElementState::Switching : ElementState::Off;
  return ElementState::Unknown;
}

bool GroupWindow::Has(Element element) {
  return base::LeadingNumber(SwitchOf(element).Id.Caption.Get()) >= 1;
}

GroupWindow::Holder GroupWindow::InInput(int first) {
  return [this, first](int index) -> ui::Container& { return FrmInputs(first + index); };
}

GroupWindow::Holder GroupWindow::InDial() {
  return [this](int index) -> ui::Container& { return PictP(index); };
}

GroupWindow::Holder GroupWindow::InTrend(int count) {
  return [this, count](int index) -> ui::Container& { return PictG(index / count); };
}

}  // namespace tintbench::groups
