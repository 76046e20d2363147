// Reading the lines of a configuration file by the rules that hold for every reader: blanks around
// a line and between its parts mean nothing, and what no reader understands is dropped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Files.h"

namespace tintbench::config {

inline constexpr int kSlaveCount = 16;

struct ConfigLine {
  int Slave = 0;     // 0 if the line has no data
  std::string Data;  // parameters with "," between them
};

// A data line of a slave from 1 to kSlaveCount.
struct ConfigRecord {
  std::string Tag;  // as it is written
  int Slave = 0;
  std::string Data;
};

// Slave number and data of a line "tag slave data". A line without data, as a framing line, gives
// slave 0.
ConfigLine SplitConfigLine(std::string_view line);

enum class EmptyParameters {
  kNone,
  kSome,
  kUnknown,  // the file can't be read whole
};

// Whether a data line of the slaves 1 to 16 has an empty parameter, the first and the last too.
EmptyParameters CheckEmptyParameters(base::FileSystem& files, const std::string& path);

// True if it is known that none has.
bool FileHasNoEmptyParameters(base::FileSystem& files, const std::string& path);

// The number of external groups that the file names for the slave (parameter 8 of "@GEN"); 0 if
// there is none or no such file.
int ReadExternalGroups(base::FileSystem& files, const std::string& path, int slave);

// Gives the lines of a configuration file, trimmed. Far beyond any real configuration it stops, so
// that a file of any other kind can't fill the memory.
class ConfigReader {
 public:
  static constexpr std::size_t kLineLimit = 4096;
  static constexpr std::size_t kFileLimit = 4U << 20U;

  ConfigReader(base::FileSystem& files, const std::string& path);

  // The next line. False at the end or after a failure.
  bool Next(std::string& line);

  // The next data line of any slave. False as above.
  bool NextRecord(ConfigRecord& record);

  // The next data line of the slave: its tag, upper case, and its data. False as above.
  bool NextOfSlave(int slave, std::string& tag, std::string& data);

  // True if the file couldn't be opened or read to its end, or holds more than a limit allows.
  bool Failed() const { return tooLarge_ || reader_.Failed(); }
  // Which of these it is, in words. Empty if nothing failed.
  std::string Error() const;

 private:
  base::LineReader reader_;
  std::size_t size_ = 0;
  bool tooLarge_ = false;
};

}  // namespace tintbench::config
