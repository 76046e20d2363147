// The adapter is pulled in the middle of each process of the Maintenance Menu: it ends, with a few
// boxes at most, and the window can be left.
#include <gtest/gtest.h>

#include <algorithm>

#include "commands/MaintenanceBench.h"

namespace tintbench::testing {

namespace {

struct LostPortCase {
  const char* Key;
  double After;  // seconds behind the key
  bool CanThere;
};

void PrintTo(const LostPortCase& test, std::ostream* out) { *out << test.Key << " " << test.After; }

class LostPort : public ::testing::TestWithParam<LostPortCase> {};

TEST_P(LostPort, EndsTheProcess) {
  const LostPortCase& wanted = GetParam();
  MaintenanceBench bench;
  ASSERT_EQ(bench.Machine.Tell(wanted.CanThere ? "can on" : "input 6 off"), "");
  for (int i = 0; i < 4; ++i) bench.Screen.Replies.emplace_back("100");
  if (std::string(wanted.Key) == "F9") bench.Screen.Replies.front() = "01";
  bool idle = false;
  bench.Run(commands::kMaintenanceMenu,
            {{1, [&] { bench.Press(wanted.Key); }},
             {wanted.After, [&] { ASSERT_EQ(bench.Machine.Tell("unplug"), ""); }},
             {120, [&] {
                idle = bench.Window.Flags.Idle;
                bench.Press("Esc");
              }}});
  EXPECT_TRUE(idle);
  EXPECT_FALSE(bench.Window.Visible);
  const auto lost =
      std::count_if(bench.Screen.Boxes.begin(), bench.Screen.Boxes.end(),
                    [](const ui::Box& box) { return box.Text == "Serial port NOT open!"; });
  EXPECT_LE(lost, 4);
}

INSTANTIATE_TEST_SUITE_P(Processes, LostPort,
                         ::testing::Values(LostPortCase{"F7", 5, true}, LostPortCase{"T", 25, true},
                                           LostPortCase{"T", 5, false}, LostPortCase{"P", 5, false},
                                           LostPortCase{"F9", 8, true},
                                           LostPortCase{"F9", 30, true}));

}  // namespace

}  // namespace tintbench::testing
