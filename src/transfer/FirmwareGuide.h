// Where the operator stands while a firmware is loaded, and what his hands have to do on the CPU
// card at that step: a table for the window's words and for the picture of the card.
#pragma once

#include <array>
#include <cstddef>

namespace tintbench::transfer {

enum GuideStepValue : int {
  kGuideChoose = 0,   // nothing runs
  kGuideEnter = 1,    // the first box is open: the operator brings the machine into its loader
  kGuideSend = 2,     // the parts travel
  kGuideWrite = 3,    // the machine writes them to its flash
  kGuideLeave = 4,    // the second box is open: the operator takes the machine out of its loader
  kGuideConnect = 5,  // the machine starts again and is linked up
};
inline constexpr int kGuideSteps = 6;

struct GuideStage {
  const char* Title;   // the step in a few words
  const char* What;    // what happens, or what is to be done, in a sentence
  bool OperatorsTurn;  // something is to be done at the card
  bool SwitchOn;       // how dip-switch 4 has to stand at the step's end
  bool PressReset;     // RESET is pressed in this step
};

inline constexpr std::array<GuideStage, kGuideSteps> kGuide{{
    {"Choose the file", "Choose the firmware file, then press SEND.", false, false, false},
    {"Into the loader",
     "Turn ON dip-switch n.4, press RESET, and wait for 'XM 01 FILE 00' on the display.", true,
     true, true},
    {"Sending", "The firmware travels to the machine. Leave the card alone.", false, true, false},
    {"Writing", "The machine writes its flash. Leave the card alone.", false, true, false},
    {"Out of the loader",
     "Wait for 'TURN OFF SLAVE' on the display, turn OFF dip-switch n.4, and press RESET.", true,
     false, true},
    {"Connecting", "The machine starts again, and the connection to it is made anew.", false, false,
     false},
}};

// The step's row; steps that there aren't count as the first.
constexpr const GuideStage& GuideOf(int step) {
  return kGuide[step > 0 && step < kGuideSteps ? static_cast<std::size_t>(step) : 0U];
}

}  // namespace tintbench::transfer
