#include "transfer/ConfigTransfer.h"

#include <algorithm>
#include <tuple>

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/ConfigFile.h"

namespace tintbench::transfer {

namespace {

// Firmware before this one answers nothing useful here.
constexpr int kAnsweringFirmware = 4;
// How long the machine may take over its letter, and how often the port is looked after meanwhile,
// in seconds.
constexpr double kLetterTimeout = 10.0;
constexpr double kLook = 0.5;

}  // namespace

std::string ConfigTransfer::Run(link::XmodemDirection direction, int size,
                                const std::string& file) {
  const std::string refusal = Refusal(direction, file);
  if (!refusal.empty()) return refusal;
  switch (Forgive(Start(direction))) {
    case Reply::kOther:
      return "( COMMAND REFUSED )";
    case Reply::kNone:
      return "( TIMEOUT ELAPSED )";
    case Reply::kRight:
      break;
  }
  return Carry(direction, size, file);
}

// Why nothing can be sent at all; empty if it can.
std::string ConfigTransfer::Refusal(link::XmodemDirection direction, const std::string& file) {
  if (!parts_.Port.PortOpen()) return "PORT NOT CONNECTED";
  if (file.empty() || file == kNoFile) return kWrongPath;
  if (direction == link::kXmodemReceive) return {};
  if (!parts_.Files.FileExists(file)) return kWrongPath;
  switch (config::CheckEmptyParameters(parts_.Files, file)) {
    case config::EmptyParameters::kSome:
      return "SOME EMPTY PARAMETERS IN FILE.";
    case config::EmptyParameters::kUnknown:
      return "THE FILE CAN'T BE READ, OR IT IS TOO LARGE FOR A CONFIGURATION.";
    case config::EmptyParameters::kNone:
      break;
  }
  return {};
}

ConfigTransfer::Reply ConfigTransfer::Start(link::XmodemDirection direction) {
  const std::string command = direction == link::kXmodemSend ? "#ct*" : "#cr*";
  parts_.Port.Output(command);
  if (Shows()) {
    window_.Lbldeb(0).Caption = command;
    window_.Lbldeb(0).Refresh();
  }
  return WaitAnswer('A');
}

ConfigTransfer::Reply ConfigTransfer::WaitAnswer(char expected) {
  const double end = parts_.Screen.Time().Now() + kLetterTimeout;
  bool came = false;
  // A port that has lost its device closes by itself: nothing more can come from there.
  while (!came && parts_.Port.PortOpen() && parts_.Screen.Time().Now() < end) {
    came = parts_.Port.WaitForInput(std::min(kLook, end - parts_.Screen.Time().Now()));
  }
  if (!came) return Reply::kNone;
  const std::string answer = base::ToUpper(base::Left(parts_.Port.Input(), 1));
  if (Shows()) {
    const int code = static_cast<unsigned char>(answer.empty() ? '\0' : answer[0]);
    window_.Lbldeb(1).Caption = window_.Lbldeb(1).Caption.Get() + base::PlainNumber(code) + ",";
    window_.Lbldeb(1).Refresh();
  }
  return answer == std::string(1, expected) ? Reply::kRight : Reply::kOther;
}

ConfigTransfer::Reply ConfigTransfer::Forgive(Reply reply) {
  if (parts_.Status.FirmwareNumber() >= kAnsweringFirmware) return reply;
  std::ignore = parts_.Port.Input();
  return Reply::kRight;
}

std::string ConfigTransfer::Carry(link::XmodemDirection direction, int size,
                                  const std::string& file) {
  const bool sends = direction == link::kXmodemSend;
  const std::uint64_t length = sends ? parts_.Files.Length(file).value_or(0) : 0;
  display_.Begin(file, length, length);
  const int status = parts_.Engine.XmodemTransfer(direction, size, file);
  display_.End();
  std::string text;
  switch (Forgive(WaitAnswer('K'))) {
    case Reply::kOther:
      text = "  ( TRANSMISSION FAIL )";
      break;
    case Reply::kNone:
      text = "  ( TIMEOUT ELAPSED )";
      break;
    case Reply::kRight:
      break;
  }
  if (status == link::kXmodemSuccessful) return text;
  return "ERROR [" + base::PlainNumber(status) + "]" + text;
}

}  // namespace tintbench::transfer
