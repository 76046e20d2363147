// The boxes that stand in front of the windows and wait for an answer: message, question, file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/Screen.h"

class QWidget;

namespace tintbench::desktop {

// Shows the box in front of `parent` and waits. `title` stands for the box's own if it names none.
// The close button and Esc answer Cancel, or No, or OK, whichever the box has.
ui::Answer AskBox(const ui::Box& box, const std::string& title, QWidget* parent);

// From now on message boxes stand beside the widget, at its left, as long as it is seen.
void KeepInSight(QWidget& widget);

// Empty if the operator gave the question up.
std::optional<std::string> AskQuestion(const ui::Question& question, const std::string& title,
                                       QWidget* parent);

// Empty if the operator gave the choice up. The program itself asks before it overwrites a file.
std::optional<std::string> AskFile(const ui::FileRequest& request, const std::string& title,
                                   QWidget* parent);

// One choice of a file dialog's filter.
struct FileFilter {
  std::string Text;
  std::vector<std::string> Patterns;  // such as "*.cfr"
  friend bool operator==(const FileFilter&, const FileFilter&) = default;
};

// Takes apart a filter that alternates texts and patterns between "|". A text without a pattern
// is left out.
std::vector<FileFilter> ParseFilter(const std::string& filter);

}  // namespace tintbench::desktop
