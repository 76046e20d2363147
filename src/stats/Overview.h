// All elements of one type in a table: what was received, what was saved, how far they lie apart,
// and how much that makes a day. Data alone; a window shows it.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "stats/DataFile.h"

namespace tintbench::stats {

// What a file holds of an element: datum 1 and 2, and the moment of the reading.
struct ElementValues {
  std::array<std::optional<std::int64_t>, 2> Data;
  std::optional<base::LocalTime> Stamp;
};

// The values as their line has them: datum 1 in its first field, datum 2 in its second. Data that
// the type lacks are left out.
ElementValues ReadElementValues(const std::string& line, const StatCatalogue& catalogue, int tab);

struct OverviewCell {
  std::string Text;
  std::optional<double> Number;  // what it is sorted by; nothing comes last
  double Bar = -1;               // its length, 0 to 1 of the largest; below 0 for a cell without
};

struct OverviewRow {
  std::vector<OverviewCell> Cells;
};

struct OverviewTable {
  std::vector<std::string> Columns;  // of which the first is the element
  std::vector<OverviewRow> Rows;
  std::string Dates;  // of both sides, and what passed between them, in words
};

// `elements` are those that the machine has; those that only a file has follow. A type with events
// alone is read from whichever field has the number, as a reception puts it into the first.
OverviewTable BuildOverview(const StatCatalogue& catalogue, int tab, const std::string& elements,
                            const std::array<DataBuffer, 2>& sides);

// By a column, 0 for the elements; equal rows keep their order.
void SortOverview(OverviewTable& table, int column, bool descending);

// The table's head and rows with `delimiter` between cells, a line each, ended by CR LF. A cell
// that holds the delimiter or a quote stands in quotes (RFC 4180).
std::string OverviewText(const OverviewTable& table, char delimiter);

}  // namespace tintbench::stats
