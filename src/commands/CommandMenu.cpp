#include "commands/CommandMenu.h"

#include <array>

#include "base/Numbers.h"
#include "base/Text.h"
#include "commands/CommandReports.h"

namespace tintbench::commands {

namespace {

constexpr const char* kNoCommand = "< NO COMMAND AVAILABLE >";
constexpr const char* kAborted = "[ command aborted ]";
constexpr const char* kIncorrect = "[ INCORRECT STRING ]";
constexpr const char* kStopped = "( process stopped )";
constexpr const char* kNoHit = "no command";
constexpr std::size_t kMostRecent = 12;

struct Group {
  const char* Name;
  CommandId First;
  CommandId Last;
};

constexpr std::array<Group, kCommandGroups> kGroups{
    {{"STATUS, I/O SENSORS", CommandId::ReadInputs, CommandId::ReadGroupInput},
     {"MACHINE TESTS", CommandId::StopTimed, CommandId::AutoConfiguration},
     {"MACHINE MEMORY/DATA", CommandId::ReadMemory, CommandId::StoreCounts},
     {"CUSTOM COMMAND", CommandId::Custom, CommandId::Custom}}};

enum TextBoxIndex : int { kSent = 0, kReceived = 1, kStatus = 2 };

// The command as it is shown while it is under way.
std::string Echo(const std::string& commandTemplate, const std::string& argument) {
  const std::size_t blank = commandTemplate.find(' ');
  const std::string prefix = base::ToUpper(commandTemplate.substr(0, blank));
  if (blank == std::string::npos) return prefix;
  return prefix + base::ToLower(argument) + commandTemplate.substr(blank + 1);
}

}  // namespace

void CommandMenu::Load() {
  shownRow_.reset();
  lastRow_.reset();
  lastArgument_.clear();
  window_.TxtFind.Text = "";
  ShowFound("");
  for (const int box : {kSent, kReceived, kStatus}) window_.ShowIoText(box, "");
  window_.CmdExec.Default = true;
  FillLists();
  window_.CmbCtype.ListIndex = 0;
}

void CommandMenu::FillLists() {
  window_.CmbCtype.Clear();
  for (int group = 0; group < kCommandGroups; ++group) {
    const Group& rows = kGroups.at(static_cast<std::size_t>(group));
    window_.CmbCtype.AddItem(rows.Name);
    ui::ListBox& list = window_.LstCsingle(group);
    list.Clear();
    list.Tag = std::to_string(list.ListIndex);
    for (int number = link::NumberOf(rows.First); number <= link::NumberOf(rows.Last); ++number) {
      const CommandId row{number};
      if (window_.Work.Table.Row(row).Enabled) list.AddItem(window_.Description(row), number);
    }
  }
}

int CommandMenu::Remembered(int group) const {
  return base::LeadingInt(window_.LstCsingle(group).Tag.Get());
}

std::optional<CommandId> CommandMenu::SelectedRow() const {
  const int group = window_.CmbCtype.ListIndex;
  if (group < 0 || Remembered(group) < 0) return std::nullopt;
  return CommandId{window_.LstCsingle(group).ItemData(Remembered(group))};
}

void CommandMenu::LoadComOnButton(int group, int listIndex) {
  window_.CmdExec.Caption =
      group >= 0 && listIndex >= 0
          ? base::JoinLines({window_.LstCsingle(group).List(listIndex), "EXECUTE"})
          : kNoCommand;
}

void CommandMenu::CmbCtype_Click() {
  const int shown = window_.CmbCtype.ListIndex;
  for (int group = 0; group < kCommandGroups; ++group) {
    window_.LstCsingle(group).Visible = group == shown;
  }
  LoadComOnButton(shown, Remembered(shown));
}

void CommandMenu::LstCsingle_Click(int group) {
  ui::ListBox& list = window_.LstCsingle(group);
  list.Tag = std::to_string(list.ListIndex);
  LoadComOnButton(group, list.ListIndex);
}

void CommandMenu::LstCsingle_GotFocus(int group) {
  ui::ListBox& list = window_.LstCsingle(group);
  if (list.ListCount() > 0) list.ListIndex = Remembered(group);
}

// Only the bar goes; the selection stays remembered. No row raises no click.
void CommandMenu::LstCsingle_LostFocus(int group) { window_.LstCsingle(group).ListIndex = -1; }

template <typename Fits>
std::vector<CommandMenu::Place> CommandMenu::Places(Fits fits) const {
  std::vector<Place> places;
  for (int group = 0; group < kCommandGroups; ++group) {
    const ui::ListBox& list = window_.LstCsingle(group);
    for (int index = 0; index < list.ListCount(); ++index) {
      if (fits(list, index)) places.push_back({group, index});
    }
  }
  return places;
}

void CommandMenu::SelectRow(Place place) {
  window_.CmbCtype.ListIndex = place.Group;
  window_.LstCsingle(place.Group).PressRow(place.Index);
}

void CommandMenu::SelectNone() {
  for (int group = 0; group < kCommandGroups; ++group) {
    window_.LstCsingle(group).ListIndex = -1;
    window_.LstCsingle(group).Tag = "-1";
  }
  LoadComOnButton(window_.CmbCtype.ListIndex, -1);
}

// Takes no room beside the field while it has nothing to say.
void CommandMenu::ShowFound(const std::string& text) {
  window_.LblFound.Caption = text;
  window_.LblFound.Visible = !text.empty();
}

void CommandMenu::SelectHit(std::size_t hit) {
  hit_ = hit;
  ShowFound(std::to_string(hit + 1) + " of " + std::to_string(hits_.size()));
  SelectRow(hits_[hit]);
}

void CommandMenu::TxtFind_Change() {
  const std::string wanted = base::ToUpper(base::Trim(window_.TxtFind.Text.Get()));
  hits_.clear();
  ShowFound("");
  if (wanted.empty()) return;
  hits_ = Places([&wanted](const ui::ListBox& list, int index) {
    return base::ToUpper(list.List(index)).find(wanted) != std::string::npos;
  });
  if (!hits_.empty()) return SelectHit(0);
  ShowFound(kNoHit);
  SelectNone();
}

void CommandMenu::KeyDown(ui::KeyEvent& key) {
  const bool moves = key.Code == ui::kKeyDown || key.Code == ui::kKeyUp;
  if (window_.ActiveControl() != &window_.TxtFind || key.Shift != 0) return;
  if (!moves && key.Code != ui::kKeyEnter) return;
  const std::size_t step = key.Code == ui::kKeyDown ? 1
                           : key.Code == ui::kKeyUp ? hits_.size() - 1
                                                    : 0;
  key.Code = 0;
  if (!hits_.empty()) SelectHit((hit_ + step) % hits_.size());
}

void CommandMenu::CmbRecent_Click() {
  const int chosen = window_.CmbRecent.ListIndex;
  if (chosen < 0) return;
  const Recent& recent = recent_.at(static_cast<std::size_t>(chosen));
  lastRow_ = recent.Row;
  lastArgument_ = recent.Argument;
  const std::vector<Place> places = Places([&recent](const ui::ListBox& list, int index) {
    return list.ItemData(index) == link::NumberOf(recent.Row);
  });
  if (!places.empty()) SelectRow(places.front());
}

// The latest is the first, and none is there twice.
void CommandMenu::Remember(CommandId row, const std::string& argument) {
  const Recent sent{row, argument};
  std::erase(recent_, sent);
  recent_.insert(recent_.begin(), sent);
  if (recent_.size() > kMostRecent) recent_.pop_back();
  window_.CmbRecent.Clear();
  for (const Recent& recent : recent_) {
    const std::string behind = recent.Argument.empty() ? "" : "  " + recent.Argument;
    window_.CmbRecent.AddItem(window_.Description(recent.Row) + behind, link::NumberOf(recent.Row));
  }
}

void CommandMenu::ShowPanels(CommandId row) {
  if (row == shownRow_ || window_.Flags.Closing) return;
  shownRow_ = row;
  window_.HidePanels();
  window_.HideReportFrame();
  const unsigned view = ViewOf(row);
  for (int panel = 0; panel < state::kPanels; ++panel) {
    if ((view & (1U << panel)) != 0) window_.ShowPanel(panel);
  }
  if ((view & kReportView) == 0) return;
  window_.ShowReport("");
  window_.ShowReportFrame();
}

std::optional<std::string> CommandMenu::ArgumentOf(CommandId row) {
  const link::CommandRow& command = window_.Work.Table.Row(row);
  if (command.Command.find(' ') == std::string::npos || command.Prompt.empty()) return "";
  if (row != lastRow_) lastArgument_.clear();
  lastRow_ = row;
  ui::Question question{command.Prompt, command.Description, lastArgument_};
  for (;;) {
    const std::string reply = window_.Ask(question).value_or("");
    if (reply.empty()) return std::nullopt;
    if (link::ValidateArgument(row, reply)) return lastArgument_ = reply;
    window_.Ask(ui::Box{.Text = kIncorrect, .Title = command.Description});
    question.Default = reply;
  }
}

std::string CommandMenu::Transmit(CommandId row, const std::string& argument) {
  for (const int box : {kStatus, kReceived}) window_.ShowIoText(box, "");
  window_.ShowReport("");
  window_.ShowIoText(kSent, Echo(window_.Work.Table.Row(row).Command, argument));
  const std::string answer = link::HasConfiguredTime(row) ? window_.SendMoving(row, argument)
                                                          : window_.Send(row, argument);
  window_.ShowIoText(kReceived, answer);
  return answer;
}

void CommandMenu::CmdExec_Click() {
  const std::optional<CommandId> selected = SelectedRow();
  if (!selected || window_.Running != nullptr) return;
  const CommandId row = *selected;
  StopToken process(window_.Running);
  ShowPanels(row);
  const std::optional<std::string> argument = ArgumentOf(row);
  if (!argument) {
    window_.ShowIoText(kStatus, kAborted);
    return;
  }
  Remember(row, *argument);
  const Exchange exchange{row, *argument, Transmit(row, *argument)};
  const Outcome outcome = DecodeExchange(exchange, window_);
  if (row == CommandId::ShelfUp || row == CommandId::ShelfDown)
    shelf_.ShelfMotion(row, exchange.Answer);
  window_.ShowIoText(kStatus, outcome.Status);
  window_.ShowReport(outcome.Report);
}

// The countdown has stood in this menu's own status box.
void CommandMenu::CmdStop_Click() {
  if (window_.Running != nullptr) window_.Running->Say(Wish::Stop);
  window_.CheckAnswer(window_.Send(CommandId::AllOff), "A", kStopped);
  window_.ShowIoText(kStatus, window_.TxtIOm.Text.Get());
}

}  // namespace tintbench::commands
