#include "shell/CommandLineKeys.h"

#include "base/Text.h"

namespace tintbench::shell {

std::string KeyLookup(std::string_view commandLine, std::string_view key) {
  const std::string text = base::ToUpper(commandLine);
  const std::size_t at = text.find(base::ToUpper(key));
  if (at == std::string::npos) return {};
  const std::size_t open = text.find_first_not_of(' ', at + key.size());
  if (open == std::string::npos || text[open] != '(') return {};
  const std::size_t close = text.find(')', open);
  if (close == std::string::npos) return {};
  return base::Trim(text.substr(open + 1, close - open - 1));
}

}  // namespace tintbench::shell
