#include "layout/SourceRules.h"

#include <algorithm>
#include <map>
#include <set>
#include <sstream>
#include <string_view>

namespace tintbench::layout {

namespace {

using Names = std::set<std::string, std::less<>>;

const std::map<std::string, int, std::less<>> kFloors = {
    {"base", 1},     {"ui", 2},        {"config", 3}, {"state", 4},  {"editor", 4},
    {"link", 5},     {"commands", 6},  {"stats", 6},  {"groups", 6}, {"transfer", 6},
    {"autotest", 6}, {"simulator", 6}, {"shell", 7},  {"qt", 8},     {"app", 9}};

constexpr std::string_view kSimulatorsWindow = "link/SerialPort.h";
constexpr std::string_view kClockFile = "base/Clock.cpp";
constexpr int kLongestFile = 400;
constexpr int kLinesToSayWhy = 15;

// The C++20 library, and the C headers with their C++ names.
const Names kStandardHeaders = {"algorithm",
                                "any",
                                "array",
                                "atomic",
                                "barrier",
                                "bit",
                                "bitset",
                                "cassert",
                                "cctype",
                                "cerrno",
                                "cfenv",
                                "cfloat",
                                "charconv",
                                "chrono",
                                "cinttypes",
                                "climits",
                                "clocale",
                                "cmath",
                                "codecvt",
                                "compare",
                                "complex",
                                "concepts",
                                "condition_variable",
                                "coroutine",
                                "csetjmp",
                                "csignal",
                                "cstdarg",
                                "cstddef",
                                "cstdint",
                                "cstdio",
                                "cstdlib",
                                "cstring",
                                "ctime",
                                "cuchar",
                                "cwchar",
                                "cwctype",
                                "deque",
                                "exception",
                                "execution",
                                "filesystem",
                                "format",
                                "forward_list",
                                "fstream",
                                "functional",
                                "future",
                                "initializer_list",
                                "iomanip",
                                "ios",
                                "iosfwd",
                                "iostream",
                                "istream",
                                "iterator",
                                "latch",
                                "limits",
                                "list",
                                "locale",
                                "map",
                                "memory",
                                "memory_resource",
                                "mutex",
                                "new",
                                "numbers",
                                "numeric",
                                "optional",
                                "ostream",
                                "queue",
                                "random",
                                "ranges",
                                "ratio",
                                "regex",
                                "scoped_allocator",
                                "semaphore",
                                "set",
                                "shared_mutex",
                                "source_location",
                                "span",
                                "sstream",
                                "stack",
                                "stdexcept",
                                "stop_token",
                                "streambuf",
                                "string",
                                "string_view",
                                "strstream",
                                "syncstream",
                                "system_error",
                                "thread",
                                "tuple",
                                "type_traits",
                                "typeindex",
                                "typeinfo",
                                "unordered_map",
                                "unordered_set",
                                "utility",
                                "valarray",
                                "variant",
                                "vector",
                                "version"};

// Names that nobody writes who doesn't want the time of day, a stop-watch or a sleep. A clock's
// type is no use of it, since the time stamps of files are told in one.
const Names kClockNames = {"gettimeofday",  "ftime",          "clock_gettime",
                           "timespec_get",  "sleep_for",      "sleep_until",
                           "usleep",        "nanosleep",      "msleep",
                           "QDateTime",     "QDate",          "QTime",
                           "QElapsedTimer", "QDeadlineTimer", "GetTickCount",
                           "GetSystemTime", "GetLocalTime",   "QueryPerformanceCounter"};

// Ordinary words that are clock calls if a bracket follows.
const Names kClockCalls = {"time", "clock", "sleep", "now"};

std::string Fault(const SourceFile& file, int line, const std::string& what) {
  return file.Path + ":" + std::to_string(line) + ": " + what;
}

int FloorOf(std::string_view folder) {
  const auto found = kFloors.find(folder);
  return found == kFloors.end() ? 0 : found->second;
}

bool IsDesktop(const SourceFile& file) {
  const std::string folder = FolderOf(file.Path);
  return folder == "qt" || folder == "app";
}

bool MayInclude(const std::string& folder, const Include& include) {
  const std::string other = FolderOf(include.Name);
  if (other == folder) return true;
  if (folder == "simulator") return other == "base" || include.Name == kSimulatorsWindow;
  return FloorOf(other) != 0 && FloorOf(other) < FloorOf(folder);
}

}  // namespace

Faults FindLadderFaults(const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    const std::string folder = FolderOf(file.Path);
    if (FloorOf(folder) == 0) faults.push_back(Fault(file, 1, "lies in no known folder"));
    for (const Include& include : IncludesOf(file.Text)) {
      const bool generated = include.Name.ends_with(".moc");
      if (!include.Quoted || generated || MayInclude(folder, include)) continue;
      faults.push_back(Fault(file, include.Line, folder + "/ may not know " + include.Name));
    }
  }
  return faults;
}

Faults FindForeignHeaders(const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    if (IsDesktop(file)) continue;
    for (const Include& include : IncludesOf(file.Text)) {
      if (include.Quoted || kStandardHeaders.contains(include.Name)) continue;
      faults.push_back(Fault(file, include.Line, "<" + include.Name + "> is no standard header"));
    }
  }
  return faults;
}

namespace {

// Follows the includes of one file after another and notes the way back to a file still open.
class CycleSearch {
 public:
  explicit CycleSearch(const std::vector<SourceFile>& files) {
    for (const SourceFile& file : files) files_[file.Path] = &file;
  }

  Faults Run() {
    for (const auto& [path, file] : files_) Visit(*file);
    return faults_;
  }

 private:
  void Visit(const SourceFile& file) {
    if (!seen_.insert(file.Path).second) return;
    open_.insert(file.Path);
    for (const Include& include : IncludesOf(file.Text)) {
      if (open_.contains(include.Name)) {
        faults_.push_back(Fault(file, include.Line, "comes back to " + include.Name));
      }
      const auto next = files_.find(include.Name);
      if (next != files_.end()) Visit(*next->second);
    }
    open_.erase(file.Path);
  }

  std::map<std::string, const SourceFile*> files_;
  Names seen_;
  Names open_;
  Faults faults_;
};

// True if the word at `i` is a call of one of the library's clock functions, and neither a
// member of some object nor the name in a declaration.
bool IsClockCall(const std::vector<Token>& tokens, std::size_t i) {
  if (!kClockCalls.contains(tokens[i].Text)) return false;
  if (i + 1 >= tokens.size() || tokens[i + 1].Text != "(") return false;
  const std::string before = i > 0 ? tokens[i - 1].Text : ";";
  if (before == "::") return true;
  if (tokens[i].Text == "now" || before == "." || before == "->") return false;
  return before == "return" || !IsWord({0, before});
}

}  // namespace

Faults FindIncludeCycles(const std::vector<SourceFile>& files) { return CycleSearch(files).Run(); }

Faults FindClockUses(const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    if (file.Path == kClockFile) continue;
    const std::vector<Token> tokens = TokensOf(file.Text);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (!kClockNames.contains(tokens[i].Text) && !IsClockCall(tokens, i)) continue;
      faults.push_back(Fault(file, tokens[i].Line, "uses the system's " + tokens[i].Text));
    }
  }
  return faults;
}

Faults FindLongFiles(const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    const auto lines = std::count(file.Text.begin(), file.Text.end(), '\n');
    if (lines <= kLongestFile) continue;
    std::istringstream text(file.Text);
    bool saysWhy = false;
    std::string line;
    for (int i = 0; i < kLinesToSayWhy && std::getline(text, line); ++i) {
      saysWhy = saysWhy || line.find("Longer than") != std::string::npos;
    }
    if (!saysWhy) faults.push_back(Fault(file, 1, std::to_string(lines) + " lines and no reason"));
  }
  return faults;
}

}  // namespace tintbench::layout
