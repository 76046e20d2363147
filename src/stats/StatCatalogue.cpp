#include "stats/StatCatalogue.h"

#include <numeric>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::stats {

namespace {

std::string KeyOf(std::string_view tag, std::string_view what) {
  return std::string(tag).append(",").append(what);
}

std::string_view TagOf(int tab) { return TypeOf(tab).Tag; }

}  // namespace

const StatType& TypeOf(int tab) { return kTypes.at(static_cast<std::size_t>(tab)); }

std::optional<int> TabOfKey(std::string_view key) {
  for (int tab = 0; tab < kStatTypes; ++tab) {
    if (TypeOf(tab).Key == key) return tab;
  }
  return std::nullopt;
}

StatCatalogue::Rows StatCatalogue::AllRows() {
  Rows rows;
  for (const StatType& type : kTypes) {
    rows[std::string(type.Tag)] = type.Data;
    rows[KeyOf(type.Tag, "K")] = std::to_string(type.Elements);
    if (!type.Time.empty()) rows[KeyOf(type.Tag, "1")] = type.Time;
    if (!type.Events.empty()) rows[KeyOf(type.Tag, "2")] = type.Events;
  }
  return rows;
}

std::optional<std::string> StatCatalogue::Find(std::string_view key) const {
  const auto row = rows_.find(key);
  return row == rows_.end() ? std::nullopt : std::optional(row->second);
}

std::string StatCatalogue::Label(int tab, int datum) const {
  return Find(KeyOf(TagOf(tab), std::to_string(datum))).value_or("");
}

bool StatCatalogue::HasDatum(int tab, int datum) const {
  return base::FindField(std::to_string(datum), Find(TagOf(tab)).value_or(""), ",") > 0;
}

int StatCatalogue::ListIndexOfTab(int tab) const {
  const std::optional<std::string> list = Find(KeyOf(TagOf(tab), "K"));
  const int index = list ? base::LeadingInt(*list) : int{config::kElementKinds};
  return index < config::kElementKinds ? index : kNoList;
}

StatElements::StatElements(const config::MachineFacts& facts) {
  for (std::size_t tab = 0; tab < kTypes.size(); ++tab) {
    const int kind = kTypes[tab].Elements;
    if (kind == kNoElements) {
      List[tab] = ",";
      Count[tab] = 1;
      continue;
    }
    for (const std::string& element :
         base::SplitFields(facts.ElementLists[static_cast<std::size_t>(kind)], ",")) {
      List[tab] += base::PlainNumber(base::LeadingWhole(element)) + ",";
      ++Count[tab];
    }
  }
}

int StatElements::Total() const { return std::accumulate(Count.begin(), Count.end(), 0); }

}  // namespace tintbench::stats
