// The keys that stand anywhere in the free text of the command line, as KEY(value).
#pragma once

#include <string>
#include <string_view>

namespace tintbench::shell {

// The value between the brackets behind the key's first place, trimmed and in upper case. The
// key counts in any letter case; blanks may stand before the bracket. Empty if the key isn't
// there, or if its brackets aren't.
std::string KeyLookup(std::string_view commandLine, std::string_view key);

}  // namespace tintbench::shell
