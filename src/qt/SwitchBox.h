// A box to tick as a large button that keeps its state, to be read from afar.
#pragma once

#include <QCheckBox>

namespace tintbench::desktop {

class SwitchBox final : public QCheckBox {
 public:
  // What its tick says: something runs, or it rests.
  enum class Meaning { Runs, Rests };

  SwitchBox(Meaning meaning, QWidget* parent);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  bool hitButton(const QPoint& place) const override { return rect().contains(place); }
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Colours;
  Colours PresentColours() const;

  Meaning meaning_;
};

// A box to tick whose words are the view's, since the control has none.
class WordedBox final : public QCheckBox {
 public:
  WordedBox(QString words, QWidget* parent);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void initStyleOption(QStyleOptionButton* option) const override;

 private:
  QString words_;
};

}  // namespace tintbench::desktop
