// The one settings file: it says which of the machine's two serial lines the tool is on.
#pragma once

#include <string>

#include "base/Files.h"

namespace tintbench::shell {

// "MASTER" or "SERVICE", by the first line that names one of them; "SERVICE" if there is no file
// or no such line. Empty for a file without any line, which counts as not "MASTER".
std::string ReadSerialMode(base::FileSystem& files, const std::string& path);

}  // namespace tintbench::shell
