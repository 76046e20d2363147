#include "config/FileParts.h"

#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/ScratchFolder.h"

namespace tintbench::config {
namespace {

using testing::FailingFileSystem;
using testing::ScratchFolder;

constexpr const char* kClosing = "@EPS 1\r\n@PDD 1\r\n";

FileParts Split(base::FileSystem& files, const ScratchFolder& folder, const std::string& content) {
  folder.Put("image.rom", content);
  return SplitFileForSending(files, folder.Path(), folder.Path("image"), "rom", "1");
}

// `count` lines of 100 characters each, their ends counted.
std::string Lines(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) lines += std::string(98, 'S') + "\r\n";
  return lines;
}

TEST(FileParts, BadSourcesLeaveNoPart) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  const FileParts missing =
      SplitFileForSending(files, folder.Path(), folder.Path("image"), "rom", "1");
  EXPECT_EQ(missing.Last, -1);
  EXPECT_NE(missing.Error, "");
  const FileParts endless = Split(files, folder, Lines(2000) + std::string(3000000, 'x'));
  EXPECT_EQ(endless.Last, -1);
  EXPECT_NE(endless.Error, "");
  EXPECT_EQ(folder.Count(), 1);
  const FileParts empty = Split(files, folder, "");
  EXPECT_EQ(empty.Last, -1);
  EXPECT_EQ(empty.Error, "");
  EXPECT_EQ(folder.Count(), 1);
}

TEST(FileParts, EveryFailureIsToldAndLeavesNoPart) {
  const ScratchFolder folder;
  for (int operation = 1;; ++operation) {
    FailingFileSystem files(operation);
    const FileParts parts = Split(files, folder, Lines(700));
    if (!files.HasFailed()) {
      EXPECT_EQ(parts.Last, 1);
      break;
    }
    EXPECT_EQ(parts.Last, -1) << operation;
    EXPECT_NE(parts.Error, "") << operation;
    EXPECT_EQ(folder.Count(), 1) << operation;
  }
}

TEST(FileParts, MarksTheFirstAndTheLastPart) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  EXPECT_EQ(Split(files, folder, "a\nb\r\nc").Last, 0);
  EXPECT_EQ(folder.Get("_FW_.000"), std::string("@IPS 1\r\na\r\nb\r\nc\r\n") + kClosing);

  // The count starts at 8 in every part, so 650 lines of 100 fill one.
  EXPECT_EQ(Split(files, folder, Lines(1301)).Last, 2);
  EXPECT_EQ(folder.Get("_FW_.000"), "@IPS 1\r\n" + Lines(650));
  EXPECT_EQ(folder.Get("_FW_.001"), Lines(650));
  EXPECT_EQ(folder.Get("_FW_.002"), Lines(1) + kClosing);
}

TEST(FileParts, ASourceThatEndsJustWithItsPartGetsNoClosingLines) {
  const ScratchFolder folder;
  base::StandardFileSystem files;
  EXPECT_EQ(Split(files, folder, Lines(650)).Last, 0);
  EXPECT_EQ(folder.Get("_FW_.000"), "@IPS 1\r\n" + Lines(650));
  EXPECT_EQ(Split(files, folder, Lines(649)).Last, 0);
  EXPECT_EQ(folder.Get("_FW_.000"), "@IPS 1\r\n" + Lines(649) + kClosing);
}

}  // namespace
}  // namespace tintbench::config
