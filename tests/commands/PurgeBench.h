// The Maintenance Menu with all that a purge needs: a can on the raised shelf, five circuits of
// which two may be open at a time, and an operator who acts upon what goes over the line.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "commands/MaintenanceBench.h"

namespace tintbench::testing {

inline std::size_t CountOf(std::string_view text, std::string_view piece) {
  std::size_t count = 0;
  for (std::size_t at = text.find(piece); at != std::string_view::npos;
       at = text.find(piece, at + piece.size())) {
    ++count;
  }
  return count;
}

struct PurgeBench : MaintenanceBench {
  explicit PurgeBench(bool withShelf = true) {
    Tell("can on");
    Tell("shelf high");
    Facts.HasShelf = withShelf;
    Facts.MaxValves = 2;
    Facts.ElementLists[config::kCircuits] = "01,02,03,04,05,";
    Screen.Replies = {"0102030405", "100", "200", "300"};
    Port.OnWriting = [this] { Watch(); };
  }

  void Tell(const std::string& words) { ASSERT_EQ(Machine.Tell(words), ""); }

  // Something happens once the command has been sent for the n-th time, and events are served.
  void Upon(const std::string& command, std::size_t nth, std::function<void()> act) {
    watches_.push_back({command, nth, std::move(act)});
  }
  void PressUpon(const std::string& command, std::size_t nth, const std::string& key) {
    Upon(command, nth, [this, key] { Press(key); });
  }

  // Opens the menu, presses the keys, a minute before each, and gives back what went over the line
  // until a minute after the last: "|" stands for a key, and nothing for the closing at the end.
  std::string Wire(const std::vector<std::string>& keys) {
    std::vector<Step> steps;
    for (const std::string& key : keys) {
      steps.push_back({60, [this, key] {
                         Port.Written += "|";
                         Press(key);
                       }});
    }
    steps.push_back({60, [this] { Port.Written += "!"; }});
    Port.Written.clear();
    Run(commands::kMaintenanceMenu, steps);
    return Port.Written.substr(0, Port.Written.find('!'));
  }

  bool Told(const std::string& text) { return Report().find(text) != std::string::npos; }

 private:
  struct Event {
    std::string Command;
    std::size_t Nth;
    std::function<void()> Act;
  };

  void Watch() {
    for (Event& event : watches_) {
      if (!Port.Written.ends_with(event.Command) || !event.Act) continue;
      if (CountOf(Port.Written, event.Command) != event.Nth) continue;
      Screen.After(0, std::exchange(event.Act, nullptr));
    }
  }

  std::vector<Event> watches_;
};

}  // namespace tintbench::testing
