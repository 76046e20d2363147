#include "shell/LineQuality.h"

#include <algorithm>

#include "base/Numbers.h"

namespace tintbench::shell {

namespace {

constexpr double kMinute = 60.0;
constexpr int kDecimals = 1;

}  // namespace

void LineQuality::Note(double now, double seconds, Answer answer) {
  notes_.push_back({now, seconds, answer});
  while (notes_.front().When < now - kMinute) notes_.pop_front();
}

int LineQuality::Count(Answer answer) const {
  return static_cast<int>(std::count_if(
      notes_.begin(), notes_.end(), [answer](const Entry& entry) { return entry.What == answer; }));
}

double LineQuality::MeanSeconds() const {
  double sum = 0;
  int answers = 0;
  for (const Entry& entry : notes_) {
    if (entry.What == Answer::Silent) continue;
    sum += entry.Seconds;
    ++answers;
  }
  return answers == 0 ? 0 : sum / answers;
}

std::string LineQuality::Text() const {
  if (notes_.empty()) return {};
  return "Answers in " + base::PlainNumber(base::RoundHalfEven(MeanSeconds(), kDecimals)) +
         " s. Last minute: " + std::to_string(Count(Answer::Silent)) + " silent, " +
         std::to_string(Count(Answer::Bad)) + " bad";
}

}  // namespace tintbench::shell
