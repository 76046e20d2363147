// The binders of controls that show or take text.
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStatusBar>
#include <QTextCursor>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

constexpr int kNoLimit = 32767;

int LengthLimit(const ui::TextBox& control) {
  if (control.MaxLength <= 0) return kNoLimit;
  // What the program itself has put there is shown whole.
  return std::max(control.MaxLength.Get(), static_cast<int>(control.Text->size()));
}

// Shows the text. One that only grows at its end, as reports do, is followed to its end, unless the
// operator's place in it counts for more.
void ShowText(QPlainTextEdit& widget, const std::string& text, Reading reading) {
  const QString lines = ToQtLines(text);
  const QString shown = widget.toPlainText();
  if (lines == shown) return;
  QScrollBar& bar = *widget.verticalScrollBar();
  const int place = bar.value();
  const bool grows = !shown.isEmpty() && lines.startsWith(shown);
  if (grows) {
    QTextCursor end(widget.document());
    end.movePosition(QTextCursor::End);
    end.insertText(lines.mid(shown.size()));
  } else {
    widget.setPlainText(lines);
  }
  if (reading == Reading::KeepsItsPlace) {
    bar.setValue(place);
  } else if (grows) {
    bar.setValue(bar.maximum());
  }
}

// Undoes typing beyond the limit.
void Shorten(QPlainTextEdit& widget, int limit) {
  QTextCursor cursor(widget.document());
  cursor.movePosition(QTextCursor::End);
  const int surplus = cursor.position() - limit;
  if (surplus <= 0) return;
  cursor.movePosition(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor, surplus);
  cursor.removeSelectedText();
}

}  // namespace

Binding& Bind(ui::Label& control, QLabel& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  widget.setTextFormat(Qt::PlainText);
  binding->Follow({&control.Caption}, [&] { widget.setText(ToQtLines(control.Caption.Get())); });
  return *binding;
}

void Bind(ui::TextBox& control, QLineEdit& widget) {
  auto* const binding = new Binding(control, widget);
  binding->Follow({&control.MaxLength, &control.Text}, [&] {
    widget.setMaxLength(LengthLimit(control));
    const QString text = ToQt(control.Text.Get());
    if (widget.text() != text) widget.setText(text);
  });
  binding->Follow({&control.Locked}, [&] { widget.setReadOnly(control.Locked); });
  QObject::connect(&widget, &QLineEdit::textEdited, binding, [&, binding](const QString& text) {
    binding->Hand([&] { control.Text = FromQt(text, control.Text.Get()); });
  });
}

void Bind(ui::TextBox& control, QPlainTextEdit& widget, Reading reading) {
  auto* const binding = new Binding(control, widget);
  binding->WatchMouseOn(*widget.viewport());
  widget.setTabChangesFocus(true);
  widget.setUndoRedoEnabled(!control.Locked);
  binding->Follow({&control.Text}, [&, reading] { ShowText(widget, control.Text, reading); });
  binding->Follow({&control.Locked}, [&] { widget.setReadOnly(control.Locked); });
  QObject::connect(&widget, &QPlainTextEdit::textChanged, binding, [&, binding] {
    binding->Hand([&] {
      const QSignalBlocker quiet(widget);
      Shorten(widget, LengthLimit(control));
      control.Text = FromQtLines(widget.toPlainText(), control.Text.Get());
    });
  });
}

void Bind(ui::RichTextBox& control, QPlainTextEdit& widget) {
  auto* const binding = new Binding(control, widget);
  binding->WatchMouseOn(*widget.viewport());
  widget.setTabChangesFocus(true);
  widget.setReadOnly(true);
  widget.setUndoRedoEnabled(false);
  binding->Follow({&control.Text}, [&] { ShowText(widget, control.Text, Reading::FollowsTheEnd); });
}

void Bind(ui::StatusBar& control, QStatusBar& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  // A message of the bar itself would give way to the tips of menus.
  auto* const label = new QLabel(&widget);
  label->setTextFormat(Qt::PlainText);
  widget.addWidget(label, 1);
  binding->Follow({&control.Text},
                  [&control, label] { label->setText(ToQtLines(control.Text.Get())); });
}

}  // namespace tintbench::desktop
