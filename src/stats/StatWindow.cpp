#include "stats/StatWindow.h"

#include <array>

namespace tintbench::stats {

namespace {

template <std::size_t Count>
void SetCaptions(ui::ControlArray<ui::Button>& buttons,
                 const std::array<const char*, Count>& captions) {
  for (std::size_t i = 0; i < Count; ++i) buttons(static_cast<int>(i)).Caption = captions[i];
}

}  // namespace

StatWindow::StatWindow() : ui::Form("FormStat") {
  Caption = "Statistical Data";
  LblTimestub.Caption = "Data date/time";
  SetCaptions<2>(CmdRes, {"RESET", "RESET"});
  CmdLRec.Caption = "RECEIVE";
  CmdLSave.Caption = "SAVE";
  SetCaptions<2>(CmdDel, {"DELETE", "DELETE"});
  SetCaptions<2>(CmdSend, {"SEND", "SEND"});
  SetCaptions<4>(CmdAll,
                 {"SELECT DATA FILE", "RECEIVE ALL DATA", "SEND ALL DATA", "RESET ALL DATA"});
  SetCaptions<3>(CmdRSAll, {"START", "STOP", "RETURN"});
  LblWplease.Caption = "wait for machine answer";
  FrmDifference.Caption = "Difference";
  CmdOverview.Caption = "OVERVIEW";
  CmdCopy.Caption = "COPY";
  CmdCsv.Caption = "SAVE AS CSV";
  CmdBack.Caption = "RETURN";
  CmbSucc.ToolTipText = "transferred";
  CmbFail.ToolTipText = "failed";
}

}  // namespace tintbench::stats
