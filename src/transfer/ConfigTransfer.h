// Sends a configuration to the machine, or receives the machine's own: a command, the file by
// Xmodem, and a letter before and behind it.
#pragma once

#include <string>

#include "transfer/TransferDisplay.h"
#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

// What stands in the file's box as long as none is chosen.
inline constexpr const char* kNoFile = "NO FILE SELECTED";
inline constexpr const char* kWrongPath = "INCORRECT FILE PATHNAME.";

class ConfigTransfer {
 public:
  ConfigTransfer(XmodWindow& window, const TransferParts& parts, TransferDisplay& display)
      : window_(window), parts_(parts), display_(display) {}

  // Carries `file` in that direction, in blocks of `size` bytes. Gives what went wrong in words;
  // nothing if all went well.
  std::string Run(link::XmodemDirection direction, int size, const std::string& file);

 private:
  enum class Reply { kRight, kOther, kNone };

  std::string Refusal(link::XmodemDirection direction, const std::string& file);
  Reply Start(link::XmodemDirection direction);
  Reply WaitAnswer(char expected);
  Reply Forgive(Reply reply);
  std::string Carry(link::XmodemDirection direction, int size, const std::string& file);
  bool Shows() const { return parts_.Log.DebugLevel() == link::kDebugTransfers; }

  XmodWindow& window_;
  const TransferParts& parts_;
  TransferDisplay& display_;
};

}  // namespace tintbench::transfer
