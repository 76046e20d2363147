// The machine's commands: what each is called, which argument it takes and what it does.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace tintbench::simulator {

struct Plant;

// What the machine does once an answer has been given.
enum class Task {
  None,
  Reset,    // of the whole machine, with a "K" at its end
  Restart,  // with the configuration that was received
  SendConfiguration,
  ReceiveConfiguration,
  LoadProgram,        // part after part, in the loader
  EndProgram,         // which is written to flash memory
  TakeMasterService,  // the master line may give commands
  ReturnMasterService,
};

struct Reply {
  // The time that the machine takes to answer an ordinary command.
  static constexpr double kPromptSeconds = 0.005;

  std::string Text;
  double AfterSeconds = kPromptSeconds;
  Task Then = Task::None;
};

// A command that the machine can't follow.
inline Reply Refused() { return {"R"}; }

enum class Characters { Any, Digits, Hex };

struct CommandRow {
  std::string_view Mnemonic;  // upper case
  std::size_t Shortest;       // length of the argument
  std::size_t Longest;
  Characters Kind;
  // Gives the answer to an argument of that form, folded to upper case, at the time `now`.
  Reply (*Run)(Plant& plant, const std::string& argument, double now);
};

// The rows of each field of work.
std::span<const CommandRow> SensorCommands();
std::span<const CommandRow> ElementCommands();
std::span<const CommandRow> DataCommands();
std::span<const CommandRow> SystemCommands();

// The row whose mnemonic a frame's text begins with, the longest that fits; none if there is no
// such command.
const CommandRow* FindCommand(std::string_view text);

// True if the argument has the row's form.
bool Fits(const CommandRow& row, std::string_view argument);

}  // namespace tintbench::simulator
