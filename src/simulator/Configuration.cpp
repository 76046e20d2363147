#include "simulator/Configuration.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kTagLength = 4;
constexpr std::size_t kMostLines = 4096;  // far above 22 tables of 64 elements
constexpr std::string_view kForbiddenTag = "@@@@";

struct Section {
  std::string_view Tag;
  unsigned FaultBase;
};

constexpr std::array kSections = {
    Section{"@GEN", 0x9100}, Section{"@TEM", 0x9120}, Section{"@SGA", 0x9130},
    Section{"@TAP", 0x9150}, Section{"@TA3", 0x9160}, Section{"@CIR", 0x9170},
    Section{"@MOT", 0x9180}, Section{"@AGI", 0x91A0}, Section{"@ILE", 0x91C0},
    Section{"@IVE", 0x91D0}, Section{"@VEL", 0x91E0}, Section{"@MEX", 0x91F0},
    Section{"@IND", 0x9200}, Section{"@LIN", 0x9210}, Section{"@IDI", 0x9220},
    Section{"@IAN", 0x9230},
};

constexpr std::string_view kMissing = "9000";
constexpr std::string_view kGeneral = "9002";

std::string Unquoted(std::string_view text) {
  while (!text.empty() && text.front() == '"') text.remove_prefix(1);
  while (!text.empty() && text.back() == '"') text.remove_suffix(1);
  return std::string(text);
}

}  // namespace

Configuration Configuration::Read(std::string_view text, int slave) {
  Configuration configuration;
  configuration.slave_ = slave;
  configuration.text_ = WithoutPadding(text);
  const std::vector<std::string> lines = Split(configuration.text_, '\n');
  if (lines.size() > kMostLines) configuration.fault_ = kGeneral;
  for (std::size_t i = 0; i < std::min(lines.size(), kMostLines); ++i) {
    configuration.TakeLine(Trim(lines[i]));
  }
  if (configuration.fault_.empty() && !configuration.Find("@GEN")) configuration.fault_ = kMissing;
  return configuration;
}

std::optional<Configuration::Line> Configuration::Parse(std::string_view line) const {
  if (line.size() <= kTagLength || line.front() != '@') return std::nullopt;
  const std::string tag = base::ToUpper(line.substr(0, kTagLength));
  const std::size_t number = line.find_first_not_of(' ', kTagLength);
  if (number == kTagLength || number == std::string_view::npos) return std::nullopt;
  const std::size_t behind = line.find(' ', number);
  if (behind == std::string_view::npos) return std::nullopt;
  if (base::LeadingInt(line.substr(number, behind - number)) != slave_) return std::nullopt;
  return Line{tag, Split(Trim(line.substr(behind)), ',')};
}

void Configuration::TakeLine(std::string_view text) {
  const std::optional<Line> line = Parse(text);
  if (!line) return;
  Check(line->Tag, line->Fields);
  Table& table = tables_[line->Tag];
  const int element = base::LeadingInt(line->Fields.front());
  if (table.Rows.emplace(element, line->Fields).second) table.Order.push_back(element);
}

std::optional<std::string> Configuration::Edited(std::string_view tag, std::optional<int> element,
                                                 std::size_t field, std::string_view value) const {
  std::string text;
  bool found = false;
  for (const std::string& each : Split(text_, '\n')) {
    std::optional<Line> line = Parse(Trim(each));
    const bool meant = line && line->Tag == base::ToUpper(tag) && field <= line->Fields.size() &&
                       (!element || base::LeadingInt(line->Fields.front()) == *element);
    found = found || meant;
    if (!meant) {
      text += each + "\n";
    } else if (field > 0) {
      line->Fields[field - 1] = value;
      text += line->Tag + " " + std::to_string(slave_) + " " + Join(line->Fields, ",") + "\r\n";
    }
  }
  if (!text.empty()) text.pop_back();
  return found ? std::optional(text) : std::nullopt;
}

void Configuration::Check(const std::string& tag, const std::vector<std::string>& fields) {
  if (!fault_.empty()) return;
  if (tag == kForbiddenTag) {
    fault_ = kGeneral;
    return;
  }
  const auto empty = std::find(fields.begin(), fields.end(), "");
  if (empty == fields.end()) return;
  const auto section = std::find_if(kSections.begin(), kSections.end(),
                                    [&](const Section& row) { return row.Tag == tag; });
  const auto field = static_cast<std::uint64_t>(empty - fields.begin()) + 1;
  fault_ = section == kSections.end() ? kGeneral : base::ToHex(section->FaultBase + field, 4);
}

const Configuration::Table* Configuration::Find(std::string_view tag) const {
  const auto found = tables_.find(tag);
  return found == tables_.end() ? nullptr : &found->second;
}

const std::vector<std::string>* Configuration::Row(std::string_view tag, int element) const {
  const Table* table = Find(tag);
  if (table == nullptr) return nullptr;
  const auto found = table->Rows.find(element);
  return found == table->Rows.end() ? nullptr : &found->second;
}

const std::vector<int>& Configuration::Elements(std::string_view tag) const {
  static const std::vector<int> kNone;
  const Table* table = Find(tag);
  return table == nullptr ? kNone : table->Order;
}

bool Configuration::Has(std::string_view tag, int element) const {
  return Row(tag, element) != nullptr;
}

std::string Configuration::Field(std::string_view tag, int element, std::size_t field) const {
  const std::vector<std::string>* row = Row(tag, element);
  if (row == nullptr || field == 0 || field > row->size()) return {};
  return Unquoted((*row)[field - 1]);
}

int Configuration::Number(std::string_view tag, int element, std::size_t field,
                          int fallback) const {
  const std::string text = Field(tag, element, field);
  return text.empty() ? fallback : base::LeadingInt(text);
}

std::string Configuration::Field(std::string_view tag, std::size_t field) const {
  const std::vector<int>& elements = Elements(tag);
  return elements.empty() ? std::string() : Field(tag, elements.front(), field);
}

int Configuration::Number(std::string_view tag, std::size_t field, int fallback) const {
  const std::string text = Field(tag, field);
  return text.empty() ? fallback : base::LeadingInt(text);
}

}  // namespace tintbench::simulator
