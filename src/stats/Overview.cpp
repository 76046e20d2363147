#include "stats/Overview.h"

#include <algorithm>
#include <cmath>

#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "stats/Durations.h"

namespace tintbench::stats {

namespace {

constexpr int kReceivedSide = 0;
constexpr int kSavedSide = 1;
constexpr std::array<const char*, 2> kDatumUnits{"seconds", "events"};

using BothSides = std::array<ElementValues, 2>;

OverviewCell NumberCell(std::optional<double> number, int decimals = 0) {
  if (!number) return {};
  const double rounded = base::RoundHalfEven(*number, decimals);
  return {.Text = base::PlainNumber(rounded), .Number = number};
}

OverviewCell DateCell(const std::optional<base::LocalTime>& time) {
  if (!time) return {};
  return {.Text = base::DateText(*time) + " " + base::TimeText(*time),
          .Number = DaysBetween(base::LocalTime{}, *time)};
}

std::optional<double> DaysOf(const BothSides& sides) {
  if (!sides[kReceivedSide].Stamp || !sides[kSavedSide].Stamp) return std::nullopt;
  return DaysBetween(*sides[kSavedSide].Stamp, *sides[kReceivedSide].Stamp);
}

std::optional<double> NumberOf(const BothSides& sides, int side, std::size_t datum) {
  const std::optional<std::int64_t>& value = sides.at(static_cast<std::size_t>(side)).Data[datum];
  return value ? std::optional(static_cast<double>(*value)) : std::nullopt;
}

// Received, saved, difference, and the difference a day.
void AddDatum(OverviewRow& row, const BothSides& sides, std::size_t datum) {
  const std::optional<double> received = NumberOf(sides, kReceivedSide, datum);
  const std::optional<double> saved = NumberOf(sides, kSavedSide, datum);
  const std::optional<double> days = DaysOf(sides);
  std::optional<double> difference;
  if (received && saved) difference = *received - *saved;
  std::optional<double> daily;
  if (difference && days && std::abs(*days) > 0) daily = *difference / *days;
  row.Cells.push_back(NumberCell(received));
  row.Cells.push_back(NumberCell(saved));
  row.Cells.push_back(NumberCell(difference));
  row.Cells.push_back(NumberCell(daily, 1));
}

// Bars of received and saved values compare with one another, so that both columns share a scale.
void AddBars(OverviewTable& table, std::size_t column) {
  double largest = 0;
  for (const OverviewRow& row : table.Rows) {
    for (std::size_t side = 0; side < 2; ++side) {
      largest = std::max(largest, row.Cells[column + side].Number.value_or(0));
    }
  }
  for (OverviewRow& row : table.Rows) {
    for (std::size_t side = 0; side < 2; ++side) {
      OverviewCell& cell = row.Cells[column + side];
      if (cell.Number) cell.Bar = largest > 0 ? std::max(0.0, *cell.Number / largest) : 0.0;
    }
  }
}

// The elements of the machine, then those that only files have, each once.
std::vector<std::string> AllElements(int tab, const std::string& elements,
                                     const std::array<DataBuffer, 2>& sides) {
  std::string list = elements;
  for (const DataBuffer& side : sides) list += side.ElementsInFile[static_cast<std::size_t>(tab)];
  std::vector<std::string> all;
  std::map<std::string, bool> seen;
  for (std::string& element : base::SplitFields(list, ",")) {
    if (!seen.emplace(element, true).second) continue;
    all.push_back(std::move(element));
  }
  return all;
}

ElementValues ValuesIn(const DataBuffer& side, const StatCatalogue& catalogue, int tab,
                       const std::string& element) {
  const std::string* line = side.Find(DataKey(tab, element));
  if (line == nullptr) return {};
  ElementValues values = ReadElementValues(*line, catalogue, tab);
  if (!catalogue.HasDatum(tab, 1) && values.Data[1].value_or(0) == 0) {
    values.Data[1] = base::LeadingWhole(base::GetField(1, *line, ","));
  }
  return values;
}

// The last date of each side.
std::string DatesText(const std::vector<BothSides>& rows) {
  BothSides last;
  for (const BothSides& row : rows) {
    for (std::size_t side = 0; side < 2; ++side) {
      const std::optional<base::LocalTime>& stamp = row[side].Stamp;
      std::optional<base::LocalTime>& kept = last[side].Stamp;
      if (stamp && (!kept || DaysBetween(*kept, *stamp) > 0)) kept = stamp;
    }
  }
  const auto words = [&](std::size_t side) {
    const OverviewCell cell = DateCell(last[side].Stamp);
    return cell.Text.empty() ? std::string("-") : cell.Text;
  };
  std::string text = "Received: " + words(kReceivedSide) + "   Saved: " + words(kSavedSide);
  if (const auto days = DaysOf(last)) text += "   Between: " + NumberCell(days, 1).Text + " days";
  return text;
}

std::string Quoted(const std::string& text, char delimiter) {
  if (text.find_first_of(std::string("\"\r\n") + delimiter) == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + "\"";
}

void AppendLine(std::string& text, const std::vector<std::string>& cells, char delimiter) {
  std::vector<std::string> quoted;
  quoted.reserve(cells.size());
  for (const std::string& cell : cells) quoted.push_back(Quoted(cell, delimiter));
  text.append(base::Join(quoted, std::string(1, delimiter))).append(base::kCrLf);
}

}  // namespace

ElementValues ReadElementValues(const std::string& line, const StatCatalogue& catalogue, int tab) {
  ElementValues values;
  for (int datum = 1; datum <= 2; ++datum) {
    const std::string field = base::GetField(datum, line, ",");
    if (field.empty() || !catalogue.HasDatum(tab, datum)) continue;
    values.Data.at(static_cast<std::size_t>(datum - 1)) = base::LeadingWhole(field);
  }
  values.Stamp = ReadTimeStamp(base::Trim(base::GetField(3, line, ",")));
  return values;
}

OverviewTable BuildOverview(const StatCatalogue& catalogue, int tab, const std::string& elements,
                            const std::array<DataBuffer, 2>& sides) {
  OverviewTable table{.Columns = {"Element"}};
  std::vector<BothSides> all;
  for (const std::string& element : AllElements(tab, elements, sides)) {
    all.push_back({ValuesIn(sides[kReceivedSide], catalogue, tab, element),
                   ValuesIn(sides[kSavedSide], catalogue, tab, element)});
    const bool named = !element.empty();
    const std::string name(named ? std::string_view(element) : TypeOf(tab).Caption);
    table.Rows.push_back({{{.Text = name, .Number = base::LeadingNumber(name)}}});
  }
  for (std::size_t datum = 0; datum < kDatumUnits.size(); ++datum) {
    if (!catalogue.HasDatum(tab, static_cast<int>(datum) + 1)) continue;
    const std::size_t column = table.Columns.size();
    const std::string unit = kDatumUnits.at(datum);
    for (const char* what : {"Received ", "Saved ", "Difference ", "A day "}) {
      table.Columns.push_back(what + unit);
    }
    for (std::size_t row = 0; row < all.size(); ++row) AddDatum(table.Rows[row], all[row], datum);
    AddBars(table, column);
  }
  for (const char* what : {"Received on", "Saved on", "Days"}) table.Columns.emplace_back(what);
  for (std::size_t row = 0; row < all.size(); ++row) {
    table.Rows[row].Cells.push_back(DateCell(all[row][kReceivedSide].Stamp));
    table.Rows[row].Cells.push_back(DateCell(all[row][kSavedSide].Stamp));
    table.Rows[row].Cells.push_back(NumberCell(DaysOf(all[row]), 1));
  }
  table.Dates = DatesText(all);
  return table;
}

void SortOverview(OverviewTable& table, int column, bool descending) {
  const auto at = static_cast<std::size_t>(column);
  if (at >= table.Columns.size()) return;
  const auto before = [&](const OverviewRow& left, const OverviewRow& right) {
    const std::optional<double>& a = left.Cells[at].Number;
    const std::optional<double>& b = right.Cells[at].Number;
    if (!a || !b) return a.has_value() && !b.has_value();
    return descending ? *a > *b : *a < *b;
  };
  std::stable_sort(table.Rows.begin(), table.Rows.end(), before);
}

std::string OverviewText(const OverviewTable& table, char delimiter) {
  std::string text;
  AppendLine(text, table.Columns, delimiter);
  for (const OverviewRow& row : table.Rows) {
    std::vector<std::string> cells;
    for (const OverviewCell& cell : row.Cells) cells.push_back(cell.Text);
    AppendLine(text, cells, delimiter);
  }
  return text;
}

}  // namespace tintbench::stats
