#include "transfer/Reconnect.h"

#include <algorithm>
#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"
#include "transfer/Countdown.h"

namespace tintbench::transfer {

namespace {

constexpr int kSecondsOfGroup = 10;
// Longer than any machine takes; a number typed wrongly must not hold the operator up for a day.
constexpr std::int64_t kLongestWait = 3600;

}  // namespace

int Reconnection::Seconds(int groups) const {
  const std::int64_t typed = base::LeadingWhole(window_.Txtwait.Text.Get());
  if (typed <= 0) return groups * kSecondsOfGroup;
  return static_cast<int>(std::min(typed, kLongestWait));
}

void Reconnection::Reconnect(int groups) {
  skipped_ = false;
  if (groups > config::kGroupAddresses) {
    parts_.Log.WriteNote("groups to wait for: " + base::PlainNumber(groups) + ", taken as " +
                         base::PlainNumber(config::kGroupAddresses));
    groups = config::kGroupAddresses;
  }
  window_.LblFile.Visible = false;
  window_.TxtFile.Visible = false;
  window_.LblReconnect.Caption = base::JoinLines({"Reconnecting to machine !", "wait please ... "});
  window_.FrmReconnect.Visible = true;
  const int seconds = Seconds(groups);
  if (seconds > 0) AwaitGroups(groups, seconds);
  connect_();
  window_.FrmReconnect.Visible = false;
  window_.LblFile.Visible = true;
  window_.TxtFile.Visible = true;
}

void Reconnection::AwaitGroups(int groups, int seconds) {
  std::string what = "wait for" + base::PlainNumber(seconds) + " sec.";
  if (groups > 0) what += " groups: " + base::PlainNumber(groups);
  window_.LblWaitGroups.Caption = what;
  window_.FrmWaitGroups.Visible = true;
  window_.Refresh();
  const auto show = [this](int number) {
    window_.Lblwait.Caption = base::PlainNumber(number);
    window_.Lblwait.Refresh();
  };
  CountDown(
      parts_.Screen, seconds, [&show](int left) { show(left + 1); },
      [this] { return skipped_ || parts_.Screen.IsClosingAll(); });
  show(1);
  window_.FrmWaitGroups.Visible = false;
  window_.LblWaitGroups.Caption = "";
  window_.Lblwait.Caption = "";
  parts_.Screen.DoEvents();
}

}  // namespace tintbench::transfer
