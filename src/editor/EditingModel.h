// A configuration while it is edited: the data lines of its file as texts, by table and slave, so
// that an edit can't lose what this program doesn't understand. A removed element keeps its line
// and its place; it just isn't written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/Places.h"

namespace tintbench::editor {

// What stands between two elements where a table's lines are kept as one text: a value that holds
// it makes two lines of one.
inline constexpr char kLineMark = '|';

enum class ElementState : char { kInUse, kRemoved };

// Some items of a list, from position `At` (from 0), and what takes their place.
template <typename Item>
struct Splice {
  std::size_t At = 0;
  std::vector<Item> Old;
  std::vector<Item> New;
};

// One step of editing. It is whole: with old and new exchanged it leads back.
struct CellChange {
  ElementPlace Element;  // the one that the step is about
  Splice<std::string> Lines;
  Splice<ElementState> States;

  CellChange Inverse() const;
  // The first parameter that the step changes; 1 if it is about the whole element.
  ParameterPlace Where() const;
};

// `count` times the value, with "," between.
std::string CreateParms(int count, std::string_view value);

// The line of a new element: all parameters of the table, empty.
std::string EmptyParms(const TablePlace& at);

// The elements of a table are as many as their states. A line that holds a kLineMark is two lines,
// so that there may be more lines than elements: the last ones are kept, but belong to nobody.
class EditingModel {
 public:
  EditingModel();

  int ElementCount(const TablePlace& at) const;
  // The element's data line; empty if there is no such element.
  std::string_view ElementLine(const ElementPlace& at) const;
  bool IsRemoved(const ElementPlace& at) const;
  // One parameter as it stands in the line, with its quotes; empty if there is none.
  std::string Value(const ParameterPlace& at) const;

  // Adds an element in use, as a file's line gives it. Nothing is examined.
  void Append(const TablePlace& at, std::string_view data);

  // What each step of editing changes; Apply carries it out. Nothing, if the step has no effect.
  //
  // One more element, empty and in use, at the table's end.
  std::optional<CellChange> Adding(const TablePlace& at) const;
  // The element removed, or in use again.
  std::optional<CellChange> RemovingOrResuming(const ElementPlace& at) const;
  // The parameter with a new value, as it is to stand in the line. In a table without elements it
  // makes the first one. A value that finds no field in its line, or leaves none, is lost.
  std::optional<CellChange> Storing(const ParameterPlace& at, std::string_view value) const;
  // The element with another line.
  std::optional<CellChange> StoringLine(const ElementPlace& at, std::string_view line) const;

  void Apply(const CellChange& change);

 private:
  // `Lines` and `States` begin with the same elements.
  struct Cell {
    std::vector<std::string> Lines;
    std::vector<ElementState> States;
  };

  const Cell* Find(const TablePlace& at) const;
  const Cell* FindWithElement(const ElementPlace& at) const;
  Cell* Find(const TablePlace& at);

  std::vector<Cell> cells_;
};

}  // namespace tintbench::editor
