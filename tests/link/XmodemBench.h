// An Xmodem engine with a scripted line, a window that shows its report, and the blocks of the
// protocol made by other means than the engine's.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "base/Files.h"
#include "base/ScratchFolder.h"
#include "link/ScriptedPort.h"
#include "link/Xmodem.h"
#include "ui/Form.h"

namespace tintbench::testing {

inline const std::string kAck = "\x06";
inline const std::string kNak = "\x15";
inline const std::string kEot = "\x04";
inline const std::string kCan = "\x18";
inline const std::string kBel = "\x07";
inline const std::string kCancel = std::string(8, '\x18') + std::string(8, '\x08');

// The remainder of the bytes and two zeros, divided by x^16 + x^12 + x^5 + 1, bit by bit.
inline std::string CrcOf(std::string bytes) {
  bytes += std::string(2, '\0');
  unsigned remainder = 0;
  for (const char byte : bytes) {
    for (int bit = 7; bit >= 0; --bit) {
      remainder = remainder << 1U | (static_cast<unsigned char>(byte) >> bit & 1U);
      if (remainder > 0xFFFFU) remainder ^= 0x11021U;
    }
  }
  return {static_cast<char>(remainder >> 8U), static_cast<char>(remainder & 0xFFU)};
}

inline std::string SumOf(const std::string& bytes) {
  char sum = 0;
  for (const char byte : bytes) sum = static_cast<char>(sum + byte);
  return {sum};
}

// A block as it goes on the wire, padded. `number` counts on beyond 255.
inline std::string Block(int number, std::string data, std::size_t size = 128, bool crc = false) {
  data.resize(size, '\x1A');
  const char first = static_cast<char>(number % 256);
  const std::string head = {size == 1024 ? '\x02' : '\x01', first, static_cast<char>(~first)};
  return head + data + (crc ? CrcOf(data) : SumOf(data));
}

// Bytes that differ from place to place, all values among them.
inline std::string Sample(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 7 + i / 256);
  return bytes;
}

struct TransferWindow : ui::Form {
  TransferWindow() : Form("TransferWindow") {}
  ui::Label LblEstat{*this, "LblEstat"};
  ui::Label LblCurrb{*this, "LblCurrb"};
  ui::Label LblTotb{*this, "LblTotb"};
  ui::Label LblCurrs{*this, "LblCurrs"};
  ui::ProgressBar PrgbTransf{*this, "PrgbTransf"};
  ui::Frame FrmCheck{*this, "FrmCheck"};
  ui::Frame FrmSize{*this, "FrmSize"};
  ui::ControlArray<ui::OptionButton> OptCheck{FrmCheck, "OptCheck", 2};
  ui::ControlArray<ui::OptionButton> OptSize{FrmSize, "OptSize", 2};
  link::XmodemDisplay Display() {
    return {LblEstat, LblCurrb, LblTotb, LblCurrs, PrgbTransf, OptCheck, OptSize};
  }
  // All that the report shows, in one text.
  std::string Shown() const {
    const auto chosen = [](const auto& buttons) {
      return std::string(buttons(1).Value ? "1" : buttons(0).Value ? "0" : "-");
    };
    return LblEstat.Caption.Get() + "|" + LblCurrb.Caption.Get() + "/" + LblTotb.Caption.Get() +
           "|" + LblCurrs.Caption.Get() + "|" + std::to_string(PrgbTransf.Value.Get()) + "|" +
           chosen(OptCheck) + chosen(OptSize);
  }
};

// Notes the captions of a label in their order.
class CaptionLog final : public ui::Observer {
 public:
  explicit CaptionLog(ui::Label& label) : label_(label) { label_.AddObserver(*this); }
  ~CaptionLog() override { label_.RemoveObserver(*this); }
  CaptionLog(const CaptionLog&) = delete;
  CaptionLog& operator=(const CaptionLog&) = delete;
  void PropertyChanged(const ui::PropertyBase&) override { Captions.push_back(label_.Caption); }
  std::vector<std::string> Captions;

 private:
  ui::Label& label_;
};

// The engine throws away what waits on the line before a transfer, so the script of a receiver
// begins with a `Wait`.
struct XmodemBench {
  explicit XmodemBench(std::unique_ptr<base::FileSystem> files = nullptr)
      : Files(files ? std::move(files) : std::make_unique<base::StandardFileSystem>()) {
    Engine.XmodemBind(Window.Display());
  }

  int Send(const std::string& file, int size = 128) {
    return Engine.XmodemTransfer(link::kXmodemSend, size, file);
  }
  int Receive(const std::string& file) {
    return Engine.XmodemTransfer(link::kXmodemReceive, 128, file);
  }

  base::VirtualClock Clock;
  ScratchFolder Folder;
  std::unique_ptr<base::FileSystem> Files;
  ScriptedPort Port{Clock};
  TransferWindow Window;
  std::function<void()> OnEvents = [] {};
  int DebugLevel = 0;
  link::Xmodem Engine{
      Port, Clock, *Files, {Folder.Path(), [this] { OnEvents(); }, [this] { return DebugLevel; }}};
};

}  // namespace tintbench::testing
