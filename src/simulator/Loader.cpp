#include "simulator/Loader.h"

#include <algorithm>
#include <span>

#include "base/Numbers.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kMostBytes = std::size_t{8} << 20;
constexpr std::size_t kMostParts = 99;  // that the display can count

constexpr double kEraseSeconds = 4.0;
constexpr double kBytesPerSecond = 16000.0;
constexpr double kLongestWriting = 25.0;

// Where the line that begins with this tag begins; npos if there is none.
std::size_t LineOf(std::string_view text, std::string_view tag) {
  for (std::size_t place = text.find(tag); place != std::string_view::npos;
       place = text.find(tag, place + 1)) {
    if (place == 0 || text[place - 1] == '\n') return place;
  }
  return std::string_view::npos;
}

// A last part closes the program with "@EPS" and directly behind it "@PDD".
bool Closes(std::string_view part) {
  const std::size_t end = LineOf(part, "@EPS ");
  if (end == std::string_view::npos) return false;
  const std::size_t next = part.find('\n', end);
  return next != std::string_view::npos && part.substr(next + 1).starts_with("@PDD ");
}

}  // namespace

void Loader::Begin() {
  stage_ = Stage::Taking;
  parts_.clear();
  size_ = 0;
}

void Loader::Take(std::string_view part) {
  const std::string_view text = WithoutPadding(part);
  if (text.empty()) return;
  if (text.starts_with("@IPS ")) Begin();
  const bool fits = size_ + text.size() <= kMostBytes && parts_.size() < kMostParts;
  const bool last = LineOf(text, "@PDD ") != std::string_view::npos;
  const bool opened = !parts_.empty() || text.starts_with("@IPS ");
  if (!fits || !opened || (last && !Closes(text))) {
    Begin();
    stage_ = Stage::Refused;
    return;
  }
  parts_.emplace_back(text);
  size_ += text.size();
  stage_ = last ? Stage::Writing : Stage::Taking;
}

std::string Loader::Program() const { return Join(parts_, ""); }

std::string Loader::Version() const {
  for (const std::string& part : parts_) {
    const std::size_t line = LineOf(part, "@VER ");
    if (line == std::string::npos) continue;
    const std::vector<std::string> words =
        Words(std::string_view(part).substr(line, part.find_first_of("\r\n", line) - line));
    if (words.size() > 1) return words.back();
  }
  return {};
}

double Loader::WriteSeconds() const {
  return std::min(kEraseSeconds + static_cast<double>(size_) / kBytesPerSecond, kLongestWriting);
}

std::string Loader::Display(int slave) const {
  const std::string address = "XM " + base::LastDigits(slave, 2);
  switch (stage_) {
    case Stage::Taking:
      return address + " FILE " + base::LastDigits(static_cast<int>(parts_.size()), 2);
    case Stage::Refused:
      return address + " ERROR";
    case Stage::Writing:
      return "WRITING FLASH";
    case Stage::Written:
      return "TURN OFF SLAVE";
  }
  return {};
}

}  // namespace tintbench::simulator
