// A window with one control of every kind, for the tests of the desktop.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "qt/Binder.h"
#include "qt/QtText.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Picture.h"

namespace tintbench::desktop {

struct EveryKind : ui::Form {
  EveryKind() : ui::Form("EveryKind") {
    Caption = "Every kind";
    Page.MultiLine = true;
    Marks.CheckMarks = true;
    for (const char* row : {"one", "two", "three"}) {
      Rows.AddItem(row);
      Marks.AddItem(row);
      Combo.AddItem(row);
      Tabs.AddTab({row, {}, {}});
    }
  }

  ui::Label Words{*this, "Words"};
  ui::TextBox Field{*this, "Field"};
  ui::TextBox Page{*this, "Page"};
  ui::RichTextBox Rich{*this, "Rich"};
  ui::Button Push{*this, "Push"};
  ui::CheckBox Tick{*this, "Tick"};
  ui::Frame Group{*this, "Group"};
  ui::ControlArray<ui::OptionButton> Choice{Group, "Choice", 2};
  ui::ListBox Rows{*this, "Rows"};
  ui::ListBox Marks{*this, "Marks"};
  ui::ComboBox Combo{*this, "Combo"};
  ui::TabStrip Tabs{*this, "Tabs"};
  ui::ProgressBar Bar{*this, "Bar"};
  ui::PictureBox Picture{*this, "Picture"};
  ui::Line Stroke{Picture, "Stroke"};
  ui::Shape Lamp{*this, "Lamp"};
  ui::Image Pen{*this, "Pen"};
  ui::StatusBar Foot{*this, "Foot"};
  ui::Timer Ticker{*this, "Ticker"};
  ui::Menu MnuFile{*this, "MnuFile", "&File"};
  ui::ControlArray<ui::Menu> Item{MnuFile, "Item", 1};
  ui::Menu MnuAct{*this, "MnuAct", "&Act"};

  // What the window itself was told.
  std::vector<std::string> Told;
  bool Stays = false;

  void Form_Click() override { Told.push_back("click"); }
  void Form_KeyDown(ui::KeyEvent& event) override {
    Told.push_back("key " + std::to_string(event.Code) + "+" + std::to_string(event.Shift));
    if (event.Code == ui::kKeyF1) event.Code = 0;
  }
  void Form_Resize() override { Told.push_back("state " + WindowState.Text()); }
  void Form_QueryUnload(bool& cancel) override {
    Told.push_back("unload");
    cancel = Stays;
  }
};

// The widget of that kind that stands for a control, by the name that it must have.
template <typename Widget>
Widget* WidgetOf(const QWidget& holder, const ui::Control& control) {
  return dynamic_cast<Widget*>(holder.findChild<QWidget*>(ToQt(control.FullName())));
}

}  // namespace tintbench::desktop
