// The buttons of the window of commands: what sends, what stops, and the options with their keys.
#pragma once

#include <QPushButton>
#include <QRadioButton>

namespace tintbench::desktop {

// What it acts on stands small above what it does, the last line of its caption.
class SendButton final : public QPushButton {
 public:
  explicit SendButton(QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

// Red, with the sign that means stop everywhere; never greyed. `scale` is the size of its words.
class StopButton final : public QPushButton {
 public:
  StopButton(double scale, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintSign(QPainter& painter, const QRectF& area) const;
};

// An option as a large button, with its key as a badge: the "F3" of a caption like "[F3] Words".
class OptionCard final : public QRadioButton {
 public:
  explicit OptionCard(QWidget* parent);
  void ShowRunning(bool running);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Colours;
  Colours PresentColours() const;
  QString Key() const;
  QString Words() const;
  int BadgeWidth() const;
  void PaintBadge(QPainter& painter, const QRectF& area, const Colours& colours) const;
  void PaintWords(QPainter& painter, const QRectF& area) const;

  bool running_ = false;
};

}  // namespace tintbench::desktop
