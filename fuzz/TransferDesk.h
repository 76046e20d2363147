// An Xmodem engine at a port whose far end is the input, with files in memory and a window that
// shows the report.
#pragma once

#include <deque>
#include <string>

#include "PeerPort.h"
#include "Target.h"
#include "base/Clock.h"
#include "base/MemoryFileSystem.h"
#include "link/Xmodem.h"
#include "ui/Form.h"

namespace tintbench::fuzz {

struct TransferWindow : ui::Form {
  TransferWindow() : Form("TransferWindow") {}
  ui::Label LblEstat{*this, "LblEstat"};
  ui::Label LblCurrb{*this, "LblCurrb"};
  ui::Label LblTotb{*this, "LblTotb"};
  ui::Label LblCurrs{*this, "LblCurrs"};
  ui::ProgressBar PrgbTransf{*this, "PrgbTransf"};
  ui::Frame FrmCheck{*this, "FrmCheck"};
  ui::Frame FrmSize{*this, "FrmSize"};
  ui::ControlArray<ui::OptionButton> OptCheck{FrmCheck, "OptCheck", 2};
  ui::ControlArray<ui::OptionButton> OptSize{FrmSize, "OptSize", 2};
};

struct TransferDesk {
  static constexpr const char* kFile = "/app/file";

  // `abortAt`: events are served for the n-th time when the operator presses the stop button; 0
  // for never.
  TransferDesk(std::deque<Act> acts, int abortAt, bool traced)
      : Port(Clock, std::move(acts)), AbortAt(abortAt), Traced(traced) {
    Files.Put("/app/KEEP", "");
    Engine.XmodemBind({Window.LblEstat, Window.LblCurrb, Window.LblTotb, Window.LblCurrs,
                       Window.PrgbTransf, Window.OptCheck, Window.OptSize});
  }

  int Run(link::XmodemDirection direction, int size) {
    Port.InputLen(0);
    const int status = Engine.XmodemTransfer(direction, size, kFile);
    const std::string shown = Window.LblEstat.Caption;
    Require(shown == (status == 0 ? "FILE TRANSFER SUCCESSFUL" : "ERROR " + std::to_string(status)),
            "the operator is told how it ended");
    Require(Port.InputLen() == 0, "the port is given back as it was");
    return status;
  }

  base::VirtualClock Clock;
  testing::MemoryFileSystem Files;
  PeerPort Port;
  int AbortAt;
  bool Traced;
  TransferWindow Window;
  link::Xmodem Engine{Port,
                      Clock,
                      Files,
                      {"/app",
                       [this] {
                         if (AbortAt > 0 && --AbortAt == 0) Engine.XmodemAbort();
                       },
                       [this] { return Traced ? 7 : 0; }}};
};

}  // namespace tintbench::fuzz
