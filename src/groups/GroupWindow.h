// The controls of the monitor of one dispensing group: its elements, its enquiry and recording, its
// digital inputs as a table and its analogue inputs as instruments.
#pragma once

#include <array>

#include "groups/GroupRows.h"
#include "state/DebugFrame.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Picture.h"

namespace tintbench::groups {

// The five frames of inputs: the digital ones, then the analogue inputs by number.
inline constexpr int kInputFrames = 1 + kAnalogueRows;
inline constexpr int kDials = 2;  // suction and delivery pressure
inline constexpr int kBars = 2;   // level and temperature
inline constexpr int kTrendSegments = 10;
inline constexpr int kGridLines = 11;

inline constexpr ui::Colour kOnColour{0xC0C000};
inline constexpr ui::Colour kOffColour{0xE0E0E0};
inline constexpr ui::Colour kGreyText{0x808080};
// They take turns from round to round: the sign of life.
inline constexpr std::array<ui::Colour, 2> kBlinkColours{{{0xC0C000}, {0xC0FFFF}}};

// What is known of an element. Switching: the operator has pressed, the machine hasn't answered
// yet.
enum class ElementState { Off, On, Unknown, Switching };

struct GroupWindow : ui::Form {
  GroupWindow();

  ui::Frame FrmCmd{*this, "FrmCmd"};
  ui::Frame FrmFunc{FrmCmd, "FrmFunc"};
  ui::ControlArray<ui::Label> LblElement{FrmFunc, "LblElement", kElements};  // by Element
  ui::CheckBox ChkCapOn{FrmFunc, "ChkCapOn"};
  ui::CheckBox ChkCapOff{FrmFunc, "ChkCapOff"};
  ui::CheckBox ChkValveOn{FrmFunc, "ChkValveOn"};
  ui::CheckBox ChkValveOff{FrmFunc, "ChkValveOff"};
  ui::CheckBox ChkStirringOn{FrmFunc, "ChkStirringOn"};
  ui::CheckBox ChkStirringOff{FrmFunc, "ChkStirringOff"};
  ui::CheckBox ChkMotorOn{FrmFunc, "ChkMotorOn"};
  ui::CheckBox ChkMotorOff{FrmFunc, "ChkMotorOff"};
  ui::Label LblMotorSpeed{FrmFunc, "LblMotorSpeed"};
  ui::TextBox TxtMotorSpeed{FrmFunc, "TxtMotorSpeed"};
  ui::Label LblCap{FrmFunc, "LblCap"};
  ui::Label LblValve{FrmFunc, "LblValve"};
  ui::Label LblStirring{FrmFunc, "LblStirring"};
  ui::Label LblMotor{FrmFunc, "LblMotor"};

  ui::Frame FrmEnquire{*this, "FrmEnquire"};
  ui::CheckBox ChkEnquire{FrmEnquire, "ChkEnquire"};
  ui::CheckBox ChkStopEnquire{FrmEnquire, "ChkStopEnquire"};
  ui::Label LblEnqTime{FrmEnquire, "LblEnqTime"};
  ui::TextBox TxtEnqTime{FrmEnquire, "TxtEnqTime"};
  ui::CheckBox ChkMemo{FrmEnquire, "ChkMemo"};
  ui::Label LblKb{FrmEnquire, "LblKb"};
  ui::Label LblRecord{FrmEnquire, "LblRecord"};  // why a recording has ended by itself

  // 0 the digital inputs, 1 to 4 the analogue inputs by number.
  ui::ControlArray<ui::Frame> FrmInputs{*this, "FrmInputs", kInputFrames};

  // By digital row.
  ui::ControlArray<ui::CheckBox> ChkIdiOff{FrmInputs(0), "ChkIdiOff", kDigitalRows};
  ui::ControlArray<ui::CheckBox> ChkIdiXOff{FrmInputs(0), "ChkIdiXOff", kDigitalRows};
  ui::ControlArray<ui::Label> LblIdiDescr{FrmInputs(0), "LblIdiDescr", kDigitalRows};
  ui::ControlArray<ui::Label> LblCnIdi{FrmInputs(0), "LblCnIdi", kDigitalRows};
  ui::ControlArray<ui::Label> LblIdiStatus{FrmInputs(0), "LblIdiStatus", kDigitalRows};

  // By analogue input, from 0, each in its frame.
  ui::ControlArray<ui::CheckBox> ChkIanOff{InInput(1), "ChkIanOff", kAnalogueRows};
  ui::ControlArray<ui::CheckBox> ChkIanXOff{InInput(1), "ChkIanXOff", kAnalogueRows};
  ui::ControlArray<ui::Label> LblCnIan{InInput(1), "LblCnIan", kAnalogueRows};
  ui::ControlArray<ui::Label> LblIanStatus{InInput(1), "LblIanStatus", kAnalogueRows};
  ui::ControlArray<ui::Label> LblNCurr{InInput(1), "LblNCurr", kAnalogueRows};
  ui::ControlArray<ui::Label> LblCurr{InInput(1), "LblCurr", kAnalogueRows};
  ui::ControlArray<ui::Label> LblStart{InInput(1), "LblStart", kAnalogueRows};
  ui::ControlArray<ui::Label> LblEnd{InInput(1), "LblEnd", kAnalogueRows};
  ui::ControlArray<ui::Label> LblNlow{InInput(1), "LblNlow", kAnalogueRows};
  ui::ControlArray<ui::Label> LblLow{InInput(1), "LblLow", kAnalogueRows};
  ui::ControlArray<ui::Label> LblNHigh{InInput(1), "LblNHigh", kAnalogueRows};
  ui::ControlArray<ui::Label> LblHigh{InInput(1), "LblHigh", kAnalogueRows};
  ui::ControlArray<ui::Label> LblAlarm{InInput(1), "LblAlarm", kAnalogueRows};  // in words
  ui::ControlArray<ui::PictureBox> PictG{InInput(1), "PictG", kAnalogueRows};
  // Dials of the inputs 1 and 2; bars and their side scales of the inputs 3 and 4.
  ui::ControlArray<ui::PictureBox> PictP{InInput(1), "PictP", kDials};
  ui::ControlArray<ui::PictureBox> PictTL{InInput(1 + kDials), "PictTL", kBars};
  ui::ControlArray<ui::PictureBox> PictTLm{InInput(1 + kDials), "PictTLm", kBars};

  // The dynamic lines: number 0 is always there, the others while the window is open.
  ui::ControlArray<ui::Line> LnP{InDial(), "LnP", 1};
  ui::ControlArray<ui::Line> LnC{InDial(), "LnC", 1};
  ui::ControlArray<ui::Line> LnlV{InTrend(kGridLines), "LnlV", 1};
  ui::ControlArray<ui::Line> LnlStart{InTrend(1), "LnlStart", 1};
  ui::ControlArray<ui::Line> LnlEnd{InTrend(1), "LnlEnd", 1};
  ui::ControlArray<ui::Line> LnlLow{InTrend(1), "LnlLow", 1};
  ui::ControlArray<ui::Line> LnlHigh{InTrend(1), "LnlHigh", 1};
  ui::ControlArray<ui::Line> Lngr{InTrend(kTrendSegments), "Lngr", 1};
  ui::ControlArray<ui::Image> Imgpen{InTrend(1), "Imgpen", 1};
  ui::ControlArray<ui::Label> Lbldl{InInput(1), "Lbldl", 1};
  ui::ControlArray<ui::Label> Lbldh{InInput(1), "Lbldh", 1};

  // Here the field for what comes is the first.
  state::DebugFrame Debug{*this, 1};
  ui::StatusBar StatusBar1{*this, "StatusBar1"};
  ui::Timer Timer1{*this, "Timer1"};  // closes the window behind the cycle
  ui::Timer Timer2{*this, "Timer2"};  // watches the open valve

  // The two boxes of an element and the label that shows which it is and whether it is on.
  struct Switch {
    ui::CheckBox& On;
    ui::CheckBox& Off;
    ui::Label& Id;
  };
  Switch SwitchOf(Element element);
  ElementState StateOf(Element element);
  // False if the group has no such element.
  bool Has(Element element);

 private:
  using Holder = std::function<ui::Container&(int)>;
  // The frame of an input, if number 0 stands in frame `first`.
  Holder InInput(int first);
  Holder InDial();
  // The trend of an input that has `count` of them.
  Holder InTrend(int count);
};

}  // namespace tintbench::groups
