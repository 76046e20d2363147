// The binders of lists, combo boxes and tab strips.
#include <QComboBox>
#include <QTabBar>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/QtText.h"
#include "qt/RowList.h"
#include "qt/RowModel.h"

namespace tintbench::desktop {

Binding& Bind(ui::ListBox& control, RowList& widget) {
  auto* const binding = new Binding(control, widget);
  binding->WatchMouseOn(*widget.viewport());
  auto* const rows = new RowModel(control, &control, *binding);
  widget.setModel(rows);
  binding->Follow({&control.Rows, &control.CheckMarks}, [rows] { rows->RowsChanged(); });
  binding->Follow({&control.ListIndex, &control.Rows}, [&] { widget.ShowRow(control.ListIndex); });
  widget.RowPressed = [&, binding](int row) { binding->Hand([&] { control.PressRow(row); }); };
  return *binding;
}

void Bind(ui::ComboBox& control, QComboBox& widget) {
  auto* const binding = new Binding(control, widget);
  auto* const rows = new RowModel(control, nullptr, *binding);
  widget.setModel(rows);
  binding->Follow({&control.Rows}, [rows] { rows->RowsChanged(); });
  // A combo box chooses its first row by itself when rows come.
  binding->Follow({&control.ListIndex, &control.Rows},
                  [&] { widget.setCurrentIndex(control.ListIndex); });
  QObject::connect(&widget, &QComboBox::activated, binding,
                   [&, binding](int row) { binding->Hand([&] { control.PressRow(row); }); });
}

namespace {

// A tab's caption is no place for a mnemonic.
QString TabText(const ui::TabPage& page) {
  return ToQt(page.Caption).replace(QLatin1Char('&'), QLatin1String("&&"));
}

void ShowTabs(const ui::TabPages& pages, QTabBar& widget) {
  const int count = static_cast<int>(pages.size());
  while (widget.count() > count) widget.removeTab(widget.count() - 1);
  while (widget.count() < count) widget.addTab(QString());
  for (int index = 0; index < count; ++index) {
    const QString text = TabText(pages[static_cast<std::size_t>(index)]);
    if (widget.tabText(index) != text) widget.setTabText(index, text);
  }
}

}  // namespace

void Bind(ui::TabStrip& control, QTabBar& widget) {
  auto* const binding = new Binding(control, widget);
  binding->StopOtherButtons();
  widget.setExpanding(false);
  widget.setUsesScrollButtons(true);
  widget.setElideMode(Qt::ElideNone);
  binding->Follow({&control.Tabs}, [&] { ShowTabs(control.Tabs, widget); });
  binding->Follow({&control.TabIndex, &control.Tabs},
                  [&] { widget.setCurrentIndex(control.TabIndex); });
  const auto press = [&, binding](int index) { binding->Hand([&] { control.PressTab(index); }); };
  QObject::connect(&widget, &QTabBar::currentChanged, binding, press);
  // The tab that is in front can be pressed again.
  QObject::connect(&widget, &QTabBar::tabBarClicked, binding, [&, press](int index) {
    if (index == widget.currentIndex()) press(index);
  });
}

}  // namespace tintbench::desktop
