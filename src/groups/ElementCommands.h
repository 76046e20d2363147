// Drives the elements of a group and the X functions of its inputs, takes inputs in and out of the
// enquiry, watches over the open valve, and puts everything off when the window is left.
#pragma once

#include <functional>
#include <string>

#include "groups/MonitorWork.h"

namespace tintbench::groups {

class ElementCommands {
 public:
  explicit ElementCommands(MonitorWork& work) : work_(work) {}

  // Called whenever the last of the commands under way is done.
  std::function<void()> Done;

  // The window loads: nothing is under way.
  void Reset();
  // True while a command goes out and its answer is judged. Events may be served meanwhile.
  bool IsUnderWay() const { return underWay_ > 0; }

  // The clicks of the boxes, and the tick of the valve's watch.
  void Switch_Click(Element element, bool on);
  void ChkIdiOff_Click(int row);
  void ChkIanOff_Click(int row);
  void ChkIdiXOff_Click(int row);
  void ChkIanXOff_Click(int row);
  void Timer2_Tick();

  // Puts valve, stirring and motor off if they are on or unknown, in this order, and tells which
  // could not be. True if at least one was put off.
  bool SwitchElementsOff();

  // Nothing is switched on any more, for the window is about to go.
  void BeginLeaving() { leaving_ = true; }

 private:
  // One side of an element's switch.
  struct Side {
    ui::CheckBox& This;
    ui::CheckBox& Other;
    ui::Label& Label;
    link::CommandId Row;
    Mark Symbol;
  };

  Side SideOf(Element element, bool on);
  void Run(const std::function<void()>& act);
  void FreezeControls(bool freeze);
  bool SendElementCommand(link::CommandId row, const std::string& argument,
                          const std::string& symbol);
  void SetPairState(ui::CheckBox& thisBox, ui::CheckBox& otherBox, bool good);
  void SwitchElement(Element element, bool on);
  void OpenValve();
  void StartMotor();
  void RunSide(const Side& side, bool on, const std::string& argument);
  void WatchValve();
  void StartWatch();
  void StopWatch();
  void RecordSwitch(config::InputKind kind, int row, bool on);
  void SwitchFunction(ui::CheckBox& box, bool& busy, config::InputKind kind, int row,
                      int xFunction);

  MonitorWork& work_;
  GroupWindow& window_{work_.Window};
  Group& group_{work_.TheGroup};
  int underWay_ = 0;
  int frozen_ = 0;
  bool watching_ = false;
  bool leaving_ = false;
  bool settingDigital_ = false;
  bool settingAnalogue_ = false;
};

}  // namespace tintbench::groups
