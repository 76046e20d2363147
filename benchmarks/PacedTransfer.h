// One Xmodem transfer over a paced line, between any two of our engine, on the program's own port,
// and the programs of lrzsz; many of them at the same time, each in a process of its own.
#pragma once

#include <stdlib.h>

#include <QCoreApplication>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <thread>
#include <type_traits>

#include "LineProgram.h"
#include "PacedRelay.h"
#include "link/Xmodem.h"
#include "qt/QtSerialPort.h"

namespace tintbench::bench {

enum class Ends { SxToRx, OursToRx, SxToOurs };

struct TransferCase {
  Ends Between = Ends::SxToRx;
  int BlockSize = 128;
  bool Crc = false;  // our own reception never asks for it
  std::size_t Size = 16384;
  LineRules Rules;
};

struct TransferOutcome {
  bool Good = false;   // both ends say so, and what was received is what was sent
  double Seconds = 0;  // until both ends were done
  LineTimes Times;
};

// Bytes of all values.
inline std::string SampleBytes(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 13 + i / 251);
  return bytes;
}

inline std::string FileContent(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A pseudo-terminal, whose other end ptsname tells. -1 if there is none.
inline int OpenPseudoTerminal() {
  const int line = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  return line >= 0 && grantpt(line) == 0 && unlockpt(line) == 0 ? line : -1;
}

// A transfer in the making, in a process without any other thread.
class PacedTransfer {
 public:
  PacedTransfer(const TransferCase& wanted, const std::string& folder)
      : wanted_(wanted), folder_(folder), from_(folder + "/from"), to_(folder + "/to") {}

  TransferOutcome Run() {
    const std::string sample = SampleBytes(wanted_.Size);
    std::ofstream(from_, std::ios::binary) << sample;
    const double start = clock_.Now();
    const bool good = wanted_.Between == Ends::SxToRx ? RunPrograms() : RunOurs();
    const double seconds = clock_.Now() - start;
    return {good && FileContent(to_) == sample, seconds, times_};
  }

 private:
  // What a receiver sends while the sender starts is kept by the line; a receiver that starts
  // first would be too early by that.
  static constexpr double kStartDelay = 0.3;

  bool RunPrograms() {
    const auto atSender = SocketLine();
    const auto atReceiver = SocketLine();
    LineProgram sender(SenderWords(wanted_.BlockSize, from_), atSender[1]);
    LineProgram receiver(ReceiverWords(wanted_.Crc, to_), atReceiver[1]);
    PacedRelay relay(clock_, wanted_.Rules, atSender[0], atReceiver[0]);
    sender.Start();
    clock_.Sleep(kStartDelay);
    receiver.Start();
    relay.Run();
    times_ = relay.Times();
    const bool sent = sender.EndsWell();
    return receiver.EndsWell() && sent;
  }

  // The engine throws away what has come before it begins, and so begins before its peer.
  bool RunOurs() {
    const bool sending = wanted_.Between == Ends::OursToRx;
    const int line = OpenPseudoTerminal();
    if (line < 0) return false;
    desktop::QtSerialPort port(clock_, desktop::PortTable({{1, ptsname(line)}}), {});
    port.CommPort(1);
    port.Settings("19200,N,8,1");
    if (!port.PortOpen(true)) return false;
    const auto atPeer = SocketLine();
    LineProgram peer(
        sending ? ReceiverWords(wanted_.Crc, to_) : SenderWords(wanted_.BlockSize, from_),
        atPeer[1]);
    PacedRelay relay(clock_, wanted_.Rules, sending ? line : atPeer[0], sending ? atPeer[0] : line);
    std::thread starting([&] {
      clock_.Sleep(kStartDelay);
      peer.Start();
    });
    std::thread carrying([&] { relay.Run(); });
    const bool good = RunEngine(port, sending);
    // All that the engine sent is on the line by now.
    port.PortOpen(false);
    starting.join();
    carrying.join();
    times_ = relay.Times();
    return peer.EndsWell() && good;
  }

  bool RunEngine(link::SerialPort& port, bool sending) {
    base::StandardFileSystem files;
    link::Xmodem engine(port, clock_, files,
                        {folder_, [] { QCoreApplication::processEvents(); }, {}});
    engine.XmodemInit();
    engine.XmodemBind();
    const link::XmodemDirection direction = sending ? link::kXmodemSend : link::kXmodemReceive;
    return engine.XmodemTransfer(direction, wanted_.BlockSize, sending ? from_ : to_) == 0;
  }

  TransferCase wanted_;
  std::string folder_;
  std::string from_;
  std::string to_;
  base::RealClock clock_;
  LineTimes times_;
};

// Starts one transfer in a process of its own; gives where its outcome can be read.
inline int StartTransfer(const TransferCase& wanted, const std::string& folder) {
  static_assert(std::is_trivially_copyable_v<TransferOutcome>);
  const auto result = SocketLine();
  std::fflush(stdout);  // or the child would print it once more
  if (fork() != 0) {
    close(result[1]);
    return result[0];
  }
  std::signal(SIGPIPE, SIG_IGN);  // an end that hangs up is told by its line
  int count = 1;
  std::string name = "bench";
  std::array<char*, 2> arguments{name.data(), nullptr};
  const QCoreApplication application(count, arguments.data());
  std::filesystem::create_directories(folder);
  const TransferOutcome outcome = PacedTransfer(wanted, folder).Run();
  _exit(write(result[1], &outcome, sizeof outcome) == sizeof outcome ? 0 : 1);
}

// Runs all transfers at the same time.
inline std::vector<TransferOutcome> RunTransfers(const std::vector<TransferCase>& cases) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / ("tintbench-transfers-" + std::to_string(getpid()));
  std::vector<int> results;
  for (const TransferCase& wanted : cases) {
    results.push_back(StartTransfer(wanted, (folder / std::to_string(results.size())).string()));
  }
  std::vector<TransferOutcome> outcomes;
  for (const int result : results) {
    TransferOutcome outcome;
    if (read(result, &outcome, sizeof outcome) != sizeof outcome) outcome = {};
    close(result);
    outcomes.push_back(outcome);
  }
  while (wait(nullptr) > 0) {
  }
  std::filesystem::remove_all(folder);
  return outcomes;
}

}  // namespace tintbench::bench
