#include "editor/FindText.h"

#include "base/Text.h"
#include "editor/EveryTable.h"

namespace tintbench::editor {

namespace {

class Search {
 public:
  Search(std::string_view letters, std::size_t most)
      : letters_(base::ToLower(letters)), most_(most) {}

  bool IsOver() const { return found_.Cut; }
  bool Matches(std::string_view text) const {
    return base::ToLower(text).find(letters_) != std::string::npos;
  }
  void Look(FoundIn in, const ParameterPlace& at, std::string_view text) {
    if (IsOver() || !Matches(text)) return;
    found_.Cut = found_.Places.size() == most_;
    if (!found_.Cut) found_.Places.push_back({in, at, std::string(text)});
  }
  Findings Result() { return std::move(found_); }

 private:
  std::string letters_;
  std::size_t most_;
  Findings found_;
};

void LookAtTable(const TablePlace& table, const config::ParameterCatalogue& catalogue,
                 Search& search) {
  const config::ConfigTable& row = *TableAt(table);
  const ElementPlace first{table, 1};
  search.Look(FoundIn::kTable, {first, 1}, std::string(row.Tag).append(" ").append(row.Caption));
  for (int parameter = 1; parameter <= row.Parameters; ++parameter) {
    search.Look(FoundIn::kDescription, {first, parameter},
                catalogue.Description(table.Group, table.Table, parameter));
  }
}

void LookAtValues(const TablePlace& table, const EditingModel& model, Search& search) {
  for (int element = 1; element <= model.ElementCount(table) && !search.IsOver(); ++element) {
    const ElementPlace at{table, element};
    // Most lines hold nothing that is looked for, and are done with that.
    if (!search.Matches(model.ElementLine(at))) continue;
    int parameter = 0;
    for (const std::string& value : base::SplitFields(model.ElementLine(at), ",")) {
      search.Look(FoundIn::kValue, {at, ++parameter}, value);
    }
  }
}

}  // namespace

Findings FindText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                  std::string_view letters, int slave, std::size_t most) {
  if (letters.empty()) return {};
  Search search(letters, most);
  ForEveryTable([&](const TablePlace& table) {
    if (table.Slave == slave) LookAtTable(table, catalogue, search);
  });
  ForEveryTable([&](const TablePlace& table) { LookAtValues(table, model, search); });
  return search.Result();
}

}  // namespace tintbench::editor
