// Texts as operator scripts and their transcripts write and compare them.
#include <array>

#include "ui/OperatorScript.h"

namespace tintbench::ui {

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    switch (character) {
      case '"':
      case '\\':
        quoted += '\\';
        quoted += character;
        break;
      case '\r':
        quoted += "\\r";
        break;
      case '\n':
        quoted += "\\n";
        break;
      case '\t':
        quoted += "\\t";
        break;
      default:
        quoted += character;
    }
  }
  return quoted + '"';
}

namespace {

// All line ends as LF.
std::string WithPlainLineEnds(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r') {
      plain += '\n';
      if (i + 1 < text.size() && text[i + 1] == '\n') ++i;
    } else {
      plain += text[i];
    }
  }
  return plain;
}

}  // namespace

std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const char character : WithPlainLineEnds(text)) {
    if (character == '\n') {
      line += "\\n";
    } else {
      line += character;
    }
  }
  return line;
}

bool Relates(std::string_view found, Relation relation, std::string_view wanted) {
  const std::string left = WithPlainLineEnds(found);
  const std::string right = WithPlainLineEnds(wanted);
  switch (relation) {
    case Relation::Is:
      return left == right;
    case Relation::Has:
      return left.find(right) != std::string::npos;
    case Relation::IsNot:
      return left != right;
    case Relation::None:
      break;
  }
  return true;
}

std::string_view RelationWord(Relation relation) {
  constexpr std::array<std::string_view, 4> kWords{"", "is", "has", "isnot"};
  return kWords[static_cast<std::size_t>(relation)];
}

}  // namespace tintbench::ui
