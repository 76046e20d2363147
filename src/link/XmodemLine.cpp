#include "link/XmodemLine.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "base/Numbers.h"
#include "base/Text.h"
#include "link/XmodemProtocol.h"

namespace tintbench::link {

namespace {

// How long the operator, and a port that is lost meanwhile, go unnoticed in a silence, in seconds.
constexpr double kLongestPatience = 0.1;
constexpr int kInputThere = 0;
constexpr int kCancelRepeats = 8;
constexpr int kTraceDecimals = 3;

}  // namespace

void XmodemLine::SendChar(int code) {
  const char character = static_cast<char>(code);
  Send({&character, 1});
}

void XmodemLine::Send(std::string_view characters) {
  port_.Output(characters);
  if (trace_ == nullptr) return;
  for (const char character : characters) Trace("(S=", ")(", character, ")");
}

int XmodemLine::ReadChar(int timeoutMs) { return ReadCharUntil(TimeOut(timeoutMs)); }

int XmodemLine::ReadCharUntil(double when) {
  const int code = peeked_ >= 0 ? std::exchange(peeked_, kXmodemSilence) : Fetch(when);
  const char character = static_cast<char>(code);
  if (code >= 0) TraceRead({&character, 1});
  return code;
}

int XmodemLine::PeekChar(int timeoutMs) {
  if (peeked_ >= 0) return peeked_;
  const int code = Fetch(TimeOut(timeoutMs));
  if (code >= 0) peeked_ = code;
  return code;
}

bool XmodemLine::ReadBlock(std::size_t count, int timeoutMs, std::string& characters) {
  characters.clear();
  while (characters.size() < count) {
    if (AwaitInput(TimeOut(timeoutMs)) != kInputThere) return false;
    // No more than belongs to the block: what comes behind a transfer isn't ours.
    port_.InputLen(static_cast<int>(count - characters.size()));
    const std::string input = port_.Input();
    if (input.empty()) return false;
    TraceRead(input);
    characters += input;
  }
  return true;
}

void XmodemLine::CancelTransfer() {
  Send(std::string(kCancelRepeats, static_cast<char>(kXmodemCan)) +
       std::string(kCancelRepeats, static_cast<char>(kXmodemBs)));
}

double XmodemLine::TimeOut(int timeoutMs) const {
  if (timeoutMs == 0) return std::numeric_limits<double>::infinity();
  return clock_.Now() + timeoutMs / 1000.0;
}

int XmodemLine::Fetch(double when) {
  const int awaited = AwaitInput(when);
  if (awaited != kInputThere) return awaited;
  port_.InputLen(1);
  const std::string input = port_.Input();
  if (input.empty()) return kXmodemSilence;
  return static_cast<unsigned char>(input[0]);
}

int XmodemLine::AwaitInput(double when) {
  // Mostly the next character is there already, and nobody need be asked.
  if (port_.InBufferCount() > 0) return kInputThere;
  while (port_.PortOpen()) {
    if (port_.InBufferCount() > 0) return kInputThere;
    if (clock_.Now() >= when) return kXmodemSilence;
    if (attend_()) return kXmodemStopped;
    port_.WaitForInput(std::clamp(when - clock_.Now(), 0.0, kLongestPatience));
  }
  return kXmodemSilence;
}

void XmodemLine::TraceRead(std::string_view characters) {
  if (trace_ == nullptr) return;
  for (const char character : characters) Trace("[R=", "][", character, "]");
}

void XmodemLine::Trace(std::string_view opening, std::string_view middle, char character,
                       std::string_view closing) {
  std::string line(opening);
  line += base::PlainNumber(base::RoundHalfEven(clock_.Now(), kTraceDecimals));
  line += middle;
  line += character;
  line += closing;
  line += base::kCrLf;
  // A trace that fails, on a full disk for example, must not disturb the transfer.
  std::ignore = trace_->Write(line);
}

}  // namespace tintbench::link
