// The program's name and three-part version, as texts.
#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

namespace tintbench::base {

struct AppIdentity {
  std::string AppTitle;
  std::string AppMajor;
  std::string AppMinor;
  std::string AppRevision;
};

// `version` is "major.minor.revision".
inline AppIdentity MakeIdentity(std::string title, std::string_view version) {
  return {std::move(title), GetField(1, version, "."), GetField(2, version, "."),
          GetField(3, version, ".")};
}

}  // namespace tintbench::base
