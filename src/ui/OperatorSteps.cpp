// The steps of a script that reach for a window or one of its controls.
#include <algorithm>

#include "base/Text.h"
#include "ui/OperatorScreen.h"

namespace tintbench::ui {

// Writes every change of one property to the transcript.
class OperatorScreen::Watcher final : public Observer {
 public:
  Watcher(OperatorScreen& screen, Path path, PropertyOwner& owner)
      : screen_(screen), path_(std::move(path)), owner_(&owner) {
    owner_->AddObserver(*this);
    screen_.ReadPath(path_, last_);
  }
  ~Watcher() override {
    if (owner_ != nullptr) owner_->RemoveObserver(*this);
  }
  Watcher(const Watcher&) = delete;
  Watcher& operator=(const Watcher&) = delete;

  void PropertyChanged(const PropertyBase&) override {
    std::string text;
    if (!screen_.ReadPath(path_, text) || text == last_) return;
    last_ = text;
    screen_.transcript_ << "[watch] " << path_.Text << " is " << Quoted(text) << '\n' << std::flush;
  }
  void OwnerGone() override { owner_ = nullptr; }

 private:
  OperatorScreen& screen_;
  Path path_;
  PropertyOwner* owner_;
  std::string last_;
};

// Here, where the watchers are known.
OperatorScreen::OperatorScreen(base::Clock& clock, OperatorScript script, std::ostream& transcript,
                               std::ostream& diagnostics, MachineTeller machine)
    : Screen(clock),
      script_(std::move(script)),
      transcript_(transcript),
      diagnostics_(diagnostics),
      machine_(std::move(machine)) {}

OperatorScreen::~OperatorScreen() = default;

bool OperatorScreen::ReadPath(const Path& path, std::string& text) const {
  const Form* form = FindForm(path.Names[0].Name);
  if (form == nullptr) return false;
  const PathName& last = path.Names.back();
  if (path.Names.size() == 2) return form->ReadProperty(last.Name, last.Index, text);
  const Control* control = form->Find(path.Names[1].Name, path.Names[1].Index);
  return control != nullptr && control->ReadProperty(last.Name, last.Index, text);
}

bool OperatorScreen::Resolve(const Step& step, Pressed& pressed) {
  const std::vector<PathName>& names = step.Target.Names;
  pressed.Window = FindForm(names[0].Name);
  if (pressed.Window == nullptr) {
    ScriptFails(&step, "there is no window " + names[0].Name);
    return false;
  }
  if (names.size() == 1) return CheckPressable(step, pressed);
  pressed.Target = pressed.Window->Find(names[1].Name, names[1].Index);
  if (pressed.Target == nullptr) {
    ScriptFails(&step, "there is no control " + step.Target.Text);
    return false;
  }
  return CheckPressable(step, pressed);
}

bool OperatorScreen::CheckPressable(const Step& step, const Pressed& pressed) {
  if (pressed.Window != Front()) {
    ScriptFails(&step, pressed.Window->Name() + " is not the front window");
    return false;
  }
  if (!pressed.Window->Enabled) {
    ScriptFails(&step, pressed.Window->Name() + " is disabled");
    return false;
  }
  if (pressed.Target == nullptr) return true;
  if (!pressed.Target->IsShown()) {
    ScriptFails(&step, step.Target.Text + " can't be seen");
    return false;
  }
  if (!pressed.Target->IsUsable()) {
    ScriptFails(&step, step.Target.Text + " is disabled");
    return false;
  }
  return true;
}

bool OperatorScreen::ResolveControl(const Step& step, Control*& control) {
  Pressed pressed;
  if (!Resolve(step, pressed)) return false;
  control = pressed.Target;
  openMenus_.clear();
  if (control->TakesFocus()) control->SetFocus();
  return true;
}

void OperatorScreen::DoClick(const Step& step) {
  Pressed pressed;
  if (!Resolve(step, pressed)) return;
  if (auto* menu = dynamic_cast<Menu*>(pressed.Target)) {
    ClickMenu(step, *menu);
    return;
  }
  openMenus_.clear();
  if (pressed.Target == nullptr) {
    pressed.Window->Form_Click();
    return;
  }
  if (pressed.Target->TakesFocus()) pressed.Target->SetFocus();
  pressed.Target->Press();
}

void OperatorScreen::ClickMenu(const Step& step, Menu& menu) {
  // An item can be reached only through the menu that holds it.
  const auto* holder = dynamic_cast<const Menu*>(menu.Parent().AsControl());
  const auto open = std::find(openMenus_.begin(), openMenus_.end(), holder);
  if (holder != nullptr && open == openMenus_.end()) {
    ScriptFails(&step, step.Target.Text + " can't be seen: " + holder->Name() + " is not open");
    return;
  }
  openMenus_.erase(holder == nullptr ? openMenus_.begin() : open + 1, openMenus_.end());
  if (menu.HasItems()) {
    openMenus_.push_back(&menu);
  } else {
    openMenus_.clear();
  }
  menu.Press();
}

void OperatorScreen::DoDblClick(const Step& step) {
  Control* control = nullptr;
  if (ResolveControl(step, control)) control->DoublePress();
}

void OperatorScreen::DoRightPress(const Step& step) {
  Control* control = nullptr;
  if (ResolveControl(step, control)) control->PressButton({.Button = kRightButton});
}

void OperatorScreen::DoPress(const Step& step) {
  Form* form = Front();
  if (form == nullptr) {
    ScriptFails(&step, "no window is open");
    return;
  }
  openMenus_.clear();
  form->PressKey(step.Key.Code, step.Key.Shift);
}

void OperatorScreen::DoType(const Step& step) {
  Control* control = nullptr;
  if (!ResolveControl(step, control)) return;
  auto* box = dynamic_cast<TextBox*>(control);
  if (box == nullptr || box->Locked) {
    ScriptFails(&step, step.Target.Text + " can't be typed into");
    return;
  }
  const bool tooLong =
      box->MaxLength > 0 && step.Text.size() > static_cast<std::size_t>(box->MaxLength.Get());
  box->Text =
      tooLong ? step.Text.substr(0, static_cast<std::size_t>(box->MaxLength.Get())) : step.Text;
}

void OperatorScreen::DoPick(const Step& step) {
  Control* control = nullptr;
  if (!ResolveControl(step, control)) return;
  auto* rows = dynamic_cast<RowControl*>(control);
  auto* tabs = dynamic_cast<TabStrip*>(control);
  if (rows == nullptr && tabs == nullptr) {
    ScriptFails(&step, step.Target.Text + " has no rows");
    return;
  }
  const int count = rows != nullptr ? rows->ListCount() : tabs->TabCount();
  int row = step.Row;
  for (int i = 0; row < 0 && i < count; ++i) {
    if ((rows != nullptr ? rows->List(i) : tabs->Tab(i).Caption) == step.Text) row = i;
  }
  if (row < 0 || row >= count) {
    ScriptFails(&step, step.Target.Text + " has no such row");
    return;
  }
  if (rows != nullptr) {
    rows->PressRow(row);
  } else {
    tabs->PressTab(row);
  }
}

void OperatorScreen::DoTick(const Step& step) {
  Control* control = nullptr;
  if (!ResolveControl(step, control)) return;
  const bool wanted = step.Kind == StepKind::Tick;
  if (step.Target.Names.size() > 2) {
    TickRow(step, *control, wanted);
    return;
  }
  if (auto* box = dynamic_cast<CheckBox*>(control)) {
    if ((box->Value == kChecked) != wanted) box->Value = wanted ? kChecked : kUnchecked;
    return;
  }
  if (auto* option = dynamic_cast<OptionButton*>(control); option != nullptr && wanted) {
    option->Press();
    return;
  }
  ScriptFails(&step, step.Target.Text + " can't be " + (wanted ? "ticked" : "unticked"));
}

// A row of a list with check marks, named as the script reads it.
void OperatorScreen::TickRow(const Step& step, Control& control, bool wanted) {
  auto* list = dynamic_cast<ListBox*>(&control);
  const PathName& row = step.Target.Names.back();
  const bool named = base::EqualFolded(row.Name, "List");
  if (list == nullptr || !list->CheckMarks || !named || row.Index < 0 ||
      row.Index >= list->ListCount()) {
    ScriptFails(&step, step.Target.Text + " is no row with a check mark");
    return;
  }
  list->Select(row.Index, wanted);
}

void OperatorScreen::DoClose(const Step& step) {
  Pressed pressed;
  if (!Resolve(step, pressed)) return;
  openMenus_.clear();
  CloseByOperator(*pressed.Window);
}

void OperatorScreen::DoWait(const Step& step) {
  waiting_ = &step;
  waitEnd_ = Time().Now() + step.Seconds;
}

void OperatorScreen::DoUntil(const Step& step) {
  DoWait(step);
  WaitIsOver();
}

void OperatorScreen::DoExpect(const Step& step) {
  std::string found;
  if (!ReadPath(step.Target, found)) {
    ScriptFails(&step, "there is no " + step.Target.Text);
    return;
  }
  if (Relates(found, step.Compare, step.Wanted)) return;
  ExpectationFails(step, "wanted " + std::string(RelationWord(step.Compare)) + " " +
                             Quoted(step.Wanted) + ", found " + Quoted(found));
}

void OperatorScreen::DoPrint(const Step& step) {
  std::string found;
  if (!ReadPath(step.Target, found)) {
    ScriptFails(&step, "there is no " + step.Target.Text);
    return;
  }
  transcript_ << step.Target.Text << " is " << Quoted(found) << '\n' << std::flush;
}

void OperatorScreen::DoWatch(const Step& step) {
  std::string found;
  Form* form = FindForm(step.Target.Names[0].Name);
  PropertyOwner* owner = form;
  if (form != nullptr && step.Target.Names.size() > 2) {
    owner = form->Find(step.Target.Names[1].Name, step.Target.Names[1].Index);
  }
  if (owner == nullptr || !ReadPath(step.Target, found)) {
    ScriptFails(&step, "there is no " + step.Target.Text);
    return;
  }
  watchers_.push_back(std::make_unique<Watcher>(*this, step.Target, *owner));
}

}  // namespace tintbench::ui
