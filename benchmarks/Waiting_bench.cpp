// Processor time that the program takes while it waits ten seconds for a machine that is silent,
// on a real pseudo-terminal, as a part of one core.
#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>

#include <iostream>

#include "Ratio.h"
#include "link/Transaction.h"
#include "qt/QtSerialPort.h"
#include "ui/OperatorScreen.h"

namespace tintbench::bench {
namespace {

constexpr auto kResetRow = link::CommandId::Reset;  // ten seconds of patience

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

int Measure() {
  const int machine = posix_openpt(O_RDWR | O_NOCTTY);
  if (machine < 0 || grantpt(machine) != 0 || unlockpt(machine) != 0) {
    std::printf("no pseudo-terminal to measure on\n");
    return 1;
  }
  base::RealClock clock;
  base::StandardFileSystem files;
  desktop::QtSerialPort port(clock, desktop::PortTable({{1, ptsname(machine)}}), {});
  port.CommPort(1);
  if (!port.PortOpen(true)) {
    std::printf("the pseudo-terminal can't be opened\n");
    return 1;
  }
  link::CommandTable commands;
  ui::OperatorScreen screen(clock, {}, std::cout, std::cerr);
  link::DebugLog log(files, "");
  link::Transaction transaction(port, clock, commands, screen, log);
  link::LineView view;
  const double start = clock.Now();
  const double before = ProcessorSeconds();
  transaction.SendCommand(view, kResetRow);
  PrintRatio("processor time of a wait / its length", ProcessorSeconds() - before,
             clock.Now() - start, "s", "aim: under 0.01");
  ::close(machine);
  return 0;
}

}  // namespace
}  // namespace tintbench::bench

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  return tintbench::bench::Measure();
}
