#include "editor/ParameterRows.h"

#include "base/Text.h"
#include "editor/Conflicts.h"

namespace tintbench::editor {

namespace {

constexpr std::string_view kEmptyRow = "[empty] def=";
constexpr char kQuote = '"';
constexpr std::string_view kUnitMark = "unit=";
constexpr std::string_view kUnitKeys = "UM_";

config::LimitsString LimitsOf(const config::ParameterCatalogue& catalogue,
                              const ParameterPlace& at) {
  const TablePlace& table = at.Element.Table;
  return config::LimitsString(catalogue.Limits(table.Group, table.Table, at.Parameter));
}

// The row that stands so many rows below the edited one. Only for the edited row's help does the
// label name what the row's value means.
AuxiliaryValue AuxiliaryOf(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                           ParameterPlace at, int offset, EditorKind kind) {
  at.Parameter += offset;
  const TablePlace& table = at.Element.Table;
  if (catalogue.Limits(table.Group, table.Table, at.Parameter).empty()) return {};
  const std::string row = RowText(model, catalogue, at);
  const std::string value = IsEmptyRow(row) ? "" : RowValue(row);
  constexpr int kPlcLineOffset = -3;
  const bool named = kind == EditorKind::kHelp && offset == kPlcLineOffset;
  return {catalogue.ParameterTitle(table.Group, table.Table, at.Parameter, named ? value : ""),
          value};
}

}  // namespace

std::string RowText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                    const ParameterPlace& at) {
  const std::string value = model.Value(at);
  if (!value.empty()) return value;
  return std::string(kEmptyRow) + LimitsOf(catalogue, at).ShownDefault();
}

bool IsEmptyRow(std::string_view text) { return text.starts_with(kEmptyRow); }

std::string RowValue(std::string_view rowText) {
  std::string value = base::Trim(rowText);
  if (!value.starts_with(kQuote)) return value;
  value.erase(0, 1);
  if (value.ends_with(kQuote)) value.pop_back();
  return value;
}

std::string ListRowValue(std::string_view listRow) { return RowValue(base::Behind(listRow, ' ')); }

std::string UnitText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                     const ParameterPlace& at) {
  const TablePlace& table = at.Element.Table;
  const std::string key = LimitsOf(catalogue, at).EditorKey;
  if (key.starts_with(kUnitKeys)) {
    const int offset = AuxiliaryOffsets(key).front();
    return AuxiliaryOf(model, catalogue, at, offset, EditorKind::kAuxiliary).Value;
  }
  const std::string_view text = catalogue.Description(table.Group, table.Table, at.Parameter);
  const std::size_t mark = text.find(kUnitMark);
  if (mark == std::string_view::npos) return {};
  std::string_view unit = text.substr(mark + kUnitMark.size());
  unit = unit.substr(0, unit.find_first_of(" ,"));
  // The bracket around it all is none of the unit's own.
  if (unit.ends_with(')') && unit.find('(') == std::string_view::npos) unit.remove_suffix(1);
  return std::string(unit);
}

EditParms EditParmsOf(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                      const ParameterPlace& at) {
  const TablePlace& table = at.Element.Table;
  const std::string row = RowText(model, catalogue, at);
  EditParms parms;
  parms.Value = IsEmptyRow(row) ? "" : RowValue(row);
  parms.Conflicts = GetConflicts(model, table, at.Parameter);
  parms.Limits = catalogue.Limits(table.Group, table.Table, at.Parameter);
  parms.Selector = config::LimitsString(parms.Limits).EditorKey;
  const EditorKind kind = ChooseEditor(parms.Selector).Kind;
  for (const int offset : AuxiliaryOffsets(parms.Selector)) {
    parms.Auxiliary.push_back(AuxiliaryOf(model, catalogue, at, offset, kind));
  }
  parms.Description = catalogue.Description(table.Group, table.Table, at.Parameter);
  parms.RangeText = catalogue.ParameterRangeText(table.Group, table.Table, at.Parameter);
  return parms;
}

std::string QuotedLike(std::string_view rowText, std::string_view value) {
  const bool quoted = rowText.find(kQuote) != std::string_view::npos;
  return quoted ? kQuote + std::string(value) + kQuote : std::string(value);
}

std::optional<CellChange> StoreParameter(const EditingModel& model,
                                         const config::ParameterCatalogue& catalogue,
                                         const ParameterPlace& at, std::string_view value) {
  return model.Storing(at, QuotedLike(RowText(model, catalogue, at), value));
}

}  // namespace tintbench::editor
