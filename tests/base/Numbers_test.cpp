#include "base/Numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace tintbench::base {
namespace {

TEST(Numbers, LeadingNumberOfAnything) {
  constexpr double kMax = std::numeric_limits<double>::max();
  const std::string nines(5000, '9');
  const std::string zeros(5000, '0');
  struct {
    std::string Text;
    double Wanted;
  } const cases[] = {
      {"", 0},
      {"abc", 0},
      {"-", 0},
      {".", 0},
      {"+.e5", 0},
      {"12abc", 12},
      {"  -7,5", -7},
      {"+3.25", 3.25},
      {".5x", 0.5},
      {"5.", 5},
      {"1e3", 1000},
      {"1e", 1},
      {"2E+x", 2},
      {"0_1", 0},
      {"0,31", 0},
      {"nan", 0},
      {"inf", 0},
      {"0x1F", 0},
      {"1 2", 1},
      {"- 1", 0},
      {nines, kMax},
      {"-" + nines, -kMax},
      {"1e99999999999999999999", kMax},
      {"1e-9999", 0},
      {"0." + zeros + "1e3", 0},
      {"1" + zeros + "e-10", kMax},
      {"1" + zeros + "e-5000", 1},
      {std::string("4\0"
                   "2",
                   3),
       4},
  };
  for (const auto& c : cases) EXPECT_EQ(LeadingNumber(c.Text), c.Wanted) << c.Text.substr(0, 40);
}

TEST(Numbers, WholeNumbersSaturateAndRoundToEven) {
  EXPECT_EQ(LeadingWhole("9999999999"), 9999999999);
  EXPECT_EQ(LeadingWhole("99999999999999999999"), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(LeadingWhole("-1e40"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(LeadingInt("9999999999"), std::numeric_limits<int>::max());
  EXPECT_EQ(LeadingInt("-9999999999"), std::numeric_limits<int>::min());
  EXPECT_EQ(LeadingInt("2.5"), 2);
  EXPECT_EQ(LeadingInt("3.5x"), 4);
  EXPECT_EQ(RoundHalfEven(-0.5), 0);
  EXPECT_EQ(RoundHalfEven(-1.5), -2);
  EXPECT_EQ(RoundHalfEven(2.4999), 2);
  EXPECT_EQ(RoundHalfEven(0.25, 1), 0.2);
  EXPECT_EQ(RoundHalfEven(1000.35, 1), 1000.4);
  EXPECT_EQ(RoundHalfEven(1e308, 3), 1e308);
}

TEST(Numbers, IsNumericWantsTheWholeText) {
  for (const char* text : {"12", " 12 ", "-1", "+0.5", ".5", "5.", "1e5"}) {
    EXPECT_TRUE(IsNumeric(text)) << text;
  }
  for (const char* text : {"", " ", "12a", "1 2", "1,5", "-", ".", "1e", "0x1", "nan", "--1"}) {
    EXPECT_FALSE(IsNumeric(text)) << text;
  }
}

TEST(Numbers, WritesWithoutExponentAndWithTheLeadingBlank) {
  EXPECT_EQ(PlainNumber(100000.0), "100000");
  EXPECT_EQ(PlainNumber(0.00001), "0.00001");
  EXPECT_EQ(PlainNumber(-12.3), "-12.3");
  EXPECT_EQ(PlainNumber(-0.0), "0");
  EXPECT_EQ(PlainNumber(std::numeric_limits<double>::denorm_min()).size(), 326U);
  EXPECT_EQ(BlankNumber(1000.4), " 1000.4");
  EXPECT_EQ(BlankNumber(-3) + BlankNumber(0) + BlankNumber(7U), "-3 0 7");
  EXPECT_EQ(LastDigits(7, 2) + LastDigits(123, 2) + LastDigits(5, 3), "0723005");
  EXPECT_EQ(LastDigits("", 2) + LastDigits("1", 0), "00");
}

TEST(Numbers, Hexadecimal) {
  EXPECT_EQ(LeadingHex("fF"), 255);
  EXPECT_EQ(LeadingHex("1g"), 1);
  EXPECT_EQ(LeadingHex(""), 0);
  EXPECT_EQ(LeadingHex("FFFFFFFF"), 4294967295);
  EXPECT_EQ(LeadingHex(std::string(100, 'F')), std::numeric_limits<std::int64_t>::max());
  EXPECT_TRUE(IsHexadecimal("0aF9"));
  EXPECT_FALSE(IsHexadecimal(""));
  EXPECT_FALSE(IsHexadecimal("0G"));
  EXPECT_EQ(ToHex(10, 2) + ToHex(0x1AB, 2), "0AAB");
  EXPECT_EQ(HexToBinary(""), "");
  EXPECT_EQ(HexToBinary("G0 "), "EEEE0000EEEE");
  EXPECT_EQ(HexToBinary("0123456789abcdef"),
            "0000000100100011010001010110011110001001101010111100110111101111");
  EXPECT_EQ(HexToBinary("aF"), "10101111");
}

}  // namespace
}  // namespace tintbench::base
