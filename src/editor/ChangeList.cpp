#include "editor/ChangeList.h"

#include <algorithm>

#include "base/Text.h"
#include "editor/EveryTable.h"

namespace tintbench::editor {

namespace {

// All fields, the empty one behind a last comma too.
std::vector<std::string> FieldsOf(std::string_view line) {
  return base::SplitFields(std::string(line).append(","), ",");
}

void AddLineChanges(const ElementPlace& at, std::string_view before, std::string_view now,
                    std::vector<Change>& changes) {
  if (before == now) return;
  const auto old = FieldsOf(before);
  const auto fields = FieldsOf(now);
  if (old.size() != fields.size()) {
    changes.push_back({ChangeKind::kLine, {at, 1}, std::string(before), std::string(now)});
    return;
  }
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (old[i] == fields[i]) continue;
    changes.push_back({ChangeKind::kValue, {at, static_cast<int>(i) + 1}, old[i], fields[i]});
  }
}

void AddTableChanges(const TablePlace& table, const EditingModel& loaded, const EditingModel& now,
                     std::vector<Change>& changes) {
  for (int element = 1; element <= now.ElementCount(table); ++element) {
    const ElementPlace at{table, element};
    const std::string line(now.ElementLine(at));
    if (element > loaded.ElementCount(table)) {
      if (!now.IsRemoved(at)) changes.push_back({ChangeKind::kAdded, {at, 1}, "", line});
      continue;
    }
    const std::string before(loaded.ElementLine(at));
    if (now.IsRemoved(at)) changes.push_back({ChangeKind::kRemoved, {at, 1}, before, ""});
    AddLineChanges(at, before, line, changes);
  }
}

}  // namespace

std::vector<Change> ListChanges(const EditingModel& loaded, const EditingModel& now) {
  std::vector<Change> changes;
  ForEveryTable([&](const TablePlace& table) { AddTableChanges(table, loaded, now, changes); });
  return changes;
}

std::optional<CellChange> TakingBack(const Change& change, const EditingModel& now) {
  const ElementPlace& at = change.At.Element;
  switch (change.Kind) {
    case ChangeKind::kValue:
      return now.Storing(change.At, change.Old);
    case ChangeKind::kLine:
      return now.StoringLine(at, change.Old);
    case ChangeKind::kAdded:
      return now.IsRemoved(at) ? std::nullopt : now.RemovingOrResuming(at);
    case ChangeKind::kRemoved:
      return now.IsRemoved(at) ? now.RemovingOrResuming(at) : std::nullopt;
  }
  return std::nullopt;
}

}  // namespace tintbench::editor
