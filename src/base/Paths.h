// Taking file paths apart and joining them. A path may use "\", "/" and ":" whatever the system;
// joining uses the system's own separator.
#pragma once

#include <string>
#include <string_view>

namespace tintbench::base {

// All up to and with the last separator; empty if there is none.
std::string FilePath(std::string_view path);

// The name without its folder: all behind the last separator.
std::string FileName(std::string_view path);

// The name without its folder, its last "." and what follows that.
std::string FileStem(std::string_view path);

// What follows the last "." of the name, without the "."; empty if there is none.
std::string FileExtension(std::string_view path);

// `folder` and `name` with the system's separator between them, unless the folder is empty or ends
// in a separator already.
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace tintbench::base
