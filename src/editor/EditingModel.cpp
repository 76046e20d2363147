#include "editor/EditingModel.h"

#include <algorithm>

#include "base/Text.h"
#include "config/ConfigFile.h"

namespace tintbench::editor {

namespace {

// The lines that a text makes: one more than it has marks.
std::vector<std::string> LinesOf(std::string_view text) {
  std::vector<std::string> lines;
  for (;;) {
    const std::size_t mark = text.find(kLineMark);
    lines.emplace_back(text.substr(0, mark));
    if (mark == std::string_view::npos) return lines;
    text.remove_prefix(mark + 1);
  }
}

template <typename Item>
Splice<Item> Turned(const Splice<Item>& splice) {
  return {splice.At, splice.New, splice.Old};
}

template <typename Item>
void Put(const Splice<Item>& splice, std::vector<Item>& list) {
  const auto at = list.begin() + static_cast<std::ptrdiff_t>(std::min(splice.At, list.size()));
  const auto kept = static_cast<std::ptrdiff_t>(std::min(splice.Old.size(), splice.New.size()));
  const auto from = std::copy_n(splice.New.begin(), kept, at);
  if (splice.New.size() > splice.Old.size()) {
    list.insert(from, splice.New.begin() + kept, splice.New.end());
  } else {
    list.erase(from, from + (static_cast<std::ptrdiff_t>(splice.Old.size()) - kept));
  }
}

std::size_t Index(int element) { return static_cast<std::size_t>(element) - 1; }

}  // namespace

const config::ConfigTable* TableAt(const TablePlace& at) {
  const auto tables = config::TablesOf(at.Group);
  if (at.Table < 1 || static_cast<std::size_t>(at.Table) > tables.size()) return nullptr;
  return &tables[Index(at.Table)];
}

std::string CreateParms(int count, std::string_view value) {
  const auto size = static_cast<std::size_t>(std::max(count, 0));
  return base::Join(std::vector<std::string>(size, std::string(value)), ",");
}

std::string EmptyParms(const TablePlace& at) {
  const config::ConfigTable* table = TableAt(at);
  return CreateParms(table ? table->Parameters : 0, "");
}

ParameterPlace CellChange::Where() const {
  if (Lines.Old.empty() || Lines.New.empty()) return {Element, 1};
  const std::vector<std::string> before = base::SplitFields(Lines.Old[0], ",");
  const std::vector<std::string> now = base::SplitFields(Lines.New[0], ",");
  const auto differs = std::mismatch(before.begin(), before.end(), now.begin(), now.end()).second;
  return {Element, static_cast<int>(differs - now.begin()) + 1};
}

CellChange CellChange::Inverse() const { return {Element, Turned(Lines), Turned(States)}; }

EditingModel::EditingModel()
    : cells_(config::kConfigTables.size() * static_cast<std::size_t>(config::kSlaveCount)) {}

const EditingModel::Cell* EditingModel::Find(const TablePlace& at) const {
  const config::ConfigTable* table = TableAt(at);
  if (table == nullptr || at.Slave < 1 || at.Slave > config::kSlaveCount) return nullptr;
  const auto row = static_cast<std::size_t>(table - config::kConfigTables.data());
  return &cells_[row * static_cast<std::size_t>(config::kSlaveCount) + Index(at.Slave)];
}

EditingModel::Cell* EditingModel::Find(const TablePlace& at) {
  return const_cast<Cell*>(std::as_const(*this).Find(at));
}

const EditingModel::Cell* EditingModel::FindWithElement(const ElementPlace& at) const {
  return at.Element >= 1 && at.Element <= ElementCount(at.Table) ? Find(at.Table) : nullptr;
}

int EditingModel::ElementCount(const TablePlace& at) const {
  const Cell* cell = Find(at);
  return cell ? static_cast<int>(cell->States.size()) : 0;
}

std::string_view EditingModel::ElementLine(const ElementPlace& at) const {
  const Cell* cell = FindWithElement(at);
  return cell ? std::string_view(cell->Lines[Index(at.Element)]) : std::string_view();
}

bool EditingModel::IsRemoved(const ElementPlace& at) const {
  const Cell* cell = FindWithElement(at);
  return cell && cell->States[Index(at.Element)] == ElementState::kRemoved;
}

std::string EditingModel::Value(const ParameterPlace& at) const {
  return base::GetField(at.Parameter, ElementLine(at.Element), ",");
}

void EditingModel::Append(const TablePlace& at, std::string_view data) {
  Cell* cell = Find(at);
  if (cell == nullptr) return;
  for (std::string& line : LinesOf(data)) cell->Lines.push_back(std::move(line));
  cell->States.push_back(ElementState::kInUse);
}

std::optional<CellChange> EditingModel::Adding(const TablePlace& at) const {
  const Cell* cell = Find(at);
  if (cell == nullptr) return std::nullopt;
  return CellChange{{at, ElementCount(at) + 1},
                    {cell->Lines.size(), {}, {EmptyParms(at)}},
                    {cell->States.size(), {}, {ElementState::kInUse}}};
}

std::optional<CellChange> EditingModel::RemovingOrResuming(const ElementPlace& at) const {
  if (FindWithElement(at) == nullptr) return std::nullopt;
  const auto state = IsRemoved(at) ? ElementState::kRemoved : ElementState::kInUse;
  const auto other = IsRemoved(at) ? ElementState::kInUse : ElementState::kRemoved;
  return CellChange{at, {}, {Index(at.Element), {state}, {other}}};
}

std::optional<CellChange> EditingModel::Storing(const ParameterPlace& at,
                                                std::string_view value) const {
  const Cell* cell = Find(at.Element.Table);
  if (cell == nullptr) return std::nullopt;
  if (cell->Lines.empty()) {
    if (at.Element.Element != 1) return std::nullopt;
    const std::string line = EmptyParms(at.Element.Table);
    const std::string stored = base::SetField(at.Parameter, value, line, ",");
    return CellChange{at.Element,
                      {0, {}, LinesOf(stored.empty() ? line : stored)},
                      {0, {}, {ElementState::kInUse}}};
  }
  const std::string line = base::SetField(at.Parameter, value, ElementLine(at.Element), ",");
  return line.empty() ? std::nullopt : StoringLine(at.Element, line);
}

std::optional<CellChange> EditingModel::StoringLine(const ElementPlace& at,
                                                    std::string_view line) const {
  const Cell* cell = FindWithElement(at);
  if (cell == nullptr || ElementLine(at) == line) return std::nullopt;
  const std::size_t index = Index(at.Element);
  return CellChange{at, {index, {cell->Lines[index]}, LinesOf(line)}, {}};
}

void EditingModel::Apply(const CellChange& change) {
  Cell* cell = Find(change.Element.Table);
  if (cell == nullptr) return;
  Put(change.Lines, cell->Lines);
  Put(change.States, cell->States);
}

}  // namespace tintbench::editor
