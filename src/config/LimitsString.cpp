#include "config/LimitsString.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::config {

namespace {

constexpr std::string_view kEmptyText = "\"\"";

Bound ReadBound(const std::string& field) {
  if (field.starts_with('.')) return {BoundKind::kFree, {}};
  if (field.starts_with('c') || field.starts_with('C'))
    return {BoundKind::kLength, field.substr(1)};
  return {BoundKind::kValue, field};
}

std::string BoundText(const Bound& bound) {
  switch (bound.Kind) {
    case BoundKind::kFree:
      return "free";
    case BoundKind::kLength:
      return bound.Number + "_characters";
    case BoundKind::kValue:
      break;
  }
  return bound.Number.empty() ? "!" : bound.Number;
}

}  // namespace

LimitsString::LimitsString(std::string_view text)
    : EditorKey(base::Trim(base::GetField(1, text, ","))),
      Minimum(ReadBound(base::GetField(2, text, ","))),
      Maximum(ReadBound(base::GetField(3, text, ","))),
      Default(base::GetField(4, text, ",")) {}

bool LimitsString::IsSelector() const { return base::LeadingNumber(EditorKey) > 0; }

std::string LimitsString::RangeText() const {
  return "[ min. = " + BoundText(Minimum) + ", max. = " + BoundText(Maximum) +
         ", default = " + ShownDefault() + " ]";
}

std::string LimitsString::ShownDefault() const {
  return Default.starts_with('.') ? "?" : DefaultValue();
}

std::string LimitsString::DefaultValue() const {
  if (Default.starts_with('.')) return {};
  return Default.empty() ? std::string(kEmptyText) : Default;
}

}  // namespace tintbench::config
