// The controls of the window of port settings and file transfers. It has three faces, of which
// `XmodemMode` tells the one on show.
#pragma once

#include "transfer/FirmwareGuide.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::transfer {

enum XmodemModeValue : int { kPortFace = 0, kConfigFace = 1, kFirmwareFace = 2 };

inline constexpr int kSendPieces = 3;  // a running number, a word between, a total

struct XmodWindow : ui::Form {
  XmodWindow();

  // Set before the window opens, and not changed while it is open.
  ui::Property<int> XmodemMode{*this, "XmodemMode", kPortFace};

  // On all faces: the state of the port; and, if more is known than a box has said, why it can't be
  // opened or a file not be kept, with the remedy. Hidden while there is nothing to say.
  ui::Label LblPstat{*this, "LblPstat"};
  ui::Label LblProblem{*this, "LblProblem"};

  // Port settings. A row of CmbCom is "COM1"; its `Detail` has the device and the adapter's name.
  // The view raises `DropDown` before the list opens, and finds it filled anew behind that.
  ui::Frame FrmSettings{*this, "FrmSettings"};
  ui::ComboBox CmbCom{FrmSettings, "CmbCom"};
  ui::Label LblDevice{FrmSettings, "LblDevice"};  // device and adapter of the port selected
  ui::ComboBox CmbBaud{FrmSettings, "CmbBaud"};
  ui::ComboBox CmbPar{FrmSettings, "CmbPar"};
  ui::ComboBox CmbDbit{FrmSettings, "CmbDbit"};
  ui::ComboBox CmbSbit{FrmSettings, "CmbSbit"};
  ui::Button CommConn{FrmSettings, "CommConn"};
  ui::Button CommDisConn{FrmSettings, "CommDisConn"};
  ui::Button CommMaster{FrmSettings, "CommMaster"};
  ui::Button CommDisMaster{FrmSettings, "CommDisMaster"};

  // The file and what is done with it; both transfers. CommSel, CommRec and CommViewModify are the
  // configuration's, CommSel1 is the firmware's.
  ui::Label LblFile{*this, "LblFile"};
  ui::TextBox TxtFile{*this, "TxtFile"};
  ui::Button CommSel{*this, "CommSel"};
  ui::Button CommSel1{*this, "CommSel1"};
  ui::Button CommSend{*this, "CommSend"};
  ui::Button CommRec{*this, "CommRec"};
  ui::Button CommViewModify{*this, "CommViewModify"};
  ui::Button CommStop{*this, "CommStop"};  // usable at any moment
  ui::Frame FrmSize{*this, "FrmSize"};
  ui::ControlArray<ui::OptionButton> OptBsize{FrmSize, "OptBsize", 2};
  // How many seconds to wait for the machine's restart; 0 stands for ten for each group.
  ui::Label LblTxtwait{*this, "LblTxtwait"};
  ui::TextBox Txtwait{*this, "Txtwait"};

  // How the transfer goes. All of it stays readable until the next one begins.
  ui::Frame FrmStat{*this, "FrmStat"};
  ui::Label LblEstat{FrmStat, "LblEstat"};  // state in words
  ui::Label LblCurrb{FrmStat, "LblCurrb"};  // blocks transferred,
  ui::Label LblTotb{FrmStat, "LblTotb"};    // of so many
  ui::Label LblCurrs{FrmStat, "LblCurrs"};  // bytes
  ui::ProgressBar PrgbTransf{FrmStat, "PrgbTransf"};
  ui::Frame FrmCheck{FrmStat, "FrmCheck"};
  ui::ControlArray<ui::OptionButton> OptCheck{FrmCheck, "OptCheck", 2};  // shown, not pressed
  ui::Frame FrmBlock{FrmStat, "FrmBlock"};
  ui::ControlArray<ui::OptionButton> OptSize{FrmBlock, "OptSize", 2};  // shown, not pressed
  ui::Label LblFileName{FrmStat, "LblFileName"};                       // "machine.cfm"
  ui::Label LblPercent{FrmStat, "LblPercent"};                         // "37 %"
  ui::Label LblBytes{FrmStat, "LblBytes"};        // "24320 of 65010 bytes", "24320 bytes"
  ui::Label LblRate{FrmStat, "LblRate"};          // "1630 bytes a second"
  ui::Label LblLeft{FrmStat, "LblLeft"};          // "25 s left"; at the end "in 40 s"
  ui::Label LblRepeated{FrmStat, "LblRepeated"};  // "2 blocks repeated"

  // While the machine restarts: FrmReconnect takes the place of LblFile and TxtFile.
  ui::Frame FrmReconnect{*this, "FrmReconnect"};
  ui::Label LblReconnect{FrmReconnect, "LblReconnect"};
  ui::Frame FrmWaitGroups{*this, "FrmWaitGroups"};
  ui::Label LblWaitGroups{FrmWaitGroups, "LblWaitGroups"};  // what is waited for
  ui::Label Lblwait{FrmWaitGroups, "Lblwait"};              // the seconds left

  // Whether the machine runs the configuration that was sent: a sentence, and a row for each
  // difference with tabs between what, the value sent and the machine's. Shown once it is known.
  ui::Frame FrmCompare{*this, "FrmCompare"};
  ui::Label LblCompare{FrmCompare, "LblCompare"};
  ui::ListBox LstCompare{FrmCompare, "LstCompare"};  // hidden while nothing differs

  // The firmware's parts: the running number from 1, and how many there are.
  ui::Frame FrmFw{*this, "FrmFw"};
  ui::ControlArray<ui::Label> LblFwfile{FrmFw, "LblFwfile", kSendPieces};
  // The operator's guide on the firmware face. GuideStep is a GuideStepValue, by which the view
  // marks switch and button in its picture of the card (GuideOf).
  ui::Property<int> GuideStep{*this, "GuideStep", kGuideChoose};
  ui::Frame FrmGuide{*this, "FrmGuide"};
  ui::ControlArray<ui::Label> LblGuide{FrmGuide, "LblGuide", kGuideSteps};  // "1 Into the loader"
  ui::Label LblGuideNow{FrmGuide, "LblGuideNow"};  // the present step in a sentence
  // A load that was broken off earlier: where, and what state the machine is in. Hidden without
  // one.
  ui::Frame FrmBroken{*this, "FrmBroken"};
  ui::Label LblBroken{FrmBroken, "LblBroken"};
  ui::Button CmdDismiss{FrmBroken, "CmdDismiss"};

  // What goes over the line at the debug level of transfers: the command, the answer's codes.
  ui::ControlArray<ui::Label> Lbldeb{*this, "Lbldeb", 2};
};

}  // namespace tintbench::transfer
