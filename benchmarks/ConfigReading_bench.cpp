// Speed at which the facts of a machine are drawn from its configuration file, on 1 to 1000 copies
// of the built-in machine's file in one, beside reading the same lines and dropping them; and how
// the time grows with the size. A reader stops at 4 MiB: a thousand copies are just within that.
// All times are processor time.
#include <algorithm>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <limits>
#include <string>

#include "Ratio.h"
#include "base/Files.h"
#include "config/MachineFacts.h"
#include "simulator/SampleConfiguration.h"

namespace tintbench::bench {
namespace {

constexpr double kLeastSeconds = 1.0;  // what a size is measured for

double Now() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Seconds of the fastest of many rounds; negative if one fails.
template <typename Work>
double Best(Work work) {
  double best = std::numeric_limits<double>::infinity();
  for (const double start = Now(); Now() - start < kLeastSeconds;) {
    const double before = Now();
    if (!work()) return -1;
    best = std::min(best, Now() - before);
  }
  return best;
}

double Measure(const std::string& path, std::size_t copies) {
  base::StandardFileSystem files;
  std::string text;
  for (std::size_t i = 0; i < copies; ++i) text += simulator::SampleConfiguration();
  if (!base::ReplaceFile(files, path, text)) return -1;
  const double reading = Best([&] {
    config::MachineFacts facts;
    return config::ExecuteConfigKnown(files, path, 1, facts);
  });
  const double lines = Best([&] {
    base::LineReader reader(files, path);
    for (std::string line; reader.Next(line);) {
    }
    return !reader.Failed();
  });
  const double megabytes = static_cast<double>(text.size()) * 1e-6;
  PrintRatio("configuration x " + std::to_string(copies) + " / its lines alone",
             megabytes / reading, megabytes / lines, "MB/s", "no aim set");
  return reading;
}

// How the time grows between two sizes, as a power of the size.
void PrintGrowth(const std::string& name, double small, double large, double factor) {
  PrintRatio("growth " + name + ", exponent / linear", std::log(large / small) / std::log(factor),
             1, "", "aim: under 1.05");
}

void MeasureAll(const std::string& path) {
  const double one = Measure(path, 1);
  const double ten = Measure(path, 10);
  const double hundred = Measure(path, 100);
  const double thousand = Measure(path, 1000);
  PrintGrowth("from 1 to 10", one, ten, 10);
  PrintGrowth("from 10 to 100", ten, hundred, 10);
  PrintGrowth("from 100 to 1000", hundred, thousand, 10);
  PrintGrowth("from 1 to 1000", one, thousand, 1000);
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-configuration-bench";
  std::filesystem::create_directories(folder);
  tintbench::bench::MeasureAll((folder / "machine.cfg").string());
  std::filesystem::remove_all(folder);
  return 0;
}
