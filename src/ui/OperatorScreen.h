// The screen without windows: an operator's script presses the buttons, answers the boxes and
// reads the captions, and a transcript tells what happened.
#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "ui/OperatorScript.h"
#include "ui/Screen.h"

namespace tintbench::ui {

class OperatorScreen final : public Screen {
 public:
  // What a script's run came to; the values are the program's exit status.
  enum class Outcome { Good = 0, ExpectationFailed = 1, ScriptWrong = 2 };

  // Tells the simulated machine some words; gives back what is wrong with them, or nothing.
  using MachineTeller = std::function<std::string(const std::string& words)>;

  // The transcript goes to `transcript`, failures that end the script also to `diagnostics`.
  // Without a `machine` the step of that name is an error.
  OperatorScreen(base::Clock& clock, OperatorScript script, std::ostream& transcript,
                 std::ostream& diagnostics, MachineTeller machine = {});
  ~OperatorScreen() override;

  Answer Ask(const Box& box) override;
  std::optional<std::string> Ask(const Question& question) override;
  std::optional<std::string> Ask(const FileRequest& request) override;

  // Only what the hand does next can wait: the eyes come when the hand has rested.
  bool OperatorMayWait() const override;

  // Called some times a second while the script waits: whoever drives the line can notice there
  // that it is lost, though nobody reads it, and the system can tell the program to end.
  std::function<void()> Meanwhile;

  // One unit a character.
  double TextWidth(const Form& form, std::string_view text) const override;

  // To be called when the program has ended: steps that are left then are an error.
  Outcome Finish();

 protected:
  bool ServeOperator() override;
  bool ServeBacklog() override;
  void AwaitOperator(double when) override;
  void Appeared(Form& form, bool modal) override;
  void Vanished(Form& form) override;
  void PressClose(Form& form) override;

 private:
  class Watcher;
  using Handler = void (OperatorScreen::*)(const Step&);

  // The control that a step names, ready to be pressed.
  struct Pressed {
    Form* Window = nullptr;
    Control* Target = nullptr;  // nullptr if the window itself is named
  };

  const Step* NextStep() const;
  bool MayDeliver(const Step& step) const;
  bool WaitIsOver();
  bool RestIsOver() const;
  bool AnswerIsOverdue(const Step& step);
  void Deliver(const Step& step);
  void TellMachine(const Step& step);
  void TellWaitingMachineWords();
  double NextLook() const;

  const Step* TakeReply(StepKind kind, const std::string& told);
  void CheckReply(const Step& step, const std::string& text);
  bool ReadPath(const Path& path, std::string& text) const;
  bool Resolve(const Step& step, Pressed& pressed);
  bool ResolveControl(const Step& step, Control*& control);
  bool CheckPressable(const Step& step, const Pressed& pressed);

  void DoClick(const Step& step);
  void DoDblClick(const Step& step);
  void DoRightPress(const Step& step);
  void DoPress(const Step& step);
  void DoType(const Step& step);
  void DoPick(const Step& step);
  void DoTick(const Step& step);
  void TickRow(const Step& step, Control& control, bool wanted);
  void DoClose(const Step& step);
  void DoWait(const Step& step);
  void DoUntil(const Step& step);
  void DoExpect(const Step& step);
  void DoPrint(const Step& step);
  void DoWatch(const Step& step);
  void ClickMenu(const Step& step, Menu& menu);

  std::string Where(const Step& step) const;
  void ShowBox(std::string_view title, std::string_view icon, std::string_view text);
  void ExpectationFails(const Step& step, const std::string& what);
  void ScriptFails(const Step* step, const std::string& what);

  OperatorScript script_;
  std::ostream& transcript_;
  std::ostream& diagnostics_;
  MachineTeller machine_;
  std::size_t next_ = 0;
  const Step* waiting_ = nullptr;  // a `wait` or `until` under way
  double waitEnd_ = 0;
  const Step* awaited_ = nullptr;  // the answer whose box has not come yet
  double awaitedSince_ = 0;
  int closeTries_ = 0;
  bool ended_ = false;
  Outcome outcome_ = Outcome::Good;
  std::vector<Menu*> openMenus_;  // from the title down
  std::vector<std::unique_ptr<Watcher>> watchers_;
};

}  // namespace tintbench::ui
