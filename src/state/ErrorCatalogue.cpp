#include "state/ErrorCatalogue.h"

#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/ConfigTables.h"
#include "state/ErrorRows.h"

namespace tintbench::state {

namespace {

constexpr std::size_t kCodeLength = 4;

// Parts of a code, as bits of its value.
constexpr std::int64_t kFamilyDigits = 0xFF00;
constexpr std::int64_t kSectionDigits = 0xFFF0;
constexpr std::int64_t kThirdDigit = 0x00F0;
constexpr std::int64_t kThirdDigitOne = 0x0010;

bool IsCode(std::string_view text) {
  return text.size() == kCodeLength && base::IsHexadecimal(text) && base::ToUpper(text) == text;
}

// A section with more than sixteen fields goes on in the codes of the next third digit.
std::int64_t SectionBefore(std::int64_t code) {
  const std::int64_t section = code & kSectionDigits;
  return (code & kThirdDigit) == 0 ? section : section - kThirdDigitOne;
}

std::string SectionMessage(std::string_view tag) {
  return "Configuration File: " + base::Bracketed(tag) + "error at field";
}

// Where a search may find a code that has no row of its own.
struct Step {
  std::string (*Key)(std::string_view code);
  std::int64_t FirstCode;
};

}  // namespace

std::string FamilyKey(std::string_view code) { return std::string(code) + "+"; }

std::string SectionKey(std::string_view code) { return std::string(code) + "++"; }

ErrorTable::ErrorTable() {
  for (const ErrorRow& row : kFamilyRows) {
    messages_[FamilyKey(row.Code)] = std::string(row.Message).append(row.Suffix);
  }
  for (const ErrorRow& row : kCodeRows) messages_[std::string(row.Code)] = row.Message;
  for (const config::ConfigTable& table : config::kConfigTables) {
    if (table.ErrorCode.empty()) continue;
    messages_[SectionKey(table.ErrorCode)] = SectionMessage(table.Tag);
  }
  messages_[SectionKey(kForeignSection.Code)] = SectionMessage(kForeignSection.Message);
}

const std::string* ErrorTable::Find(std::string_view key) const {
  const auto found = messages_.find(key);
  return found == messages_.end() ? nullptr : &found->second;
}

std::string ErrorTable::ErrorText(std::string_view code) const {
  constexpr std::string_view kUnknown = "  unknown";
  if (!IsCode(code)) return std::string(kUnknown);
  if (const std::string* message = Find(code)) return " " + *message;
  const std::int64_t value = base::LeadingHex(code);
  const Step steps[] = {{FamilyKey, value & kFamilyDigits},
                        {SectionKey, value & kSectionDigits},
                        {SectionKey, SectionBefore(value)}};
  for (const auto& [key, firstCode] : steps) {
    const std::string first = base::ToHex(static_cast<std::uint64_t>(firstCode), kCodeLength);
    if (const std::string* message = Find(key(first))) {
      return " " + *message + " " + base::Bracketed(base::PlainNumber(value - firstCode));
    }
  }
  return std::string(kUnknown);
}

}  // namespace tintbench::state
