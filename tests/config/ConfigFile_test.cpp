#include "config/ConfigFile.h"

#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/ScratchFolder.h"
#include "config/ConfigTables.h"

namespace tintbench::config {
namespace {

using testing::FailingFileSystem;
using testing::ScratchFolder;

TEST(ConfigFile, SplitsALineIntoSlaveAndData) {
  struct {
    const char* Line;
    int Slave;
    const char* Data;
  } const cases[] = {
      {"", 0, ""},
      {"@GEN", 0, ""},
      {"@ICS 1", 0, ""},
      {"@CIR 1", 0, ""},
      {"  @TDA 1  ", 0, ""},
      {"@CIR 1 01,1,0000,0,0,0,1,0,0,1", 1, "01,1,0000,0,0,0,1,0,0,1"},
      {" @CIR    1   01,1,0000 ", 1, "01,1,0000"},
      {"@GEN 16x \"a b\",2", 16, "\"a b\",2"},
      {"% a comment line", 0, "comment line"},
      {"@GEN x 1,2", 0, "1,2"},
      {"@GEN 99999999999999999999 1", 2147483647, "1"},
  };
  for (const auto& c : cases) {
    const ConfigLine split = SplitConfigLine(c.Line);
    EXPECT_EQ(split.Slave, c.Slave) << c.Line;
    EXPECT_EQ(split.Data, c.Data) << c.Line;
  }
}

TEST(ConfigFile, FindsEmptyParameters) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  EXPECT_FALSE(FileHasNoEmptyParameters(files, folder.Path("missing")));
  struct {
    std::string Content;
    bool Wanted;
  } const cases[] = {
      {"", true},
      {"@GEN 1 16,1,,0\r\n", false},
      {"@GEN 1 16,1,0,0,\r\n", false},
      {"@GEN 1 ,16\r\n", false},
      {"@GEN 16 1,,2", false},
      {"@TEL 1 1\n  @XYZ   2   1,,2  \n", false},
      {"@ICS 1\r\n@GEN 1 16,1,\"\",0\r\n@TDA 1 \r\n@ECS 1\r\n@PDD 1\r\n", true},
      {"@GEN 17 1,,2\r\n@GEN 0 1,,2\r\n% x,,y z\r\nGEN 1 1,,2\r\n", true},
      {"@GEN 1 " + std::string(100000, '1') + "\r\n", false},
      {"% " + std::string(100000, ',') + "\r\n@GEN 1 1\r\n", true},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FileHasNoEmptyParameters(files, folder.Put("x", c.Content)), c.Wanted)
        << c.Content.substr(0, 60);
  }
}

TEST(ConfigFile, ReadsTheNumberOfExternalGroups) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  EXPECT_EQ(ReadExternalGroups(files, folder.Path("missing"), 1), 0);
  const auto line = [](const std::string& groups) {
    return "@GEN 1 1,2,3,4,5,6,7," + groups + ",9\n";
  };
  struct {
    std::string Content;
    int Wanted;
  } const cases[] = {
      {"", 0},
      {"@GEN 2 1,2,3,4,5,6,7,8,9\n", 0},
      {"%GEN 1 1,2,3,4,5,6,7,8,9\n@GEN 1\n", 0},
      {line("4"), 4},
      {"@gen 1 1,2,3,4,5,6,7,4\n", 4},
      {line("4") + line("6") + line("0"), 6},
      {line("4") + line("") + line("6"), 4},
      {line("-3"), 0},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReadExternalGroups(files, folder.Put("x", c.Content), 1), c.Wanted) << c.Content;
  }
}

TEST(ConfigFile, StopsAtReadErrorsAndEndlessFiles) {
  const ScratchFolder folder;
  const std::string path = folder.Put("x", "@GEN 1 1,2\r\n");
  FailingFileSystem failing(2);
  EXPECT_FALSE(FileHasNoEmptyParameters(failing, path));

  base::StandardFileSystem files;
  std::string many;
  while (many.size() < 2 * ConfigReader::kFileLimit) many += "% " + std::string(1000, 'x') + "\r\n";
  ConfigReader reader(files, folder.Put("many", many));
  std::string line;
  while (reader.Next(line)) {
  }
  EXPECT_TRUE(reader.Failed());
}

TEST(ConfigTables, AreFoundByTagAndGroup) {
  EXPECT_EQ(FindConfigTable("@gen"), nullptr);
  EXPECT_EQ(FindConfigTable("@AG2"), nullptr);
  EXPECT_EQ(FindConfigTable("@FUN")->Caption, "Group Functionalities");
  EXPECT_EQ(TablesOf(ConfigGroup::kStandard).size(), 10U);
  EXPECT_EQ(TablesOf(ConfigGroup::kAdvanced).front().Tag, "@TA3");
  EXPECT_EQ(TablesOf(ConfigGroup::kIndustrial).size(), 6U);
  int parameters = 0;
  for (const ConfigTable& table : kConfigTables) parameters += table.Parameters;
  EXPECT_EQ(parameters, 143);
}

}  // namespace
}  // namespace tintbench::config
