#include "link/SwitchedOn.h"

#include <algorithm>
#include <vector>

#include "base/Text.h"

namespace tintbench::link {

namespace {

bool IsRefusal(std::string_view answer) { return answer.size() == 1 && answer[0] != 'A'; }

}  // namespace

// A command's letter behind the "#", and how many characters of its argument are elements.
struct SwitchedOn::Verb {
  char Letter;
  Kind Elements;  // kKinds: all of them
  bool On;
  std::size_t Width;
};

const SwitchedOn::Verb* SwitchedOn::VerbOf(char letter) {
  constexpr std::size_t kAll = std::string_view::npos;
  static constexpr std::array<Verb, 8> kVerbs{{{'a', kValves, true, kAll},
                                               {'g', kValves, false, kAll},
                                               {'b', kStirrings, true, kAll},
                                               {'m', kStirrings, false, kAll},
                                               {'f', kMotors, true, kElementWidth},
                                               {'l', kMotors, false, kAll},
                                               {'v', kTest, true, 0},
                                               {'z', kKinds, false, 0}}};
  const auto* const found = std::find_if(
      kVerbs.begin(), kVerbs.end(), [letter](const Verb& verb) { return verb.Letter == letter; });
  return found == kVerbs.end() ? nullptr : found;
}

void SwitchedOn::Book(std::string_view command, std::string_view answer) {
  if (command == "#s*" && answer.find_first_of("KEN") == 0) elements_[kTest].clear();
  if (command.size() < 3 || command.front() != '#' || command.back() != '*') return;
  const Verb* const verb = VerbOf(command[1]);
  const std::string_view argument = command.substr(2, command.size() - 3);
  const bool takesNone = verb != nullptr && verb->Width == 0;
  if (verb == nullptr || argument.empty() != takesNone) return;
  if (argument.find_first_not_of("0123456789") != std::string_view::npos) return;
  const std::string echo = "A" + std::string(argument);
  if (verb->On ? IsRefusal(answer) : !answer.starts_with(echo)) return;
  if (verb->Elements == kKinds) {
    elements_ = {};
    return;
  }
  auto& elements = elements_.at(verb->Elements);
  if (takesNone) elements.emplace("");
  const std::string_view named = argument.substr(0, verb->Width);
  for (std::size_t at = 0; at < named.size(); at += kElementWidth) {
    const std::string element(named.substr(at, kElementWidth));
    if (verb->On) {
      elements.insert(element);
    } else {
      elements.erase(element);
    }
  }
}

bool SwitchedOn::IsEmpty() const {
  return std::all_of(elements_.begin(), elements_.end(),
                     [](const auto& elements) { return elements.empty(); });
}

std::string SwitchedOn::Text() const {
  constexpr std::array<const char*, kKinds> kNames{"electrovalve", "stirring", "motor",
                                                   "electrovalves test"};
  std::vector<std::string> texts;
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    if (elements_.at(kind).empty()) continue;
    std::string text = kNames.at(kind);
    for (const std::string& element : elements_.at(kind)) text += " " + element;
    texts.push_back(base::Trim(text));
  }
  return base::Join(texts, ", ");
}

}  // namespace tintbench::link
