#include "link/DebugLog.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/ScratchFolder.h"

namespace tintbench::testing {
namespace {

TEST(DebugLog, WritesTransactionsAtItsExactLevelAndStartsAnewEachTime) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  link::DebugLog log(files, folder.Put("ksvdebug.txt", "of an earlier run"));
  const struct {
    int Level;
    const char* Content;
  } steps[] = {
      {3, "of an earlier run"},         {15, "#jf*: A   5\r\n#s*: \r\n"},
      {16, "#jf*: A   5\r\n#s*: \r\n"}, {7, "#jf*: A   5\r\n#s*: \r\n"},
      {15, "#jf*: A   5\r\n#s*: \r\n"}, {0, "#jf*: A   5\r\n#s*: \r\n"},
  };
  for (const auto& step : steps) {
    log.DebugLevel(step.Level);
    log.ApplyDebugLevel();
    EXPECT_EQ(log.DebugLogging(), step.Level == 15);
    if (step.Level == 15) {
      EXPECT_EQ(folder.Get("ksvdebug.txt"), "");
    }
    log.WriteTransaction("#jf*", "A   5");
    log.WriteTransaction("#s*", "");
    EXPECT_EQ(folder.Get("ksvdebug.txt"), step.Content) << step.Level;
  }
}

TEST(DebugLog, SaysNothingOfALogThatCannotBeOpened) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  link::DebugLog log(files, folder.Path());
  log.DebugLevel(15);
  log.ApplyDebugLevel();
  log.WriteTransaction("#s*", "A");
  EXPECT_TRUE(log.DebugLogging());
  log.CloseDebugLog();
  log.WriteTransaction("#s*", "A");
}

}  // namespace
}  // namespace tintbench::testing
