// How well the line has done of late: the time that the machine's answers took, and how many of
// them were missing or bad.
#pragma once

#include <deque>
#include <string>

namespace tintbench::shell {

class LineQuality {
 public:
  enum class Answer { Good, Silent, Bad };

  // Books one transaction that ended at `now` and took `seconds`.
  void Note(double now, double seconds, Answer answer);
  void Clear() { notes_.clear(); }

  // In the minute before the last transaction.
  int Count(Answer answer) const;
  // Mean time of the answers that came, in seconds; 0 if none came.
  double MeanSeconds() const;
  // All of it in a line; empty if nothing has been booked.
  std::string Text() const;

 private:
  struct Entry {
    double When;
    double Seconds;
    Answer What;
  };
  std::deque<Entry> notes_;
};

}  // namespace tintbench::shell
