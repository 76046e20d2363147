#include "transfer/XmodWindow.h"

#include <string>

namespace tintbench::transfer {

XmodWindow::XmodWindow() : ui::Form("FormXmod") {
  CommConn.Caption = "CONNECT";
  CommDisConn.Caption = "DISCONNECT";
  CommMaster.Caption = "SERVICE MASTER";
  CommDisMaster.Caption = "DISCONNECT SERVICE MASTER";
  LblFile.Caption = "File";
  CommSel.Caption = "SELECT";
  CommSel1.Caption = "SELECT";
  CommSend.Caption = "SEND";
  CommRec.Caption = "RECEIVE";
  CommStop.Caption = "STOP TRANSFER";
  CommViewModify.Caption = "VIEW / MODIFY";
  FrmSize.Caption = "Sender Buffer size";
  for (int size = 0; size < 2; ++size) {
    const std::string bytes = size == 0 ? "128" : "1024";
    OptBsize(size).Caption = bytes;
    OptBsize(size).Tag = bytes;
    OptSize(size).Caption = bytes;
    OptCheck(size).Caption = size == 0 ? "CHECKSUM" : "CRC";
    OptSize(size).Enabled = false;
    OptCheck(size).Enabled = false;
  }
  OptBsize(0).Value = true;
  LblTxtwait.Caption = "Wait for the restart (s)";
  Txtwait.ToolTipText = "0: ten seconds for each group";
  FrmStat.Caption = "Transfer Status";
  FrmCompare.Caption = "Sent and running configuration";
  LblFwfile(0).Caption = "0";
  LblFwfile(1).Caption = "/";
  LblFwfile(2).Caption = "0";
  for (int step = 0; step < kGuideSteps; ++step) {
    LblGuide(step).Caption = std::to_string(step + 1) + " " + GuideOf(step).Title;
  }
  FrmBroken.Caption = "A firmware load was broken off";
  CmdDismiss.Caption = "DISMISS";
}

}  // namespace tintbench::transfer
