#include "commands/CommWindow.h"

#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr int kFrameWidth = 42;
constexpr std::array<const char*, state::kPanels> kTitles{"Input sensors", "Output sensors",
                                                          "Status", "Graphic I/O sensors"};

void MakeReadOnly(ui::TextBox& box) { box.Locked = true; }

}  // namespace

CommWindow::CommWindow(const CommParts& parts) : ui::Form("FormComm"), Work(parts) {
  LblCmdT.Caption = "Command type";
  LblCmdS.Caption = "Single command";
  LblFind.Caption = "&Find";
  LblRecent.Caption = "Last commands";
  CmdStop.Caption = "&STOP";
  CmdMultStop.Caption = "&HALT process";
  FrameOutput.Caption = "Command report";
  TxtIO(0).ToolTipText = "transmitted string";
  TxtIO(1).ToolTipText = "received string";
  TxtIO(2).ToolTipText = "status messages";
  TxtIO.Prepare([](ui::TextBox& box, int) { MakeReadOnly(box); });
  for (ui::TextBox* box : {&TxtIO(2), &TxtIOm, &TextOutput}) {
    MakeReadOnly(*box);
    box->MultiLine = true;
  }
  Panels.TopShift = state::kTitleShift;
  for (int panel = 0; panel < state::kPanels; ++panel) {
    LblTitle(panel).Caption = kTitles.at(static_cast<std::size_t>(panel));
  }
}

void CommWindow::ShowReport(const std::string& text) {
  if (Flags.Closing) return;
  TextOutput.Text = text;
  TextOutput.Refresh();
}

void CommWindow::ShowIoText(int index, const std::string& text) {
  if (Flags.Closing) return;
  TxtIO(index).Text = text;
  TxtIO(index).Refresh();
}

void CommWindow::ShowStatusLine(const std::string& text) {
  if (Flags.Closing) return;
  TxtIOm.Text = text;
  TxtIOm.Refresh();
}

bool CommWindow::CheckAnswer(const std::string& answer, std::string_view accepted,
                             const std::string& extra) {
  const bool good = !answer.empty() && accepted.find(answer[0]) != std::string_view::npos;
  ShowStatusLine(good ? base::JoinLines({kAccepted, extra}) : kRefused);
  return good;
}

void CommWindow::ShowPanel(int panel) {
  if (Flags.Closing) return;
  state::ApplyFrameSize(Panels, panel, true);
  LblTitle(panel).Visible = true;
}

void CommWindow::HidePanels() {
  for (int panel = 0; panel < state::kPanels; ++panel) {
    Panels.Frame(panel).Visible = false;
    LblTitle(panel).Visible = false;
  }
}

void CommWindow::ShowCountdown(std::span<const state::Panel> panels, const std::string& text) {
  state::TellInPanels(Panels, panels, text);
  ui::TextBox& report = TxtIO(2).IsShown() ? TxtIO(2) : TxtIOm;
  report.Text = text;
  report.Refresh();
}

void CommWindow::BlankPanels() {
  ClearInputs();
  ClearOutputs();
  Work.Decoder.DecodeStatus(Panels, kClearAnswer);
  for (ui::Label* label : {&Panels.ILabel1, &Panels.OLabel1, &Panels.ErLabel1}) label->Caption = "";
}

void CommWindow::ShowReportFrame() {
  if (Flags.Closing || FrameOutput.Visible) return;
  FrameOutput.Visible = true;
  FrameOutput.Refresh();
}

void CommWindow::HideReportFrame() { FrameOutput.Visible = false; }

std::string CommWindow::Send(CommandId row) {
  const std::string command = Work.Table.Row(row).Command;
  const bool goesOut = Work.Port.PortOpen();
  const std::string answer = base::ToUpper(Work.Commands.SendCommand(*this, row));
  if (goesOut) Book(command, answer);
  return answer;
}

void CommWindow::Book(std::string_view command, std::string_view answer) {
  on_.Book(command, answer);
  LblOn.Caption = on_.IsEmpty() ? "" : "Switched on from here: " + on_.Text();
}

std::string CommWindow::Send(CommandId row, const std::string& argument) {
  const link::CommandCall call(Work.Table, row, argument);
  return Send(row);
}

std::string CommWindow::SendMoving(CommandId row, const std::string& argument) {
  link::CommandCall call(Work.Table, row, argument);
  call.Row().TimeoutSeconds = Work.Table.CommandTimeout(argument, row, Work.Facts, Work.Log);
  return Send(row);
}

bool CommWindow::IsSaid(Wish wish) const {
  return Flags.Closing || Work.Screen.IsQuitting() ||
         (Running != nullptr && Running->Said() >= wish);
}

bool CommWindow::AbortableWait(double seconds, Wish wish) {
  const base::Clock& clock = Work.Screen.Time();
  const double end = clock.Now() + seconds;
  do {
    Work.Screen.Idle(end - clock.Now());
  } while (!IsSaid(wish) && clock.Now() < end);
  return IsSaid(wish);
}

bool CommWindow::MayAsk() {
  Work.Screen.DoEvents();
  Work.Screen.CatchUp();
  return !IsStopped();
}

std::optional<ui::Answer> CommWindow::Ask(const ui::Box& box) {
  return MayAsk() ? std::optional(Work.Screen.Ask(box)) : std::nullopt;
}

std::optional<std::string> CommWindow::Ask(const ui::Question& question) {
  return MayAsk() ? Work.Screen.Ask(question) : std::nullopt;
}

std::string Framed(const std::string& text) {
  const std::string line(kFrameWidth, '-');
  return base::JoinLines({"", line, text, line, ""});
}

}  // namespace tintbench::commands
