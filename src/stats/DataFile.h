// The text files that keep what the machine has counted: one line for each element of each type,
// with a time, a number of events and the moment of the reading. A file may hold anything; one that
// is rewritten is the old or the new one at any moment.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "base/Files.h"
#include "stats/StatCatalogue.h"

namespace tintbench::stats {

inline constexpr int kValueDigits = 10;  // of a time or a number of events
inline constexpr std::string_view kResetRemark = "   % parameters reset";

// The key of a line, "MOTOR_3".
std::string DataKey(int tab, std::string_view element);

// A line of data as all readers know it: in upper case, trimmed, without what follows "%".
struct DataLine {
  std::string Key;
  int Tab = 0;
  std::string Element;  // what stands behind the first "_" of the key
  std::string Values;   // what stands behind the first comma
};

// Nothing for a comment, an empty line, and a key of no type.
std::optional<DataLine> ReadDataLine(std::string_view line);

// What a type's line holds behind its key.
std::string DataValues(std::string_view time, std::string_view events, std::string_view stamp);

// Year, month, day, hour, minute and second with "." between, not padded: "2026.3.7.9.5.12".
std::string MakeTimeStamp(const base::LocalTime& time);

// The point of time that a stamp tells; nothing if it tells none.
std::optional<base::LocalTime> ReadTimeStamp(std::string_view stamp);

// The number of the first line, from 1, whose first field is `key`; 0 if there is none, -1 if the
// file doesn't exist.
int FindDataKey(base::FileSystem& files, const std::string& path, std::string_view key);

enum UpdateResult : int {
  kDataDeleted = 1,
  kDataCreated = 2,
  kDataReplaced = 3,
  kDataUnchanged = 4,
};

struct DataUpdate {
  UpdateResult Result = kDataUnchanged;
  std::string Error = {};  // why the file couldn't be read or written; empty if it could
};

// Deletes the first line of this key, or makes it `key`,`value`; a key that isn't there is added at
// the end, the file made if need be.
DataUpdate UpdateDataLine(base::FileSystem& files, bool deletes, const std::string& path,
                          const std::string& key, const std::string& value);

// The lines whose key is one of a type; 0 if the file doesn't exist.
int CountDataLines(base::FileSystem& files, const std::string& path);

// What a file holds.
struct DataBuffer {
  // What stands behind the first comma, by the key. Of a key that comes twice, the first.
  std::map<std::string, std::string, std::less<>> Lines;
  // The elements of each type in the order of the lines, each with "," behind.
  std::array<std::string, kStatTypes> ElementsInFile;

  const std::string* Find(std::string_view key) const;
};

inline constexpr std::size_t kMostDataLines = 200000;
// No line of data comes near it. Of a longer line readers know the start, and a file that has one
// isn't rewritten, for the rest would be lost.
inline constexpr std::size_t kLongestDataLine = 65536;

// Good if a file that is there may be written to; it stays as it is. A file that isn't there is
// good.
base::FileResult CheckWritable(base::FileSystem& files, const std::string& path);

// Reads a file into an empty buffer. An empty name and a file that isn't there leave the buffer as
// it is. An error if the file can't be read, or has more than kMostDataLines lines of data: the
// buffer then holds what came before.
base::FileResult LoadDataFile(base::FileSystem& files, const std::string& path, DataBuffer& buffer);

}  // namespace tintbench::stats
