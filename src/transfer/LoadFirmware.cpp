#include "transfer/LoadFirmware.h"

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "transfer/Countdown.h"

namespace tintbench::transfer {

namespace {

constexpr int kCancelled = -1;
// The machine has written its flash by then, in seconds.
constexpr int kFlashTime = 30;

std::string EnterText() {
  return base::JoinLines(
      {"For ABORT press the CANCEL button !!", "Otherwise, follow exactly the next action sequence",
       "which is completely under your control:", " 1) Locate the BRIXEL CPU CARD on the machine.",
       " 2) Turn ON the PROGRAM-LOADING dip-switch (n.4).",
       " 3) Reset the machine by pressing the near RESET button.",
       " 4) Wait for the display-message 'XM 01 FILE 00',",
       " 5) Press the OK button in this window!!"});
}

std::string LeaveText() {
  return base::JoinLines(
      {"Now, follow exactly the next action sequence",
       "which is completely under your control:", " 1) Locate the BRIXEL CPU CARD on the machine.",
       " 2) Wait for the display-message 'TURN OFF SLAVE'.",
       " 3) Turn OFF the PROGRAM-LOADING dip-switch (n.4).",
       " 4) Reset the machine by pressing the near RESET button.",
       " 5) Wait for the end of the BOOT sequence.", " 6) Press the OK button in this window!!"});
}

}  // namespace

FirmwareLoad::FirmwareLoad(XmodWindow& window, const TransferParts& parts, TransferDisplay& display)
    : window_(window),
      parts_(parts),
      display_(display),
      record_(parts.Files, parts.Paths.AppPath()) {}

int FirmwareLoad::LoadFirmware(const std::string& path, const std::string& extension,
                               const std::string& tag, int size) {
  const config::FileParts parts =
      config::SplitFileForSending(parts_.Files, parts_.Paths.AppPath(), path, extension, tag);
  problem_ = parts.Error;
  if (parts.Last < 0) return kCancelled;
  const std::string image = path + "." + extension;
  progress_ = {.Parts = parts.Last + 1, .File = base::FileName(image)};
  if (!OperatorEnters()) return kCancelled;
  const int status = SendParts(size);
  window_.TxtFile.Text = image;
  window_.TxtFile.ToolTipText = "";
  progress_.Status = status;
  AwaitFlash(image);
  OperatorLeaves();
  if (status == link::kXmodemSuccessful && !parts_.Screen.IsClosingAll()) record_.Forget();
  return status;
}

// What went wrong in the sending stays on record whatever follows.
void FirmwareLoad::GoTo(GuideStepValue step, int part) {
  window_.GuideStep = step;
  window_.LblGuideNow.Caption = GuideOf(step).What;
  window_.Refresh();
  if (progress_.Status != link::kXmodemSuccessful) {
    progress_.Step = kGuideSend;
  } else {
    progress_.Step = step;
    if (part > 0) progress_.Part = part;
  }
  record_.Write(progress_);
}

bool FirmwareLoad::OperatorEnters() {
  GoTo(kGuideEnter);
  const bool entered = parts_.Screen.Ask({.Text = EnterText(),
                                          .Icon = kTransferIcon,
                                          .Buttons = ui::BoxButtons::OkCancel,
                                          .Title = window_.Caption}) == ui::Answer::OK;
  if (!entered) record_.Forget();
  return entered;
}

int FirmwareLoad::SendParts(int size) {
  window_.LblFwfile(2).Caption = base::PlainNumber(progress_.Parts);
  std::uint64_t left = 0;
  for (int number = 0; number < progress_.Parts; ++number) left += Length(number);
  int status = link::kXmodemSuccessful;
  for (int number = 0; number < progress_.Parts && status == link::kXmodemSuccessful; ++number) {
    const std::uint64_t length = Length(number);
    status = SendPart(number, size, left);
    left -= length;
  }
  window_.LblFwfile(0).Caption = "0";
  window_.LblFwfile(2).Caption = "0";
  return status;
}

int FirmwareLoad::SendPart(int number, int size, std::uint64_t left) {
  const std::string path = config::FilePartPath(parts_.Paths.AppPath(), number);
  window_.LblFwfile(0).Caption = base::PlainNumber(number + 1);
  window_.TxtFile.Text = path;
  window_.TxtFile.ToolTipText = path;
  GoTo(kGuideSend, number + 1);
  display_.Begin(path, Length(number), left);
  const int status = parts_.Engine.XmodemTransfer(link::kXmodemSend, size, path);
  display_.End();
  if (status == link::kXmodemSuccessful) static_cast<void>(parts_.Files.Delete(path));
  return status;
}

std::uint64_t FirmwareLoad::Length(int number) const {
  return parts_.Files.Length(config::FilePartPath(parts_.Paths.AppPath(), number)).value_or(0);
}

void FirmwareLoad::AwaitFlash(const std::string& image) {
  GoTo(kGuideWrite);
  CountDown(
      parts_.Screen, kFlashTime,
      [this](int seconds) {
        window_.TxtFile.Text = "wait please ... " + base::Bracketed(base::PlainNumber(seconds));
        window_.TxtFile.Refresh();
      },
      [this] { return parts_.Screen.IsClosingAll(); });
  window_.TxtFile.Text = image;
}

// In any case: the machine must leave its loader.
void FirmwareLoad::OperatorLeaves() {
  GoTo(kGuideLeave);
  parts_.Screen.Ask({.Text = LeaveText(), .Icon = kTransferIcon, .Title = window_.Caption});
}

}  // namespace tintbench::transfer
