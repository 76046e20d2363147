#include "base/Text.h"

#include <gtest/gtest.h>

#include "base/Paths.h"

namespace tintbench::base {
namespace {

TEST(Text, GetFieldGivesEmptyForWhatIsNotThere) {
  struct {
    int Number;
    const char* Text;
    const char* Delimiter;
    const char* Wanted;
  } const cases[] = {
      {3, "a,b,c", ",", "c"},  {4, "a,b,c", ",", ""}, {1, "", ",", ""},      {0, "a,b", ",", ""},
      {-1, "a,b", ",", ""},    {1, "a,b", "", ""},    {2, "a,b,", ",", "b"}, {3, "a,b,", ",", ""},
      {2, "a,,c", ",", ""},    {3, "a,,c", ",", "c"}, {2, "x|y", "|", "y"},  {1, "abc", ",", "abc"},
      {1000000, "a", ",", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(GetField(c.Number, c.Text, c.Delimiter), c.Wanted) << c.Number << " of " << c.Text;
  }
}

TEST(Text, SetFieldReachesTheFieldsThatExistAndNoOther) {
  struct {
    int Number;
    const char* Text;
    const char* Wanted;
  } const cases[] = {
      {0, "a,b", ""},    {3, "a,b", ""},    {4, "a,b,", ""},     {1, "", "X"},
      {1, "a,b", "X,b"}, {2, "a,b", "a,X"}, {2, "a,b,", "a,X,"}, {2, "a,,c", "a,X,c"},
      {3, ",,", ",,X"},  {1, ",", "X,"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(SetField(c.Number, "X", c.Text, ","), c.Wanted) << c.Number << " of " << c.Text;
  }
  EXPECT_EQ(SetField(1, "X", "a", ""), "");
}

TEST(Text, CountsAndFindsWholeFields) {
  EXPECT_EQ(CountFields("", ","), 0);
  EXPECT_EQ(CountFields("a", ","), 1);
  EXPECT_EQ(CountFields("a,b", ","), 2);
  EXPECT_EQ(CountFields("a,b,", ","), 2);
  EXPECT_EQ(CountFields("|", "|"), 1);
  EXPECT_EQ(SplitFields("a,,b,", ","), (std::vector<std::string>{"a", "", "b"}));
  EXPECT_TRUE(SplitFields("", ",").empty());

  EXPECT_EQ(FindField("2", "12,22,2,", ","), 3);
  EXPECT_EQ(FindField("1", "12,21", ","), 0);
  EXPECT_EQ(FindField("a", "a", ","), 1);
  EXPECT_EQ(FindField("", "a,,b", ","), 2);
  EXPECT_EQ(FindField("a", "a", ""), 0);
}

TEST(Text, StripsTrimsFoldsAndCuts) {
  for (const auto& [before, after] :
       {std::pair{"\"a\"b\"\"", "a\"b"}, {"\"\"", ""}, {"ab", "ab"}}) {
    std::string text = before;
    StripChar(text, '"');
    EXPECT_EQ(text, after);
  }
  EXPECT_EQ(Trim("  a b\t "), "a b\t");
  EXPECT_EQ(TrimLeft("   "), "");
  EXPECT_EQ(TrimRight(" a  "), " a");
  EXPECT_EQ(ToUpper("a\xe4z1"), "A\xe4Z1");
  EXPECT_EQ(ToLower("A\xc4Z1"), "a\xc4z1");
  EXPECT_EQ(Left("abc", 5) + Left("abc", -1) + Left("abc", 2), "abcab");
  EXPECT_EQ(Right("abc", 5) + Right("abc", -1) + Right("abc", 2), "abcbc");
  EXPECT_EQ(Mid("abc", 2) + Mid("abc", 9) + Mid("abc", 2, 1) + Mid("abc", 3, 7), "bcbc");
  EXPECT_EQ(Behind("[ 1 ]  x]", ']') + Behind("x", ']'), "  x]");
  EXPECT_EQ(Bracketed("x") + Dashed("y"), "[ x ] - y -");
  EXPECT_EQ(JoinLines({"a", "", "b"}), "a\r\n\r\nb");
}

TEST(Paths, TakesAnySeparator) {
  struct {
    const char* Path;
    const char* Folder;
    const char* Stem;
    const char* Extension;
  } const cases[] = {
      {"C:\\a\\b.c.cfg", "C:\\a\\", "b.c", "cfg"},
      {"/a.b/file", "/a.b/", "file", ""},
      {"D:file.CFR", "D:", "file", "CFR"},
      {"", "", "", ""},
      {"a/b\\.x", "a/b\\", "", "x"},
      {"dir/", "dir/", "", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(FilePath(c.Path), c.Folder);
    EXPECT_EQ(FileStem(c.Path), c.Stem);
    EXPECT_EQ(FileExtension(c.Path), c.Extension);
  }
  EXPECT_EQ(JoinPath("a\\", "b"), "a\\b");
  EXPECT_EQ(JoinPath("", "b"), "b");
  EXPECT_EQ(FileStem(JoinPath("a", "b.c")), "b");
}

}  // namespace
}  // namespace tintbench::base
