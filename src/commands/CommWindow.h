// The window of commands below its jobs: the controls that the Command Menu and the Maintenance
// Menu are made of, what both of them know, and how they show a report.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "commands/MaintenanceOptions.h"
#include "commands/StopToken.h"
#include "config/MachineFacts.h"
#include "link/LineParts.h"
#include "link/LineView.h"
#include "link/SwitchedOn.h"
#include "state/DebugFrame.h"
#include "state/PanelParts.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::commands {

using link::CommandId;

// What the window and its jobs work with. All of it must outlive the window.
struct CommParts : link::LineParts, state::PanelParts {
  ui::Screen& Screen;
  const config::MachineFacts& Facts;
  const ui::Form& MainWindow;  // gives its title
};

enum FormFunction { kCommandMenu = 1, kMaintenanceMenu = 2 };

inline constexpr int kCommandGroups = 4;
inline constexpr const char* kAccepted = "[ command accepted ]";
inline constexpr const char* kRefused = "[ command refused ]";
inline constexpr const char* kSuccess = "[ operation success ]";
inline constexpr const char* kFail = "[ operation fail ]";
inline constexpr const char* kInvalidData = "[ INVALID DATA ]";

struct CommFlags {
  bool Idle = true;  // no option of the Maintenance Menu runs
  bool Closing = false;
};

struct CommWindow : ui::Form, link::LineView {
  explicit CommWindow(const CommParts& parts);

  // The Command Menu.
  ui::Frame FrmSingle{*this, "FrmSingle"};
  ui::Label LblCmdT{FrmSingle, "LblCmdT"};
  ui::ComboBox CmbCtype{FrmSingle, "CmbCtype"};
  ui::Label LblCmdS{FrmSingle, "LblCmdS"};
  ui::Label LblFind{FrmSingle, "LblFind"};
  ui::TextBox TxtFind{FrmSingle, "TxtFind"};
  ui::Label LblFound{FrmSingle, "LblFound"};  // which of how many
  ui::ControlArray<ui::ListBox> LstCsingle{FrmSingle, "LstCsingle", kCommandGroups};
  ui::Label LblRecent{FrmSingle, "LblRecent"};
  ui::ComboBox CmbRecent{FrmSingle, "CmbRecent"};
  ui::Button CmdExec{FrmSingle, "CmdExec"};
  ui::Button CmdStop{FrmSingle, "CmdStop"};
  ui::ControlArray<ui::TextBox> TxtIO{FrmSingle, "TxtIO", 3};

  // The Maintenance Menu.
  ui::Frame FrmMulti{*this, "FrmMulti"};
  ui::ControlArray<ui::OptionButton> Option1{FrmMulti, "Option1", kMaintenanceOptions};
  ui::Button CmdMultExec{FrmMulti, "CmdMultExec"};
  ui::Button CmdMultStop{FrmMulti, "CmdMultStop"};
  ui::TextBox TxtIOm{FrmMulti, "TxtIOm"};

  ui::ControlArray<ui::Label> LblTitle{*this, "LblTitle", state::kPanels};
  state::SensorPanels Panels{*this};
  ui::Frame FrameOutput{*this, "FrameOutput"};
  ui::TextBox TextOutput{FrameOutput, "TextOutput"};
  state::DebugFrame Debug{*this};

  ui::Label LblOn{*this, "LblOn"};  // what is switched on from here

  CommFlags Flags;
  StopToken* Running = nullptr;  // of the innermost process that runs
  MaintenanceOptions Options{Option1};

  // Each shows nothing more once the window closes.
  void ShowReport(const std::string& text);
  void AddToReport(const std::string& text) { ShowReport(TextOutput.Text.Get() + text); }
  void ShowIoText(int index, const std::string& text);
  // The status line of the Maintenance Menu.
  void ShowStatusLine(const std::string& text);

  // Tells in the status line of the Maintenance Menu whether the answer begins with one of the
  // characters `accepted`; if so, `extra` follows in a line of its own. True if it does.
  bool CheckAnswer(const std::string& answer, std::string_view accepted, const std::string& extra);

  // The four panels with their titles, and the report's frame.
  void ShowPanel(int panel);
  void HidePanels();
  void ShowReportFrame();
  void HideReportFrame();
  // A running transaction is shown in the report box of the menu on show, too.
  void ShowCountdown(std::span<const state::Panel> panels, const std::string& text) override;
  void ShowSent(const std::string& text) override { Debug.ShowSent(text); }
  void ShowReceived(const std::string& text) override { Debug.ShowReceived(text); }
  // Greys a panel out.
  void ClearInputs() { Work.Decoder.DecodeInputs(Panels, kClearAnswer); }
  void ClearOutputs() { Work.Decoder.DecodeOutputs(Panels, kClearAnswer); }
  // Nothing is known of the machine yet.
  void BlankPanels();

  // Sends a row as it stands, or with an argument; the template is put back. The answer comes in
  // upper case.
  std::string Send(CommandId row);
  std::string Send(CommandId row, const std::string& argument);
  // The same with the time-out of a row that moves something.
  std::string SendMoving(CommandId row, const std::string& argument);
  // Books a command that has gone over the line, with its answer in upper case.
  void Book(std::string_view command, std::string_view answer);
  // What is switched on outlives each opening of the window, as the machine's state does.
  const link::SwitchedOn& On() const { return on_; }
  // For another window that drives the same elements.
  link::SwitchedOn& On() { return on_; }

  // The row's name.
  const std::string& Description(CommandId row) const { return Work.Table.Row(row).Description; }

  // True if the operator has said at least that to the innermost process. With the window, and with
  // the program, everything stops.
  bool IsSaid(Wish wish) const;
  // The operator wants no more of what runs.
  bool IsStopped() const { return IsSaid(Wish::Stop); }
  // Serves events, once at least, until the time is over or the operator says at least `wish`. True
  // if he does.
  bool AbortableWait(double seconds, Wish wish = Wish::Stop);

  // Boxes of a running process. What was pressed while a command kept the line is served first, so
  // that no key answers a box which it was not meant for. Nothing, and no box, if the operator
  // wants no more then.
  std::optional<ui::Answer> Ask(const ui::Box& box);
  std::optional<std::string> Ask(const ui::Question& question);

  CommParts Work;

 private:
  static constexpr const char* kClearAnswer = "R";

  bool MayAsk();

  link::SwitchedOn on_;
};

// The text between lines of dashes, as the operator is told what to do next.
std::string Framed(const std::string& text);

}  // namespace tintbench::commands
