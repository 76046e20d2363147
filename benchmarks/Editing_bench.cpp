// Speed at which a configuration is opened for editing, saved and searched, on one copy of the
// built-in machine's file and on a thousand in one, beside reading the same lines and dropping
// them; and how the time grows with the size. All times are processor time.
#include <cmath>
#include <filesystem>
#include <string>

#include "Fastest.h"
#include "Ratio.h"
#include "editor/ConfigDocument.h"
#include "simulator/SampleConfiguration.h"

namespace tintbench::bench {
namespace {

constexpr std::size_t kCopies = 1000;
constexpr std::size_t kFindings = 500;

struct Times {
  double Open;
  double Save;
};

Times Measure(const std::string& folder, std::size_t copies) {
  base::StandardFileSystem files;
  const base::RealClock clock;
  const base::AppIdentity identity = base::MakeIdentity("TintBench", "0.0.0");
  const config::SelectorCatalogue selectors;
  const config::ParameterCatalogue catalogue(selectors);
  editor::ConfigDocument document({files, clock, identity, catalogue});
  std::string text;
  for (std::size_t i = 0; i < copies; ++i) text += simulator::SampleConfiguration();
  const std::string path = folder + "machine.cfg";
  if (!base::ReplaceFile(files, path, text)) return {-1, -1};
  document.SetConfigName(folder, "machine", "cfg");
  const double lines = Fastest([&] {
    base::LineReader reader(files, path);
    for (std::string line; reader.Next(line);) {
    }
    return !reader.Failed();
  });
  const Times times{
      Fastest([&] { return static_cast<bool>(document.LoadConfigFile()); }), Fastest([&] {
        return static_cast<bool>(document.WriteConfigFile(folder + "saved.cfm").Result);
      })};
  const double find = Fastest([&] {
    document.Find("no such text", 1, kFindings);
    return true;
  });
  const std::string name = " x " + std::to_string(copies);
  const double megabytes = static_cast<double>(text.size()) * 1e-6;
  const auto print = [&](const std::string& what, double seconds) {
    PrintRatio(what + name + " / its lines alone", megabytes / seconds, megabytes / lines, "MB/s",
               "no aim set");
  };
  print("opening", times.Open);
  print("saving", times.Save);
  print("finding nothing", find);
  return times;
}

// How the time grows between the sizes, as a power of the size.
void PrintGrowth(const std::string& what, double small, double large) {
  PrintRatio(what + ", exponent of growth / linear",
             std::log(large / small) / std::log(static_cast<double>(kCopies)), 1, "",
             "aim: under 1.05");
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-editing-bench";
  std::filesystem::create_directories(folder);
  const std::string path = folder.string() + "/";
  const Times one = Measure(path, 1);
  const Times thousand = Measure(path, kCopies);
  PrintGrowth("opening", one.Open, thousand.Open);
  PrintGrowth("saving", one.Save, thousand.Save);
  std::filesystem::remove_all(folder);
  return 0;
}
