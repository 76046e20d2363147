#include "simulator/Line.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

std::optional<char> ParityLetter(std::string_view text) {
  if (text.empty()) return std::nullopt;
  const std::string letter = base::ToUpper(Trim(text));
  if (letter.empty()) return 'S';
  const bool known =
      letter.size() == 1 && std::string_view("NEOMS").find(letter) != std::string::npos;
  return known ? std::optional(letter.front()) : std::nullopt;
}

}  // namespace

double LineFormat::ByteSeconds() const {
  const double bits = 1.0 + DataBits + (Parity == 'N' ? 0.0 : 1.0) + StopBits;
  return bits / Baud;
}

bool LineFormat::Matches(const LineFormat& other) const {
  return Baud == other.Baud && Parity == other.Parity && DataBits == other.DataBits;
}

std::optional<LineFormat> LineFormat::Parse(std::string_view settings) {
  const std::vector<std::string> fields = Split(settings, ',');
  if (fields.size() != 4) return std::nullopt;
  const std::optional<double> baud = WholeNumber(Trim(fields[0]));
  const std::optional<char> parity = ParityLetter(fields[1]);
  const std::optional<double> data = WholeNumber(Trim(fields[2]));
  const std::optional<double> stop = WholeNumber(Trim(fields[3]));
  if (!baud || !parity || !data || !stop) return std::nullopt;
  if (*baud < 50 || *baud > 1000000 || *data < 4 || *data > 8 || *stop < 1 || *stop > 2) {
    return std::nullopt;
  }
  return LineFormat{static_cast<int>(*baud), *parity, static_cast<int>(*data), *stop};
}

void Wire::Put(std::string_view bytes, double now) {
  free_ = std::max(free_, now);
  for (const char byte : bytes) {
    if (bytes_.size() >= kCapacity) return;
    free_ += byteSeconds_;
    bytes_.push_back({free_, static_cast<unsigned char>(byte)});
  }
}

unsigned char Wire::TakeNext() {
  const unsigned char value = bytes_.front().Value;
  bytes_.pop_front();
  return value;
}

void Wire::Cut(double now) {
  while (!bytes_.empty() && bytes_.back().Due > now) bytes_.pop_back();
  free_ = std::min(free_, now);
}

std::string Wire::TakeArrived(double now) {
  std::string arrived;
  while (NextArrival() <= now) arrived.push_back(static_cast<char>(TakeNext()));
  return arrived;
}

}  // namespace tintbench::simulator
