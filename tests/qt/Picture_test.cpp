// What a picture box paints, told by single pixels of it.
#include <gtest/gtest.h>

#include <QImage>

#include "qt/Binder.h"
#include "qt/PictureWidget.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Picture.h"

namespace tintbench::desktop {

namespace {

constexpr ui::Colour kRed{0x0000FF};
constexpr ui::Colour kGreen{0x008000};
constexpr ui::Colour kBlue{0xFF0000};

struct Canvas : ui::Form {
  Canvas() : ui::Form("Canvas") {
    Picture.ScaleWidth = 100;
    Picture.ScaleHeight = 100;
    Picture.FillSolid = true;
  }
  ui::PictureBox Picture{*this, "Picture"};
  ui::ControlArray<ui::Line> Lines{Picture, "Lines", 2};
  ui::Shape Shape{Picture, "Shape"};
};

class Painted : public testing::Test {
 protected:
  Painted() {
    for (const int index : {0, 1}) form.Lines(index).Visible = false;
    form.Shape.Visible = false;
    Bind(form.Picture, widget);
    widget.resize(200, 200);
  }
  // The colour at a place in the picture's units.
  QColor At(double x, double y) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(static_cast<int>(x * image.width() / 100),
                            static_cast<int>(y * image.height() / 100));
  }
  void Fill(ui::Colour colour) {
    form.Picture.ForeColor = colour;
    form.Picture.FillColor = colour;
  }
  QColor Ground() { return widget.palette().color(QPalette::Window); }

  Canvas form;
  PictureWidget widget;
};

TEST_F(Painted, LaterDrawingsCoverEarlierOnes) {
  form.Picture.DrawFilledBox(0, 0, 50, 100, kRed);
  form.Picture.DrawFilledBox(25, 0, 75, 100, kBlue);
  Fill(kGreen);
  form.Picture.DrawCircle(50, 50, 10);
  EXPECT_EQ(At(10, 50), QColor(255, 0, 0));
  EXPECT_EQ(At(30, 50), QColor(0, 0, 255));
  EXPECT_EQ(At(50, 50), QColor(0, 128, 0));
  EXPECT_EQ(At(90, 50), Ground());
  form.Picture.Cls();
  EXPECT_EQ(At(10, 50), Ground());
}

TEST_F(Painted, AnglesRunCounterClockwiseFromTheRight) {
  Fill(kRed);
  form.Picture.DrawPie(50, 50, 40, 0, 90, true);
  Fill(kBlue);
  form.Picture.DrawPie(50, 50, 40, 315, 350, true);
  EXPECT_EQ(At(65, 35), QColor(255, 0, 0));
  EXPECT_EQ(At(80, 60), QColor(0, 0, 255));
  EXPECT_EQ(At(35, 35), Ground());
  EXPECT_EQ(At(35, 65), Ground());
  form.Picture.Cls();
  Fill(kGreen);
  form.Picture.DrawPie(50, 50, 40, 315, 225, true);  // over the top, past the right
  EXPECT_EQ(At(50, 20), QColor(0, 128, 0));
  EXPECT_EQ(At(20, 50), QColor(0, 128, 0));
  EXPECT_EQ(At(50, 80), Ground());
}

TEST_F(Painted, ChildrenStandOnTheDrawingsThoseInTheBackLowest) {
  form.Picture.DrawFilledBox(0, 0, 100, 100, kRed);
  ui::Line& front = form.Lines(0);
  front.X2 = 100;
  front.Y1 = front.Y2 = 50;
  front.BorderColor = kGreen;
  front.BorderWidth = 10;
  ui::Line& back = form.Lines(1);
  back.X1 = back.X2 = 50;
  back.Y2 = 100;
  back.BorderColor = kBlue;
  back.BorderWidth = 10;
  back.InBack = true;
  EXPECT_EQ(At(20, 50), QColor(255, 0, 0)) << "hidden lines aren't painted";
  front.Visible = true;
  back.Visible = true;
  EXPECT_EQ(At(50, 20), QColor(0, 0, 255));
  EXPECT_EQ(At(50, 50), QColor(0, 128, 0));
  form.Lines.Unload(0);
  EXPECT_EQ(At(50, 50), QColor(0, 0, 255));
}

TEST_F(Painted, ShapesFillTheirPlace) {
  form.Shape.Left = 20;
  form.Shape.Top = 20;
  form.Shape.Width = 40;
  form.Shape.Height = 40;
  form.Shape.FillColor = kBlue;
  form.Shape.Visible = true;
  EXPECT_EQ(At(24, 24), QColor(0, 0, 255));
  form.Shape.Form = ui::kCircle;
  EXPECT_EQ(At(24, 24), Ground());
  EXPECT_EQ(At(40, 40), QColor(0, 0, 255));
}

TEST_F(Painted, KeepsCirclesRoundIfAsked) {
  widget.resize(400, 200);
  Fill(kRed);
  form.Picture.DrawCircle(50, 50, 49);
  EXPECT_EQ(At(10, 50), QColor(255, 0, 0));
  widget.KeepShape(true);
  EXPECT_EQ(At(10, 50), Ground());
  EXPECT_EQ(At(50, 50), QColor(255, 0, 0));
}

}  // namespace

}  // namespace tintbench::desktop
