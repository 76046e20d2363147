#include "simulator/Shelf.h"

#include <algorithm>
#include <cmath>

namespace tintbench::simulator {

namespace {

constexpr double kFullTravelSeconds = 7.0;  // over the whole way at full speed
constexpr int kFullSpeed = 999;
constexpr int kUsualStepsPerMetre = 500;  // of (steps/mm)/100
constexpr double kAboveTheRest = 50.0;    // mm from the highest mark to the top
constexpr double kUsualTop = 400.0;       // mm, without any mark
constexpr double kLongestWay = 1900.0;    // mm
constexpr double kCanHeight = 150.0;      // mm
constexpr double kGuardSeconds = 10.0;    // in which a driven shelf must have arrived
constexpr double kPunchSeconds = 3.0;
constexpr int kLargestPosition = 9999;  // four digits on the line

}  // namespace

double Shelf::Top() const {
  int mark = 0;
  for (const std::size_t field : {13U, 14U, 15U, 17U}) {
    mark = std::max(mark, configuration_.Number("@SGA", field, 0));
  }
  return mark > 0 ? std::min(mark + kAboveTheRest, kLongestWay) : kUsualTop;
}

double Shelf::Speed() const {
  const int speed = std::clamp(configuration_.Number("@SGA", 5, kFullSpeed), 1, kFullSpeed);
  return Top() / kFullTravelSeconds * speed / kFullSpeed;
}

// The height at which the photocell is hidden by a can, with the tolerance for hiding it wholly.
double Shelf::UpperStop() const {
  const int photocell = configuration_.Number("@SGA", 15, 0);
  if (!can_ || photocell <= kCanHeight) return Top();
  return std::min(Top(), photocell - kCanHeight + configuration_.Number("@SGA", 19, 0));
}

double Shelf::Height(double now) const {
  if (stuck_) return from_;
  const double way = Speed() * std::max(now - began_, 0.0);
  return to_ >= from_ ? std::min(from_ + way, to_) : std::max(from_ - way, to_);
}

int Shelf::Steps(double now) const {
  const double perMillimetre = configuration_.Number("@SGA", 12, kUsualStepsPerMetre) / 100.0;
  const double steps = std::round(Height(now) * perMillimetre);
  return static_cast<int>(std::clamp(steps, 0.0, double{kLargestPosition}));
}

int Shelf::Direction(double now) const {
  if (Height(now) == to_ || GivenUp(now)) return 0;
  return to_ > from_ ? 1 : -1;
}

void Shelf::Move(double target, double now) {
  from_ = Height(now);
  to_ = target;
  began_ = now;
}

void Shelf::Stop(double now) { Move(Height(now), now); }

void Shelf::Stick(bool stuck, double now) {
  const double target = GivenUp(now) ? from_ : to_;
  Stop(now);
  stuck_ = stuck;
  to_ = target;
}

bool Shelf::GivenUp(double now) const {
  return stuck_ && to_ != from_ && now - began_ >= kGuardSeconds;
}

bool Shelf::Up(double now) {
  const bool rising = Direction(now) > 0;
  rising ? Stop(now) : Move(std::max(Height(now), UpperStop()), now);
  return !rising && Direction(now) != 0;
}

bool Shelf::Down(double now) {
  const bool sinking = Direction(now) < 0;
  sinking ? Stop(now) : Move(0.0, now);
  return !sinking && Direction(now) != 0;
}

bool Shelf::IsHigh(double now) const { return Exists() && Height(now) >= Top(); }

bool Shelf::IsLow(double now) const { return Exists() && Height(now) <= 0.0; }

void Shelf::PutCan(bool there, double now) {
  can_ = there;
  if (Direction(now) > 0) Move(std::max(Height(now), UpperStop()), now);
}

bool Shelf::PhotocellHidden(double now) const {
  if (!can_ || !Exists()) return can_;
  return Height(now) + kCanHeight >= configuration_.Number("@SGA", 15, 0);
}

void Shelf::Put(double height, double now) {
  from_ = to_ = std::clamp(height, 0.0, Top());
  began_ = now;
}

bool Shelf::Punch(double now) {
  if (!HasPuncher() || Punching(now)) return false;
  punchEnds_ = now + kPunchSeconds;
  return true;
}

}  // namespace tintbench::simulator
