#include "autotest/AutotestRecord.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::autotest {

namespace {

constexpr int kDonePlace = 2;
constexpr int kTotalPlace = 4;
constexpr int kCyclesPlace = 6;
constexpr int kNumberWidth = 2;

// Reads an answer by positions from 1.
class AnswerReader {
 public:
  explicit AnswerReader(std::string_view answer)
      : answer_(answer), length_(static_cast<int>(answer.size())) {}

  int Length() const { return length_; }
  // True if so many characters stand from a position on.
  bool Has(int position, int count) const { return position + count - 1 <= length_; }
  int Number(int position) const {
    return static_cast<int>(base::LeadingHex(Text(position, kNumberWidth)));
  }
  std::string Text(int position, int count) const { return base::Mid(answer_, position, count); }

 private:
  std::string_view answer_;
  int length_;
};

// Reads the cycle at `position` and moves on behind it. False if the answer breaks off in it.
bool ReadCycle(const AnswerReader& answer, int& position, AutotestRecord& record) {
  if (!answer.Has(position, kNumberWidth)) return false;
  std::string label = base::PlainNumber(answer.Number(position));
  position += kNumberWidth;
  if (!answer.Has(position, kNumberWidth)) {
    record.Cycles.push_back({label + " [tx err(1)]", "-1"});
    return false;
  }
  const int count = answer.Number(position);
  position += kNumberWidth;
  if (count < 1) {
    record.Cycles.push_back({std::move(label), "0, ,"});
    return true;
  }
  record.Errors += count;
  const int width = count * kCodeWidth;
  if (!answer.Has(position, width)) {
    record.Cycles.push_back({label + " [tx err(2)]", "-2"});
    return false;
  }
  record.Cycles.push_back(
      {label + " [errors]", base::PlainNumber(count) + "," + answer.Text(position, width) + ","});
  position += width;
  return true;
}

}  // namespace

AutotestRecord ParseAutotest(std::string_view text) {
  const AnswerReader answer(text);
  AutotestRecord record;
  if (!answer.Has(kDonePlace, kNumberWidth)) return record;
  record.Done = answer.Number(kDonePlace);
  if (!answer.Has(kTotalPlace, kNumberWidth)) return record;
  record.Total = answer.Number(kTotalPlace);
  // A single character behind the last cycle is passed over.
  for (int position = kCyclesPlace; position < answer.Length();) {
    if (!ReadCycle(answer, position, record)) return record;
  }
  record.Whole = true;
  return record;
}

}  // namespace tintbench::autotest
