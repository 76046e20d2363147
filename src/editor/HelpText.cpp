#include "editor/HelpText.h"

#include <array>
#include <string_view>
#include <vector>

#include "base/Text.h"

namespace tintbench::editor {

namespace {

struct HelpLine {
  int PlcLine;  // the line to a PLC that this is about, which then stands in front; 0 for none
  std::string_view Text;
};

// clang-format off
constexpr auto kPlcTimes = std::to_array<HelpLine>({
    {0, ""},
    {0, "!!! ATTENTION !!!"},
    {0, "IN THE FOLLOWING EXPLANATIONS ALL THE SIGNALS ARE"},
    {0, "<ON> WHEN <HIGH> AND <OFF> WHEN <LOW> FOR CLARITY,"},
    {0, "BUT IN THE REALITY THE MEANING IS THE OPPOSITE ONE !"},
    {0, ""},
    {0, ""},
    {1, "---> no associated time."},
    {0, ""},
    {0, ""},
    {2, "---> time while the signal is HIGH after formula ending (default=1 sec.)."},
    {0, "                       +----------------+"},
    {0, "_______________________|      1 s.      |____ END_FORMULA"},
    {0, ""},
    {0, ""},
    {3, "---> time interval (default=0.5 sec) between signal slopes for tinting success(1) and failure(2)."},
    {0, ""},
    {0, "1) Success: DISPENSER_BUSY(low) = END_FORMULA(high) <---"},
    {0, "            ------- time -------> DISPENSER_ERROR(low)"},
    {0, "-----------------------+"},
    {0, "                       |_____________________ DISPENSER_BUSY"},
    {0, "                       +----------------+"},
    {0, "_______________________|                |____ END_FORMULA"},
    {0, "-----------------------:--------+"},
    {0, "                       :<0.5 s.>|____________ DISPENSER_ERROR"},
    {0, ""},
    {0, "2) Failure: DISPENSER_ERROR(high) <---------- time -----"},
    {0, "            ---> DISPENSER_BUSY(low) = END_FORMULA(high)"},
    {0, " Error--> +--------:------------------------- DISPENSER_ERROR"},
    {0, "__________|<0.5 s.>:                         "},
    {0, "-------------------+"},
    {0, "                   |_________________________ DISPENSER_BUSY"},
    {0, "                   +----------------+"},
    {0, "___________________|                |________ END_FORMULA"},
    {0, ""},
    {0, ""},
    {4, "---> no associated time."},
});
// clang-format on

constexpr const char* kPlcLinesKey = "12";

}  // namespace

std::string PlcTimesHelp(const config::SelectorCatalogue& selectors) {
  std::vector<std::string> lines;
  for (const HelpLine& line : kPlcTimes) {
    const std::string plcLine =
        line.PlcLine == 0 ? ""
                          : "Line " + selectors.SelectorItemText(line.PlcLine, kPlcLinesKey) + ": ";
    lines.push_back(plcLine + std::string(line.Text));
  }
  return base::Join(lines, base::kCrLf);
}

}  // namespace tintbench::editor
