#include "editor/PlaceText.h"

#include "base/Numbers.h"

namespace tintbench::editor {

std::string ElementText(const EditingModel& model, const ElementPlace& at) {
  const config::ConfigTable* const table = TableAt(at.Table);
  if (table == nullptr) return {};
  std::string text(table->Caption);
  if (at.Table.Slave != 1) text += ", slave " + base::PlainNumber(at.Table.Slave);
  if (table->Count == config::Elements::kSeveral) text += " " + model.Value({at, 1});
  return text;
}

std::string ParameterText(const config::ParameterCatalogue& catalogue, const ParameterPlace& at) {
  const TablePlace& table = at.Element.Table;
  const std::string_view text = catalogue.Description(table.Group, table.Table, at.Parameter);
  return text.empty() ? "parameter " + base::PlainNumber(at.Parameter) : std::string(text);
}

}  // namespace tintbench::editor
