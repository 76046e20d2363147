// The signals that tell a program to end, made into something that an event loop can wait for.
#pragma once

namespace tintbench::app {

// Takes over SIGTERM, SIGINT and SIGHUP, each unless it is ignored from outside, as nohup does. To
// be made before any other thread starts, and kept until the end: none of them kills any more.
// Whoever reads the transcript or the diagnostics may go, too, without killing the program.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  // A descriptor that can be read once a signal has come; -1 where there is none.
  int Descriptor() const { return descriptor_; }
  // Takes the signals that have come.
  void Take() const;

 private:
  int descriptor_ = -1;
};

}  // namespace tintbench::app
