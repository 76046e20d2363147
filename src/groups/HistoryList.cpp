#include "groups/HistoryList.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "base/LongDate.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

constexpr std::size_t kDateLength = 8;
constexpr std::size_t kExtensionLength = 3;

bool IsDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Date, extension and group by the name alone. Nothing if it isn't the name of a recording.
std::optional<HistoryFile> ParseFileName(const std::string& name) {
  const std::size_t point = name.find('.');
  if (point != kDateLength || name.size() != kDateLength + 1 + kExtensionLength) return {};
  HistoryFile file;
  file.Date = name.substr(0, kDateLength);
  file.Extension = name.substr(kDateLength + 1);
  file.Group = file.Extension.substr(1);
  if (!IsDigits(file.Date) || file.Extension.front() != 'G' || !IsDigits(file.Group)) return {};
  return file;
}

std::optional<std::string> DateInWords(const std::string& date, const std::locale& language) {
  return base::LongDateText(base::LeadingInt(base::Left(date, 4)),
                            base::LeadingInt(base::Mid(date, 5, 2)),
                            base::LeadingInt(base::Mid(date, 7, 2)), language);
}

}  // namespace

HistoryList::HistoryList(const base::FileSystem& files, std::string folder,
                         const std::locale& language)
    : system_(files), folder_(std::move(folder)), language_(language) {}

void HistoryList::Clear() {
  files_.clear();
  orderByGroup_.clear();
  orderByDate_.clear();
}

std::vector<std::string> HistoryList::FindFiles() {
  Clear();
  std::vector<std::string> passedOver;
  for (const std::string& name : system_.List(folder_, "*.G*")) {
    std::optional<HistoryFile> file = ParseFileName(base::ToUpper(base::Trim(name)));
    if (!file) continue;
    const std::optional<std::string> words = DateInWords(file->Date, language_);
    if (!words) {
      passedOver.push_back(name);
      continue;
    }
    file->DateText = *words;
    file->Path = base::JoinPath(folder_, name);
    file->Size = base::PlainNumber(system_.Length(file->Path).value_or(0));
    files_.push_back(std::move(*file));
  }
  SortFiles();
  return passedOver;
}

// By plain comparison of texts; names that differ only in their case stay as they were found.
void HistoryList::SortFiles() {
  const auto sort = [this](std::vector<std::size_t>& order, auto key) {
    order.resize(files_.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
      return key(files_[left]) < key(files_[right]);
    });
  };
  sort(orderByGroup_, [](const HistoryFile& file) { return file.Group + file.Date; });
  sort(orderByDate_, [](const HistoryFile& file) { return file.Date + file.Group; });
}

const std::vector<std::size_t>& HistoryList::Order(HistoryOrder order) const {
  return order == HistoryOrder::kByGroup ? orderByGroup_ : orderByDate_;
}

std::string HistoryList::Line(const HistoryFile& file, HistoryOrder order) {
  std::string first = "[ Group = " + file.Group + " ]";
  std::string second = "[ Date = " + file.DateText + " ]";
  if (order == HistoryOrder::kByDate) std::swap(first, second);
  return first + " " + second + " [ name = " + file.Name() + " ] [ size = " + file.Size +
         " bytes ]";
}

}  // namespace tintbench::groups
