#include "editor/ConfigStore.h"

#include "base/FailingFileSystem.h"
#include "base/ScratchFolder.h"
#include "config/ConfigFile.h"
#include "editor/EditorBench.h"
#include "simulator/SampleConfiguration.h"

namespace tintbench::editor {
namespace {

class ConfigStore : public testing::EditorBench {
 protected:
  // What is written from a file with this content, without the header.
  std::string Saved(const std::string& content, int filled = 0) {
    files_.Put("/a/old.cfr", content);
    EditingModel model;
    EXPECT_TRUE(LoadConfigFile(files_, "/a/old.cfr", model));
    const WriteOutcome outcome = writer_.WriteConfigFile(model, {}, "/a/new.cfm");
    EXPECT_TRUE(outcome.Result) << outcome.Result.Error();
    EXPECT_EQ(outcome.Filled, filled);
    const std::string text = files_.Get("/a/new.cfm");
    return text.substr(text.find("\r\n\r\n") + 4);
  }
};

TEST_F(ConfigStore, TheHeaderNamesProgramTimeAndOrigin) {
  files_.Put("/a/MACHINE.CFR", "");
  const ConfigName original = NamedConfig(files_, "/a/", "MACHINE", "CFR");
  ASSERT_TRUE(writer_.WriteConfigFile({}, original, "/a/new.cfm").Result);
  EXPECT_EQ(files_.Get("/a/new.cfm"),
            "% Creation date/time: 2026-03-07, 09:05:02\r\n% \r\n% TintBench version 1.2\r\n% \r\n"
            "% Original configuration was\r\n% /a/MACHINE.CFR( 2000-01-01, 00:00:00 )\r\n\r\n"
            "@ECS 1\r\n@PDD 1\r\n");
}

TEST_F(ConfigStore, KeepsWhatItKnowsOfSlave1InTheOrderOfTheTables) {
  struct {
    const char* Content;
    const char* Saved;
    int Filled;
  } const cases[] = {
      {"", "", 0},
      {"@ICS 1\n% x 1 y\n@AG2 1 1\n@gen 1 1\n@GEN 0 1\n@GEN 17 1\n@GEN x 1\n@GEN 2 1\n@TDA 1 \n",
       "", 0},
      {"@FUN 1 2,\"1\"\n@TDA   1   0\n", "@TDA 1 0\r\n@FUN 1 2,\"1\"\r\n", 0},
      {" @CIR 1 2,x \n@GEN 1 1,2\n@CIR 1 2\n@CIR 1 1,2,3,4,5,6,7,8,9,10,11,12\n",
       "@ICS 1\r\n@GEN 1 1,2\r\n@CIR 1 2,x\r\n@CIR 1 2\r\n@CIR 1 1,2,3,4,5,6,7,8,9,10,11,12\r\n",
       0},
      // A mark makes two lines of one, and the last of the lines belongs to no element.
      {"@ILE 1 1,a|b\n@ILE 1 2,c\n", "@ICS 1\r\n@ILE 1 1,a\r\n@ILE 1 b\r\n", 0},
      {"@TAP 1 ,,,\n@BX2 1 1, ,,\n", "@ICS 1\r\n@TAP 1 1,2,200,15\r\n@BX2 1 1,,,\r\n", 7},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Saved(c.Content, c.Filled), std::string(c.Saved) + "@ECS 1\r\n@PDD 1\r\n")
        << c.Content;
  }
}

TEST_F(ConfigStore, EveryTableComesBackFromItsFile) {
  for (const config::ConfigTable& table : config::kConfigTables) {
    const std::string line =
        std::string(table.Tag) + " 1 " + CreateParms(table.Parameters, "7") + "\r\n";
    const std::string opening = table.Group == Group::kStandard ? "@ICS 1\r\n" : "";
    EXPECT_EQ(Saved(line), opening + line + "@ECS 1\r\n@PDD 1\r\n");
  }
  EXPECT_EQ(Saved(std::string(simulator::SampleConfiguration())), simulator::SampleConfiguration());
}

TEST_F(ConfigStore, FillsNothingUnlessTwoCommasMeet) {
  const TablePlace ta3{Group::kAdvanced, 1, 1};
  struct {
    TablePlace At;
    const char* Line;
    const char* Filled;
    int Count;
    bool Sendable;  // the file passes the check for empty parameters
  } const cases[] = {
      {kGen, ",1,0", ",1,0", 0, false},
      {kGen, "16,1,0,", "16,1,0,", 0, false},
      {ta3, ",", ",", 0, false},
      {ta3, "", "", 0, true},
      {kGen, "16,,0,", "16,1,0,0", 2, true},
      {kGen, ",,", "16,1,16", 3, true},
      {kGen, " 5 , ,,,1,1,1,1,1,,", "5,1,16,0,1,1,1,1,1,\"\",0", 5, true},
      {kGen, "1,1,1,1,1,1,1,1,1,1,1,,2", "1,1,1,1,1,1,1,1,1,1,1,,2", 1, false},
      {kLines, "1,,,", "1,,,", 3, false},
  };
  for (const auto& c : cases) {
    const FilledLine filled = FillEmptyFields(catalogue_, c.At, c.Line);
    EXPECT_EQ(filled.Line, c.Filled) << c.Line;
    EXPECT_EQ(filled.Filled, c.Count) << c.Line;
    files_.Put("/a/x", std::string(TableAt(c.At)->Tag) + " 1 " + filled.Line + "\r\n");
    EXPECT_EQ(config::FileHasNoEmptyParameters(files_, "/a/x"), c.Sendable) << c.Line;
  }
}

TEST_F(ConfigStore, FilesThatCannotBeReadLeaveTheModel) {
  EditingModel model;
  model.Append(kGen, "1");
  const std::string endless = "@GEN 1 " + std::string(5000, '1');
  std::string many;
  while (many.size() < 2 * config::ConfigReader::kFileLimit) many += endless.substr(0, 4000) + "\n";
  for (const std::string& content : {endless, many}) {
    files_.Put("/a/x", content);
    EXPECT_EQ(LoadConfigFile(files_, "/a/x", model).Error(),
              "the file is too large for a configuration");
  }
  EXPECT_EQ(LoadConfigFile(files_, "/a/none", model).Error(), "the file can't be opened");
  const std::string line = "@GEN 1 2\n";
  files_.Put("/a/x", line);
  files_.FailAt(2);
  EXPECT_EQ(LoadConfigFile(files_, "/a/x", model).Error(), "the file can't be read");
  EXPECT_EQ(model.ElementLine({kGen, 1}), "1");
  files_.Put("/a/x", std::string("\0|\xff@\n", 5) + line);
  EXPECT_TRUE(LoadConfigFile(files_, "/a/x", model));
  EXPECT_EQ(model.ElementLine({kGen, 1}), "2");
}

// What no reader would take is told before the old file is touched.
TEST_F(ConfigStore, WritesNothingThatCannotBeReadAgain) {
  const std::string longest(config::ConfigReader::kLineLimit - 7, 'x');
  struct {
    std::string Line;
    int Elements;
    const char* Error;
  } const cases[] = {
      {longest, 1, ""},
      {longest + "x", 2, "element 1 of table @CIR is too long for a line of the file"},
      {"1,\n2", 1, "element 1 of table @CIR holds a line end"},
      {longest, 1050, "the configuration is too large for a file"},
      {longest, 1000, ""},
  };
  for (const auto& c : cases) {
    files_.Put("/a/new.cfm", "old");
    EditingModel model;
    for (int i = 0; i < c.Elements; ++i) model.Append(kCircuits, c.Line);
    EXPECT_EQ(writer_.WriteConfigFile(model, {}, "/a/new.cfm").Result.Error(), c.Error);
    EXPECT_EQ(files_.Get("/a/new.cfm") == "old", *c.Error != '\0');
    EXPECT_TRUE(LoadConfigFile(files_, "/a/new.cfm", model));
  }
}

TEST_F(ConfigStore, AFailingDiskLeavesTheOldFileOrTheNewOne) {
  const testing::ScratchFolder folder;
  EditingModel model;
  model.Append(kStirringTimes, "0");
  testing::UnderEachDiskFault([&](testing::FailingFileSystem& files) {
    folder.Put("m.cfm", "old");
    const ConfigWriter writer{files, clock_, identity_, catalogue_};
    const bool good(writer.WriteConfigFile(model, {}, folder.Path("m.cfm")).Result);
    const std::string kept = folder.Get("m.cfm");
    const bool isNew = kept.ends_with("\r\n@TDA 1 0\r\n@ECS 1\r\n@PDD 1\r\n");
    EXPECT_TRUE(kept == "old" || isNew) << kept;
    EXPECT_TRUE(!good || isNew);
    EXPECT_EQ(good, !files.HasFailed());
  });
}

}  // namespace
}  // namespace tintbench::editor
