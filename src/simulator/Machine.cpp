#include "simulator/Machine.h"

#include <algorithm>
#include <utility>

namespace tintbench::simulator {

namespace {

constexpr int kUsualMasterBaud = 9600;

}  // namespace

Machine::Machine(const base::Clock& clock, MachineOptions options)
    : clock_(clock),
      options_(std::move(options)),
      now_(clock.Now()),
      plant_(Configuration::Read(options_.Configuration, options_.Slave), options_.Firmware, now_),
      readyAt_(now_) {}

void Machine::Attach(const LineFormat& format) {
  Live();
  fromMachine_.Clear();
  attached_ = true;
  Tune(format);
}

void Machine::Retune(const LineFormat& format) {
  Live();
  Tune(format);
}

void Machine::Tune(const LineFormat& format) {
  const LineFormat service{options_.ServiceBaud, 'N', 8, 1.0};
  const LineFormat master{plant_.Config.Number("@VEL", 1, kUsualMasterBaud), 'N', 8, 1.0};
  line_ = format.Matches(service)  ? SerialLine::Service
          : format.Matches(master) ? SerialLine::Master
                                   : SerialLine::None;
  toMachine_.ByteSeconds(format.ByteSeconds());
  fromMachine_.ByteSeconds(format.ByteSeconds());
}

void Machine::Detach() {
  Live();
  attached_ = false;
  fromMachine_.Clear();
}

void Machine::Write(std::string_view bytes) {
  Live();
  if (attached_ && plugged_) Carry(toMachine_, bytes);
}

std::string Machine::Read() {
  Live();
  return fromMachine_.TakeArrived(now_);
}

double Machine::NextEvent() {
  Live();
  return std::min(NextOwnEvent(), fromMachine_.NextArrival());
}

bool Machine::Plugged() {
  Live();
  return plugged_;
}

double Machine::NextOwnEvent() const {
  double next = toMachine_.NextArrival();
  if (!accidents_.empty()) next = std::min(next, accidents_.front().When);
  if (!errands_.empty()) next = std::min(next, errands_.front().When);
  if (!pending_.empty()) next = std::min(next, pending_.front().When);
  if (transfer_) next = std::min(next, transfer_->Deadline());
  return next;
}

// Everything that is due happens in the order of its time, each at its own time, however long
// nobody has looked.
void Machine::Live() {
  const double until = clock_.Now();
  while (NextOwnEvent() <= until) {
    now_ = std::max(now_, NextOwnEvent());
    Step();
  }
  now_ = std::max(now_, until);
}

void Machine::Step() {
  if (!accidents_.empty() && accidents_.front().When <= now_) {
    const Fault what = accidents_.front().What;
    accidents_.erase(accidents_.begin());
    return Befall(what);
  }
  if (!errands_.empty() && errands_.front().When <= now_) {
    const std::string text = std::move(errands_.front().Text);
    errands_.erase(errands_.begin());
    Do(text);
    return;
  }
  if (toMachine_.NextArrival() <= now_) return Hear(toMachine_.TakeNext());
  if (transfer_ && transfer_->Deadline() <= now_) {
    transfer_->Tick(now_);
    return AfterTransfer();
  }
  const Pending done = std::move(pending_.front());
  pending_.pop_front();
  Emit(done.Answer);
  Begin(done.Then);
}

void Machine::Hear(unsigned char byte) {
  if (now_ < readyAt_) return;
  if (transfer_) {
    transfer_->Receive(byte, now_);
    return AfterTransfer();
  }
  if (!RunsProgram()) return;
  if (const std::optional<Frame> frame = reader_.Receive(byte, now_)) Obey(*frame);
}

void Machine::Emit(std::string_view bytes) {
  if (attached_ && plugged_) Carry(fromMachine_, bytes);
}

}  // namespace tintbench::simulator
