// The start of the program on a folder in which an earlier run was cut off.
#include <gtest/gtest.h>

#include <set>

#include "shell/TestProgram.h"

namespace tintbench::shell {
namespace {

std::set<std::string> FilesIn(const testing::ScratchFolder& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.Path())) {
    if (entry.is_regular_file()) {
      names.insert(std::filesystem::relative(entry.path(), folder.Path()).string());
    }
  }
  return names;
}

TEST(SweptFiles, OnlyWhatACutOffRunLeftIsGone) {
  testing::TestProgram test({{1, std::nullopt}});
  const std::string temporary = ".tintbench-00112233445566ff.tmp";
  const std::set<std::string> kept{"DEFSLAVE.CFG",   "TMP.TMP.BAK",           "_FW_.rom",
                                   "STAT/TMP.TMP",   "CONFIGUR/TMP.TMP",      "CONFIGUR/mine.cfm",
                                   "CONFIGUR/x.tmp", "CONFIGUR/KSSETTING.TXT"};
  ASSERT_TRUE(test.Files.MakeDir(test.Folder.Path("CONFIGUR")));
  ASSERT_TRUE(test.Files.MakeDir(test.Folder.Path("STAT")));
  for (const std::string& name : kept) test.Folder.Put(name, "SERVICE");
  for (const char* name : {"TMP.TMP", "_FW_.000", "_FW_.012", "CONFIGUR/DEFSLAVE.CFR"})
    test.Folder.Put(name, "half");
  for (const char* folder : {"", "CONFIGUR/"}) test.Folder.Put(folder + temporary, "half");
  test.Run();
  EXPECT_EQ(FilesIn(test.Folder), kept);
}

}  // namespace
}  // namespace tintbench::shell
