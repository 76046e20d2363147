#include "qt/MenuBinder.h"

#include <QAction>
#include <QPointer>
#include <QScopedValueRollback>
#include <algorithm>

#include "qt/ControlsWatch.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

constexpr const char* kSeparator = "-";

std::vector<ui::Menu*> MenusOf(const ui::Container& holder) {
  std::vector<ui::Menu*> menus;
  for (ui::Control* control : holder.Children()) {
    if (auto* menu = dynamic_cast<ui::Menu*>(control)) menus.push_back(menu);
  }
  return menus;
}

}  // namespace

// One menu control with its action, and with the menu that the action opens if it has items.
class MenuBinder::Entry final : public QObject, public ui::Observer {
 public:
  Entry(ui::Menu& menu, QMenuBar& bar);
  ~Entry() override;
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;

  bool Lives() const { return control_ != nullptr; }
  QAction& Action() { return action_; }
  // The menu of the items. Made and taken away as items come and go.
  QMenu* Items(bool wanted);

  void PropertyChanged(const ui::PropertyBase&) override { Show(); }
  void OwnerGone() override;

 private:
  void Show();
  void Press();

  ui::Menu* control_;
  QMenuBar& bar_;
  QAction action_;
  std::unique_ptr<QMenu> items_;
};

MenuBinder::Entry::Entry(ui::Menu& menu, QMenuBar& bar) : control_(&menu), bar_(bar) {
  menu.AddObserver(*this);
  action_.setObjectName(ToQt(menu.FullName()));
  action_.setMenuRole(QAction::NoRole);
  connect(&action_, &QAction::triggered, this, [this] { Press(); });
  Show();
}

MenuBinder::Entry::~Entry() {
  if (control_ != nullptr) control_->RemoveObserver(*this);
}

void MenuBinder::Entry::OwnerGone() {
  control_ = nullptr;
  action_.setVisible(false);
}

void MenuBinder::Entry::Show() {
  const std::string& key = control_->KeyName;
  action_.setText(ToQt(control_->Caption.Get() + (key.empty() ? "" : "\t" + key)));
  action_.setToolTip(ToQt(control_->ToolTipText.Get()));
  action_.setSeparator(control_->Caption.Get() == kSeparator);
  action_.setEnabled(control_->Enabled);
  action_.setVisible(control_->Visible);
  if (items_ != nullptr) items_->setAccessibleName(ToQtSpoken(control_->Caption.Get()));
  action_.setCheckable(control_->Checked);
  action_.setChecked(control_->Checked);
}

// The mark turns over by itself at a press; the control has the last word.
void MenuBinder::Entry::Press() {
  if (control_ == nullptr || !control_->IsUsable()) return;
  const QPointer<Entry> self(this);
  control_->Press();
  if (self != nullptr && control_ != nullptr) Show();
}

QMenu* MenuBinder::Entry::Items(bool wanted) {
  if (wanted && items_ == nullptr) {
    items_ = std::make_unique<QMenu>(&bar_);
    items_->setObjectName(action_.objectName());
    items_->setToolTipsVisible(true);
    action_.setMenu(items_.get());
    items_->setAccessibleName(ToQtSpoken(control_->Caption.Get()));
    connect(items_.get(), &QMenu::aboutToShow, this, [this] { Press(); });
  } else if (!wanted && items_ != nullptr) {
    action_.setMenu(static_cast<QMenu*>(nullptr));
    items_.release()->deleteLater();
  }
  return items_.get();
}

MenuBinder::MenuBinder(ui::Form& form, QMenuBar& bar) : QObject(&bar), bar_(bar), form_(form) {
  Sync();
  new ControlsWatch(
      form, [this] { Sync(); }, this);
}

MenuBinder::~MenuBinder() = default;

bool MenuBinder::HasMenus(const ui::Form& form) { return !MenusOf(form).empty(); }

void MenuBinder::Sync() {
  std::erase_if(entries_, [](const auto& entry) { return !entry.second->Lives(); });
  SyncItems(form_, bar_);
}

// Puts the actions of the holder's menus into a menu bar or menu, in the order of the controls.
void MenuBinder::SyncItems(const ui::Container& holder, QWidget& place) {
  QList<QAction*> wanted;
  for (ui::Menu* menu : MenusOf(holder)) {
    Entry& entry = EntryOf(*menu);
    wanted.push_back(&entry.Action());
    QMenu* items = entry.Items(menu->HasItems());
    if (items != nullptr) SyncItems(*menu, *items);
  }
  if (place.actions() == wanted) return;
  for (QAction* action : place.actions()) place.removeAction(action);
  place.addActions(wanted);
}

MenuBinder::Entry& MenuBinder::EntryOf(ui::Menu& menu) {
  std::unique_ptr<Entry>& entry = entries_[&menu];
  if (entry == nullptr || !entry->Lives()) entry = std::make_unique<Entry>(menu, bar_);
  return *entry;
}

}  // namespace tintbench::desktop
