// The window of transfers on a scripted line and the virtual clock, with a link-up that only notes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "base/MemoryFileSystem.h"
#include "link/ScriptedPort.h"
#include "transfer/FormXmod.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

// One block of the wire, 128 bytes with a checksum.
inline std::string WireBlock(unsigned char number, std::string data) {
  data.resize(128, '\x1A');
  unsigned char sum = 0;
  for (const char byte : data)
    sum = static_cast<unsigned char>(sum + static_cast<unsigned char>(byte));
  const auto inverse = static_cast<unsigned char>(255 - number);
  return std::string("\x01") + static_cast<char>(number) + static_cast<char>(inverse) + data +
         static_cast<char>(sum);
}

struct TransferBench : transfer::MachineLink {
  static constexpr const char* kSent = "/app/CONFIGUR/new.cfm";
  static constexpr const char* kGroups =
      "@ICS 1\r\n@GEN 1 16,1,0,0,2,0,0,3,4,\"M\",0\r\n@ECS 1\r\n@PDD 1\r\n";

  explicit TransferBench(transfer::XmodemModeValue mode) {
    Files.Put("/app/CONFIGUR/KSSETTING.TXT", "SERVICE");
    Port.Settings("19200,N,8,1");
    Ports.DefinePortList();
    Ports.OpenComPort("001", "19200,N,8,1");
    Status.FirmwareVersion = "5.2";
    Window.SetXmodemMode(mode);
  }

  void Load() { Screen.ui::Screen::Show(Window); }

  // The answer of link-up, and what it finds in the machine.
  int LinkMachine(const std::string& port, const std::string& settings) override {
    Links.push_back(port + ":" + settings);
    LinkedAt.push_back(Clock.Now());
    if (!Running.empty()) Files.Put(Paths.ReceivedConfigFile(), Running);
    return Status.LinkState = Reached;
  }

  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const ui::Box& box : std::exchange(Screen.Boxes, {})) texts.push_back(box.Text);
    return texts;
  }

  base::VirtualClock Clock;
  MemoryFileSystem Files;
  base::AppPaths Paths{"/app"};
  NotingScreen Screen{Clock};
  ScriptedPort Port{Clock, false};
  link::LinkStatus Status;
  link::ComPort Ports{Port, Clock, Status};
  link::CommandTable Table;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Commands{Port, Clock, Table, Screen, Log};
  config::MachineFacts Facts;
  config::SelectorCatalogue Selectors;
  config::ParameterCatalogue Catalogue{Selectors};
  link::Xmodem Engine{Port, Clock, Files, {.AppPath = "/app", .ServeEvents = [this] {
                                             if (OnBlock) OnBlock();
                                           }}};
  std::function<void()> OnBlock;
  std::vector<std::string> Links;
  std::vector<double> LinkedAt;
  std::string Running;  // the configuration that the machine gives
  link::LinkStateValue Reached = link::kConfigKnown;
  std::vector<std::string> Edited;
  transfer::FormXmod Window{{.Screen = Screen,
                             .Files = Files,
                             .Paths = Paths,
                             .Port = Port,
                             .Ports = Ports,
                             .Commands = Commands,
                             .Engine = Engine,
                             .Log = Log,
                             .Facts = Facts,
                             .Status = Status,
                             .Catalogue = Catalogue,
                             .Link = *this,
                             .Edit = [this](const std::string& folder, const std::string& stem,
                                            const std::string& extension) {
                               Edited = {folder, stem, extension};
                             }}};
};

}  // namespace tintbench::testing
