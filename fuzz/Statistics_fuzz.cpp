// The files of statistics and the record of the self-test. An input is the machine's answer on the
// self-test, a line, and a file of data.
#include "FuzzInput.h"
#include "Target.h"
#include "autotest/AutotestRecord.h"
#include "base/MemoryFileSystem.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "stats/Overview.h"

namespace tintbench::fuzz {
namespace {

constexpr const char* kFile = "/app/STAT/data.sds";
constexpr std::size_t kCycleWidth = 4;

void CheckAutotest(const std::string& answer) {
  const autotest::AutotestRecord record = autotest::ParseAutotest(answer);
  std::int64_t errors = 0;
  std::size_t width = 0;
  for (const autotest::AutotestCycle& cycle : record.Cycles) {
    const std::int64_t count = base::LeadingWhole(cycle.Value);
    const std::string codes = base::GetField(2, cycle.Value, ",");
    const bool last = &cycle == &record.Cycles.back();
    Require(count >= 0 || (last && !record.Whole), "only the last cycle can break off");
    // A comma that strays into the codes ends them.
    const bool strays = answer.find(',') != std::string::npos;
    Require(count <= 0 || strays || codes.size() == static_cast<std::size_t>(count) * 4,
            "all codes are there");
    errors += count > 0 ? count : 0;
    width += count < 0 ? 0 : kCycleWidth + static_cast<std::size_t>(count) * 4;
  }
  Require(!record.Whole || record.Errors == errors, "the errors are those of all cycles");
  Require(width <= answer.size(), "no cycle is made up");
  Require(!record.Whole || (record.Done && record.Total), "a whole record has its head");
}

// A line that is written is read back, and the others stay as they were.
void CheckUpdate(testing::MemoryFileSystem& files, const stats::DataBuffer& before, bool deletes,
                 const std::string& key) {
  const std::string content = files.Get(kFile);
  const stats::DataUpdate update = stats::UpdateDataLine(files, deletes, kFile, key, "1,2,3");
  if (!update.Error.empty()) {
    Require(files.Get(kFile) == content, "what fails changes nothing");
    return;
  }
  stats::DataBuffer after;
  Require(static_cast<bool>(stats::LoadDataFile(files, kFile, after)), "the file is there");
  const std::string* line = after.Find(key);
  Require(deletes || (line != nullptr && *line == "1,2,3"), "what is written is read");
  for (const auto& [other, value] : before.Lines) {
    if (other == key) continue;
    const std::string* kept = after.Find(other);
    Require(kept != nullptr && *kept == value, "other lines stay");
  }
}

void CheckFile(const std::string& content) {
  testing::MemoryFileSystem files;
  files.Put(kFile, content);
  stats::DataBuffer buffer;
  Require(static_cast<bool>(stats::LoadDataFile(files, kFile, buffer)), "the file is there");
  int elements = 0;
  for (const std::string& list : buffer.ElementsInFile) elements += base::CountFields(list, ",");
  Require(elements >= stats::CountDataLines(files, kFile), "each line has its element");
  for (const auto& [key, value] : buffer.Lines) {
    Require(stats::FindDataKey(files, kFile, key) > 0, "what is read is found");
  }
  const stats::StatCatalogue catalogue;
  for (int tab = 0; tab < stats::kStatTypes; ++tab) {
    stats::OverviewTable table = stats::BuildOverview(catalogue, tab, "1,", {buffer, buffer});
    stats::SortOverview(table, 1, true);
    for (const stats::OverviewRow& row : table.Rows) {
      Require(row.Cells.size() == table.Columns.size(), "each column has its cell");
      for (const stats::OverviewCell& cell : row.Cells) Require(cell.Bar <= 1, "bars fit");
    }
  }
  const std::string key = buffer.Lines.empty() ? "MOTOR_1" : buffer.Lines.begin()->first;
  CheckUpdate(files, buffer, false, key);
  CheckUpdate(files, buffer, true, key);
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  fuzz::CheckAutotest(input.Line());
  fuzz::CheckFile(input.Rest());
  return 0;
}
