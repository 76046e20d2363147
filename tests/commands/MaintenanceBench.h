// The window of commands on the virtual clock, with a simulated machine on its line, and an
// operator whose keys come at their times.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "commands/FormComm.h"
#include "link/LineBench.h"
#include "state/ErrorCatalogue.h"

namespace tintbench::testing {

struct MaintenanceBench : LineBench {
  // What the operator does, and how many seconds after the step before it.
  struct Step {
    double After;
    std::function<void()> Act;
  };

  explicit MaintenanceBench(simulator::MachineOptions options = {})
      : LineBench(std::move(options)) {
    Files.Put("/app/config", Machine.ConfigurationText());
    config::ExecuteConfigKnown(Files, "/app/config", 1, Facts);
    Status.LinkState = link::kConfigKnown;
    Status.FirmwareVersion = "5.2";
    Main.Caption = "Main";
  }

  // Opens the window, has the steps done, and closes it behind the last, which may have done so.
  void Run(commands::FormFunction function, const std::vector<Step>& steps) {
    Window.SetFormFunction(function);
    double time = 0;
    for (const Step& step : steps) {
      time += step.After;
      Screen.After(time, [this, act = step.Act] {
        if (Window.Visible) act();
      });
    }
    Screen.ShowModal(Window);
  }

  // What the operator presses: a letter, "F1" to "F10" or "Esc"; "HALT", its button; "close", the
  // window's; "Option13" the button of an option, which it only selects.
  void Press(const std::string& key) {
    if (key == "HALT") return Window.CmdMultStop.Press();
    if (key == "close") return static_cast<void>(Screen.CloseByOperator(Window));
    if (key[0] == 'O' && key.size() > 1) return Window.Option1(std::stoi(key.substr(6))).Press();
    int code = key == "Esc" ? static_cast<int>(ui::kKeyEsc) : key[0];
    if (key[0] == 'F' && key.size() > 1) code = ui::kKeyF1 - 1 + std::stoi(key.substr(1));
    Window.PressKey(code, 0);
  }

  std::string Report() { return Window.TextOutput.Text; }
  std::string StatusLine() { return Window.TxtIOm.Text; }

  config::MachineFacts Facts;
  state::SensorNames Names;
  state::ErrorTable Errors;
  state::StateDecoder Decoder{Names, Errors, [this] { return Status.FirmwareNumber(); }};
  state::PanelStyles Styles;
  ui::Form Main{"Form1"};
  commands::FormComm Window{
      {{Port, Clock, Commands, Line, Log, Status}, {Names, Decoder, Styles}, Screen, Facts, Main}};
};

}  // namespace tintbench::testing
