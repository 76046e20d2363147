#include "shell/LineQuality.h"

#include <algorithm>

#include "base/DateText.h"
#include "base/Numbers.h"

namespace tintbench::shell {

namespace {

constexpr double kMinute = 60.0;
constexpr int kDecimals = 1;
// So many missing answers in a row say that the machine doesn't answer.
constexpr int kSilence = 2;

}  // namespace

void LineQuality::Note(const base::LocalTime& asked, double now, double seconds, Answer answer) {
  const std::string when = base::TimeText(asked);
  if (answer != Answer::Silent) {
    NoteAnswer(when);
  } else if (++silentInRow_ == 1) {
    firstSilent_ = when;
  }
  notes_.push_back({now, seconds, answer});
  while (notes_.front().When < now - kMinute) notes_.pop_front();
}

void LineQuality::NoteAnswer(const std::string& asked) {
  if (silentInRow_ >= kSilence) backSince_ = asked;
  silentInRow_ = 0;
  lastAnswered_ = asked;
}

std::string LineQuality::SilentSince() const {
  return silentInRow_ >= kSilence ? firstSilent_ : std::string();
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

std::string LineQuality::Present() const {
  if (silentInRow_ >= kSilence) return "No answer since " + firstSilent_;
  const std::string seconds =
      base::PlainNumber(base::RoundHalfEven(MeanSeconds(), kDecimals)) + " s";
  // For as long as the silence counts.
  const bool isBack = !backSince_.empty() && Count(Answer::Silent) > 0;
  return isBack ? "Answers again since " + backSince_ + ", in " + seconds : "Answers in " + seconds;
}

std::string LineQuality::Text() const {
  if (notes_.empty()) return {};
  return Present() + ". Last minute: " + std::to_string(Count(Answer::Silent)) + " silent, " +
         std::to_string(Count(Answer::Bad)) + " bad";
}

}  // namespace tintbench::shell
