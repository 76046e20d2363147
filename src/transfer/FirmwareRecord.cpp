#include "transfer/FirmwareRecord.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::transfer {

namespace {

constexpr const char* kRecordFile = "FWLOAD.TXT";
constexpr std::size_t kLargestRecord = 8192;
constexpr int kNumbers = 4;
constexpr int kMostParts = 1000;

}  // namespace

FirmwareRecord::FirmwareRecord(base::FileSystem& files, const std::string& folder)
    : files_(files), path_(base::JoinPath(folder, kRecordFile)) {}

void FirmwareRecord::Write(const FirmwareProgress& progress) {
  std::string line;
  for (const int number : {progress.Step, progress.Part, progress.Parts, progress.Status}) {
    line += base::PlainNumber(number) + ",";
  }
  line += progress.File + std::string(base::kCrLf);
  static_cast<void>(base::ReplaceFile(files_, path_, line));
}

void FirmwareRecord::Forget() {
  if (files_.FileExists(path_)) static_cast<void>(files_.Delete(path_));
}

std::optional<FirmwareProgress> FirmwareRecord::Read() const {
  const auto content = base::ReadFile(files_, path_, kLargestRecord);
  if (!content) return std::nullopt;
  const std::string line = content->substr(0, content->find_first_of(base::kCrLf));
  if (base::CountFields(line, ",") <= kNumbers) return std::nullopt;
  const auto number = [&line](int field, int least, int most) {
    return std::clamp(base::LeadingInt(base::GetField(field, line, ",")), least, most);
  };
  FirmwareProgress progress;
  progress.Step = number(1, kGuideEnter, kGuideLeave);
  progress.Part = number(2, 0, kMostParts);
  progress.Parts = number(3, 0, kMostParts);
  progress.Status = number(4, -1000, 1000);
  std::size_t name = 0;
  for (int comma = 0; comma < kNumbers; ++comma) name = line.find(',', name) + 1;
  progress.File = line.substr(name);
  return progress;
}

std::string BrokenOffText(const FirmwareProgress& progress) {
  constexpr const char* kLeave =
      "Wait for 'TURN OFF SLAVE' on the display, turn OFF dip-switch n.4 and press RESET.";
  const std::string load = "The load of " + progress.File;
  if (progress.Step == kGuideEnter) {
    return base::JoinLines({load + " stopped before anything was sent.",
                            "The machine has its firmware still. If dip-switch n.4 is ON, turn it "
                            "OFF and press RESET."});
  }
  if (progress.Step == kGuideSend) {
    const std::string why =
        progress.Status == 0 ? "" : " (ERROR [" + base::PlainNumber(progress.Status) + "])";
    return base::JoinLines({load + " stopped at part " + base::PlainNumber(progress.Part) + " of " +
                                base::PlainNumber(progress.Parts) + why + ".",
                            "The machine has no whole firmware, and stays in its loader while "
                            "dip-switch n.4 is ON. Load the firmware again from its beginning."});
  }
  const std::string where = progress.Step == kGuideWrite
                                ? " stopped while the machine wrote its flash."
                                : " stopped before the machine had left its loader.";
  return base::JoinLines({load + where, "All " + base::PlainNumber(progress.Parts) +
                                            " parts were sent. " + kLeave +
                                            " Then connect, and look at the firmware's version."});
}

}  // namespace tintbench::transfer
