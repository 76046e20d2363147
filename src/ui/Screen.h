// What the program's logic calls when it wants something shown, asked or waited for. The windows
// themselves are `Form`s; a screen shows them on a desktop, or plays an operator's script on them.
#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Clock.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::ui {

enum class BoxIcon { Plain, Stop, Question, Exclamation, Information };
enum class BoxButtons { Ok, OkCancel, YesNo };
enum class Answer { OK, Cancel, Yes, No };

// What Esc answers: the least harmful of the box's answers.
Answer WayOut(BoxButtons buttons);

// A message box. An empty title stands for the program's own.
struct Box {
  std::string Text;
  BoxIcon Icon = BoxIcon::Plain;
  BoxButtons Buttons = BoxButtons::Ok;
  std::string Title = {};
};

// A box that asks for a line of text.
struct Question {
  std::string Prompt;
  std::string Title = {};
  std::string Default = {};
};

// A file dialog. `Filter` alternates texts and patterns between "|".
struct FileRequest {
  std::string Title;
  std::string Filter;
  int FilterIndex = 1;  // from 1
  std::string Folder = {};
  std::string FileName = {};
  bool Saving = false;
  bool MayBeNew = false;  // a name that there isn't yet is welcome when a file is opened, too
};

class Screen {
 public:
  explicit Screen(base::Clock& clock) : clock_(clock) {}
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  // The title of boxes that name none.
  std::string Title;

  // Makes a window known, so that it can be found by name and shown. The window must outlive the
  // screen's use of it.
  virtual void Register(Form& form);
  // A known window by its name in any letter case; nullptr if there is none.
  Form* FindForm(std::string_view name) const;

  // Shows a message box and waits for its answer.
  virtual Answer Ask(const Box& box) = 0;
  // Asks for a text. Empty if the operator gave it up.
  virtual std::optional<std::string> Ask(const Question& question) = 0;
  // Asks for a file's path. Empty if the operator gave it up.
  virtual std::optional<std::string> Ask(const FileRequest& request) = 0;

  // Brings a window up without showing it; raises `Form_Load` once.
  void Load(Form& form);
  // Shows a window without waiting.
  void Show(Form& form);
  // Shows a window and serves events until it is closed or hidden.
  void ShowModal(Form& form);
  void Hide(Form& form);
  // Closes a window, if it lets itself be closed. True if it is closed then.
  bool Unload(Form& form);
  // The operator's close button. False if the window stays.
  bool CloseByOperator(Form& form) { return Unload(form); }

  // False if it is sure that the operator's hand doesn't wait to be served. Serves nothing; where
  // that can't be told without serving, it may wait.
  virtual bool OperatorMayWait() const { return false; }

  // Serves what is pending: due timers and the operator's hand.
  void DoEvents();
  // Serves to its end what the operator did while nobody served him. The hand of a script does
  // nothing unserved: its next step waits.
  void CatchUp();
  // Serves events. Returns as soon as one has been served, after `seconds` at the latest; once the
  // program must end, only then.
  void Idle(double seconds);
  // Serves events until no window is open.
  void Run();
  // The program is told to end: from here on, whenever events are served, the close button of the
  // front window is pressed, back to the main window. A window that stays is asked again. Boxes are
  // given up, as Esc does. May be called at any time while events are served.
  void CloseAll();
  bool IsClosingAll() const { return closingAll_; }
  // Makes `Run` and every modal wait return; used when the program must end at once.
  void Quit() { quitting_ = true; }
  bool IsQuitting() const { return quitting_; }

  // The drawn width of a text on that window, in units that only compare with one another.
  virtual double TextWidth(const Form& form, std::string_view text) const = 0;

  // The visible window that is in front; nullptr if there is none.
  Form* Front() const;
  base::Clock& Time() const { return clock_; }

 protected:
  static constexpr double kNever = std::numeric_limits<double>::infinity();

  // Serves the operator's pending hand. True if something was served.
  virtual bool ServeOperator() = 0;
  // Serves something that the operator did while nobody served him. False if there is nothing.
  virtual bool ServeBacklog() { return false; }
  // Waits for the operator until the clock reads `when`, which may be `kNever`, at the latest.
  virtual void AwaitOperator(double when) = 0;
  // A window has appeared, or goes.
  virtual void Appeared(Form& form, bool modal) = 0;
  virtual void Vanished(Form& form) = 0;
  // Gives up what box is open.
  virtual void GiveUpBox() {}
  // Presses the close button for `CloseAll`.
  virtual void PressClose(Form& form) { CloseByOperator(form); }

  const std::vector<Form*>& KnownForms() const { return known_; }
  // Windows that are loaded and visible, the front one last.
  const std::vector<Form*>& OpenForms() const { return open_; }

 private:
  bool Serve();
  bool FireTimers();
  bool CloseFront();
  double NextTimerDue() const;
  double NextWake() const;
  void Open(Form& form, bool modal);
  void TakeAway(Form& form);

  base::Clock& clock_;
  std::vector<Form*> known_;
  std::vector<Form*> open_;
  std::vector<const Form*> awaited_;  // by `ShowModal`, the innermost last
  double nextClose_ = 0;
  bool closingAll_ = false;
  bool quitting_ = false;
};

}  // namespace tintbench::ui
