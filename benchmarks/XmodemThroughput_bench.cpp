// Throughput of the Xmodem engine on a line without a speed, a socket pair, with blocks of 1024
// bytes, beside sx and rx of lrzsz on such a line. It is taken from the difference between a large
// and a small file, so that the start, and the second for which rx is silent at the end, fall out.
#include <filesystem>
#include <fstream>
#include <thread>

#include "LineProgram.h"
#include "Ratio.h"
#include "SocketPort.h"
#include "base/Files.h"
#include "link/Xmodem.h"

namespace tintbench::bench {
namespace {

constexpr int kBlockSize = 1024;
constexpr std::size_t kSmall = 4U << 20U;
constexpr std::size_t kLarge = 36U << 20U;
constexpr int kRounds = 3;
constexpr double kStartDelay = 0.3;

enum class Side { Ours, Lrzsz };

struct Work {
  Side Sender;
  Side Receiver;
  bool Crc;
};

// One end of the transfer; the programs of lrzsz end it themselves.
bool RunEngine(int line, link::XmodemDirection direction, const std::string& folder,
               const std::string& file) {
  base::RealClock clock;
  base::StandardFileSystem files;
  SocketPort port(clock, line);
  std::filesystem::create_directories(folder);
  link::Xmodem engine(port, clock, files, {folder, {}, {}});
  engine.XmodemInit();
  engine.XmodemBind();
  return engine.XmodemTransfer(direction, kBlockSize, file) == 0;
}

bool RunProgram(int line, const std::vector<std::string>& words) {
  LineProgram program(words, line);
  program.Start();
  return program.EndsWell();
}

// Seconds of the transfer, with the delay that lets the end which begins be first: a sender of
// ours throws away what came before it began, and so does a receiver.
double Transfer(const Work& work, const std::string& folder, std::size_t size) {
  const std::string from = folder + "/from";
  const std::string to = folder + "/to";
  std::ofstream(from, std::ios::binary) << std::string(size, 'x');
  const auto line = SocketLine();
  base::RealClock clock;
  const double start = clock.Now();
  bool sent = false;
  std::thread sender([&] {
    if (work.Receiver == Side::Ours && work.Sender == Side::Lrzsz) clock.Sleep(kStartDelay);
    sent = work.Sender == Side::Ours
               ? RunEngine(line[0], link::kXmodemSend, folder + "/sender", from)
               : RunProgram(line[0], SenderWords(kBlockSize, from));
  });
  if (work.Sender == Side::Ours || work.Receiver == Side::Lrzsz) clock.Sleep(kStartDelay);
  const bool received = work.Receiver == Side::Ours
                            ? RunEngine(line[1], link::kXmodemReceive, folder + "/receiver", to)
                            : RunProgram(line[1], ReceiverWords(work.Crc, to));
  sender.join();
  if (!sent || !received || std::filesystem::file_size(to) != size) {
    std::printf("a transfer failed\n");
  }
  return clock.Now() - start;
}

// In MB/s, the best of the rounds.
double Throughput(const Work& work, const std::string& folder) {
  double small = Transfer(work, folder, kSmall);
  double large = Transfer(work, folder, kLarge);
  for (int round = 1; round < kRounds; ++round) {
    small = std::min(small, Transfer(work, folder, kSmall));
    large = std::min(large, Transfer(work, folder, kLarge));
  }
  return static_cast<double>(kLarge - kSmall) * 1e-6 / (large - small);
}

void Measure(const std::string& folder) {
  const double sum = Throughput({Side::Lrzsz, Side::Lrzsz, false}, folder);
  const double crc = Throughput({Side::Lrzsz, Side::Lrzsz, true}, folder);
  const std::string aim = "aim: not under 1";
  PrintRatio("send, CRC / lrzsz", Throughput({Side::Ours, Side::Lrzsz, true}, folder), crc, "MB/s",
             aim);
  PrintRatio("send, checksum / lrzsz", Throughput({Side::Ours, Side::Lrzsz, false}, folder), sum,
             "MB/s", aim);
  PrintRatio("receive, checksum / lrzsz", Throughput({Side::Lrzsz, Side::Ours, false}, folder), sum,
             "MB/s", aim);
  PrintRatio("ours at both ends, checksum / lrzsz",
             Throughput({Side::Ours, Side::Ours, false}, folder), sum, "MB/s", aim);
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-throughput-bench";
  std::filesystem::create_directories(folder);
  tintbench::bench::Measure(folder.string());
  std::filesystem::remove_all(folder);
  return 0;
}
