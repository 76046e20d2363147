#include "qt/QtText.h"

#include <QStringDecoder>
#include <QTextDocument>
#include <algorithm>

#include "base/Text.h"

namespace tintbench::desktop {

namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) < 0x80U; });
}

// Decodes into `decoded`; false if the text isn't valid UTF-8.
bool DecodeUtf8(std::string_view text, QString& decoded) {
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  decoded = decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
  return !decoder.hasError();
}

bool IsLatin1(const QString& text) {
  return std::all_of(text.begin(), text.end(),
                     [](QChar letter) { return letter.unicode() < 0x100U; });
}

}  // namespace

QString ToQt(std::string_view text) {
  QString decoded;
  if (DecodeUtf8(text, decoded)) return decoded;
  return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

QString ToQtLines(std::string_view text) {
  QString lines = ToQt(text);
  lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  lines.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  return lines;
}

QString ToQtSpoken(std::string_view caption) {
  QString words = ToQtLines(caption).replace(QLatin1Char('\n'), QLatin1Char(' '));
  for (qsizetype mark = words.indexOf('&'); mark >= 0; mark = words.indexOf('&', mark + 1)) {
    words.remove(mark, 1);  // of two marks the second one stays
  }
  return words;
}

QString ToQtToolTip(std::string_view text) {
  const QString lines = ToQtLines(text);
  return Qt::mightBeRichText(lines) ? Qt::convertFromPlainText(lines) : lines;
}

std::string FromQt(const QString& text, std::string_view before) {
  QString decoded;
  const bool wasUtf8 = !IsAscii(before) && DecodeUtf8(before, decoded);
  const QByteArray bytes = wasUtf8 || !IsLatin1(text) ? text.toUtf8() : text.toLatin1();
  return bytes.toStdString();
}

std::string FromQtLines(const QString& text, std::string_view before) {
  QString lines = text;
  lines.replace(QLatin1Char('\n'), ToQt(base::kCrLf));
  return FromQt(lines, before);
}

}  // namespace tintbench::desktop
