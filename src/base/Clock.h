// The program's only source of time: monotonic seconds for waits and the local
// date and time for files. A virtual body lets hours of waiting pass in a moment.
#pragma once

namespace tintbench::base {

// A point of local calendar time, to the second.
struct LocalTime {
  int Year = 2000;
  int Month = 1;   // 1 to 12
  int Day = 1;     // 1 to 31
  int Hour = 0;    // 0 to 23
  int Minute = 0;  // 0 to 59
  int Second = 0;  // 0 to 60
};

class Clock {
 public:
  virtual ~Clock() = default;

  // Seconds with fractions from an arbitrary start. Never goes backwards.
  virtual double Now() const = 0;

  // Returns after `seconds`; zero or less returns at once. Takes no processor time.
  virtual void Sleep(double seconds) = 0;

  // Returns once Now() has reached `when`; at once if it has. On a virtual clock Now() is then
  // exactly `when`, so that a wait can't stall on a rest too small to be added.
  virtual void SleepUntil(double when) = 0;

  // The local date and time of day.
  virtual LocalTime Local() const = 0;

  // True if time passes only when somebody sleeps.
  virtual bool IsVirtual() const = 0;
};

// The computer's own clock.
class RealClock final : public Clock {
 public:
  double Now() const override;
  void Sleep(double seconds) override;
  void SleepUntil(double when) override;
  LocalTime Local() const override;
  bool IsVirtual() const override { return false; }
};

// A clock that stands still until somebody sleeps on it. Starts at Now() == 0.
class VirtualClock final : public Clock {
 public:
  explicit VirtualClock(LocalTime start = {2026, 1, 1, 8, 0, 0}) : start_(start) {}

  double Now() const override { return now_; }
  void Sleep(double seconds) override;
  void SleepUntil(double when) override;
  LocalTime Local() const override;
  bool IsVirtual() const override { return true; }

  // Sets the date and time of day forward by so many seconds, or back, as an operator or the end of
  // summer does. Now() takes no notice.
  void TurnDayClock(long seconds) { turned_ += seconds; }

 private:
  LocalTime start_;
  long turned_ = 0;
  double now_ = 0.0;
};

}  // namespace tintbench::base
