// Speed at which the facts of a machine are drawn from its configuration file, on 1 to 1000 copies
// of the built-in machine's file in one, beside reading the same lines and dropping them; and how
// the time grows with the size. A reader stops at 4 MiB: a thousand copies are just within that.
// All times are processor time.
#include <cmath>
#include <filesystem>
#include <string>

#include "Fastest.h"
#include "Ratio.h"
#include "base/Files.h"
#include "config/MachineFacts.h"
#include "simulator/SampleConfiguration.h"

namespace tintbench::bench {
namespace {

double Measure(const std::string& path, std::size_t copies) {
  base::StandardFileSystem files;
  std::string text;
  for (std::size_t i = 0; i < copies; ++i) text += simulator::SampleConfiguration();
  if (!base::ReplaceFile(files, path, text)) return -1;
  const double reading = Fastest([&] {
    config::MachineFacts facts;
    return config::ExecuteConfigKnown(files, path, 1, facts);
  });
  const double lines = Fastest([&] {
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
