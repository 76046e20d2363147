// The exchange of counts with the machine: reading, sending and resetting one element or all of
// them. It knows no control: it sends by a `StatLine` and reports to a `StatView`.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "base/Files.h"
#include "link/CommandId.h"
#include "link/LinkStatus.h"
#include "stats/DataFile.h"
#include "stats/StatCatalogue.h"

namespace tintbench::stats {

// The way to the machine.
class StatLine {
 public:
  virtual ~StatLine() = default;
  // Sends a row with an argument and gives the answer in upper case, empty if there is none.
  // `answerLength` takes the place of the row's own. Tells the operator if the port isn't open.
  virtual std::string Send(link::CommandId row, const std::string& argument,
                           std::optional<int> answerLength = std::nullopt) = 0;
  virtual bool IsOpen() const = 0;
};

// Where the exchange tells and asks what it must.
class StatView {
 public:
  virtual ~StatView() = default;
  virtual bool Confirm(const std::string& title, const std::string& question) = 0;
  virtual void Tell(const std::string& title, const std::string& text, bool good) = 0;

  // One element: the buttons go while the machine is asked, and a panel says so.
  virtual void ShowButtons(bool visible) = 0;
  virtual void ShowWait(bool visible) = 0;

  // Many elements: the counters start at 0, one item after the other is begun and counted. `remark`
  // says what went wrong, or was strange in a good answer.
  virtual void BeginItems() = 0;
  virtual void ShowItem(int number, int tab, const std::string& element) = 0;
  virtual void CountItem(const std::string& item, bool good, const std::string& remark) = 0;
  virtual void EndItems(const std::string& outcome) = 0;
  virtual void ServeEvents() = 0;
};

// What the exchange works with. All of it must outlive it.
struct StatParts {
  const StatCatalogue& Catalogue;
  base::FileSystem& Files;
  const base::Clock& Clock;
  const link::LinkStatus& Status;
  StatLine& Line;
  StatView& View;
};

inline constexpr const char* kReceiveTitle = "RECEIVE STATISTICAL DATA";
inline constexpr const char* kSendTitle = "SEND STATISTICAL DATA";
inline constexpr const char* kResetTitle = "RESET STATISTICAL DATA";
inline constexpr const char* kNotInFlash = "Data not stored in flash memory !!";
inline constexpr const char* kNotOnFile = "Data not stored on file !!";

// "WARNING !!", the lines, and whether to continue.
std::string WarningText(std::initializer_list<std::string_view> lines);

// True if the answer was accepted.
bool IsAccepted(std::string_view answer);

// The letter of a tab's type and the element as two digits, if it has a name.
std::string StatArgument(int tab, std::string_view element);

// The text with "?" for each character that would make another line or field of it in a file.
std::string FileCharacters(std::string text);

// What stands in a file behind the key of an element whose reading was answered so: two values of
// ten characters, zeros where the answer is too short, and the stamp.
std::string ValuesOf(std::string_view answer, bool hasElement, std::string_view stamp);

// The firmware reads a whole type at once.
bool ReadsFast(const link::LinkStatus& status);

// The row that reads or writes the elements of a tab, or with `wholeType` reads all of them;
// nothing if the catalogue doesn't tell.
std::optional<link::CommandId> ReadRowOfTab(const StatCatalogue& catalogue, int tab,
                                            bool wholeType);
std::optional<link::CommandId> WriteRowOfTab(const StatCatalogue& catalogue, int tab);

class StatExchange {
 public:
  explicit StatExchange(const StatParts& parts) : parts_(parts) {}

  // Reads one element into a file. `overwrites` says that there are data that would be replaced.
  // True if the machine told its data.
  bool Receive(int tab, const std::string& element, bool overwrites, const std::string& path);

  // Writes one element to the machine and has it stored. `values` are the data of the type, in
  // their order, as they are shown; nothing for one that the type lacks.
  using Values = std::array<std::optional<std::string>, 2>;
  void Send(int tab, const std::string& element, const Values& values);

 private:
  std::string Ask(link::CommandId row, const std::string& argument);
  void TellCorruption(const char* title);

  StatParts parts_;
};

}  // namespace tintbench::stats
