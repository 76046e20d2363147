// Flushes colorant circuits, in batches that the machine can bear, until the operator stops it, and
// closes everything again in reverse order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/CommWindow.h"
#include "commands/ElementSender.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

// Walks `list` in pieces of `width` characters, finds each in the comma-separated `keys` and takes
// the value at the same place of `values`; of equal values one, if `unique`. The values adjacent.
std::string MapList(std::string_view list, std::string_view keys, std::string_view values,
                    int width, bool unique);

class PurgeProcess {
 public:
  PurgeProcess(CommWindow& window, ElementSender& sender, ShelfAndValves& shelf)
      : window_(window), sender_(sender), shelf_(shelf) {}

  // One press of the purge's key: a batch from its start to its end. `afresh` forgets what earlier
  // presses have left. HALT is felt until everything is to be closed; that is done without a look
  // at the operator, and what he presses meanwhile is HALT or Esc, or nothing. Sends nothing once
  // the window closes.
  void PurgeRun(bool afresh);
  // HALT: the circuits that are left are no longer wanted.
  void Forget();
  // What the purge has switched on will be switched off in order.
  bool WillSwitchOff() const { return endDue_; }

 private:
  // The elements that are opened together: adjacent two-digit numbers.
  struct Batch {
    std::string Circuits;
    std::string Caps;
    std::string Motors;
    std::string Speeds;
  };
  // One command of the starting or ending sequence, and the wait behind it in seconds.
  struct Step {
    CommandId Row;
    std::string Elements;
    double Pause;
    std::string Speeds = {};
  };

  bool Prepare();
  bool AskCircuits();
  bool AskSpeeds();
  std::string AskSpeed(const std::string& motor);
  std::size_t BatchSize() const;
  Batch TakeBatch();
  void RunBatch(const Batch& batch);
  bool Start(const Batch& batch);
  bool End(const Batch& batch);
  void TellEnd(bool good);
  bool PurgeWatch();
  bool WatchRound();
  bool CheckMachineErrors();

  CommWindow& window_;
  ElementSender& sender_;
  ShelfAndValves& shelf_;
  bool underWay_ = false;
  bool endDue_ = false;
  std::string remaining_;  // circuits still to do: adjacent two-digit numbers
  std::string speeds_;     // three digits and "," for each of the motors
  std::string motors_;     // two digits and "," each
};

}  // namespace tintbench::commands
