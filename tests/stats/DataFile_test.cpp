// The data files: what readers take from any text, what a rewrite makes of it, and that no failure
// of a disk leaves half a file.
#include "stats/DataFile.h"

#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/MemoryFileSystem.h"
#include "base/Numbers.h"
#include "base/ScratchFolder.h"
#include "base/Text.h"
#include "simulator/Faults.h"
#include "stats/Durations.h"

namespace tintbench::stats {
namespace {

using testing::MemoryFileSystem;

constexpr const char* kPath = "/app/data";

TEST(DataFile, UpdatesOneLineAndLeavesTheOthersAsTheyStand) {
  const struct {
    const char* Name;
    const char* Before;  // nullptr: no file
    bool Deletes;
    UpdateResult Result;
    const char* After;
  } cases[] = {
      {"made", nullptr, false, kDataCreated, "MOTOR_3,v\r\n"},
      {"added", "CAP_1,1,2\n", false, kDataCreated, "CAP_1,1,2\r\nMOTOR_3,v\r\n"},
      {"added behind an open end", "CAP_1,1", false, kDataCreated, "CAP_1,1\r\nMOTOR_3,v\r\n"},
      {"replaced", "% x\r\nMOTOR_3,1\r\ncap_1,2 % y\r\n", false, kDataReplaced,
       "% x\r\nMOTOR_3,v\r\ncap_1,2 % y\r\n"},
      {"found in any case", " motor_3 ,1\r\n", false, kDataReplaced, "MOTOR_3,v\r\n"},
      {"the first of two", "MOTOR_3,1\r\nMOTOR_3,2\r\n", false, kDataReplaced,
       "MOTOR_3,v\r\nMOTOR_3,2\r\n"},
      {"no other key", "MOTOR_33,1\r\n%MOTOR_3,1\r\n", false, kDataCreated,
       "MOTOR_33,1\r\n%MOTOR_3,1\r\nMOTOR_3,v\r\n"},
      {"deleted", "CAP_1,1\r\nMOTOR_3,1\r\n", true, kDataDeleted, "CAP_1,1\r\n"},
      {"the only one deleted", "MOTOR_3,1", true, kDataDeleted, ""},
      {"nothing to delete", "CAP_1,1", true, kDataUnchanged, "CAP_1,1"},
      {"no file to delete from", nullptr, true, kDataUnchanged, nullptr},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Name);
    MemoryFileSystem files;
    files.Put("/app/other", "");
    if (one.Before != nullptr) files.Put(kPath, one.Before);
    const DataUpdate update = UpdateDataLine(files, one.Deletes, kPath, "MOTOR_3", "v");
    EXPECT_EQ(update.Result, one.Result);
    EXPECT_EQ(update.Error, "");
    EXPECT_EQ(files.FileExists(kPath), one.After != nullptr);
    if (one.After != nullptr) {
      EXPECT_EQ(files.Get(kPath), one.After);
    }
  }
}

TEST(DataFile, ReadsWhatItKnowsAndSkipsTheRest) {
  MemoryFileSystem files;
  const std::string digits(1000, '9');
  files.Put(kPath, std::string("%MOTOR_9,1,2,3\nFOO_1,1,2,3\nMOTOR,1\n_1,2\n\n") +
                       " motor_3,0000012345,0000000007,2026.3.7.9.5.12   % parameters reset\r\n" +
                       "MOTOR_3,0,0,later\nCSHELF_,5\nCAP_2\n" + std::string("CAP_\0_7,1\n", 10) +
                       "PUMP_1," + digits + ",1\n" + std::string(200000, 'x') + "\nPUMP_2,1,1");
  DataBuffer buffer;
  ASSERT_TRUE(LoadDataFile(files, kPath, buffer));
  EXPECT_EQ(*buffer.Find("MOTOR_3"), "0000012345,0000000007,2026.3.7.9.5.12");
  EXPECT_EQ(*buffer.Find("CSHELF_"), "5");
  EXPECT_EQ(*buffer.Find("PUMP_1"), digits + ",1");
  EXPECT_EQ(buffer.Lines.size(), 6U);
  EXPECT_EQ(buffer.ElementsInFile[0], "3,3,");
  EXPECT_EQ(buffer.ElementsInFile[2], "1,2,");
  EXPECT_EQ(CountDataLines(files, kPath), 7);
  EXPECT_EQ(FindDataKey(files, kPath, "MOTOR_3"), 6);
  EXPECT_EQ(FindDataKey(files, kPath, "MOTOR_4"), 0);
  EXPECT_EQ(FindDataKey(files, "/app/none", "MOTOR_3"), -1);
  EXPECT_EQ(CountDataLines(files, "/app/none"), 0);
  // A line that can't be kept whole isn't written back without its end.
  EXPECT_NE(UpdateDataLine(files, true, kPath, "MOTOR_3", "").Error, "");
  EXPECT_EQ(FindDataKey(files, kPath, "MOTOR_3"), 6);
}

TEST(DataFile, ALargeFileIsRefusedWithoutBeingHeld) {
  MemoryFileSystem files;
  std::string text;
  for (std::size_t line = 0; line <= kMostDataLines; ++line) {
    text += "MOTOR_" + std::to_string(line) + ",1\n";
  }
  files.Put(kPath, std::move(text));
  DataBuffer buffer;
  EXPECT_FALSE(LoadDataFile(files, kPath, buffer));
  EXPECT_EQ(buffer.Lines.size(), kMostDataLines);
}

// What a file of data must hold after any operations: a plain list of lines.
class PlainFile {
 public:
  UpdateResult Update(bool deletes, const std::string& key, const std::string& value) {
    const auto line = std::find_if(lines_.begin(), lines_.end(), [&](const std::string& text) {
      return text.starts_with(key + ",");
    });
    const bool found = line != lines_.end();
    if (deletes) {
      if (!found) return kDataUnchanged;
      lines_.erase(line);
      return kDataDeleted;
    }
    found ? void(*line = key + "," + value) : lines_.push_back(key + "," + value);
    return found ? kDataReplaced : kDataCreated;
  }
  std::string Text() const {
    std::string text;
    for (const std::string& line : lines_) text += line + "\r\n";
    return text;
  }

 private:
  std::vector<std::string> lines_;
};

TEST(DataFile, TenThousandOperationsWithFailuresLeaveTheOldFileOrTheNewOne) {
  MemoryFileSystem files;
  files.Put(kPath, "");
  simulator::Dice dice;
  dice.Seed(13);
  PlainFile plain;
  int failures = 0;
  for (int round = 0; round < 10000; ++round) {
    const bool deletes = dice.Throw(0.4);
    const std::string key = DataKey(dice.Byte() % kStatTypes, std::to_string(dice.Byte() % 4));
    const std::string value = std::to_string(round);
    PlainFile after = plain;
    const UpdateResult wanted = after.Update(deletes, key, value);
    files.FailAt(dice.Throw(0.3) ? 1 + dice.Byte() % 12 : 0);
    const DataUpdate update = UpdateDataLine(files, deletes, kPath, key, value);
    files.FailAt(0);
    if (update.Error.empty()) {
      ASSERT_EQ(update.Result, wanted) << round;
      ASSERT_EQ(files.Get(kPath), after.Text()) << round;
    } else {
      ++failures;
      ASSERT_TRUE(files.Get(kPath) == after.Text() || files.Get(kPath) == plain.Text()) << round;
    }
    if (files.Get(kPath) == after.Text()) plain = after;
  }
  EXPECT_GT(failures, 500);
}

TEST(DataFile, NoFailureOfADiskGoesUntold) {
  const testing::ScratchFolder folder;
  const std::string before = "MOTOR_1,1\r\nMOTOR_2,1\r\n";
  testing::UnderEachDiskFault([&](testing::FailingFileSystem& files) {
    const std::string path = folder.Put("data", before);
    const DataUpdate update = UpdateDataLine(files, false, path, "MOTOR_2", "2");
    EXPECT_EQ(files.HasFailed(), !update.Error.empty());
    const std::string after = folder.Get("data");
    EXPECT_TRUE(after == "MOTOR_1,1\r\nMOTOR_2,2\r\n" || (files.HasFailed() && after == before));
  });
}

TEST(Durations, AreToldInWordsAndCountedInDays) {
  const struct {
    std::int64_t Seconds;
    const char* Words;
  } cases[] = {
      {0, ""},
      {-5, ""},
      {1, "1 [ seconds ]"},
      {60, "1 [ minutes ]"},
      {3599, "59 [ minutes ] , 59 [ seconds ]"},
      {86401, "1 [ days ] , 1 [ seconds ]"},
      {90061, "1 [ days ] , 1 [ hours ] , 1 [ minutes ] , 1 [ seconds ]"},
      {9999999999, "115740 [ days ] , 17 [ hours ] , 46 [ minutes ] , 39 [ seconds ]"},
  };
  for (const auto& one : cases) EXPECT_EQ(SecondsToText(one.Seconds), one.Words);
  EXPECT_EQ(DaysBetween({2024, 2, 28, 12, 0, 0}, {2024, 3, 1, 18, 0, 0}), 2.25);
  EXPECT_EQ(DaysBetween({2026, 1, 1, 0, 0, 0}, {2025, 1, 1, 0, 0, 0}), -365);
  EXPECT_EQ(ReadTimeStamp("2026.3.7.9.5.12")->Minute, 5);
  for (const char* bad :
       {"", "2026.3.7", "2026.13.7.9.5.12", "2026.3.x.9.5.12", "2026.3.7.9.5.61"}) {
    EXPECT_FALSE(ReadTimeStamp(bad)) << bad;
  }
}

}  // namespace
}  // namespace tintbench::stats
