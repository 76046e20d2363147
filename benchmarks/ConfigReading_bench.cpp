// Speed at which the facts of a machine are drawn from its configuration file, on one to many
// copies of the built-in machine's file in one, beside reading the same lines and dropping them;
// and how the time grows with the size. A reader stops at 4 MiB, which is why the largest file has
// about a thousand copies.
#include <chrono>
#include <cmath>
#include <filesystem>
#include <string>

#include "Ratio.h"
#include "base/Files.h"
#include "config/ConfigFile.h"
#include "config/MachineFacts.h"
#include "simulator/SampleConfiguration.h"

namespace tintbench::bench {
namespace {

constexpr double kLeastSeconds = 0.5;  // what a size is measured for

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Seconds of the fastest of many rounds; negative if one fails.
template <typename Work>
double Best(Work work) {
  double best = kLeastSeconds;
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

void MeasureAll(const std::string& path) {
  const std::size_t most =
      config::ConfigReader::kFileLimit / simulator::SampleConfiguration().size();
  const double one = Measure(path, 1);
  const double ten = Measure(path, 10);
  const double hundred = Measure(path, 100);
  const double all = Measure(path, most);
  const auto growth = [](double small, double large, double factor) {
    return std::log(large / small) / std::log(factor);
  };
  const auto copies = static_cast<double>(most);
  PrintRatio("growth from x 1, exponent / linear", growth(one, all, copies), 1, "",
             "aim: not over 1.05");
  PrintRatio("growth from x 10, exponent / linear", growth(ten, all, copies / 10), 1, "",
             "aim: not over 1.05");
  PrintRatio("growth from x 100, exponent / linear", growth(hundred, all, copies / 100), 1, "",
             "aim: not over 1.05");
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
