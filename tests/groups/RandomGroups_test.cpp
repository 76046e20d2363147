// A thousand sessions with a group of a simulated machine that has random faults, before an
// operator who presses whatever comes to hand: each ends, and what is still on then was told.
#include <gtest/gtest.h>

#include <random>

#include "groups/GroupBench.h"
#include "simulator/Machine.h"
#include "simulator/SimulatedPort.h"

namespace tintbench::testing {

namespace {

// Sanitizers take their time.
#ifdef TINTBENCH_SANITIZED
constexpr unsigned kSessions = 200;
#else
constexpr unsigned kSessions = 1000;
#endif

struct MachineLine {
  explicit MachineLine(base::Clock& clock)
      : TheMachine(clock, {}), Port(clock, {{1, &TheMachine}}) {
    Port.Settings("19200,N,8,1");
    Port.PortOpen(true);
    clock.Sleep(5);
  }
  simulator::Machine TheMachine;
  simulator::SimulatedPort Port;
};

class RandomSession {
 public:
  explicit RandomSession(unsigned seed) : random_(seed) {}

  void Play() {
    bench_.Files.Put("/app/c.cfr", machine_.ConfigurationText());
    ASSERT_TRUE(config::ExecuteConfigKnown(bench_.Files, "/app/c.cfr", 1, bench_.Facts));
    for (const char* words : {"shelf high", "can on", "cap 3 open"}) machine_.Tell(words);
    for (int act = 0; act < 14; ++act) bench_.Screen.After(Seconds(60), [this] { Press(); });
    for (int fault = 0; fault < 3; ++fault) bench_.Screen.After(Seconds(60), [this] { Fault(); });
    bench_.Screen.After(60, [this] { End(); });
    bench_.Screen.After(300, [] {});
    bench_.Window.SetGroupAddress("11");
    bench_.Screen.ShowModal(bench_.Window);
    EXPECT_LT(bench_.Clock.Now(), 250);
    Check("valves", "Valve");
    Check("stirrings", "Stirring");
    Check("motors", "Motor");
  }

 private:
  double Seconds(double most) { return most * static_cast<double>(random_() % 10000) / 10000; }

  void Press() {
    groups::FormGMon& window = bench_.Window;
    const std::vector<ui::Control*> controls{
        &window.ChkValveOn,     &window.ChkValveOn,    &window.ChkValveOff,  &window.ChkStirringOn,
        &window.ChkStirringOff, &window.ChkMotorOn,    &window.ChkMotorOff,  &window.ChkCapOn,
        &window.ChkCapOff,      &window.ChkEnquire,    &window.ChkEnquire,   &window.ChkStopEnquire,
        &window.ChkIdiOff(1),   &window.ChkIdiXOff(3), &window.ChkIanOff(0), &window.ChkIanXOff(1)};
    ui::Control& control = *controls[random_() % controls.size()];
    if (random_() % 40 == 0) {
      bench_.Screen.CloseByOperator(window);
    } else if (window.Visible && window.Enabled && control.IsShown() && control.IsUsable()) {
      control.Press();
    }
  }

  // By the close button, or as a signal does it.
  void End() {
    if (random_() % 2 == 0) return bench_.Screen.CloseAll();
    bench_.Screen.CloseByOperator(bench_.Window);
  }

  void Fault() {
    static const std::vector<std::string> kFaults{"fault refuse 1 #a*",
                                                  "fault silent 1 #b*",
                                                  "fault silent 1 #g*",
                                                  "fault refuse 1 #m*",
                                                  "fault echo 1 #f*",
                                                  "fault short 1 #l*",
                                                  "fault long 1 #g*",
                                                  "fault refuse #ns*",
                                                  "fault silent 2 #ns*",
                                                  "fault refuse #l*",
                                                  "fault silent #m*",
                                                  "fault drop 0.02",
                                                  "can off",
                                                  "unplug",
                                                  "power off",
                                                  "fault none",
                                                  "door open",
                                                  "fault silent 3 #ig*",
                                                  "fault refuse #g*",
                                                  "fault none"};
    machine_.Tell(kFaults[random_() % kFaults.size()]);
  }

  // The element that is still on at the machine is named in the last box.
  void Check(const std::string& kind, const std::string& name) {
    if (machine_.Tell("check " + kind + " none").empty()) return;
    const bool told = !bench_.Screen.Boxes.empty() &&
                      bench_.Screen.Boxes.back().Text.starts_with("ATTENTION!") &&
                      bench_.Screen.Boxes.back().Text.find(name) != std::string::npos;
    EXPECT_TRUE(told) << name;
    EXPECT_FALSE(bench_.On.IsEmpty());
  }

  std::mt19937 random_;
  GroupBenchOn<MachineLine> bench_;
  simulator::Machine& machine_{bench_.Line.TheMachine};
};

}  // namespace

TEST(RandomGroups, NothingStaysOnUntold) {
  for (unsigned seed = 1; seed <= kSessions; ++seed) {
    SCOPED_TRACE(seed);
    RandomSession(seed).Play();
    if (HasFailure()) return;
  }
}

}  // namespace tintbench::testing
