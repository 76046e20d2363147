#include "layout/SourceText.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tintbench::layout {

namespace {

bool IsWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

// Walks over a text once and collects its tokens.
class Tokenizer {
 public:
  explicit Tokenizer(const std::string& text) : text_(text) {}

  std::vector<Token> Run() {
    while (at_ < text_.size()) Step();
    return std::move(tokens_);
  }

 private:
  void Step() {
    const char c = text_[at_];
    if (c == '\n' || std::isspace(static_cast<unsigned char>(c))) {
      SkipTo(at_ + 1);
    } else if (Starts("//")) {
      SkipTo(text_.find('\n', at_));
    } else if (Starts("/*")) {
      SkipBehind("*/", at_ + 2);
    } else if (c == '#') {
      SkipPreprocessorLine();
    } else if (Starts("R\"")) {
      TakeRawText();
    } else if (c == '"' || c == '\'') {
      TakeLiteral(c);
    } else if (IsWordCharacter(c)) {
      TakeWord();
    } else {
      Take(Starts("::") || Starts("->") ? 2 : 1);
    }
  }

  bool Starts(std::string_view mark) const { return text_.compare(at_, mark.size(), mark) == 0; }

  // Moves on to a position and counts the lines passed.
  void SkipTo(std::size_t position) {
    const std::size_t end = std::min(position, text_.size());
    line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                                         text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
    at_ = end;
  }

  void SkipBehind(std::string_view mark, std::size_t from) {
    const std::size_t found = text_.find(mark, from);
    SkipTo(found == std::string::npos ? found : found + mark.size());
  }

  // A line that ends in a backslash goes on in the next one.
  void SkipPreprocessorLine() {
    std::size_t end = text_.find('\n', at_);
    while (end != std::string::npos && text_[end - 1] == '\\') end = text_.find('\n', end + 1);
    SkipTo(end);
  }

  void TakeRawText() {
    const std::size_t bracket = text_.find('(', at_);
    tokens_.push_back({line_, "\"\""});
    if (bracket == std::string::npos) return SkipTo(bracket);
    SkipBehind(")" + text_.substr(at_ + 2, bracket - at_ - 2) + "\"", bracket);
  }

  void TakeLiteral(char quote) {
    tokens_.push_back({line_, "\"\""});
    std::size_t end = at_ + 1;
    while (end < text_.size() && text_[end] != quote) end += text_[end] == '\\' ? 2U : 1U;
    SkipTo(end + 1);
  }

  // A ' inside a number only groups its digits.
  void TakeWord() {
    const bool number = std::isdigit(static_cast<unsigned char>(text_[at_])) != 0;
    std::size_t end = at_;
    while (end < text_.size() && (IsWordCharacter(text_[end]) || (number && text_[end] == '\''))) {
      ++end;
    }
    Take(end - at_);
  }

  void Take(std::size_t length) {
    tokens_.push_back({line_, text_.substr(at_, length)});
    SkipTo(at_ + length);
  }

  const std::string& text_;
  std::size_t at_ = 0;
  int line_ = 1;
  std::vector<Token> tokens_;
};

}  // namespace

std::vector<SourceFile> ReadSources(const std::filesystem::path& root) {
  std::vector<SourceFile> files;
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    files.push_back({entry.path().lexically_relative(root).generic_string(),
                     {std::istreambuf_iterator<char>(in), {}}});
  }
  std::sort(files.begin(), files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.Path < b.Path; });
  return files;
}

std::string FolderOf(std::string_view path) {
  const std::size_t slash = path.find('/');
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

std::vector<Include> IncludesOf(const std::string& text) {
  std::vector<Include> includes;
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    std::istringstream words(line);
    std::string mark;
    words >> mark;
    if (mark == "#") {
      words >> mark;
      mark.insert(0, "#");
    }
    if (mark.rfind("#include", 0) != 0) continue;
    const std::size_t open = line.find_first_of("\"<");
    if (open == std::string::npos) continue;
    const std::size_t close = line.find_first_of("\">", open + 1);
    if (close == std::string::npos) continue;
    includes.push_back({number, line.substr(open + 1, close - open - 1), line[open] == '"'});
  }
  return includes;
}

std::vector<Token> TokensOf(const std::string& text) { return Tokenizer(text).Run(); }

bool IsWord(const Token& token) {
  const char c = token.Text.front();
  return IsWordCharacter(c) && !std::isdigit(static_cast<unsigned char>(c));
}

}  // namespace tintbench::layout
