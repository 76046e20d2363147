#include "editor/CompareConfig.h"

#include <algorithm>
#include <map>

#include "base/Numbers.h"
#include "base/Text.h"
#include "editor/EveryTable.h"

namespace tintbench::editor {

namespace {

// A table's elements in use, by their number. Of equal numbers the last comes first, so that the
// first can be taken from the end.
using Numbered = std::map<std::string, std::vector<int>>;

std::string NumberOf(const EditingModel& model, const ElementPlace& at) {
  if (TableAt(at.Table)->Count == config::Elements::kOne) return {};
  const std::string number = model.Value({at, 1});
  return base::IsNumeric(number) ? base::PlainNumber(base::LeadingNumber(number)) : number;
}

Numbered NumberElements(const EditingModel& model, const TablePlace& table) {
  Numbered elements;
  for (int element = model.ElementCount(table); element >= 1; --element) {
    const ElementPlace at{table, element};
    if (!model.IsRemoved(at)) elements[NumberOf(model, at)].push_back(element);
  }
  return elements;
}

class TableComparison {
 public:
  TableComparison(const EditingModel& here, const EditingModel& there, const TablePlace& table,
                  std::vector<Difference>& differences)
      : here_(here),
        there_(there),
        table_(table),
        left_(NumberElements(there, table)),
        differences_(differences) {}

  void Run() {
    for (int element = 1; element <= here_.ElementCount(table_); ++element) {
      if (!here_.IsRemoved({table_, element})) CompareElement({table_, element});
    }
    std::vector<int> alone;
    for (const auto& [number, elements] : left_) {
      alone.insert(alone.end(), elements.begin(), elements.end());
    }
    std::sort(alone.begin(), alone.end());
    for (const int element : alone) {
      const ElementPlace at{table_, element};
      Add(DifferenceKind::kOnlyThere, {at, 1}, "", std::string(there_.ElementLine(at)));
    }
  }

 private:
  void CompareElement(const ElementPlace& at) {
    const auto match = left_.find(NumberOf(here_, at));
    if (match == left_.end() || match->second.empty()) {
      Add(DifferenceKind::kOnlyHere, {at, 1}, std::string(here_.ElementLine(at)), "");
      return;
    }
    CompareLines(at, there_.ElementLine({table_, match->second.back()}));
    match->second.pop_back();
  }

  void CompareLines(const ElementPlace& at, std::string_view there) {
    auto mine = base::SplitFields(here_.ElementLine(at), ",");
    auto theirs = base::SplitFields(there, ",");
    mine.resize(std::max(mine.size(), theirs.size()));
    theirs.resize(mine.size());
    for (std::size_t i = 0; i < mine.size(); ++i) {
      if (mine[i] == theirs[i]) continue;
      Add(DifferenceKind::kValue, {at, static_cast<int>(i) + 1}, mine[i], theirs[i]);
    }
  }

  void Add(DifferenceKind kind, const ParameterPlace& at, std::string here, std::string there) {
    differences_.push_back({kind, at, std::move(here), std::move(there)});
  }

  const EditingModel& here_;
  const EditingModel& there_;
  TablePlace table_;
  Numbered left_;  // those there that nothing here has matched yet
  std::vector<Difference>& differences_;
};

}  // namespace

std::vector<Difference> CompareConfigs(const EditingModel& here, const EditingModel& there) {
  std::vector<Difference> differences;
  ForEveryTable(
      [&](const TablePlace& table) { TableComparison(here, there, table, differences).Run(); });
  return differences;
}

}  // namespace tintbench::editor
