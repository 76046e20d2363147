#include "qt/Colours.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tintbench::desktop {

namespace {

struct SystemColour {
  std::uint32_t Value;
  QPalette::ColorRole Role;
};

// The numbers of the desktop's colours and where a palette keeps them.
constexpr std::array<SystemColour, 13> kSystemColours{{
    {0x80000005U, QPalette::Base},             // window
    {0x80000006U, QPalette::WindowText},       // window frame
    {0x80000007U, QPalette::WindowText},       // menu text
    {0x80000008U, QPalette::WindowText},       // window text
    {0x8000000DU, QPalette::Highlight},        // highlight
    {0x8000000EU, QPalette::HighlightedText},  // highlighted text
    {0x8000000FU, QPalette::Window},           // button face
    {0x80000010U, QPalette::Mid},              // button shadow
    {0x80000011U, QPalette::PlaceholderText},  // grey text
    {0x80000012U, QPalette::ButtonText},       // button text
    {0x80000014U, QPalette::Light},            // button highlight
    {0x80000017U, QPalette::ToolTipText},      // tip text
    {0x80000018U, QPalette::ToolTipBase},      // tip ground
}};

// Where a widget keeps its ground and its words.
struct Roles {
  QPalette::ColorRole Ground;
  QPalette::ColorRole Words;
};

Roles RolesOf(const QWidget& widget) {
  if (qobject_cast<const QPushButton*>(&widget) != nullptr ||
      qobject_cast<const QComboBox*>(&widget) != nullptr) {
    return {QPalette::Button, QPalette::ButtonText};
  }
  if (qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
      qobject_cast<const QLineEdit*>(&widget) != nullptr) {
    return {QPalette::Base, QPalette::Text};
  }
  return {QPalette::Window, QPalette::WindowText};
}

double Linear(float share) {
  const auto part = static_cast<double>(share);
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [low, high] = std::minmax({Luminance(one), Luminance(other)});
  return (high + 0.05) / (low + 0.05);
}

QColor BestOn(const QColor& ground) {
  return Contrast(Qt::black, ground) > Contrast(Qt::white, ground) ? Qt::black : Qt::white;
}

// One of twenty steps towards black or white.
QColor Step(const QColor& colour, const QColor& end, int step) {
  const auto mix = [step](float from, float to) {
    return from + (to - from) * static_cast<float>(step) / 20.0F;
  };
  return QColor::fromRgbF(mix(colour.redF(), end.redF()), mix(colour.greenF(), end.greenF()),
                          mix(colour.blueF(), end.blueF()));
}

}  // namespace

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

QColor ToQt(ui::Colour colour, const QPalette& palette) {
  if (colour.IsSystem()) {
    const auto* const found =
        std::find_if(kSystemColours.begin(), kSystemColours.end(),
                     [&](const SystemColour& entry) { return entry.Value == colour.Value; });
    return palette.color(found == kSystemColours.end() ? QPalette::Window : found->Role);
  }
  const auto part = [&](unsigned shift) {
    return static_cast<int>((colour.Value >> shift) & 0xFFU);
  };
  const QColor plain(part(0), part(8), part(16));
  if (plain.hslSaturation() != 0 || !IsDark(palette)) return plain;
  const int turned = 255 - plain.lightness() * 7 / 8;
  return {turned, turned, turned};
}

QColor Readable(const QColor& words, const QColor& ground) {
  constexpr double kEnough = 4.5;
  const QColor best = BestOn(ground);
  for (int step = 0; step < 20; ++step) {
    const QColor tried = Step(words, best, step);
    if (Contrast(tried, ground) >= kEnough) return tried;
  }
  return best;
}

QColor SignOn(const QColor& ground) {
  constexpr double kEnoughForLarge = 3.0;
  return Contrast(Qt::white, ground) >= kEnoughForLarge ? Qt::white : Qt::black;
}

QColor Halfway(const QColor& one, const QColor& other) { return Step(one, other, 10); }

void Dress(QWidget& widget, ui::Colour back, ui::Colour fore) {
  const Roles roles = RolesOf(widget);
  const QPalette natural = QApplication::palette(&widget);
  const bool ownGround = back != ui::kButtonFaceColour;
  const bool ownWords = fore != ui::kWindowTextColour && fore != ui::kButtonTextColour;
  QPalette palette;
  palette.setResolveMask(0);
  const QColor ground = ownGround ? ToQt(back, natural) : natural.color(roles.Ground);
  if (ownGround) palette.setColor(roles.Ground, ground);
  if (ownGround || ownWords) {
    const QColor words = ownWords ? Readable(ToQt(fore, natural), ground) : BestOn(ground);
    palette.setColor(roles.Words, words);
    palette.setColor(QPalette::Disabled, roles.Words, Halfway(words, ground));
  }
  if (roles.Ground == QPalette::Window) widget.setAutoFillBackground(ownGround);
  widget.setPalette(palette);
}

}  // namespace tintbench::desktop
