#include "simulator/CommandReader.h"

#include <utility>

#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr char kCommandStart = '#';
constexpr char kCommandEnd = '*';
constexpr char kMasterStart = 1;
constexpr char kMasterEnd = 3;

}  // namespace

void CommandReader::Clear() {
  endMark_ = 0;
  text_.clear();
}

void CommandReader::Begin(char endMark) {
  endMark_ = endMark;
  text_.clear();
}

std::optional<Frame> CommandReader::Receive(unsigned char byte, double now) {
  if (now - lastByte_ > kTimeoutSeconds) Clear();
  lastByte_ = now;
  const char character = static_cast<char>(byte);
  if (character == kCommandStart || character == kMasterStart) {
    Begin(character == kCommandStart ? kCommandEnd : kMasterEnd);
    return std::nullopt;
  }
  if (endMark_ == 0) return std::nullopt;
  if (character == endMark_) {
    Frame frame{endMark_ == kMasterEnd, base::ToUpper(text_)};
    Clear();
    return frame;
  }
  if (text_.size() >= kLongest) {
    Clear();
    return std::nullopt;
  }
  text_.push_back(character);
  return std::nullopt;
}

}  // namespace tintbench::simulator
