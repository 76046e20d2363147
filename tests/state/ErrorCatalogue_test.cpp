#include "state/ErrorCatalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "config/ConfigTables.h"
#include "state/ErrorRows.h"

namespace tintbench::state {
namespace {

using namespace std::string_literals;

TEST(ErrorText, CodesWithoutARowAreUnknown) {
  const ErrorTable table;
  const std::string codes[] = {
      "",
      "110",
      "1100+",
      "9170++",
      "11034",
      "7001",
      "1600",
      "3F00",
      "110a",
      "91d5",
      "11 3",
      "11\xFF"
      "1",
      "0x70",
      " 7002",
      "\0\0\0\0"s,
      "+110",
      "-001",
  };
  for (const std::string& code : codes) EXPECT_EQ(table.ErrorText(code), "  unknown") << code;
}

TEST(ErrorText, SearchesTheCodeThenItsFamilyThenItsSections) {
  struct Case {
    const char* Code;
    const char* Text;
  };
  const Case cases[] = {
      {"7002", " CPU error"},
      {"7000", " Generic error"},
      {"0100", " Communication error with motor-pump unit [ 0 ] "},
      {"0FFF", " Motor-pump unit configuration missing [ 255 ] "},
      {"1103", " Encoder damaged on motor-pump unit [ 3 ] "},
      {"430F", " Wrong address setting on BRIXEL2 at address [ 15 ] "},
      {"9100", " Configuration File: [ @GEN ] error at field [ 0 ] "},
      {"9175", " Configuration File: [ @CIR ] error at field [ 5 ] "},
      {"918F", " Configuration File: [ @MOT ] error at field [ 15 ] "},
      {"9192", " Configuration File: [ @MOT ] error at field [ 18 ] "},
      {"9233", " Configuration File: [ @IAN ] error at field [ 3 ] "},
      {"9250", "  unknown"},
  };
  const ErrorTable table;
  for (const Case& c : cases) EXPECT_EQ(table.ErrorText(c.Code), c.Text) << c.Code;
}

// No row hides another, and each is found by its own code.
TEST(ErrorText, EveryRowIsReached) {
  const ErrorTable table;
  std::set<std::string> keys;
  for (const ErrorRow& row : kFamilyRows) {
    keys.insert(FamilyKey(row.Code));
    EXPECT_TRUE(row.Code.ends_with("00")) << row.Code;
    const std::string message = std::string(row.Message).append(row.Suffix);
    EXPECT_EQ(table.ErrorText(row.Code), " " + message + " [ 0 ] ");
  }
  for (const ErrorRow& row : kCodeRows) {
    keys.insert(std::string(row.Code));
    EXPECT_EQ(table.ErrorText(row.Code), " " + std::string(row.Message));
  }
  for (const config::ConfigTable& section : config::kConfigTables) {
    if (section.ErrorCode.empty()) continue;
    keys.insert(SectionKey(section.ErrorCode));
    EXPECT_NE(table.ErrorText(section.ErrorCode).find(section.Tag), std::string::npos);
  }
  keys.insert(SectionKey(kForeignSection.Code));
  EXPECT_EQ(keys.size(), 129u);
}

}  // namespace
}  // namespace tintbench::state
