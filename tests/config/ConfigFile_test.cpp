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
  EXPECT_EQ(CheckEmptyParameters(files, folder.Path("missing")), EmptyParameters::kUnknown);
  struct {
    std::string Content;
    EmptyParameters Wanted;
  } const cases[] = {
      {"", EmptyParameters::kNone},
      {"@GEN 1 16,1,,0\r\n", EmptyParameters::kSome},
      {"@GEN 1 16,1,0,0,\r\n", EmptyParameters::kSome},
      {"@GEN 1 ,16\r\n", EmptyParameters::kSome},
      {"@GEN 16 1,,2", EmptyParameters::kSome},
      {"@TEL 1 1\n  @XYZ   2   1,,2  \n", EmptyParameters::kSome},
      {"@ICS 1\r\n@GEN 1 16,1,\"\",0\r\n@TDA 1 \r\n@ECS 1\r\n@PDD 1\r\n", EmptyParameters::kNone},
      {"@GEN 17 1,,2\r\n@GEN 0 1,,2\r\n% x,,y z\r\nGEN 1 1,,2\r\n", EmptyParameters::kNone},
      {"@GEN 1 " + std::string(100000, '1') + "\r\n", EmptyParameters::kUnknown},
      {"% " + std::string(100000, ',') + "\r\n@GEN 1 1\r\n", EmptyParameters::kNone},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(CheckEmptyParameters(files, folder.Put("x", c.Content)), c.Wanted)
        << c.Content.substr(0, 60);
  }
}

TEST(ConfigFile, GivesTheLinesOfAllSlavesWithTheirTagsAsWritten) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  ConfigReader reader(files, folder.Put("x",
                                        "% 1 a b\n@ICS 1\n @gen   1  1, 2 \n@GEN 17 1\n@GEN 0 1\n"
                                        "@GEN x 1\nGEN 16 1\n@GEN 2\n@GENX 2x 5|6"));
  std::string seen;
  for (ConfigRecord record; reader.NextRecord(record);) {
    seen += record.Tag + std::to_string(record.Slave) + "=" + record.Data + ";";
  }
  EXPECT_EQ(seen, "%1=a b;@gen1=1, 2;GEN16=1;@GENX2=5|6;");
  EXPECT_FALSE(reader.Failed());
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
  EXPECT_EQ(CheckEmptyParameters(failing, path), EmptyParameters::kUnknown);

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
