// The program's name and three-part version, as texts.
#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

namespace tintbench::shell {

struct AppIdentity {
  std::string AppTitle;
  std::string AppMajor;
  std::string AppMinor;
  std::string AppRevision;
};

// `version` is "major.minor.revision".
inline AppIdentity MakeIdentity(std::string title, std::string_view version) {
  return {std::move(title), base::GetField(1, version, "."), base::GetField(2, version, "."),
          base::GetField(3, version, ".")};
}

}  // namespace tintbench::shell
