// A thousand purges on a machine and a line with random faults, before an operator who presses
// whatever comes to hand: each ends in time, and switches off what it has switched on.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <regex>
#include <set>

#include "base/Text.h"
#include "commands/PurgeBench.h"

namespace tintbench::testing {

namespace {

// The last thing that can still be pressed is the close button, and what is being switched off then
// takes its time: three caps and three motors that don't answer, with all pauses.
constexpr double kCloseAt = 100;
constexpr double kLastWait = 120;

class RandomPurge {
 public:
  explicit RandomPurge(unsigned seed) : random_(seed) {}

  void Play() {
    Prepare();
    bench_.Screen.After(kCloseAt, [this] { Close(); });
    bench_.Window.SetFormFunction(commands::kMaintenanceMenu);
    bench_.Screen.ShowModal(bench_.Window);
    CheckEnd();
  }

 private:
  template <typename Thing>
  Thing One(const std::vector<Thing>& things) {
    return things[random_() % things.size()];
  }
  double Seconds(double most) { return most * static_cast<double>(random_() % 10000) / 10000; }

  void Prepare() {
    config::MachineFacts& facts = bench_.Facts;
    facts.HasShelf = random_() % 2 == 0;
    facts.MaxValves = random_() % 16 == 0 ? 0 : static_cast<int>(1 + random_() % 5);
    facts.CircuitCapList =
        One<std::string>({"01,01,01,01,01,", "02,02,02,02,02,", "03,03,03,01,01,", "01,02,03,,"});
    facts.CircuitMotorList = One<std::string>({"01,01,02,02,03,", "02,02,02,03,03,"});
    for (const char* words : {"can off", "shelf low", "input 20 on", "fault twice #ns*"}) {
      if (random_() % 16 == 0) bench_.Tell(words);
    }
    bench_.Screen.After(1, [this] { Press("F9"); });
    for (int i = 0; i < 3; ++i) PlanFault();
    for (int i = 0; i < 6; ++i) PlanKey();
  }

  void PlanFault() {
    static const std::vector<std::string> kWords = {"fault refuse 1 #COMMAND*",
                                                    "fault silent 1 #COMMAND*",
                                                    "fault fail #COMMAND*",
                                                    "fault echo 1 #COMMAND*",
                                                    "fault late 6 #COMMAND*",
                                                    "fault short 1 #COMMAND*",
                                                    "fault long 2 #COMMAND*",
                                                    "fault twice 1 #COMMAND*",
                                                    "fault foreign 1 #COMMAND*",
                                                    "fault drop 0.02",
                                                    "fault garble 0.02",
                                                    "fault insert 0.02",
                                                    "fault double 0.02",
                                                    "fault babble",
                                                    "fault none",
                                                    "reset",
                                                    "unplug",
                                                    "error 1103",
                                                    "power off",
                                                    "can off",
                                                    "fault none"};
    static const std::vector<std::string> kCommands = {"do", "ns", "a",  "f", "s",
                                                       "l",  "g",  "dc", "z", "ir"};
    std::string words = One(kWords);
    if (const std::size_t at = words.find("COMMAND"); at != std::string::npos) {
      words.replace(at, 7, One(kCommands));
    }
    bench_.Screen.After(Seconds(40), [this, words] { bench_.Tell(words); });
  }

  void PlanKey() {
    static const std::vector<std::string> kKeys = {"F9", "F9", "F9", "HALT", "HALT", "Esc", "I"};
    const std::string key = One(kKeys);
    const double time = key == "Esc" ? Seconds(300) : 5 + Seconds(80);
    bench_.Screen.After(time, [this, key] { Press(key); });
  }

  void Press(const std::string& key) {
    if (!bench_.Window.Visible) return;
    if (key == "Esc") return Close();
    bench_.Screen.Replies = {One<std::string>({"0102030405", "0102030405", "0102", "04", "990x"}),
                             One<std::string>({"100", "999", "1"}), "200", "300", "400"};
    bench_.Screen.Answers = {ui::Answer::OK, random_() % 8 ? ui::Answer::OK : ui::Answer::Cancel};
    bench_.Press(key);
  }

  // What the closing itself sends is all that may be sent.
  void Close() {
    if (!bench_.Window.Visible) return;
    bench_.Press("Esc");
    writtenAtClosing_ = bench_.Port.Written.size();
    EXPECT_FALSE(bench_.Window.Visible);
  }

  void CheckEnd() {
    const std::string& written = bench_.Port.Written;
    EXPECT_LT(bench_.Clock.Now(), kCloseAt + kLastWait);
    EXPECT_TRUE(bench_.Window.Flags.Idle);
    EXPECT_EQ(written.substr(writtenAtClosing_), "");
    CheckOrder(written);
    // Nothing can be switched off over a line that is lost.
    if (bench_.Port.PortOpen()) CheckAllOff(written);
  }

  // One letter for each command. What was begun goes on to the motors' end, then to the valves'
  // and the caps', unless the window closes, which switches off everything.
  static void CheckOrder(const std::string& written) {
    static const std::regex kOrder(
        "(?:[zui]|o*n?a?f*s?(?:ns?)*l+(?:gc*)?)*"
        "(?:o*n?a?f*s?(?:ns?)*u?z)?");
    static const std::map<std::string, char> kLetters = {
        {"#z", 'z'}, {"#eu", 'u'}, {"#ir", 'i'}, {"#do", 'o'}, {"#ns", 'n'}, {"#a", 'a'},
        {"#f", 'f'}, {"#s", 's'},  {"#l", 'l'},  {"#g", 'g'},  {"#dc", 'c'}};
    std::string letters;
    for (const std::string& command : base::SplitFields(written, "*")) {
      const auto found = kLetters.find(command.substr(0, command.find_first_of("0123456789")));
      letters += found == kLetters.end() ? '?' : found->second;
    }
    EXPECT_TRUE(std::regex_match(letters, kOrder)) << written;
  }

  // Every motor that was started is stopped, by its number or with all others, and the valves that
  // are closed are those that were opened.
  static void CheckAllOff(const std::string& written) {
    EXPECT_NE(written.rfind("#z*"), std::string::npos);
    std::set<std::string> motors;
    std::string valves;
    for (const std::string& command : base::SplitFields(written, "*")) {
      if (command == "#z") {
        motors.clear();
        valves.clear();
      } else if (command.starts_with("#f")) {
        motors.insert(command.substr(2, 2));
      } else if (command.starts_with("#l")) {
        motors.erase(command.substr(2));
      } else if (command.starts_with("#a")) {
        valves = command.substr(2);
      } else if (command.starts_with("#g") && !valves.empty()) {
        EXPECT_EQ(command.substr(2), std::exchange(valves, {})) << written;
      }
    }
    EXPECT_TRUE(motors.empty()) << written;
  }

  std::mt19937 random_;
  PurgeBench bench_;
  std::size_t writtenAtClosing_ = 0;
};

TEST(RandomPurges, EndAndSwitchOff) {
  for (unsigned seed = 1; seed <= 1000; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomPurge(seed).Play();
    if (::testing::Test::HasFailure()) break;
  }
}

}  // namespace

}  // namespace tintbench::testing
