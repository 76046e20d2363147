#include "Target.h"

#include <cstdlib>
#include <iostream>

namespace tintbench::fuzz {

void Require(bool holds, std::string_view what) {
  if (holds) return;
  std::cerr << "NOT HELD: " << what << std::endl;
  std::abort();
}

}  // namespace tintbench::fuzz
