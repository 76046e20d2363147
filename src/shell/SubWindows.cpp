#include "shell/SubWindows.h"

#include <functional>

namespace tintbench::shell {

SubWindows::SubWindows(const SubWindowsParts& parts)
    : screen_(parts.Screen),
      formComm_({parts.Line, parts.Panels, parts.Screen, parts.Facts, parts.MainWindow}),
      formStat_({parts.Line, parts.Screen, parts.Files, parts.Paths, parts.Facts}, statCatalogue_),
      formAuto_({.Screen = parts.Screen,
                 .Commands = parts.Line.Commands,
                 .Log = parts.Line.Log,
                 .Errors = parts.Errors}),
      formEdit_(parts.Screen, parts.Selectors),
      formCfg_({.Screen = parts.Screen,
                .Files = parts.Files,
                .Paths = parts.Paths,
                .Identity = parts.Identity,
                .Parameters = parts.Parameters,
                .Editor = formEdit_}),
      formXmod_({.Screen = parts.Screen,
                 .Files = parts.Files,
                 .Paths = parts.Paths,
                 .Port = parts.Line.Port,
                 .Ports = parts.Ports,
                 .Commands = parts.Line.Commands,
                 .Engine = parts.Engine,
                 .Log = parts.Line.Log,
                 .Facts = parts.Facts,
                 .Status = parts.Line.Status,
                 .Catalogue = parts.Parameters,
                 .Link = parts.Link,
                 .Edit = std::bind_front(&SubWindows::EditConfiguration, this)}),
      formGMon_(
          {parts.Line, parts.Screen, parts.Facts, parts.Selectors, formComm_.On()},
          {.Record = groupRecord_, .Instruments = groupInstruments_, .Readings = groupReadings_}),
      groupRecord_(parts.Screen, parts.Files, parts.Paths.RecordingFolder(), formGMon_,
                   formGMon_.TheGroup()),
      groupInstruments_(formGMon_, formGMon_.TheGroup()),
      formGHst_(parts.Screen, parts.Files, parts.Paths.RecordingFolder()) {
  for (ui::Form* window :
       std::initializer_list<ui::Form*>{&formComm_, &formStat_, &formAuto_, &formXmod_, &formCfg_,
                                        &formEdit_, &formGMon_, &formGHst_}) {
    parts.Screen.Register(*window);
  }
}

ui::Form& SubWindows::Transfer(transfer::XmodemModeValue mode) {
  formXmod_.SetXmodemMode(mode);
  return formXmod_;
}

void SubWindows::EditConfiguration(const std::string& folder, const std::string& stem,
                                   const std::string& extension) {
  formCfg_.SetConfigName(folder, stem, extension);
  screen_.ShowModal(formCfg_);
}

ui::Form& SubWindows::Commands(commands::FormFunction function) {
  formComm_.SetFormFunction(function);
  return formComm_;
}

ui::Form& SubWindows::GroupMonitor(const std::string& address) {
  formGMon_.SetGroupAddress(address);
  return formGMon_;
}

ui::Form& SubWindows::GroupHistory(const std::string& title) {
  formGHst_.SetMainTitle(title);
  return formGHst_;
}

}  // namespace tintbench::shell
