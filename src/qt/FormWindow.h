// The window on the desktop of one form: its title, menu bar and status bar, its state, and the
// ways in which the operator's hand reaches the window itself. What stands in the middle is a view.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <functional>

#include "ui/Form.h"

namespace tintbench::desktop {

// Makes the widget that shows the controls of a form, with `parent` as its holder.
using ViewFactory = std::function<QWidget*(ui::Form& form, QWidget* parent)>;

class FormWindow final : public QMainWindow, public ui::Observer {
 public:
  // `close` is called when the operator presses the close button; the window itself stays.
  FormWindow(ui::Form& form, const ViewFactory& view, std::function<void()> close);
  ~FormWindow() override;
  FormWindow(const FormWindow&) = delete;
  FormWindow& operator=(const FormWindow&) = delete;

  // The form; nullptr once it has died.
  ui::Form* Shown() const { return form_; }

  // Makes the window a dialog of `below`: over it, of its size unless little is to be shown, and
  // minimised and brought back together with it. To be called before the window is opened.
  void StandOver(FormWindow& below);
  // Shows the window in the form's state.
  void Open();
  // Closes what menu is open, as Esc does.
  void LeaveMenus();

  void PropertyChanged(const ui::PropertyBase& property) override;
  void RefreshWanted() override;
  void OwnerGone() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void ShowProperties();
  void ShowState();
  void TellState();
  void ShareState(FormWindow* other) const;
  void AddBars();

  ui::Form* form_;
  std::function<void()> close_;
  QPointer<FormWindow> below_;
  QPointer<FormWindow> above_;
  bool pressed_ = false;
};

// The form's window that the widget stands in, or that the menu belongs to; nullptr if none.
FormWindow* WindowOf(QWidget* widget);

}  // namespace tintbench::desktop
