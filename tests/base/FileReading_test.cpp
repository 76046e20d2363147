// Reading files that change, fail or can't be read at all.
#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/Files.h"
#include "base/ScratchFolder.h"

namespace tintbench::base {
namespace {

using testing::FailingFileSystem;
using testing::ScratchFolder;

constexpr std::size_t kLineLength = 100;  // with its end
constexpr std::size_t kLineCount = 10000;

std::string Lines() {
  std::string text;
  for (std::size_t i = 0; i < kLineCount; ++i) text += std::string(kLineLength - 1, 'x') + "\n";
  return text;
}

// How many lines come, all of them whole.
std::size_t CountLines(LineReader& reader) {
  std::size_t count = 0;
  for (std::string line; reader.Next(line); ++count) EXPECT_EQ(line.size(), kLineLength - 1);
  return count;
}

TEST(FileReading, AFileThatShrinksMeanwhileJustEndsEarlier) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string path = folder.Put("file", Lines());
  LineReader reader(files, path);
  std::string line;
  ASSERT_TRUE(reader.Next(line));
  std::filesystem::resize_file(path, 2000 * kLineLength);
  EXPECT_EQ(CountLines(reader), 2000U - 1);
  EXPECT_FALSE(reader.Failed());

  LineReader emptied(files, path);
  ASSERT_TRUE(emptied.Next(line));
  std::filesystem::resize_file(path, 0);
  while (emptied.Next(line)) {
  }
  EXPECT_FALSE(emptied.Failed());
}

TEST(FileReading, ADeletedOrReplacedFileIsReadToItsEnd) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string path = folder.Put("file", Lines());
  LineReader first(files, path);
  ASSERT_TRUE(ReplaceFile(files, path, Lines()));
  LineReader second(files, path);
  ASSERT_TRUE(files.Delete(path));
  EXPECT_EQ(CountLines(first), kLineCount);
  EXPECT_EQ(CountLines(second), kLineCount);
}

TEST(FileReading, AFailureAnywhereIsToldAndGivesNoPartOfALine) {
  const ScratchFolder folder;
  const std::string path = folder.Put("file", Lines());
  int operation = 0;
  for (bool failed = true; failed;) {
    SCOPED_TRACE(++operation);
    FailingFileSystem forLines(operation);
    LineReader reader(forLines, path);
    const std::size_t count = CountLines(reader);
    failed = forLines.HasFailed();
    EXPECT_EQ(reader.Failed(), failed);
    EXPECT_EQ(count == kLineCount, !failed || operation == 18) << count;

    FailingFileSystem forAll(operation);
    EXPECT_EQ(ReadFile(forAll, path, kLineCount * kLineLength).has_value(), !failed);
  }
  // An opening, 16 reads with content and one that finds the end.
  EXPECT_EQ(operation, 19);
}

TEST(FileReading, OneLineOf100MegabytesTakesNoMoreMemoryThanItsLimit) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string path = folder.Put("file", "");
  std::filesystem::resize_file(path, 100'000'000);
  LineReader reader(files, path);
  std::string line;
  ASSERT_TRUE(reader.Next(line));
  EXPECT_TRUE(reader.WasCut());
  EXPECT_EQ(line.size(), LineReader::kLineLimit);
  EXPECT_LE(line.capacity(), 3 * LineReader::kLineLimit);
  EXPECT_FALSE(reader.Next(line));
  EXPECT_FALSE(ReadFile(files, path, LineReader::kLineLimit));
}

}  // namespace
}  // namespace tintbench::base
