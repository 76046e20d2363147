// The simulated machine: a whole tinting machine at the far end of a serial line, which behaves
// in time, runs a configuration and can be told to have faults.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Clock.h"
#include "simulator/CommandReader.h"
#include "simulator/Commands.h"
#include "simulator/Faults.h"
#include "simulator/Line.h"
#include "simulator/Loader.h"
#include "simulator/Plant.h"
#include "simulator/SampleConfiguration.h"
#include "simulator/Xmodem.h"

namespace tintbench::simulator {

struct MachineOptions {
  std::string Configuration{SampleConfiguration()};  // text of the file that it runs
  std::string Firmware = "5.2";                      // version as "#jf*" tells it, 3 characters
  int Slave = 1;                                     // address, 1 to 16
  int ServiceBaud = 19200;                           // speed of the service serial line
  bool AsksForCrc = true;                            // as Xmodem receiver: "C" first, or NAK only
  std::size_t BlockSize = 128;                       // as Xmodem sender: 128 or 1024
};

class Machine {
 public:
  // The machine is switched on and ready. The clock must outlive it.
  explicit Machine(const base::Clock& clock, MachineOptions options = {});

  // --- The far end of the line. All of these first let the machine live up to the clock's time.

  // A port of this format opens on the line. Which of the two serial lines it is connected to
  // follows from its speed: the service line, or the master line at the configuration's master
  // speed; on any other format either side reads rubbish.
  void Attach(const LineFormat& format);

  // The open port changes its format; what is under way stays.
  void Retune(const LineFormat& format);

  // The port closes. What the machine sends is lost from here on.
  void Detach();

  // Starts to send bytes to the machine, at the line's speed.
  void Write(std::string_view bytes);

  // Takes the bytes that have arrived from the machine.
  std::string Read();

  // When the next thing happens: a byte arrives at either end, or the machine acts by itself.
  // kNever if nothing will without bytes from outside.
  double NextEvent();

  // False while the line is taken off.
  bool Plugged();

  // Counts up each time the line is taken off.
  std::size_t PullCount() const { return pulls_; }

  // The text of the configuration that the machine runs.
  const std::string& ConfigurationText() const { return plant_.Config.Text(); }

  // What the program loader has received since the last reset into it, as it came but for the
  // padding.
  const Loader& TheLoader() const { return loader_; }

  // What the display on the card shows; empty without power.
  std::string Display();

  // Tells the machine to do something by name, such as "can on" or "fault late 3". Gives an empty
  // text, or one line of what is wrong.
  std::string Tell(std::string_view words);

  // One line for each thing that can be told, and one for each fault.
  static std::string TellHelp();

 private:
  enum class SerialLine { None, Service, Master };

  static constexpr double kResetSeconds = 3.0;  // from power-on to the first answer

  // What the machine will do without being asked again: an answer under way, and a task behind it.
  struct Pending {
    double When;
    std::string Answer;
    Task Then;
  };

  // What was told for later.
  struct Errand {
    double When;
    std::string Text;
  };

  // What befalls the machine or its line at a time: a fault that has a moment.
  struct Accident {
    double When;
    Fault What;
  };

  void Live();
  void Tune(const LineFormat& format);
  double NextOwnEvent() const;
  void Step();
  void Hear(unsigned char byte);
  void Obey(const Frame& frame);
  bool Listens(const Frame& frame) const;
  void Disturb(Reply& reply, std::string_view mnemonic, const std::string& text);
  void Schedule(double when, std::string answer, Task then);
  void Emit(std::string_view bytes);
  void Carry(Wire& wire, std::string_view bytes);
  std::string Spoiled(char byte);
  void Begin(Task task);
  void BeginTransfer(std::unique_ptr<Transfer> transfer, Task task);
  void AfterTransfer();
  void EndReception(const std::string& text);
  void EndLoading(const std::string& part);
  void EndProgram();
  TransferFaults FaultsOfTransfer(Task task) const;
  std::string ConfigurationToSend() const;
  void Restart(double seconds);
  bool RunsProgram() const { return !loading_ && !plant_.Firmware.empty(); }
  std::string Shown() const;
  // A restart from outside: what was being sent breaks off.
  void BreakOff(double seconds);
  void Expect(Fault what, double when);
  void Forget(Fault what);
  void Befall(Fault what);
  void Babble();
  void Pull();

  // The words of `Tell` that are about the machine as a whole; false for words that make no sense.
  using Words = std::vector<std::string>;
  struct Word;
  static std::span<const Word> MachineWords();
  std::string Do(std::string_view text);
  std::string SetFault(const Words& words);
  static bool Knows(std::string_view verb);
  std::string Postpone(const Words& words);
  std::string Check(const Words& words) const;
  std::string CheckHeard(std::span<const std::string> commands) const;
  bool ForgetHeard(const Words& words);
  bool UnplugLine(const Words& words);
  bool PlugLine(const Words& words);
  bool PressReset(const Words& words);
  bool PressButton(const Words& words);
  bool SwitchPower(const Words& words);
  bool SetFirmware(const Words& words);
  bool SetXmodem(const Words& words);
  bool SetSeed(const Words& words);

  const base::Clock& clock_;
  MachineOptions options_;
  double now_;
  Plant plant_;
  FaultSet faults_;
  Dice dice_;

  Wire toMachine_;
  Wire fromMachine_;
  SerialLine line_ = SerialLine::None;
  bool attached_ = false;
  bool masterService_ = false;  // the master line may give commands
  bool plugged_ = true;
  std::size_t pulls_ = 0;
  std::vector<Accident> accidents_;  // by time
  std::vector<Errand> errands_;      // by time

  CommandReader reader_;
  std::deque<std::string> heard_;  // the last commands, as "#S*"
  std::deque<Pending> pending_;    // by time
  std::unique_ptr<Transfer> transfer_;
  Task transferTask_ = Task::None;
  Loader loader_;
  std::string flashed_;                    // the version that is being written
  bool loading_ = false;                   // the loader is at work in place of the program
  std::optional<Configuration> received_;  // what the next restart takes into use
  bool groupsKnow_ = true;                 // what the machine runs, so that they come up fast
  double groupsFrom_ = 0.0;                // when the first group begins to come up
  double secondsPerGroup_ = 0.0;
  double readyAt_;  // deaf until then
};

}  // namespace tintbench::simulator
