// The menu bar of a window, made from the window's menu controls: titles, items, items that open
// further items, and titles that act by themselves. Items may come and go while the window lives.
#pragma once

#include <QMenu>
#include <QMenuBar>
#include <map>
#include <memory>
#include <vector>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::desktop {

class MenuBinder final : public QObject {
 public:
  // Fills `bar`, which owns the binder, with the menus of `form`.
  MenuBinder(ui::Form& form, QMenuBar& bar);
  ~MenuBinder() override;
  MenuBinder(const MenuBinder&) = delete;
  MenuBinder& operator=(const MenuBinder&) = delete;

  // True if the window has any menu.
  static bool HasMenus(const ui::Form& form);

 private:
  class Entry;
  using Entries = std::vector<Entry*>;

  void Sync();
  void SyncItems(const ui::Container& holder, QWidget& place);
  Entry& EntryOf(ui::Menu& menu);

  QMenuBar& bar_;
  ui::Form& form_;
  std::map<const ui::Menu*, std::unique_ptr<Entry>> entries_;
};

}  // namespace tintbench::desktop
