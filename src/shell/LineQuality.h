// How well the line has done of late: the time that the machine's answers took, how many of them
// were missing or bad, and since when there have been none at all.
#pragma once

#include <deque>
#include <string>

#include "base/Clock.h"

namespace tintbench::shell {

class LineQuality {
 public:
  enum class Answer { Good, Silent, Bad };

  // Books one transaction that began at the time `asked` of the day, ended at `now` and took
  // `seconds`.
  void Note(const base::LocalTime& asked, double now, double seconds, Answer answer);
  void Clear() { *this = {}; }

  // In the minute before the last transaction.
  int Count(Answer answer) const;
  // Mean time of the answers that came, in seconds; 0 if none came.
  double MeanSeconds() const;
  // The time of day since which nothing has been answered, "08:05:00"; empty while the machine
  // answers. One answer that is missing may be the line's fault.
  std::string SilentSince() const;
  // When the machine was last asked for what it then told, in the same form; empty for never.
  const std::string& LastAnswered() const { return lastAnswered_; }
  // All of it in a line; empty if nothing has been booked.
  std::string Text() const;

 private:
  struct Entry {
    double When;
    double Seconds;
    Answer What;
  };
  void NoteAnswer(const std::string& asked);
  std::string Present() const;

  std::deque<Entry> notes_;
  int silentInRow_ = 0;
  std::string firstSilent_;  // of those in a row
  std::string backSince_;    // the first answer behind a silence
  std::string lastAnswered_;
};

}  // namespace tintbench::shell
