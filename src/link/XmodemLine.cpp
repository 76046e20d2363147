#include "link/XmodemLine.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "base/Numbers.h"
#include "base/Text.h"
#include "link/XmodemProtocol.h"

namespace tintbench::link {

namespace {

// How long a port that was lost while waiting can go unnoticed.
constexpr double kLongestPatience = 0.5;
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

int XmodemLine::ReadChar(int timeoutMs) {
  if (!AwaitCharacter(timeoutMs)) return kXmodemSilence;
  const std::string input = port_.Input();
  if (input.empty()) return kXmodemSilence;
  Trace("[R=", "][", input[0], "]");
  return static_cast<unsigned char>(input[0]);
}

void XmodemLine::CancelTransfer() {
  Send(std::string(kCancelRepeats, static_cast<char>(kXmodemCan)) +
       std::string(kCancelRepeats, static_cast<char>(kXmodemBs)));
}

bool XmodemLine::AwaitCharacter(int timeoutMs) {
  // Mostly the next character is there already, and the clock needn't be asked.
  if (port_.InBufferCount() > 0) return true;
  const double end =
      timeoutMs == 0 ? std::numeric_limits<double>::infinity() : clock_.Now() + timeoutMs / 1000.0;
  while (port_.PortOpen()) {
    if (port_.InBufferCount() > 0) return true;
    const double rest = end - clock_.Now();
    if (rest <= 0) return false;
    port_.WaitForInput(std::min(rest, kLongestPatience));
  }
  return false;
}

void XmodemLine::Trace(std::string_view opening, std::string_view middle, char character,
                       std::string_view closing) {
  if (trace_ == nullptr) return;
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
