// The control model: which changes raise which events, and how often.
#include "ui/Controls.h"

#include <gtest/gtest.h>

#include <functional>

#include "ui/Form.h"
#include "ui/Picture.h"

namespace tintbench::ui {
namespace {

struct ModelForm : Form {
  ModelForm() : Form("Model") {}
  Frame FrmOne{*this, "FrmOne"};
  OptionButton OptA{FrmOne, "OptA"};
  OptionButton OptB{FrmOne, "OptB"};
  OptionButton OptOther{*this, "OptOther"};
  CheckBox Chk{*this, "Chk"};
  ListBox Lst{*this, "Lst"};
  TabStrip Tabs{*this, "Tabs"};
  TextBox Txt{*this, "Txt"};
  Button CmdOk{*this, "CmdOk"};
  Button CmdEnd{*this, "CmdEnd"};
  PictureBox Pict{*this, "Pict"};
};

struct Counting final : Observer {
  void PropertyChanged(const PropertyBase& property) override {
    Names += std::string(property.Name()) + " ";
  }
  void OwnerGone() override { Gone = true; }
  std::string Names;
  bool Gone = false;
};

TEST(Controls, RaiseAnEventOnlyWhenTheValueChanges) {
  ModelForm form;
  int clicks = 0;
  const auto count = [&] { ++clicks; };
  form.Chk.Click = count;
  form.Lst.Click = count;
  form.Tabs.Click = count;
  form.Txt.Change = count;
  form.OptA.Click = count;
  form.Lst.AddItem("a");
  form.Tabs.AddTab({"a", "", ""});
  const std::vector<std::function<void()>> changes{
      [&] { form.Chk.Value = kGrayed; }, [&] { form.Lst.ListIndex = 0; },
      [&] { form.Tabs.TabIndex = 0; },   [&] { form.Txt.Text = "x"; },
      [&] { form.OptA.Value = true; },
  };
  for (std::size_t i = 0; i < changes.size(); ++i) {
    SCOPED_TRACE(i);
    clicks = 0;
    changes[i]();
    EXPECT_EQ(clicks, 1);
    changes[i]();
    EXPECT_EQ(clicks, 1);
  }
}

TEST(Controls, ChooseOneOptionButtonOfEachHolder) {
  ModelForm form;
  form.OptOther.Value = true;
  form.OptA.Value = true;
  form.OptB.Value = true;
  EXPECT_FALSE(form.OptA.Value);
  EXPECT_TRUE(form.OptB.Value);
  EXPECT_TRUE(form.OptOther.Value);
}

TEST(Controls, KeepTheSelectedRowWhenOneAboveItGoes) {
  ModelForm form;
  for (const char* text : {"a", "b", "c"}) form.Lst.AddItem(text);
  form.Lst.ListIndex = 2;
  int clicks = 0;
  form.Lst.Click = [&] { ++clicks; };
  form.Lst.RemoveItem(0);
  EXPECT_EQ(form.Lst.SelectedText(), "c");
  form.Lst.RemoveItem(1);
  EXPECT_EQ(form.Lst.ListIndex, -1);
  form.Lst.RemoveItem(7);
  EXPECT_EQ(form.Lst.ListCount(), 1);
  EXPECT_EQ(clicks, 0);
}

TEST(Controls, AreShownAndUsableOnlyWithAllThatHoldsThem) {
  ModelForm form;
  form.FrmOne.Visible = false;
  EXPECT_FALSE(form.OptA.IsShown());
  form.FrmOne.Visible = true;
  form.FrmOne.Enabled = false;
  EXPECT_TRUE(form.OptA.IsShown());
  EXPECT_FALSE(form.OptA.IsUsable());
}

TEST(Controls, OfAnArrayComeAndGo) {
  ModelForm form;
  ControlArray<Label> labels(form, "Lbl", 2);
  std::string prepared;
  labels.Prepare([&](Label&, int index) { prepared += std::to_string(index); });
  labels.Load(5).Caption = "five";
  EXPECT_EQ(prepared, "015");
  EXPECT_EQ(form.Find<Label>("lbl", 5)->Caption.Get(), "five");
  EXPECT_EQ(form.Find("Lbl"), nullptr);
  EXPECT_EQ(form.Find<Button>("Lbl", 5), nullptr);
  Counting observer;
  labels(5).AddObserver(observer);
  labels.Unload(5);
  EXPECT_TRUE(observer.Gone);
  EXPECT_EQ(form.Find("Lbl", 5), nullptr);
}

TEST(Keys, GoToTheWindowThenTheFocusThenTheStandIns) {
  ModelForm form;
  std::string order;
  form.CmdOk.Default = true;
  form.CmdEnd.Cancel = true;
  form.CmdOk.Click = [&] { order += "ok "; };
  form.CmdEnd.Click = [&] { order += "end "; };
  form.Txt.KeyDown = [&](KeyEvent& event) {
    order += "box ";
    if (event.Code == kKeyEnter) event.Code = 0;
  };
  EXPECT_TRUE(form.PressKey(kKeyEnter, 0));
  form.Txt.SetFocus();
  EXPECT_TRUE(form.PressKey(kKeyEnter, 0));
  EXPECT_TRUE(form.PressKey(kKeyEsc, 0));
  EXPECT_FALSE(form.PressKey('G', kCtrl));
  form.CmdEnd.Enabled = false;
  EXPECT_FALSE(form.PressKey(kKeyEsc, 0));
  EXPECT_EQ(order, "ok box box end box box ");
}

TEST(Pictures, KeepOnlyTheBoxesThatShow) {
  ModelForm form;
  for (int value = 0; value < 1000; ++value) {
    const double y = value % 90;
    form.Pict.DrawFilledBox(0, y, 50, 100, Colour{0xFF});
    form.Pict.DrawFilledBox(0, 0, 50, y, Colour{0});
  }
  EXPECT_LT(form.Pict.Drawn->size(), 200U);
  form.Pict.DrawFilledBox(50, 100, 0, 0, Colour{1});
  EXPECT_EQ(form.Pict.Drawn->size(), 1U);
}

}  // namespace
}  // namespace tintbench::ui
