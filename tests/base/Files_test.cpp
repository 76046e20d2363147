#include "base/Files.h"

#include <gtest/gtest.h>

#include "base/ScratchFolder.h"

namespace tintbench::base {
namespace {

using testing::ScratchFolder;

std::vector<std::string> LinesOf(const std::string& path, std::size_t limit) {
  StandardFileSystem files;
  LineReader reader(files, path, limit);
  std::vector<std::string> lines;
  for (std::string line; reader.Next(line);) lines.push_back(line + (reader.WasCut() ? "~" : ""));
  EXPECT_FALSE(reader.Failed());
  return lines;
}

TEST(Files, WhatIsMissingFailsWithAReason) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string missing = folder.Path("no/file");
  FileResult result;
  EXPECT_EQ(files.OpenToWrite(missing, WriteMode::kCreate, result), nullptr);
  EXPECT_FALSE(result);
  EXPECT_NE(result.Error(), "");
  EXPECT_FALSE(files.Delete(missing));
  EXPECT_FALSE(files.Rename(missing, folder.Path("x")));
  EXPECT_FALSE(ReplaceFile(files, missing, "x"));
  EXPECT_FALSE(files.MakeDir(folder.Put("file", "") + "/below"));
  EXPECT_EQ(files.OpenToRead(missing), nullptr);
  EXPECT_EQ(files.OpenToRead(folder.Path()), nullptr);
  EXPECT_FALSE(files.Length(missing) || files.Length(folder.Path()));
  EXPECT_FALSE(files.TimeStamp(missing) || files.TimeStamp(folder.Path()));
  EXPECT_TRUE(files.List(missing, "*").empty());
  EXPECT_FALSE(ReadFile(files, missing, 10));
  LineReader reader(files, missing);
  std::string line;
  EXPECT_FALSE(reader.IsOpen() || reader.Next(line));
  EXPECT_TRUE(reader.Failed());
}

TEST(Files, AnUncommittedReplacementLeavesNothing) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string path = folder.Put("target", "old");
  {
    ReplacementFile replacement(files, path);
    EXPECT_TRUE(replacement.Write("new"));
  }
  EXPECT_EQ(folder.Get("target"), "old");
  EXPECT_EQ(folder.Count(), 1);
}

TEST(Files, WritesAppendsListsAndDeletes) {
  const ScratchFolder folder;
  StandardFileSystem files;
  ASSERT_TRUE(files.MakeDir(folder.Path("a/b")));
  EXPECT_TRUE(files.MakeDir(folder.Path("a/b")));
  EXPECT_TRUE(files.DirExists(folder.Path("a/b")));
  EXPECT_FALSE(files.FileExists(folder.Path("a/b")));
  const std::string path = folder.Path("a/One.G07");
  for (const WriteMode mode : {WriteMode::kCreate, WriteMode::kCreate, WriteMode::kAppend}) {
    FileResult result;
    const auto file = files.OpenToWrite(path, mode, result);
    ASSERT_TRUE(result);
    EXPECT_TRUE(file->Write("abc"));
    EXPECT_TRUE(file->Flush());
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(file->Close());
  }
  EXPECT_EQ(folder.Get("a/One.G07"), "abcabc");
  EXPECT_EQ(files.Length(path), 6U);
  EXPECT_GE(files.TimeStamp(path)->Year, 2024);
  EXPECT_EQ(ReadFile(files, path, 6), "abcabc");
  EXPECT_FALSE(ReadFile(files, path, 5));
  folder.Put("a/two.g08", "");
  EXPECT_EQ(files.List(folder.Path("a"), "*.g??"),
            (std::vector<std::string>{"One.G07", "two.g08"}));
  EXPECT_TRUE(files.Rename(path, folder.Path("a/two.g08")));
  EXPECT_EQ(files.Length(folder.Path("a/two.g08")), 6U);
  EXPECT_TRUE(files.Delete(folder.Path("a/two.g08")));
  EXPECT_FALSE(files.FileExists(folder.Path("a/two.g08")));
}

TEST(Files, PatternsMatchWholeNames) {
  struct {
    std::string Name;
    const char* Pattern;
    bool Wanted;
  } const cases[] = {
      {"DEFSLAVE.CFR", "*.cfr", true},
      {"a.cfrx", "*.cfr", false},
      {"a.cfr", "?.cfr", true},
      {"ab.cfr", "?.cfr", false},
      {"", "*", true},
      {"", "?", false},
      {"aXbXc", "a*x*c", true},
      {"aab", "*ab", true},
      {"abc", "", false},
      {"20260101.G07", "*.G??", true},
      {std::string(300, 'a'), "*a*a*a*a*b", false},
  };
  for (const auto& c : cases) EXPECT_EQ(MatchesPattern(c.Name, c.Pattern), c.Wanted) << c.Name;
}

TEST(LineReader, TakesAnyContent) {
  struct {
    std::string Content;
    std::vector<std::string> Wanted;
  } const cases[] = {
      {"", {}},
      {"\n", {""}},
      {"a\r\nb\nc", {"a", "b", "c"}},
      {"a\n\r\n\r", {"a", "", ""}},
      {"a\rb\r\r\n", {"a\rb\r"}},
      {std::string("a\0b\x1a\xff\n", 6), {std::string("a\0b\x1a\xff", 5)}},
      {"12345678\r\n12345678", {"12345678", "12345678"}},
      {"123456789\r\nx\n123456789", {"12345678~", "x", "12345678~"}},
  };
  const ScratchFolder folder;
  for (const auto& c : cases) EXPECT_EQ(LinesOf(folder.Put("x", c.Content), 8), c.Wanted);
}

TEST(LineReader, TakesALineEndThatLiesAcrossTwoReads) {
  const ScratchFolder folder;
  EXPECT_EQ(LinesOf(folder.Put("x", std::string(65535, 'a') + "\r\nb"), 100000)[0].size(), 65535U);
}

}  // namespace
}  // namespace tintbench::base
