// The monitor of one dispensing group: shows its inputs live, drives its elements between two
// enquiries, and leaves nothing switched on that it can switch off.
#pragma once

#include <string>

#include "groups/DlgGrMon.h"
#include "groups/ElementCommands.h"
#include "groups/EnquiryCycle.h"
#include "groups/GroupSetup.h"
#include "groups/GroupWindow.h"
#include "groups/MonitorWork.h"

namespace tintbench::groups {

// What the window hands its readings and records to. All of it must outlive the window's use.
struct MonitorServices {
  SessionRecord& Record;
  InstrumentPanel& Instruments;
  ReadingsLog& Readings;
};

struct FormGMon final : GroupWindow, private link::LineView {
  FormGMon(const MonitorParts& parts, const MonitorServices& services);

  // To be called before the window is shown: the group's address in decimal digits.
  void SetGroupAddress(const std::string& text) { setup_.SetGroupAddress(text); }

  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload(bool& cancel) override;

  // The group on show.
  const Group& TheGroup() const { return group_; }

 private:
  void ShowSent(const std::string& text) override { Debug.ShowSent(text); }
  void ShowReceived(const std::string& text) override { Debug.ShowReceived(text); }

  void ConnectElements();
  void ConnectInputs();
  void ShowGroup();
  void ShowError(const std::string& title, const std::string& remedy);
  void ChkEnquire_Click();
  void StartEnquiry();
  void CloseLater();
  void CommandsDone();
  void Timer1_Tick();
  void LblKb_DblClick();

  Group group_;
  MonitorParts parts_;
  MonitorWork work_;
  GroupSetup setup_{work_};
  EnquiryCycle cycle_{work_};
  ElementCommands commands_{work_};
  DlgGrMon dialog_;
  bool startWanted_ = false;  // while a command was under way
  bool leaving_ = false;
};

}  // namespace tintbench::groups
