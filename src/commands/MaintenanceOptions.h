// The fifteen options of the Maintenance Menu: their captions and keys, and which of them can be
// chosen at the moment.
#pragma once

#include <array>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "config/MachineFacts.h"
#include "ui/Controls.h"

namespace tintbench::commands {

inline constexpr int kMaintenanceOptions = 15;

enum MaintenanceOption : int {
  kReadInputs,
  kReadOutputs,
  kReadStatus,
  kReset,
  kPunching,
  kValveTest,
  kShelfUp,
  kShelfDown,
  kEachValve,
  kOpenEachCap,
  kCloseEachCap,
  kEachMotor,
  kEachStirring,
  kPurge,
  kCapIntermediate,
};

struct OptionRow {
  std::string_view Caption;
  int Key;  // a letter or ui::Key
};

inline constexpr std::array<OptionRow, kMaintenanceOptions> kOptionRows{{
    {"[I] Read input sensors", 'I'},
    {"[O] Read output sensors", 'O'},
    {"[S] Status request", 'S'},
    {"[R] Machine reset", 'R'},
    {"[P] Automatic Punching", 'P'},
    {"[T] Electrovalves test", 'T'},
    {"[F1] Shelf UP and stop high", ui::kKeyF1},
    {"[F2] Shelf DOWN and stop low", ui::kKeyF1 + 1},
    {"[F3] Enable each electrovalve", ui::kKeyF1 + 2},
    {"[F5] Open each cap", ui::kKeyF1 + 4},
    {"[F6] Close each cap", ui::kKeyF1 + 5},
    {"[F7] Switch each motor ON", ui::kKeyF1 + 6},
    {"[F8] Enable each stirring", ui::kKeyF1 + 7},
    {"[F9] Purge alternatively ON/OFF", ui::kKeyF1 + 8},
    {"[F10] Cap intermediate position", ui::kKeyF1 + 9},
}};

// The tag of the option that runs.
inline constexpr const char* kRunningTag = "running";

// The option of a key; -1 if it is no option's.
int OptionOfKey(int key);

class MaintenanceOptions {
 public:
  explicit MaintenanceOptions(ui::ControlArray<ui::OptionButton>& buttons);

  // Leaves out what the machine doesn't have, unlocks the rest, and selects none.
  void Load(const config::MachineFacts& facts);

  void LockOptions();
  void UnlockOptions();
  // Locks all but those, and selects `selected` if there is one.
  void AllowOnly(std::initializer_list<MaintenanceOption> allowed,
                 std::optional<MaintenanceOption> selected = std::nullopt);

  // The selected option; -1 if there is none.
  int Selected() const;
  void Select(int option);
  bool IsEnabled(int option) const { return buttons_(option).Enabled; }
  // Marks the option that runs, by its tag; -1 if none does.
  void ShowRunning(int option);

 private:
  void Refresh();

  ui::ControlArray<ui::OptionButton>& buttons_;
  std::array<bool, kMaintenanceOptions> optionAbsent_{};
  std::array<bool, kMaintenanceOptions> optionLocked_{};
};

}  // namespace tintbench::commands
