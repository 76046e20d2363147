// What the editor works with, on files in memory.
#pragma once

#include <gtest/gtest.h>

#include "base/MemoryFileSystem.h"
#include "editor/ConfigDocument.h"

namespace tintbench::testing {

class EditorBench : public ::testing::Test {
 protected:
  using Group = config::ConfigGroup;
  const editor::TablePlace kGen{Group::kStandard, 1, 1};
  const editor::TablePlace kCaps{Group::kStandard, 4, 1};
  const editor::TablePlace kCircuits{Group::kStandard, 5, 1};
  const editor::TablePlace kStirringTimes{Group::kAdvanced, 3, 1};
  const editor::TablePlace kLines{Group::kIndustrial, 2, 1};

  MemoryFileSystem files_;
  const base::VirtualClock clock_{{2026, 3, 7, 9, 5, 2}};
  const base::AppIdentity identity_ = base::MakeIdentity("TintBench", "1.2.3");
  const config::SelectorCatalogue selectors_;
  const config::ParameterCatalogue catalogue_{selectors_};
  const editor::ConfigWriter writer_{files_, clock_, identity_, catalogue_};
  editor::ConfigDocument document_{writer_};
};

}  // namespace tintbench::testing
