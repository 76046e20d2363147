// Moves the shelf with a guard against a double command, makes sure that a can stands under the
// nozzles, punches it, and runs the timed test of all valves.
#pragma once

#include <string>

#include "commands/CommWindow.h"
#include "commands/ElementSender.h"

namespace tintbench::commands {

// How the wait for a can has ended.
enum class CanCheck {
  There,
  GivenUp,  // by the operator, or the line was lost
  Missing,
  NoPhotocell,  // the configuration doesn't tell where
};

class ShelfAndValves {
 public:
  ShelfAndValves(CommWindow& window, ElementSender& sender) : window_(window), sender_(sender) {}

  // Books a move of the shelf that the machine has accepted: row 25 up, row 26 down. The machine
  // takes the same command a second time as a stop.
  void ShelfMotion(CommandId row, const std::string& answer);
  bool IsMovingUp() const { return up_.Moving; }
  bool IsMovingDown() const { return down_.Moving; }

  // Moves the shelf; within ten seconds of a move the other way, stops that one instead.
  void ShelfUp() { MoveShelf(up_, down_); }
  void ShelfDown() { MoveShelf(down_, up_); }
  // Stops the shelf if it was set off for the can, whatever earlier moves have been booked: the
  // operator wants no more.
  void StopForCan();
  void AutomaticPunching();
  void ValveTest();

  // Has the operator put a can on the shelf, and moves it up.
  CanCheck ShelfonCompletelyWithCan();
  // Switches everything off and makes sure of the can. True if a purge may begin.
  bool CheckPurgeConditions();

 private:
  // One of the shelf's two ways.
  struct Way {
    CommandId Row;
    bool Moving = false;
    double Since = 0;  // on the program's clock
  };

  double Now() const { return window_.Work.Screen.Time().Now(); }
  // True if the shelf may move the wanted way now; an answer that got lost may have been a good
  // one.
  bool MoveShelf(const Way& wanted, const Way& opposite);
  CanCheck WaitForCan(double seconds);
  CanCheck WaitWithShelf(double seconds, std::size_t place);
  bool CanPhotocellObscured(std::size_t place);
  CanCheck MoveAndWait();
  void TellCanMissing(CanCheck check);
  bool MayTestValves(int circuits);
  void AwaitValveTestEnd();

  CommWindow& window_;
  ElementSender& sender_;
  bool raisedForCan_ = false;  // the shelf was set off for the can that is waited for
  Way up_{CommandId::ShelfUp};
  Way down_{CommandId::ShelfDown};
};

}  // namespace tintbench::commands
