#include "qt/Look.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QProxyStyle>
#include <QStyleOption>
#include <algorithm>
#include <array>

#include "qt/Colours.h"
#include "qt/FocusRing.h"

namespace tintbench::desktop {

namespace {

// Roomier than the toolkit's own, with the buttons of boxes in one order on every desktop.
class RoomyStyle : public QProxyStyle {
 public:
  RoomyStyle() : QProxyStyle("fusion") {}

  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* result) const override {
    if (hint == SH_DialogButtonLayout) return QDialogButtonBox::WinLayout;
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
    if (hint == SH_FocusFrame_AboveWidget) return 1;
    return QProxyStyle::styleHint(hint, option, widget, result);
  }

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override {
    const int own = QProxyStyle::pixelMetric(metric, option, widget);
    switch (metric) {
      case PM_FocusFrameHMargin:
      case PM_FocusFrameVMargin:
        return FocusRing::kMargin;
      case PM_LayoutLeftMargin:
      case PM_LayoutTopMargin:
      case PM_LayoutRightMargin:
      case PM_LayoutBottomMargin:
      case PM_LayoutHorizontalSpacing:
      case PM_LayoutVerticalSpacing:
        return own * 4 / 3;
      case PM_MenuBarItemSpacing:
        return own + 4;
      default:
        return own;
    }
  }

  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override {
    if (element == CE_FocusFrame) {
      FocusRing::Paint(*painter, option->rect, option->palette);
    } else {
      QProxyStyle::drawControl(element, option, painter, widget);
    }
  }
};

// The outlines of fields and boxes to tick, which the toolkit's style derives from the window's
// ground, too faint to be seen on a dark one.
class OutlinedStyle final : public RoomyStyle {
 public:
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    const bool drawn = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton
                           ? DrawOutlined<QStyleOptionButton>(element, option, painter, widget)
                           : (element == PE_FrameLineEdit || element == PE_Frame) &&
                                 DrawOutlined<QStyleOptionFrame>(element, option, painter, widget);
    if (!drawn) RoomyStyle::drawPrimitive(element, option, painter, widget);
  }

 private:
  template <typename Option>
  bool DrawOutlined(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                    const QWidget* widget) const {
    constexpr int kStylesDarkening = 140;
    const auto* own = qstyleoption_cast<const Option*>(option);
    if (own == nullptr) return false;
    Option outlined = *own;
    const QColor outline =
        Halfway(own->palette.color(QPalette::WindowText), own->palette.color(QPalette::Window));
    outlined.palette.setColor(QPalette::Window, outline.lighter(kStylesDarkening));
    RoomyStyle::drawPrimitive(element, &outlined, painter, widget);
    return true;
  }
};

struct RoleColour {
  QPalette::ColorRole Role;
  QRgb Light;
  QRgb Dark;
};

constexpr std::array<RoleColour, 18> kColours{{
    {QPalette::Window, 0xFFF2F4F6, 0xFF23282E},
    {QPalette::WindowText, 0xFF1D252C, 0xFFE4E9ED},
    {QPalette::Base, 0xFFFFFFFF, 0xFF1A1E23},
    {QPalette::AlternateBase, 0xFFF5F7F9, 0xFF20252B},
    {QPalette::Text, 0xFF1D252C, 0xFFE4E9ED},
    {QPalette::PlaceholderText, 0xFF5F6B76, 0xFF9AA6B1},
    {QPalette::Button, 0xFFE7EBEF, 0xFF333A42},
    {QPalette::ButtonText, 0xFF1D252C, 0xFFE4E9ED},
    {QPalette::BrightText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::Light, 0xFFFFFFFF, 0xFF434B55},
    {QPalette::Midlight, 0xFFE1E6EA, 0xFF3A424B},
    {QPalette::Mid, 0xFFC3CBD3, 0xFF4A535D},
    {QPalette::Dark, 0xFF9AA5B0, 0xFF14171B},
    {QPalette::Shadow, 0xFF6B7681, 0xFF0A0C0E},
    {QPalette::Highlight, 0xFF1C6EA4, 0xFF2F86C1},
    {QPalette::HighlightedText, 0xFFFFFFFF, 0xFFFFFFFF},
    {QPalette::ToolTipBase, 0xFFFFFBE6, 0xFF3A424B},
    {QPalette::ToolTipText, 0xFF1D252C, 0xFFE4E9ED},
}};

constexpr std::array<QPalette::ColorRole, 3> kWordRoles{QPalette::WindowText, QPalette::Text,
                                                        QPalette::ButtonText};

QPalette MakePalette(bool dark) {
  QPalette palette;
  for (const RoleColour& colour : kColours) {
    palette.setColor(colour.Role, QColor(dark ? colour.Dark : colour.Light));
  }
  palette.setColor(QPalette::Link, palette.color(QPalette::Highlight));
  const QColor faded =
      Halfway(palette.color(QPalette::WindowText), palette.color(QPalette::Window));
  for (const QPalette::ColorRole role : kWordRoles) {
    palette.setColor(QPalette::Disabled, role, faded);
  }
  palette.setColor(QPalette::Disabled, QPalette::Highlight, palette.color(QPalette::Mid));
  return palette;
}

}  // namespace

void ApplyLook(QApplication& application, Brightness brightness) {
  const bool dark = brightness == Brightness::Desktop ? IsDark(QApplication::palette())
                                                      : brightness == Brightness::Dark;
  auto* const style = new OutlinedStyle;
  application.setStyle(style);
  new FocusRing(application, *style);
  application.setPalette(MakePalette(dark));
}

QFont ScaledFont(const QWidget& widget, double factor, bool bold) {
  QFont font = widget.font();
  if (font.pointSizeF() > 0) {
    font.setPointSizeF(font.pointSizeF() * factor);
  } else {
    font.setPixelSize(static_cast<int>(font.pixelSize() * factor));
  }
  font.setBold(bold);
  return font;
}

int Em(const QWidget& widget) { return widget.fontMetrics().height(); }

double RoomScale(const QWidget& widget, int width, double usual) {
  constexpr double kLargest = 1.5;
  return std::clamp(width / (usual * Em(widget)), 1.0, kLargest);
}

}  // namespace tintbench::desktop
