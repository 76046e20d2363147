#include "commands/MaintenanceOptions.h"

namespace tintbench::commands {

int OptionOfKey(int key) {
  for (std::size_t option = 0; option < kOptionRows.size(); ++option) {
    if (kOptionRows[option].Key == key) return static_cast<int>(option);
  }
  return -1;
}

MaintenanceOptions::MaintenanceOptions(ui::ControlArray<ui::OptionButton>& buttons)
    : buttons_(buttons) {
  for (int option = 0; option < kMaintenanceOptions; ++option) {
    buttons_(option).Caption = std::string(kOptionRows[static_cast<std::size_t>(option)].Caption);
  }
}

void MaintenanceOptions::Load(const config::MachineFacts& facts) {
  optionAbsent_ = {};
  optionAbsent_[kPunching] = !facts.HasPuncher;
  optionAbsent_[kShelfUp] = optionAbsent_[kShelfDown] = !facts.HasShelf;
  optionAbsent_[kOpenEachCap] = optionAbsent_[kCloseEachCap] = facts.CapCount == 0;
  optionAbsent_[kCapIntermediate] = facts.CapThreePositionList.empty();
  for (int option = 0; option < kMaintenanceOptions; ++option) buttons_(option).Value = false;
  UnlockOptions();
}

void MaintenanceOptions::LockOptions() {
  optionLocked_.fill(true);
  Refresh();
}

void MaintenanceOptions::UnlockOptions() {
  optionLocked_.fill(false);
  Refresh();
}

void MaintenanceOptions::AllowOnly(std::initializer_list<MaintenanceOption> allowed,
                                   std::optional<MaintenanceOption> selected) {
  optionLocked_.fill(true);
  for (const MaintenanceOption option : allowed) {
    optionLocked_.at(static_cast<std::size_t>(option)) = false;
  }
  Refresh();
  if (selected) Select(*selected);
}

int MaintenanceOptions::Selected() const {
  for (int option = 0; option < kMaintenanceOptions; ++option) {
    if (buttons_(option).Value) return option;
  }
  return -1;
}

void MaintenanceOptions::Select(int option) { buttons_(option).Value = true; }

// The option may keep the line busy from here on, so it is seen at once.
void MaintenanceOptions::ShowRunning(int option) {
  for (int button = 0; button < kMaintenanceOptions; ++button) {
    buttons_(button).Tag = button == option ? kRunningTag : "";
    if (button == option) buttons_(button).Refresh();
  }
}

// A button that is disabled must not lose the choice to its neighbour.
void MaintenanceOptions::Refresh() {
  const int selected = Selected();
  for (int option = 0; option < kMaintenanceOptions; ++option) {
    const auto at = static_cast<std::size_t>(option);
    buttons_(option).Enabled = !optionAbsent_[at] && !optionLocked_[at];
  }
  if (selected >= 0) Select(selected);
}

}  // namespace tintbench::commands
