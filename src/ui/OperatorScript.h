// The operator scripts: one step a line, read whole and checked before the first step is played.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/Screen.h"

namespace tintbench::ui {

enum class StepKind {
  // Of the hand, to `Close`.
  Click,
  DblClick,
  RightPress,
  Press,
  Type,
  Pick,
  Tick,
  Untick,
  Close,
  Answer,
  Input,
  File,
  Wait,
  Until,
  Expect,
  Print,
  Watch,
  Machine,
};

// One name of a dotted path: "TxtIO(2)" is {"TxtIO", 2}; without brackets the index is -1.
struct PathName {
  std::string Name;
  int Index = -1;
};

// "Form", "Form.Control(i)" or "Form.Control(i).Property(j)".
struct Path {
  std::string Text;
  std::vector<PathName> Names;
};

enum class Relation { None, Is, Has, IsNot };

struct Step {
  StepKind Kind = StepKind::Wait;
  int Line = 0;        // in the script, from 1
  std::string Source;  // the step as it stands there, trimmed
  Path Target;
  std::string Text;      // what to type, pick, enter, or tell the machine
  int Row = -1;          // row to pick; -1: by `Text`
  bool Refused = false;  // "input cancel", "file cancel"
  Answer Button = Answer::OK;
  Relation Compare = Relation::None;
  std::string Wanted;  // what `Compare` compares with
  double Seconds = 0;
  KeyEvent Key;
};

struct OperatorScript {
  std::string FileName;
  std::vector<Step> Steps;
};

// Reads a script. On a wrong step the result is false and `error` one line that names file and
// line. `fileName` is only told.
bool ParseOperatorScript(std::string_view text, const std::string& fileName, OperatorScript& script,
                         std::string& error);

// The text between double quotes, with `"`, `\` and line ends as a script writes them.
std::string Quoted(std::string_view text);

// CR LF, CR and LF made one and shown as "\n": a text of several lines in one.
std::string OnOneLine(std::string_view text);

// True if `found` relates to `wanted` as told. Line ends of all kinds count as the same.
bool Relates(std::string_view found, Relation relation, std::string_view wanted);

// "is", "has" or "isnot".
std::string_view RelationWord(Relation relation);

}  // namespace tintbench::ui
