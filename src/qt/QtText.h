// Texts on their way between the program, which keeps them as single bytes, and Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tintbench::desktop {

// The text as UTF-8 if it is valid UTF-8, as file names are; otherwise as Latin-1, as the machine's
// texts are. Every byte shows as something.
QString ToQt(std::string_view text);

// The same with every line end, CR LF, CR or LF, as one LF: what a widget of several lines takes.
QString ToQtLines(std::string_view text);

// A caption as it is read out: in one line, without the mark of its mnemonic.
QString ToQtSpoken(std::string_view caption);

// A tool tip's text, guarded from being taken for mark-up.
QString ToQtToolTip(std::string_view text);

// What the operator has typed: in UTF-8 if the text that stood there before, `before`, holds UTF-8,
// or if something typed isn't in Latin-1; otherwise in Latin-1.
std::string FromQt(const QString& text, std::string_view before = {});

// The same with CR LF as line end.
std::string FromQtLines(const QString& text, std::string_view before = {});

}  // namespace tintbench::desktop
