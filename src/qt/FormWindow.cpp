#include "qt/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QStatusBar>
#include <QWindow>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/Colours.h"
#include "qt/Look.h"
#include "qt/MenuBinder.h"
#include "qt/QtText.h"
#include "ui/Controls.h"

namespace tintbench::desktop {

namespace {

// A window that needs less room than this, in lines of text, is a small dialog.
constexpr int kSmallWidth = 40;
constexpr int kSmallHeight = 24;

}  // namespace

FormWindow::FormWindow(ui::Form& form, const ViewFactory& view, std::function<void()> close)
    : form_(&form), close_(std::move(close)) {
  form.AddObserver(*this);
  setObjectName(ToQt(form.Name()));
  if (form.IsSplash()) setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint);
  setContextMenuPolicy(Qt::NoContextMenu);
  AddBars();
  setCentralWidget(view(form, this));
  ShowProperties();
  const QSize room = screen()->availableSize() * 9 / 10;
  resize(sizeHint().boundedTo(room));
}

FormWindow::~FormWindow() {
  if (form_ != nullptr) form_->RemoveObserver(*this);
}

void FormWindow::AddBars() {
  if (MenuBinder::HasMenus(*form_)) {
    // A desktop's own menu bar may have no place for a title that acts by itself.
    menuBar()->setNativeMenuBar(false);
    new MenuBinder(*form_, *menuBar());
  }
  for (ui::Control* control : form_->Children()) {
    auto* bar = dynamic_cast<ui::StatusBar*>(control);
    if (bar != nullptr) Bind(*bar, *statusBar());
  }
}

void FormWindow::StandOver(FormWindow& below) {
  below_ = &below;
  below.above_ = this;
  setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                 Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint);
  const bool small = width() < Em(*this) * kSmallWidth && height() < Em(*this) * kSmallHeight;
  if (small) {
    move(below.geometry().center() - rect().center());
  } else {
    setGeometry(below.geometry());
    form_->WindowState = below.isMaximized() ? ui::kMaximisedWindow : ui::kNormalWindow;
  }
  winId();
  windowHandle()->setTransientParent(below.windowHandle());
}

void FormWindow::Open() {
  ShowState();
  show();
  raise();
  activateWindow();
}

void FormWindow::LeaveMenus() {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  menuBar()->setActiveAction(nullptr);
}

void FormWindow::PropertyChanged(const ui::PropertyBase& property) {
  if (property.Is(form_->WindowState)) {
    ShowState();
  } else if (!property.Is(form_->Visible)) {
    ShowProperties();
  }
}

void FormWindow::ShowProperties() {
  setWindowTitle(ToQt(form_->Caption.Get()));
  setEnabled(form_->Enabled);
  Dress(*this, form_->BackColor, ui::kWindowTextColour);
}

void FormWindow::RefreshWanted() { PaintAtOnce(*this); }

void FormWindow::OwnerGone() {
  form_ = nullptr;
  hide();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (form_ != nullptr && close_) close_();
}

void FormWindow::ShowState() {
  Qt::WindowStates states = windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized);
  if (form_->WindowState == ui::kMinimisedWindow) states |= Qt::WindowMinimized;
  if (form_->WindowState == ui::kMaximisedWindow) states |= Qt::WindowMaximized;
  if (states != windowState()) setWindowState(states);
}

// The form may answer with another state at once, which Qt takes better once its own change is
// through.
void FormWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) {
    QMetaObject::invokeMethod(
        this, [this] { TellState(); }, Qt::QueuedConnection);
  }
}

void FormWindow::TellState() {
  if (form_ == nullptr || !form_->Visible) return;
  int state = ui::kNormalWindow;
  if (isMaximized()) state = ui::kMaximisedWindow;
  if (isMinimized()) state = ui::kMinimisedWindow;
  form_->WindowState = state;
  ShareState(below_);
  ShareState(above_);
}

// A window without its dialog would be a blank one, and the dialog without it lost behind others.
void FormWindow::ShareState(FormWindow* other) const {
  if (other == nullptr || !other->isVisible() || other->isMinimized() == isMinimized()) return;
  other->setWindowState(other->windowState() ^ Qt::WindowMinimized);
}

void FormWindow::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton;
}

void FormWindow::mouseReleaseEvent(QMouseEvent* event) {
  const bool clicked = pressed_ && event->button() == Qt::LeftButton;
  pressed_ = false;
  if (clicked && form_ != nullptr && form_->Enabled) form_->Form_Click();
}

FormWindow* WindowOf(QWidget* widget) {
  while (widget != nullptr) {
    auto* window = dynamic_cast<FormWindow*>(widget);
    if (window != nullptr) return window;
    widget = widget->parentWidget();
  }
  return nullptr;
}

}  // namespace tintbench::desktop
