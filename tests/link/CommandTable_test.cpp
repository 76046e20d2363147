#include "link/CommandTable.h"

#include <gtest/gtest.h>

#include "base/MemoryFileSystem.h"

namespace tintbench::link {
namespace {

TEST(CommandTable, ARowThatDoesNotExistEndsTheProgram) {
  CommandTable table;
  EXPECT_DEATH(table.Row(CommandId{-1}), "no command row -1");
  EXPECT_DEATH(table.Row(CommandId{50}), "no command row 50");
}

TEST(CommandTable, ArgumentsThatDoNotFit) {
  struct {
    int Row;
    const char* Argument;
  } const cases[] = {
      {5, ""},
      {5, "12G4"},
      {5, "12345"},
      {17, "123"},
      {17, "12a4"},
      {17, ""},
      {20, "12 x"},
      {39, "1"},
      {21, "1"},
      {22, "1x"},
      {28, "1234"},
      {28, "01x00"},
      {29, "001"},
      {30, ""},
      {37, "x0012FF00"},
      {37, "w0012FF0"},
      {37, "w0012FG00"},
      {38, "b0012FF0000G0"},
      {41, "a1"},
      {42, "123456789"},
      {43, "X01"},
      {43, "M0x"},
      {43, ""},
      {44, "M0100000000010000000"},
      {45, "X"},
      {45, "TT"},
      {45, ""},
      {47, "X0000000001"},
      {47, "T000000001"},
      {47, "T00000000x1"},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(ValidateArgument(CommandId{c.Row}, c.Argument)) << c.Row << ": " << c.Argument;
  }
}

TEST(CommandTable, ArgumentsThatFit) {
  struct {
    int Row;
    const char* Argument;
  } const cases[] = {
      {5, "00Ff"},       {17, "010203"},
      {19, "01"},        {39, "0102"},
      {21, "01"},        {28, "01400"},
      {30, "33"},        {37, "w0012FF00"},
      {37, "B0012ff00"}, {38, "W0012FF001234"},
      {41, "01"},        {42, "0112341234"},
      {43, "m01"},       {44, "P0100000000010000000002"},
      {45, "d"},         {47, "f0000000001"},
      {10, "anything"},  {11, ""},
      {23, "x"},         {46, "?"},
      {49, "#s*"},       {0, "x"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(ValidateArgument(CommandId{c.Row}, c.Argument)) << c.Row << ": " << c.Argument;
  }
}

TEST(CommandTable, ACallFinishesTheCommandAndPutsTheRowBack) {
  CommandTable table;
  struct {
    int Row;
    const char* Argument;
    const char* Command;
    std::size_t AnswerLength;
  } const cases[] = {
      {0, "x", "#ir*", 9},         {17, "010203", "#a010203*", 7}, {21, "01", "#do01*", 4},
      {46, "M", "#kvM*", 0},       {49, "#x y*", "#x y*", 0},      {49, "", "", 0},
      {10, "07 1", "#ix07 1*", 1},
  };
  for (const auto& c : cases) {
    const CommandId row{c.Row};
    const std::string before = table.Row(row).Command;
    {
      CommandCall call(table, row, c.Argument);
      EXPECT_EQ(table.Row(row).Command, c.Command);
      EXPECT_EQ(ExpectedAnswerLength(table.Row(row)), c.AnswerLength) << c.Command;
      call.Row().AnswerLength = 25;
      call.Row().TimeoutSeconds = 1;
    }
    EXPECT_EQ(table.Row(row).Command, before);
    EXPECT_NE(table.Row(row).AnswerLength, 25);
    EXPECT_GE(table.Row(row).TimeoutSeconds, 5.0);
  }
  CommandCall call(table, CommandId::Custom, "x");
  call.Row().AnswerLength = -1;
  EXPECT_EQ(ExpectedAnswerLength(call.Row()), 0U);
}

TEST(CommandTable, TimeoutsComeFromTheConfigurationWhereItHasOne) {
  const CommandTable table;
  config::MachineFacts facts;
  testing::MemoryFileSystem files;
  files.Put("/app/KEEP", "");
  DebugLog log(files, "/app/log");
  log.DebugLevel(kDebugCommands);
  log.ApplyDebugLevel();
  const auto timeout = [&](const char* argument, int row) {
    return table.CommandTimeout(argument, CommandId{row}, facts, log);
  };
  EXPECT_DOUBLE_EQ(timeout("01", 21), 18);
  EXPECT_DOUBLE_EQ(timeout("", 33), 12);
  facts.ElementLists[config::kCaps] = "01,02,04,";
  facts.CapTimeList = "20,0,7.5,";
  facts.ResetTimeout = 30;
  EXPECT_DOUBLE_EQ(timeout("01", 21), 24);
  EXPECT_DOUBLE_EQ(timeout("02", 22), 18);
  EXPECT_DOUBLE_EQ(timeout("04", 23), 9);
  EXPECT_DOUBLE_EQ(timeout("03", 23), 18);
  EXPECT_DOUBLE_EQ(timeout("01", 33), 36);
  // A file may say anything.
  facts.CapTimeList = "600,1e39,";
  facts.ResetTimeout = 1e39;
  EXPECT_DOUBLE_EQ(timeout("01", 21), 720);
  EXPECT_EQ(files.Get("/app/log"), "");
  EXPECT_DOUBLE_EQ(timeout("02", 22), 720);
  EXPECT_DOUBLE_EQ(timeout("", 33), 720);
  EXPECT_EQ(files.Get("/app/log"),
            "Cap close: the configured time is too long, 600 seconds are used\r\n"
            "Machine reset: the configured time is too long, 600 seconds are used\r\n");
}

TEST(CommandTable, PromptsAreLinesOfText) {
  const CommandTable table;
  EXPECT_EQ(table.Row(CommandId::ReadInputs).Prompt, "");
  EXPECT_EQ(table.Row(CommandId::ValvesOff).Prompt, table.Row(CommandId::ValvesOn).Prompt);
  EXPECT_EQ(table.Row(CommandId::MotorOn).Prompt,
            "Input 5 decimal characters:\r\n2 for the motor number,\r\n3 for motor speed");
  EXPECT_TRUE(table.Row(CommandId::WriteProcess)
                  .Prompt.ends_with("'D'(=dispensation-number) then\r\n10 decimal characters for "
                                    "the corresponding value"));
  EXPECT_TRUE(table.Row(CommandId::ReadDevices)
                  .Prompt.ends_with("or 'P'(=cap) for the wished device-type"));
}

}  // namespace
}  // namespace tintbench::link
