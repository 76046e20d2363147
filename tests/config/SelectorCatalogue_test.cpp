#include "config/SelectorCatalogue.h"

#include <gtest/gtest.h>

#include "base/Text.h"
#include "config/SelectorRows.h"

namespace tintbench::config {
namespace {

std::string WalkedValues(const SelectorCatalogue& catalogue, const std::string& key) {
  std::string values;
  std::string value;
  SelectorWalk walk(catalogue);
  std::string text = walk.NextSelectorItem(key, value);
  while (text != SelectorEnd()) {
    values += value + ",";
    EXPECT_EQ(catalogue.Find(key + "," + value), text);
    text = walk.NextSelectorItem("", value);
  }
  return values;
}

TEST(SelectorCatalogue, MissingKeysEndAWalkAndGiveNoText) {
  const SelectorCatalogue catalogue;
  SelectorWalk walk(catalogue);
  std::string value = "kept";
  EXPECT_EQ(walk.NextSelectorItem("", value), std::string(1, '\0'));
  EXPECT_EQ(value, "kept");
  EXPECT_EQ(walk.NextSelectorItem("1", value), "[ 1 ]  fast shelf, 2 sensors");
  EXPECT_EQ(walk.NextSelectorItem("99", value), SelectorEnd());
  EXPECT_EQ(walk.NextSelectorItem("", value), SelectorEnd());
  EXPECT_EQ(value, "1");
  EXPECT_EQ(catalogue.SelectorItemText(7, "4"), "");
  EXPECT_EQ(catalogue.SelectorItemText(1, ""), "");
  EXPECT_FALSE(catalogue.Find("8,27"));
}

// A walk ends for good at its last row, where a key names a single row, and where another begins.
TEST(SelectorWalk, GoesOverOneListAtATime) {
  const SelectorCatalogue catalogue;
  SelectorWalk walk(catalogue);
  std::string value;
  EXPECT_EQ(walk.NextSelectorItem("9", value), "[ 0 ]  normal");
  EXPECT_EQ(walk.NextSelectorItem("5", value), "[ 0 ]  none");
  EXPECT_EQ(walk.NextSelectorItem("", value), "[ 1 ]  parallel");
  EXPECT_EQ(walk.NextSelectorItem("5", value), "[ 0 ]  none");
  EXPECT_EQ(walk.NextSelectorItem("8,5", value), SelectorEnd());
  EXPECT_EQ(walk.NextSelectorItem("", value), SelectorEnd());
  EXPECT_EQ(walk.NextSelectorItem("9", value), "[ 0 ]  normal");
  EXPECT_EQ(walk.NextSelectorItem("", value), "[ 1 ]  anti-rebound");
  EXPECT_EQ(walk.NextSelectorItem("", value), SelectorEnd());
  EXPECT_EQ(walk.NextSelectorItem("", value), SelectorEnd());
  EXPECT_EQ(value, "1");
}

TEST(SelectorCatalogue, WalksInTheOrderOfShowing) {
  const SelectorCatalogue catalogue;
  EXPECT_EQ(WalkedValues(catalogue, "6"), "15,1,2,3,4,5,6,7,8,9,0,");
  EXPECT_EQ(WalkedValues(catalogue, "2"), "0,2,3,4,12,13,14,15,21,31,");
  EXPECT_EQ(base::CountFields(WalkedValues(catalogue, "X_FUN"), ","), 20);
  EXPECT_EQ(catalogue.Find("81"), "31,32,33,34,35,36,37,38");
  EXPECT_EQ(catalogue.SelectorItemText(0, "6"), "[   0 ]  change in slope if speed-unit is 0");
  EXPECT_EQ(catalogue.SelectorItemText(23, "8"),
            "[ 23 ]  air prssion presence (only washing machine)");
  EXPECT_EQ(catalogue.Find("X_FUN,19"), "[ 19 ] ");
}

// Each row's text begins with its own value in brackets, and no row stands twice.
TEST(SelectorCatalogue, RowsAgreeWithTheirValues) {
  for (const SelectorRow& row : kSelectorRows) {
    const std::string inside = base::GetField(1, base::Mid(row.Text, 2), "]");
    EXPECT_EQ(base::Trim(inside), row.Value) << row.Text;
    int count = 0;
    for (const SelectorRow& other : kSelectorRows) {
      count += other.Key == row.Key && other.Value == row.Value ? 1 : 0;
    }
    EXPECT_EQ(count, 1) << row.Text;
  }
}

}  // namespace
}  // namespace tintbench::config
