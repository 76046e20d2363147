// Which names are those of recordings, what they tell, and in which order they are listed.
#include "groups/HistoryList.h"

#include <gtest/gtest.h>

#include "base/MemoryFileSystem.h"

namespace tintbench::groups {
namespace {

using Names = std::vector<std::string>;
constexpr const char* kFolder = "/data/MGROUPS";

class HistoryListTest : public ::testing::Test {
 protected:
  void Put(const std::string& name) { files_.Put("/data/MGROUPS/" + name, "12345"); }
  Names Listed(HistoryOrder order) const {
    Names names;
    for (const std::size_t index : list_.Order(order)) {
      names.push_back(list_.Files().at(index).Path.substr(14));
    }
    return names;
  }

  testing::MemoryFileSystem files_;
  HistoryList list_{files_, kFolder, std::locale::classic()};
};

TEST_F(HistoryListTest, PassesOverNamesOfOtherFilesAndSaysWhichDatesAreImpossible) {
  for (const char* other : {"2026.G01", "20261115.G1", "20261115.G011", "20261115.GAB", "G07.G07",
                            "2026111x.G01", "20261115.G-1", "20261115.G01.G01", ".G07"}) {
    Put(other);
  }
  const Names impossible{"00000101.G01", "20260001.G01", "20260100.G01",
                         "20260229.g01", "20260431.G01", "20261301.G01"};
  for (const std::string& name : impossible) Put(name);
  EXPECT_EQ(list_.FindFiles(), impossible);
  EXPECT_TRUE(list_.Files().empty());
  Put("20280229.G01");
  EXPECT_EQ(list_.FindFiles(), impossible);
  EXPECT_EQ(Listed(HistoryOrder::kByDate), Names{"20280229.G01"});
}

TEST_F(HistoryListTest, SortsByGroupAndByDate) {
  for (const char* name : {"20261115.g07", "20261115.G07", "20261116.G01", "20261115.G01",
                           "20251231.G31", "20261114.G07"}) {
    Put(name);
  }
  EXPECT_TRUE(list_.FindFiles().empty());
  EXPECT_EQ(Listed(HistoryOrder::kByGroup),
            (Names{"20261115.G01", "20261116.G01", "20261114.G07", "20261115.G07", "20261115.g07",
                   "20251231.G31"}));
  EXPECT_EQ(Listed(HistoryOrder::kByDate), (Names{"20251231.G31", "20261114.G07", "20261115.G01",
                                                  "20261115.G07", "20261115.g07", "20261116.G01"}));
}

}  // namespace
}  // namespace tintbench::groups
