#include "config/ParameterCatalogue.h"

#include "base/Text.h"
#include "config/AdvancedParameters.h"
#include "config/IndustrialParameters.h"
#include "config/LimitsString.h"
#include "config/StandardParameters.h"

namespace tintbench::config {

namespace {

// True if the rows are those of the group's tables: all of them, in order, each in full.
consteval bool AreOfGroup(std::span<const ParameterTable> tables, ConfigGroup group) {
  std::size_t at = 0;
  for (const ConfigTable& table : kConfigTables) {
    if (table.Group != group) continue;
    if (at == tables.size() || tables[at].Tag != table.Tag) return false;
    if (tables[at].Rows.size() != static_cast<std::size_t>(table.Parameters)) return false;
    ++at;
  }
  return at == tables.size();
}

static_assert(AreOfGroup(kStandardTables, ConfigGroup::kStandard));
static_assert(AreOfGroup(kAdvancedTables, ConfigGroup::kAdvanced));
static_assert(AreOfGroup(kIndustrialTables, ConfigGroup::kIndustrial));

// The `number`-th of the items, from 1; null if there is none.
template <typename Item>
const Item* Numbered(std::span<const Item> items, int number) {
  if (number < 1 || static_cast<std::size_t>(number) > items.size()) return nullptr;
  return &items[static_cast<std::size_t>(number) - 1];
}

}  // namespace

ParameterCatalogue::ParameterCatalogue(const SelectorCatalogue& selectors)
    : selectors_(selectors), groups_{kStandardTables, kAdvancedTables, kIndustrialTables} {}

const ParameterRow* ParameterCatalogue::Find(ConfigGroup group, int table, int parameter) const {
  const auto* tables = Numbered<Tables>(groups_, static_cast<int>(group) + 1);
  const auto* found = tables ? Numbered(*tables, table) : nullptr;
  return found ? Numbered(found->Rows, parameter) : nullptr;
}

std::string_view ParameterCatalogue::Description(ConfigGroup group, int table,
                                                 int parameter) const {
  const ParameterRow* row = Find(group, table, parameter);
  return row ? row->Description : std::string_view();
}

std::string_view ParameterCatalogue::Limits(ConfigGroup group, int table, int parameter) const {
  const ParameterRow* row = Find(group, table, parameter);
  return row ? row->Limits : std::string_view();
}

std::string ParameterCatalogue::ParameterTitle(ConfigGroup group, int table, int parameter,
                                               std::string_view value) const {
  std::string title(Description(group, table, parameter));
  const LimitsString limits(Limits(group, table, parameter));
  if (!limits.IsSelector()) return title;
  const auto row = selectors_.Find(std::string(limits.EditorKey).append(",").append(value));
  title += " = " + (row ? base::Trim(base::Behind(*row, ']')) : "UNKNOWN");
  return title + "  [see table]";
}

std::string ParameterCatalogue::ParameterRangeText(ConfigGroup group, int table,
                                                   int parameter) const {
  const ParameterRow* row = Find(group, table, parameter);
  return row ? LimitsString(row->Limits).RangeText() : std::string();
}

std::string ParameterCatalogue::ParameterDefault(ConfigGroup group, int table,
                                                 int parameter) const {
  const ParameterRow* row = Find(group, table, parameter);
  return row ? LimitsString(row->Limits).DefaultValue() : std::string();
}

}  // namespace tintbench::config
