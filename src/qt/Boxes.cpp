#include "qt/Boxes.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "base/Text.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

struct BoxButton {
  QMessageBox::StandardButton Button;
  ui::Answer Answer;
  const char* Caption;
};

constexpr std::array<BoxButton, 4> kButtons{{{QMessageBox::Ok, ui::Answer::OK, "OK"},
                                             {QMessageBox::Cancel, ui::Answer::Cancel, "Cancel"},
                                             {QMessageBox::Yes, ui::Answer::Yes, "&Yes"},
                                             {QMessageBox::No, ui::Answer::No, "&No"}}};

QMessageBox::StandardButtons ButtonsOf(ui::BoxButtons buttons) {
  switch (buttons) {
    case ui::BoxButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case ui::BoxButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case ui::BoxButtons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButton EscapeOf(ui::BoxButtons buttons) {
  const ui::Answer wayOut = ui::WayOut(buttons);
  return std::find_if(kButtons.begin(), kButtons.end(),
                      [&](const BoxButton& button) { return button.Answer == wayOut; })
      ->Button;
}

QMessageBox::Icon IconOf(ui::BoxIcon icon) {
  switch (icon) {
    case ui::BoxIcon::Stop:
      return QMessageBox::Critical;
    case ui::BoxIcon::Question:
      return QMessageBox::Question;
    case ui::BoxIcon::Exclamation:
      return QMessageBox::Warning;
    case ui::BoxIcon::Information:
      return QMessageBox::Information;
    case ui::BoxIcon::Plain:
      break;
  }
  return QMessageBox::NoIcon;
}

constexpr const char* kKeptInSight = "keptInSight";

// Leaves what is to be kept in sight to be seen, as far as the window has room.
void StandBeside(QDialog& box, QWidget* window) {
  if (window == nullptr) return;
  for (const QWidget* kept : window->findChildren<QWidget*>()) {
    if (!kept->isVisible() || !kept->property(kKeptInSight).toBool()) continue;
    box.adjustSize();
    const int gap = window->fontMetrics().height();
    const int left = kept->mapToGlobal(QPoint()).x() - box.width() - gap;
    const QPoint corner = window->mapToGlobal(QPoint());
    box.move(std::max(corner.x(), left), corner.y() + (window->height() - box.height()) / 2);
  }
}

QString TitleOf(const std::string& own, const std::string& title) {
  return ToQt(own.empty() ? title : own);
}

}  // namespace

void KeepInSight(QWidget& widget) { widget.setProperty(kKeptInSight, true); }

ui::Answer AskBox(const ui::Box& box, const std::string& title, QWidget* parent) {
  QMessageBox shown(parent);
  shown.setObjectName("MessageBox");
  shown.setWindowTitle(TitleOf(box.Title, title));
  shown.setTextFormat(Qt::PlainText);
  shown.setText(ToQtLines(box.Text));
  shown.setTextInteractionFlags(Qt::TextSelectableByMouse);
  shown.setIcon(IconOf(box.Icon));
  shown.setStandardButtons(ButtonsOf(box.Buttons));
  for (const BoxButton& button : kButtons) {
    if (QAbstractButton* widget = shown.button(button.Button)) widget->setText(button.Caption);
  }
  shown.setEscapeButton(EscapeOf(box.Buttons));
  StandBeside(shown, parent);
  const int pressed = shown.exec();
  for (const BoxButton& button : kButtons) {
    if (button.Button == pressed) return button.Answer;
  }
  return ui::Answer::OK;
}

std::optional<std::string> AskQuestion(const ui::Question& question, const std::string& title,
                                       QWidget* parent) {
  QDialog dialog(parent);
  dialog.setObjectName("QuestionBox");
  dialog.setWindowTitle(TitleOf(question.Title, title));
  auto* const prompt = new QLabel(ToQtLines(question.Prompt));
  prompt->setTextFormat(Qt::PlainText);
  auto* const answer = new QLineEdit(ToQt(question.Default));
  // What stands at its start is seen first, however long it is.
  answer->setSelection(static_cast<int>(answer->text().size()),
                       -static_cast<int>(answer->text().size()));
  prompt->setBuddy(answer);
  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
  auto* const rows = new QVBoxLayout(&dialog);
  rows->addWidget(prompt);
  rows->addWidget(answer);
  rows->addStretch();
  rows->addWidget(buttons);
  rows->setSpacing(rows->spacing() * 2);
  const QFontMetrics& metrics = dialog.fontMetrics();
  const int wanted = metrics.horizontalAdvance(answer->text() + "WWWW");
  dialog.setMinimumWidth(std::clamp(wanted, metrics.averageCharWidth() * 50,
                                    dialog.screen()->availableSize().width() * 9 / 10));
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  return FromQt(answer->text(), question.Default);
}

std::vector<FileFilter> ParseFilter(const std::string& filter) {
  std::vector<FileFilter> filters;
  const std::vector<std::string> fields = base::SplitFields(filter, "|");
  for (std::size_t i = 0; i + 1 < fields.size(); i += 2) {
    FileFilter one{base::Trim(fields[i]), {}};
    for (const std::string& pattern : base::SplitFields(fields[i + 1], ";")) {
      if (!base::Trim(pattern).empty()) one.Patterns.push_back(base::Trim(pattern));
    }
    if (!one.Patterns.empty()) filters.push_back(std::move(one));
  }
  return filters;
}

namespace {

// Qt reads the patterns from the brackets at the end of the text, which the text often has.
QStringList NameFilters(const std::vector<FileFilter>& filters) {
  QStringList names;
  for (const FileFilter& filter : filters) {
    const std::string brackets = "(" + base::Join(filter.Patterns, " ") + ")";
    const bool told = filter.Text.ends_with(brackets);
    names << ToQt(told ? filter.Text : filter.Text + " " + brackets);
  }
  return names;
}

// "cfm" if the pattern is "*.cfm", otherwise nothing.
QString SuffixOf(const FileFilter& filter) {
  const QString pattern = ToQt(filter.Patterns.front());
  const QString suffix = pattern.mid(2);
  return pattern.startsWith("*.") && !suffix.contains('*') ? suffix : QString();
}

void SetFilter(QFileDialog& dialog, const ui::FileRequest& request) {
  const std::vector<FileFilter> filters = ParseFilter(request.Filter);
  if (filters.empty()) return;
  const QStringList names = NameFilters(filters);
  dialog.setNameFilters(names);
  const auto wanted = static_cast<std::size_t>(request.FilterIndex - 1);
  const std::size_t chosen = wanted < filters.size() ? wanted : 0;
  dialog.selectNameFilter(names[static_cast<qsizetype>(chosen)]);
  if (request.Saving) dialog.setDefaultSuffix(SuffixOf(filters[chosen]));
}

}  // namespace

std::optional<std::string> AskFile(const ui::FileRequest& request, const std::string& title,
                                   QWidget* parent) {
  QFileDialog dialog(parent, TitleOf(request.Title, title));
  dialog.setObjectName("FileDialog");
  // The desktop's own dialog would tell capital letters of patterns from small ones.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  dialog.setOption(QFileDialog::DontConfirmOverwrite);
  dialog.setAcceptMode(request.Saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  const bool mayBeNew = request.Saving || request.MayBeNew;
  dialog.setFileMode(mayBeNew ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (!request.Folder.empty()) {
    dialog.setDirectory(QFile::decodeName(QByteArray::fromStdString(request.Folder)));
  }
  SetFilter(dialog, request);
  if (!request.FileName.empty()) {
    dialog.selectFile(QFile::decodeName(QByteArray::fromStdString(request.FileName)));
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  const QString path = QDir::toNativeSeparators(dialog.selectedFiles().front());
  return QFile::encodeName(path).toStdString();
}

}  // namespace tintbench::desktop
