// The controls of the window of statistics.
#pragma once

#include "state/DebugFrame.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::stats {

inline constexpr int kSides = 2;  // received data, saved data
inline constexpr int kData = 2;   // a time, a number of events
inline constexpr int kBulkActions = 4;
inline constexpr int kMostColumns = 12;  // of the overview

struct StatWindow : ui::Form {
  StatWindow();

  ui::Frame FrmTabStripStat{*this, "FrmTabStripStat"};
  ui::TabStrip TabStripSta{FrmTabStripStat, "TabStripSta"};
  ui::Frame FrmTabStripData{*this, "FrmTabStripData"};
  ui::TabStrip TabStripData{FrmTabStripData, "TabStripData"};

  // What was received last, and what a file holds.
  ui::Frame FrmLastData{*this, "FrmLastData"};
  ui::ControlArray<ui::Frame> FrmLData{FrmLastData, "FrmLData", kData};
  ui::ControlArray<ui::Label> LblLComm{FrmLastData, "LblLComm", kData};
  ui::ControlArray<ui::Label> LblLData{FrmLastData, "LblLData", kData};
  ui::ControlArray<ui::Label> LblLTime{FrmLastData, "LblLTime", 2};
  ui::Label LblTimestub{FrmLastData, "LblTimestub"};
  ui::ControlArray<ui::Button> CmdRes{FrmLastData, "CmdRes", kData};
  ui::Button CmdLRec{FrmLastData, "CmdLRec"};
  ui::Button CmdLSave{FrmLastData, "CmdLSave"};
  ui::Frame FrmSavedData{*this, "FrmSavedData"};
  ui::ControlArray<ui::Frame> FrmSData{FrmSavedData, "FrmSData", kData};
  ui::ControlArray<ui::Label> LblSData{FrmSavedData, "LblSData", kData};
  ui::ControlArray<ui::Label> LblSTime{FrmSavedData, "LblSTime", 2};
  // One for each side.
  ui::ControlArray<ui::Button> CmdDel{*this, "CmdDel", kSides};
  ui::ControlArray<ui::Button> CmdSend{*this, "CmdSend", kSides};

  // The time of each side in days and hours; and how far received lies above saved.
  ui::ControlArray<ui::Label> LblSpan{*this, "LblSpan", kSides};
  ui::Frame FrmDifference{*this, "FrmDifference"};
  ui::ControlArray<ui::Label> LblDiff{FrmDifference, "LblDiff", kData};
  ui::Label LblDiffSpan{FrmDifference, "LblDiffSpan"};
  ui::Label LblDays{FrmDifference, "LblDays"};

  // All elements at once.
  ui::ControlArray<ui::Button> CmdAll{*this, "CmdAll", kBulkActions};
  ui::Frame FrmRSAll{*this, "FrmRSAll"};
  ui::ProgressBar PrgRSAll{FrmRSAll, "PrgRSAll"};
  ui::ControlArray<ui::Button> CmdRSAll{FrmRSAll, "CmdRSAll", 3};
  ui::Label LblCurr{FrmRSAll, "LblCurr"};
  ui::Label LblTot{FrmRSAll, "LblTot"};
  ui::Label LblDT1{FrmRSAll, "LblDT1"};
  ui::Label LblDN1{FrmRSAll, "LblDN1"};
  ui::Label LblSucc{FrmRSAll, "LblSucc"};
  ui::Label LblFail{FrmRSAll, "LblFail"};
  ui::ComboBox CmbSucc{FrmRSAll, "CmbSucc"};
  ui::ComboBox CmbFail{FrmRSAll, "CmbFail"};
  ui::Label LblLeft{FrmRSAll, "LblLeft"};          // how long it still takes, and how it ended
  ui::ListBox LstRemarks{FrmRSAll, "LstRemarks"};  // what failed and why

  ui::Frame FrmWplease{*this, "FrmWplease"};
  ui::Label LblWplease{FrmWplease, "LblWplease"};

  // All elements of a type in one table. The rows of the list have a tab between their cells.
  ui::Button CmdOverview{*this, "CmdOverview"};
  ui::Frame FrmOverview{*this, "FrmOverview"};
  ui::ControlArray<ui::Button> CmdSort{FrmOverview, "CmdSort", kMostColumns};
  ui::ListBox LstOverview{FrmOverview, "LstOverview"};
  ui::Label LblOverview{FrmOverview, "LblOverview"};
  ui::Button CmdCopy{FrmOverview, "CmdCopy"};
  ui::Button CmdCsv{FrmOverview, "CmdCsv"};
  ui::Button CmdBack{FrmOverview, "CmdBack"};

  state::DebugFrame Debug{*this};

  // Raised with what is to be put on the clipboard.
  ui::Event<const std::string&> CopyWanted;
};

}  // namespace tintbench::stats
