// The search for variables that outlive their scope and can change: a small reader of C++
// declarations that knows just enough to tell namespaces, classes, code and values apart.
#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "layout/SourceRules.h"

namespace tintbench::layout {

namespace {

using Statement = std::vector<Token>;

enum class Scope { Namespace, Class, Code, Value };

// What stands at a place of the code: the kind of scope, and the statement begun before it.
struct OpenScope {
  Scope Kind;
  Statement Before;
};

bool Has(const Statement& statement, std::string_view text) {
  return std::any_of(statement.begin(), statement.end(),
                     [text](const Token& token) { return token.Text == text; });
}

template <std::size_t N>
bool HasOneOf(const Statement& statement, const std::array<std::string_view, N>& texts) {
  return std::any_of(texts.begin(), texts.end(),
                     [&statement](std::string_view text) { return Has(statement, text); });
}

constexpr std::array<std::string_view, 4> kTypeWords = {"class", "struct", "union", "enum"};
constexpr std::array<std::string_view, 7> kNoVariable = {
    "using", "typedef", "friend", "static_assert", "concept", "operator", "namespace"};

// The position behind the ">" that closes the "<" at `open`; `open` itself if none does.
std::size_t BehindAngle(const Statement& statement, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < statement.size(); ++i) {
    if (statement[i].Text == "<") ++depth;
    if (statement[i].Text == ">" && --depth == 0) return i + 1;
  }
  return open;
}

// The part of a declaration before its value, without template brackets and what they hold.
Statement Declared(const Statement& statement) {
  Statement plain;
  for (std::size_t i = 0; i < statement.size();) {
    const std::size_t behind = statement[i].Text == "<" ? BehindAngle(statement, i) : i;
    if (behind != i) {
      i = behind;
      continue;
    }
    if (statement[i].Text == "=" && !Has(plain, "operator")) break;
    plain.push_back(statement[i++]);
  }
  return plain;
}

// True for "f(", false for "x(1", which gives a variable its value.
bool IsFunction(const Statement& declared) {
  if (Has(declared, "operator")) return true;
  const auto bracket = std::find_if(declared.begin(), declared.end(),
                                    [](const Token& token) { return token.Text == "("; });
  if (bracket == declared.end()) return false;
  const auto next = std::next(bracket);
  if (next == declared.end()) return true;
  return next->Text != "\"\"" && !std::isdigit(static_cast<unsigned char>(next->Text.front()));
}

// A pointer is constant only if the word stands behind its last star.
bool IsConstant(const Statement& declared) {
  if (Has(declared, "constexpr")) return true;
  for (auto token = declared.rbegin(); token != declared.rend(); ++token) {
    if (token->Text == "const") return true;
    if (token->Text == "*") return false;
  }
  return false;
}

std::ptrdiff_t Count(const Statement& statement, std::string_view text) {
  return std::count_if(statement.begin(), statement.end(),
                       [text](const Token& token) { return token.Text == text; });
}

// The kind of scope that a "{" opens behind a statement at namespace or class level.
Scope KindBehind(const Statement& statement) {
  if (Count(statement, "(") != Count(statement, ")")) return Scope::Value;
  const Statement declared = Declared(statement);
  if (Has(declared, "namespace") || (Has(declared, "extern") && Has(declared, "\"\""))) {
    return Scope::Namespace;
  }
  if (declared.empty() || IsFunction(declared)) return Scope::Code;
  if (Has(declared, "enum")) return Scope::Value;
  return HasOneOf(declared, kTypeWords) ? Scope::Class : Scope::Value;
}

// Reads one file's tokens and notes each variable that outlives its scope and can change.
class GlobalsSearch {
 public:
  explicit GlobalsSearch(const SourceFile& file) : file_(file), tokens_(TokensOf(file.Text)) {}

  Faults Run() {
    for (at_ = 0; at_ < tokens_.size(); ++at_) {
      const std::string& text = tokens_[at_].Text;
      if (text == "static" || text == "thread_local") CheckStatic();
      if (text == "{") {
        Open();
      } else if (text == "}") {
        Close();
      } else if (text == ";") {
        if (Kind() == Scope::Namespace) CheckVariable();
        statement_.clear();
      } else if (!InCode()) {
        statement_.push_back(tokens_[at_]);
      }
    }
    return faults_;
  }

 private:
  Scope Kind() const { return open_.empty() ? Scope::Namespace : open_.back().Kind; }
  bool InCode() const { return Kind() == Scope::Code || Kind() == Scope::Value; }

  void Open() {
    const Scope kind = InCode() ? Kind() : KindBehind(statement_);
    open_.push_back({kind, statement_});
    statement_.clear();
  }

  // Behind a value the statement goes on, and so it does behind a constructor's member{value}.
  void Close() {
    if (open_.empty()) return;
    const std::string next = at_ + 1 < tokens_.size() ? tokens_[at_ + 1].Text : "";
    const bool member = open_.back().Kind == Scope::Code && (next == "," || next == "{");
    const bool goesOn = member || open_.back().Kind == Scope::Value;
    statement_ = goesOn ? open_.back().Before : Statement();
    open_.pop_back();
  }

  void CheckStatic() {
    if (Has(statement_, "static") || Has(statement_, "thread_local")) return;
    Statement whole = InCode() ? Statement() : statement_;
    std::size_t end = at_;
    for (; end < tokens_.size(); ++end) {
      if (tokens_[end].Text == ";" || tokens_[end].Text == "{") break;
      whole.push_back(tokens_[end]);
    }
    const Statement declared = Declared(whole);
    if (!InCode() && IsFunction(declared)) return;
    if (IsConstant(declared) && !Has(declared, "thread_local")) return;
    Note("a static variable that can change");
  }

  void CheckVariable() {
    const Statement declared = Declared(statement_);
    if (declared.empty() || IsFunction(declared) || IsConstant(declared)) return;
    if (HasOneOf(declared, kNoVariable) || HasOneOf(declared, kTypeWords)) return;
    if (Has(declared, "static") || Has(declared, "thread_local")) return;
    Note("a global variable that can change");
  }

  void Note(const std::string& what) {
    faults_.push_back(file_.Path + ":" + std::to_string(tokens_[at_].Line) + ": " + what);
  }

  const SourceFile& file_;
  const std::vector<Token> tokens_;
  std::size_t at_ = 0;
  std::vector<OpenScope> open_;
  Statement statement_;
  Faults faults_;
};

}  // namespace

Faults FindMutableGlobals(const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    const Faults found = GlobalsSearch(file).Run();
    faults.insert(faults.end(), found.begin(), found.end());
  }
  return faults;
}

}  // namespace tintbench::layout
