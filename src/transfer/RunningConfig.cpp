#include "transfer/RunningConfig.h"

#include <algorithm>
#include <utility>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "editor/ConfigStore.h"
#include "editor/PlaceText.h"

namespace tintbench::transfer {

namespace {

// More differences than this nobody reads one by one.
constexpr std::size_t kMostRows = 500;
constexpr const char* kNothing = "-";

std::string OnePiece(std::string text) {
  std::replace(text.begin(), text.end(), '\t', ' ');
  return text.empty() ? kNothing : text;
}

}  // namespace

void RunningConfig::Clear() {
  known_ = false;
  window_.FrmCompare.Visible = false;
  window_.LblCompare.Caption = "";
  window_.LstCompare.Clear();
}

void RunningConfig::Remember(const std::string& file) {
  sent_ = editor::EditingModel();
  name_ = base::FileName(file);
  known_ = static_cast<bool>(editor::LoadConfigFile(parts_.Files, file, sent_));
}

void RunningConfig::Compare() {
  editor::EditingModel running;
  if (!known_ || parts_.Status.LinkState < link::kConfigReceived ||
      !editor::LoadConfigFile(parts_.Files, parts_.Paths.ReceivedConfigFile(), running)) {
    Show("The machine's configuration could not be read: nobody knows whether it runs " + name_ +
         ".");
    return;
  }
  const auto differences = editor::CompareConfigs(sent_, running);
  if (differences.empty()) {
    Show("The machine runs what was sent: " + name_ + ".");
    return;
  }
  ui::ListRows rows;
  for (const editor::Difference& difference : differences) {
    if (rows.size() == kMostRows) break;
    rows.push_back({.Text = base::Join({OnePiece(Place(difference, running)),
                                        OnePiece(difference.Here), OnePiece(difference.There)},
                                       "\t")});
  }
  const auto count = differences.size();
  Show("The machine does not run " + name_ + " as it was sent: " + base::PlainNumber(count) +
           (count == 1 ? " difference." : " differences."),
       std::move(rows));
}

void RunningConfig::Show(const std::string& words, ui::ListRows rows) {
  window_.LblCompare.Caption = words;
  window_.LstCompare.Visible = !rows.empty();
  window_.LstCompare.Rows = std::move(rows);
  window_.FrmCompare.Visible = true;
}

// "Motors 3: Pump type", or the element alone where there is no more to name.
std::string RunningConfig::Place(const editor::Difference& difference,
                                 const editor::EditingModel& there) const {
  const bool onlyThere = difference.Kind == editor::DifferenceKind::kOnlyThere;
  const std::string place = editor::ElementText(onlyThere ? there : sent_, difference.At.Element);
  if (difference.Kind != editor::DifferenceKind::kValue) return place;
  return place + ": " + editor::ParameterText(parts_.Catalogue, difference.At);
}

}  // namespace tintbench::transfer
