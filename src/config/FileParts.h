// Cutting a program file into parts that the machine's loader takes one at a time.
#pragma once

#include <string>

#include "base/Files.h"

namespace tintbench::config {

struct FileParts {
  int Last = -1;      // number of the last part; -1 for an empty source and after a failure
  std::string Error;  // why it failed; empty if it didn't
};

// The path of one part: "_FW_." and the number as three digits, in the program's folder.
std::string FilePartPath(const std::string& appPath, int number);

// Cuts the file `path`.`extension` into the parts 0, 1 and so on. A part ends behind the line with
// which it reaches 65000 characters; lines end in CR LF. The first part begins with "@IPS " and
// the identifier; the last ends with "@EPS " and "@PDD ", unless the source ends just where its
// part is full. After a failure no part is left.
FileParts SplitFileForSending(base::FileSystem& files, const std::string& appPath,
                              const std::string& path, const std::string& extension,
                              const std::string& identifier);

}  // namespace tintbench::config
