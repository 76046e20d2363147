#include "layout/SourceRules.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <span>
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
constexpr int kLongestFile = 400;
constexpr int kLinesToSayWhy = 15;

// What nobody writes who doesn't want the time of day, a stop-watch or a sleep. A clock's type is
// no use of it, since the time stamps of files are told in one.
constexpr std::array<std::string_view, 18> kClockUses = {
    "::now(",         "std::time(",      "::time(nullptr", "gettimeofday", "clock_gettime",
    "timespec_get",   "sleep_for",       "sleep_until",    "usleep(",      "nanosleep",
    "msleep(",        "QDateTime::curr", "QDate::curr",    "QTime::curr",  "QElapsedTimer",
    "QDeadlineTimer", "GetTickCount",    "GetSystemTime"};

// What opens, names or makes files.
constexpr std::array<std::string_view, 10> kFileUses = {
    "fstream",        "filebuf",   "fopen(",  "freopen(",           "QSaveFile",
    "QTemporaryFile", "QSettings", "mkstemp", "filesystem::rename", "create_director"};

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

// The standard library's headers alone have names of small letters, without a folder or an ending.
bool IsStandardName(const std::string& header) {
  return std::all_of(header.begin(), header.end(),
                     [](char c) { return (c >= 'a' && c <= 'z') || c == '_'; });
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
      if (include.Quoted || IsStandardName(include.Name)) continue;
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

// One fault for each of the texts that a file holds, but for the files that may.
Faults UsesOf(std::span<const std::string_view> texts, const Names& allowed,
              const std::string& what, const std::vector<SourceFile>& files) {
  Faults faults;
  for (const SourceFile& file : files) {
    if (allowed.contains(file.Path)) continue;
    for (const std::string_view text : texts) {
      const std::size_t place = file.Text.find(text);
      if (place == std::string::npos) continue;
      const auto start = file.Text.begin();
      const auto lines = std::count(start, start + static_cast<std::ptrdiff_t>(place), '\n');
      faults.push_back(Fault(file, static_cast<int>(lines) + 1, what));
    }
  }
  return faults;
}

}  // namespace

Faults FindIncludeCycles(const std::vector<SourceFile>& files) { return CycleSearch(files).Run(); }

Faults FindClockUses(const std::vector<SourceFile>& files) {
  return UsesOf(kClockUses, {"base/Clock.cpp"}, "asks the system's clock", files);
}

Faults FindFileUses(const std::vector<SourceFile>& files) {
  // The simulated machine's program is another one.
  return UsesOf(kFileUses, {"base/StandardFileSystem.cpp", "app/machine_main.cpp"},
                "touches files by itself", files);
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
