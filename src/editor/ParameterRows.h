// The list of an element's parameters as the operator reads it, and the way from a row of it to the
// editor and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/ParameterCatalogue.h"
#include "editor/EditingModel.h"
#include "editor/ParameterEdit.h"

namespace tintbench::editor {

// A row without its sign for the current one: the parameter as it stands in its line, or what an
// empty one will be filled with, "[empty] def=16".
std::string RowText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                    const ParameterPlace& at);

// True if a row's text, or its value, stands for an empty parameter.
bool IsEmptyRow(std::string_view text);

// A row as its value alone: without quotes around it.
std::string RowValue(std::string_view rowText);

// What lies in front of a row's text in the list.
inline constexpr std::string_view kRowSign = ">  ";

// The value of a row of the list, which begins with kRowSign.
std::string ListRowValue(std::string_view listRow);

// The unit in which a parameter counts: what its description says, or what stands in the row above
// that names the unit. Empty if it has none.
std::string UnitText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                     const ParameterPlace& at);

// All that the editor is told of one parameter.
EditParms EditParmsOf(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                      const ParameterPlace& at);

// A new value as it is to stand in the line: between quotes if the row shows quotes, those of an
// empty default too, so that a text stays one.
std::string QuotedLike(std::string_view rowText, std::string_view value);

// The step that gives the parameter a new value; see EditingModel::Storing.
std::optional<CellChange> StoreParameter(const EditingModel& model,
                                         const config::ParameterCatalogue& catalogue,
                                         const ParameterPlace& at, std::string_view value);

}  // namespace tintbench::editor
