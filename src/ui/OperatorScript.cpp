#include "ui/OperatorScript.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::ui {

namespace {

struct Token {
  std::string Text;
  bool Quoted = false;
};

// The words of one line. Empty if a quote isn't closed or an escape is unknown.
std::optional<std::vector<Token>> Tokenise(std::string_view line);

// In seconds, somewhat over eleven days. On a clock that shows many times more, the short waits of
// the program would be too small to be added.
constexpr double kLongestWait = 1e6;
// In characters. What a step says comes back in messages and in the transcript.
constexpr std::size_t kLongestLine = 10000;

// Reads the words of one step, from left to right.
class StepReader {
 public:
  StepReader(std::vector<Token> tokens, Step& step) : tokens_(std::move(tokens)), step_(step) {}

  bool AtEnd() const { return next_ == tokens_.size(); }
  bool Word(std::string_view word) {
    if (AtEnd() || tokens_[next_].Quoted || tokens_[next_].Text != word) return false;
    ++next_;
    return true;
  }
  bool QuotedText(std::string& text) {
    if (AtEnd() || !tokens_[next_].Quoted) return false;
    text = tokens_[next_++].Text;
    return true;
  }
  std::optional<std::string> Bare() {
    if (AtEnd() || tokens_[next_].Quoted) return std::nullopt;
    return tokens_[next_++].Text;
  }
  bool Seconds() {
    const std::optional<std::string> text = Bare();
    if (!text || !base::IsNumeric(*text)) return false;
    step_.Seconds = base::LeadingNumber(*text);
    return step_.Seconds >= 0 && step_.Seconds <= kLongestWait;
  }
  // A path of `least` to `most` names.
  bool Target(std::size_t least, std::size_t most);
  // "is", "has" or "isnot" and the text behind it.
  bool Comparison(bool withIsNot);
  Step& Current() { return step_; }

 private:
  std::vector<Token> tokens_;
  std::size_t next_ = 0;
  Step& step_;
};

constexpr std::size_t kMostNames = 3;

bool ParseName(std::string_view text, PathName& name) {
  const std::size_t bracket = text.find('(');
  name.Name = std::string(text.substr(0, bracket));
  if (name.Name.empty()) return false;
  if (bracket == std::string_view::npos) return true;
  if (text.back() != ')') return false;
  const std::string_view digits = text.substr(bracket + 1, text.size() - bracket - 2);
  const auto [end, fault] =
      std::from_chars(digits.data(), digits.data() + digits.size(), name.Index);
  return fault == std::errc() && end == digits.data() + digits.size() && name.Index >= 0;
}

bool StepReader::Target(std::size_t least, std::size_t most) {
  const std::optional<std::string> text = Bare();
  if (!text || text->empty() || text->back() == '.') return false;
  step_.Target.Text = *text;
  for (const std::string& part : base::SplitFields(*text, ".")) {
    if (!ParseName(part, step_.Target.Names.emplace_back())) return false;
  }
  return step_.Target.Names.size() >= least && step_.Target.Names.size() <= most;
}

bool StepReader::Comparison(bool withIsNot) {
  if (Word("is")) {
    step_.Compare = Relation::Is;
  } else if (Word("has")) {
    step_.Compare = Relation::Has;
  } else if (withIsNot && Word("isnot")) {
    step_.Compare = Relation::IsNot;
  } else {
    return false;
  }
  return QuotedText(step_.Wanted);
}

struct NamedKey {
  std::string_view Name;
  int Code;
};

constexpr std::array<NamedKey, 17> kNamedKeys{{{"Esc", kKeyEsc},
                                               {"Escape", kKeyEsc},
                                               {"Enter", kKeyEnter},
                                               {"PageUp", kKeyPageUp},
                                               {"PageDown", kKeyPageDown},
                                               {"Home", kKeyHome},
                                               {"End", kKeyEnd},
                                               {"Left", kKeyLeft},
                                               {"Up", kKeyUp},
                                               {"Right", kKeyRight},
                                               {"Down", kKeyDown},
                                               {"Tab", kKeyTab},
                                               {"Space", kKeySpace},
                                               {"Backspace", kKeyBackspace},
                                               {"Insert", kKeyInsert},
                                               {"Delete", kKeyDelete},
                                               {"Del", kKeyDelete}}};

// Code of a key without its modifiers; 0 if there is no such key.
int KeyCode(std::string_view name) {
  if (name.size() == 1) {
    const char code = base::ToUpper(name)[0];
    const bool known = (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9');
    return known ? code : 0;
  }
  for (const NamedKey& key : kNamedKeys) {
    if (base::EqualFolded(key.Name, name)) return key.Code;
  }
  if (base::ToUpper(name)[0] == 'F' && base::IsNumeric(name.substr(1))) {
    const int number = base::LeadingInt(name.substr(1));
    if (number >= 1 && number <= kKeyF12 - kKeyF1 + 1) return kKeyF1 + number - 1;
  }
  return 0;
}

bool ReadKey(StepReader& reader) {
  const std::optional<std::string> text = reader.Bare();
  if (!text) return false;
  std::string_view rest = *text;
  KeyEvent& key = reader.Current().Key;
  for (bool more = true; more;) {
    more = false;
    for (const auto& [prefix, bit] :
         {std::pair<std::string_view, int>{"Shift+", kShift}, {"Ctrl+", kCtrl}, {"Alt+", kAlt}}) {
      if (!base::EqualFolded(rest.substr(0, prefix.size()), prefix)) continue;
      key.Shift |= bit;
      rest.remove_prefix(prefix.size());
      more = true;
    }
  }
  key.Code = rest.empty() ? 0 : KeyCode(rest);
  return key.Code != 0;
}

bool ReadControl(StepReader& reader) { return reader.Target(1, 2); }
bool ReadOneControl(StepReader& reader) { return reader.Target(2, 2); }
bool ReadTicked(StepReader& reader) { return reader.Target(2, kMostNames); }
bool ReadForm(StepReader& reader) { return reader.Target(1, 1); }
bool ReadProperty(StepReader& reader) { return reader.Target(2, kMostNames); }

bool ReadType(StepReader& reader) {
  return ReadOneControl(reader) && reader.QuotedText(reader.Current().Text);
}

bool ReadPick(StepReader& reader) {
  if (!ReadOneControl(reader)) return false;
  if (reader.QuotedText(reader.Current().Text)) return true;
  const std::optional<std::string> row = reader.Bare();
  if (!row || !base::IsNumeric(*row)) return false;
  reader.Current().Row = base::LeadingInt(*row);
  return reader.Current().Row >= 0;
}

bool ReadAnswer(StepReader& reader) {
  for (const auto& [word, answer] : {std::pair<std::string_view, Answer>{"OK", Answer::OK},
                                     {"Cancel", Answer::Cancel},
                                     {"Yes", Answer::Yes},
                                     {"No", Answer::No}}) {
    if (!reader.Word(word)) continue;
    reader.Current().Button = answer;
    return reader.AtEnd() || reader.Comparison(false);
  }
  return false;
}

bool ReadReply(StepReader& reader) {
  Step& step = reader.Current();
  if (!reader.QuotedText(step.Text)) {
    if (!reader.Word("cancel")) return false;
    step.Refused = true;
  }
  return reader.AtEnd() || reader.Comparison(false);
}

bool ReadWait(StepReader& reader) { return reader.Seconds(); }

bool ReadUntil(StepReader& reader) {
  return ReadProperty(reader) && reader.Comparison(true) && reader.Word("within") &&
         reader.Seconds();
}

bool ReadExpect(StepReader& reader) { return ReadProperty(reader) && reader.Comparison(true); }

struct StepForm {
  std::string_view Word;
  StepKind Kind;
  bool (*Read)(StepReader&);
  std::string_view Usage;
};

constexpr std::array<StepForm, 17> kStepForms{{
    {"click", StepKind::Click, ReadControl, "click Form.Control"},
    {"dblclick", StepKind::DblClick, ReadOneControl, "dblclick Form.Control"},
    {"rightpress", StepKind::RightPress, ReadOneControl, "rightpress Form.Control"},
    {"press", StepKind::Press, ReadKey, "press KEY"},
    {"type", StepKind::Type, ReadType, "type Form.Control \"text\""},
    {"pick", StepKind::Pick, ReadPick, "pick Form.Control N or \"row\""},
    {"tick", StepKind::Tick, ReadTicked, "tick Form.Control or Form.List.List(row)"},
    {"untick", StepKind::Untick, ReadTicked, "untick Form.Control or Form.List.List(row)"},
    {"close", StepKind::Close, ReadForm, "close Form"},
    {"answer", StepKind::Answer, ReadAnswer, "answer OK|Cancel|Yes|No [is|has \"text\"]"},
    {"input", StepKind::Input, ReadReply, "input \"text\" or cancel [is|has \"prompt\"]"},
    {"file", StepKind::File, ReadReply, "file \"path\" or cancel [is|has \"title\"]"},
    {"wait", StepKind::Wait, ReadWait, "wait SECONDS, up to 1000000"},
    {"until", StepKind::Until, ReadUntil,
     "until Property is|has \"text\" within SECONDS, up to 1000000"},
    {"expect", StepKind::Expect, ReadExpect, "expect Property is|has|isnot \"text\""},
    {"print", StepKind::Print, ReadProperty, "print Property"},
    {"watch", StepKind::Watch, ReadProperty, "watch Property"},
}};

constexpr std::string_view kBlanks = " \t";

// Takes one escape or character of a quoted text off `rest`. False for an unknown escape.
bool TakeQuotedCharacter(std::string_view& rest, std::string& text) {
  if (rest[0] != '\\') {
    text += rest[0];
    rest.remove_prefix(1);
    return true;
  }
  if (rest.size() < 2) return false;
  for (const auto& [mark, character] :
       {std::pair<char, char>{'"', '"'}, {'\\', '\\'}, {'r', '\r'}, {'n', '\n'}, {'t', '\t'}}) {
    if (rest[1] != mark) continue;
    text += character;
    rest.remove_prefix(2);
    return true;
  }
  return false;
}

bool TakeQuoted(std::string_view& rest, Token& token) {
  token.Quoted = true;
  rest.remove_prefix(1);
  while (!rest.empty() && rest[0] != '"') {
    if (!TakeQuotedCharacter(rest, token.Text)) return false;
  }
  if (rest.empty()) return false;
  rest.remove_prefix(1);
  return rest.empty() || kBlanks.find(rest[0]) != std::string_view::npos;
}

std::optional<std::vector<Token>> Tokenise(std::string_view line) {
  std::vector<Token> tokens;
  while (true) {
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    if (line.empty()) return tokens;
    Token& token = tokens.emplace_back();
    if (line[0] == '"') {
      if (!TakeQuoted(line, token)) return std::nullopt;
      continue;
    }
    token.Text = std::string(line.substr(0, line.find_first_of(kBlanks)));
    line.remove_prefix(token.Text.size());
  }
}

std::string Trimmed(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  return std::string(line.substr(first, line.find_last_not_of(" \t\r") - first + 1));
}

// What is wrong with a step; empty if nothing is.
std::string ParseStep(Step& step) {
  const std::string word = step.Source.substr(0, step.Source.find_first_of(kBlanks));
  if (word == "machine") {
    step.Kind = StepKind::Machine;
    step.Text = Trimmed(std::string_view(step.Source).substr(word.size()));
    return step.Text.empty() ? "usage: machine WORDS" : "";
  }
  const auto* form = std::find_if(kStepForms.begin(), kStepForms.end(),
                                  [&](const StepForm& known) { return known.Word == word; });
  if (form == kStepForms.end()) return "unknown step " + Quoted(word);
  std::optional<std::vector<Token>> tokens =
      Tokenise(std::string_view(step.Source).substr(word.size()));
  if (!tokens) return "a quoted text is not closed or holds an unknown escape";
  step.Kind = form->Kind;
  StepReader reader(std::move(*tokens), step);
  if (form->Read(reader) && reader.AtEnd()) return "";
  return "usage: " + std::string(form->Usage);
}

// What is wrong with a line; empty if nothing is. A line that says nothing gives an empty step.
std::string ParseLine(std::string_view line, Step& step) {
  if (line.size() > kLongestLine) return "the line is too long";
  step.Source = Trimmed(line);
  if (step.Source.starts_with('\'')) step.Source.clear();
  return step.Source.empty() ? "" : ParseStep(step);
}

}  // namespace

bool ParseOperatorScript(std::string_view text, const std::string& fileName, OperatorScript& script,
                         std::string& error) {
  script = {fileName, {}};
  int number = 0;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    Step step;
    step.Line = ++number;
    const std::string fault = ParseLine(line, step);
    if (!fault.empty()) {
      error = fileName + ":" + std::to_string(number) + ": " + fault;
      return false;
    }
    if (!step.Source.empty()) script.Steps.push_back(std::move(step));
  }
  return true;
}

}  // namespace tintbench::ui
