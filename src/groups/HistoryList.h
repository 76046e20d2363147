// The recordings that lie in the folder of recordings, as far as their names tell: which group, of
// which day, and in which order. No file is opened.
#pragma once

#include <cstddef>
#include <locale>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Files.h"

namespace tintbench::groups {

// One recording. Its name is in upper case, whatever the file's is.
struct HistoryFile {
  std::string Date;       // "20261115"
  std::string Extension;  // "G07"
  std::string Group;      // "07"
  std::string DateText;   // "Sunday,  November 15,  2026"
  std::string Size;       // in bytes
  std::string Path;       // of the file itself

  std::string Name() const { return Date + "." + Extension; }
};

// The numbers of the control that chooses between them.
enum class HistoryOrder : int { kByGroup = 0, kByDate = 1 };

class HistoryList {
 public:
  // `language` names weekdays and months. `files` must outlive this.
  HistoryList(const base::FileSystem& files, std::string folder, const std::locale& language);

  // Reads the folder anew. Gives the names of files that are those of recordings, but for a date
  // that the calendar doesn't have: they are passed over.
  std::vector<std::string> FindFiles();
  void Clear();

  const std::vector<HistoryFile>& Files() const { return files_; }
  // The places in `Files` in this order, oldest date or lowest group first.
  const std::vector<std::size_t>& Order(HistoryOrder order) const;
  // The recording's line in a list of that order.
  static std::string Line(const HistoryFile& file, HistoryOrder order);

 private:
  void SortFiles();

  const base::FileSystem& system_;
  std::string folder_;
  std::locale language_;
  std::vector<HistoryFile> files_;
  std::vector<std::size_t> orderByGroup_;
  std::vector<std::size_t> orderByDate_;
};

}  // namespace tintbench::groups
