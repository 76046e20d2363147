// A list of rows of which one is chosen by the mouse or the keys.
#pragma once

#include <QListView>
#include <functional>

namespace tintbench::desktop {

class RowList final : public QListView {
 public:
  explicit RowList(QWidget* parent = nullptr);

  // Called when the operator has chosen a row, perhaps the one that is chosen already: with the
  // mouse when the button is let go, so that whatever follows finds the list at rest.
  std::function<void(int row)> RowPressed;

  // Shows the row as chosen and brings it into sight; -1 shows none.
  void ShowRow(int row);

  QSize sizeHint() const override;

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  bool pressing_ = false;
  bool showing_ = false;
};

}  // namespace tintbench::desktop
