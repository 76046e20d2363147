// The window of port settings and file transfers: chooses the port, moves the machine's service
// between its two lines, carries configurations either way and loads firmware.
#pragma once

#include <string>

#include "link/LineView.h"
#include "transfer/ConfigTransfer.h"
#include "transfer/LoadFirmware.h"
#include "transfer/PortSettings.h"
#include "transfer/Reconnect.h"
#include "transfer/RunningConfig.h"
#include "transfer/ServiceLine.h"
#include "transfer/TransferDisplay.h"
#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class FormXmod final : public XmodWindow, private link::LineView {
 public:
  explicit FormXmod(const TransferParts& parts);

  // Picks the face; to be called before the window opens.
  void SetXmodemMode(XmodemModeValue mode);

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;
  // In the middle of a job the window stays, ends the job, and closes behind it.
  void Form_QueryUnload(bool& cancel) override;

 private:
  class Job;

  void ConnectControls();
  void ShowFace();
  void ShowBroken();
  void ShowProblem(const std::string& problem);
  void Occupy(bool occupied);
  void Tell(const std::string& text);

  void CommConn_Click();
  void CommDisConn_Click();
  void CommMaster_Click();
  void CommDisMaster_Click();
  void CommSel_Click();
  void CommViewModify_Click();
  void CommStop_Click();
  void CmdDismiss_Click();

  void Link();
  void TransferFile(link::XmodemDirection direction);
  std::string RunTransfer(link::XmodemDirection direction);
  std::string RunFirmware();
  void Reconnect();
  std::string File() const;
  int BlockSize() const;
  bool IsFirmware() const { return XmodemMode == kFirmwareFace; }

  TransferParts parts_;
  PortSettings settings_;
  ServiceLine service_;
  TransferDisplay display_;
  ConfigTransfer config_;
  FirmwareLoad firmware_;
  Reconnection reconnection_;
  RunningConfig running_;
  int groups_ = 0;  // that the sent configuration names
  bool busy_ = false;
  bool closeWanted_ = false;  // meanwhile
};

}  // namespace tintbench::transfer
