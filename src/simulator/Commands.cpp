#include "simulator/Commands.h"

#include <array>

#include "base/Numbers.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

const CommandRow* FindCommand(std::string_view text) {
  const CommandRow* best = nullptr;
  for (const auto rows : {SensorCommands(), ElementCommands(), DataCommands(), SystemCommands()}) {
    for (const CommandRow& row : rows) {
      if (!text.starts_with(row.Mnemonic)) continue;
      if (best == nullptr || row.Mnemonic.size() > best->Mnemonic.size()) best = &row;
    }
  }
  return best;
}

bool Fits(const CommandRow& row, std::string_view argument) {
  if (argument.size() < row.Shortest || argument.size() > row.Longest) return false;
  if (row.Kind == Characters::Digits) return AllDigits(argument);
  return row.Kind == Characters::Any || base::IsHexadecimal(argument);
}

}  // namespace tintbench::simulator
