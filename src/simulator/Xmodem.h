// The machine's own Xmodem, both directions, driven by arriving bytes and by time. It waits for
// nothing: the owner hands it each byte and calls `Tick` at `Deadline`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/Line.h"

namespace tintbench::simulator {

// The polynomial x^16 + x^12 + x^5 + 1 over the bytes, highest bit first, from 0 (CRC-16/XMODEM).
std::uint16_t Crc16(std::string_view bytes);

enum class TransferEnd { Running, Good, Failed };

// Faults of one transfer, by the count of the block from 1; 0 for none. The end of file and its
// acknowledgement count as one block more.
struct TransferFaults {
  std::size_t CancelAt = 0;
  std::size_t OneCancelAt = 0;
  std::size_t BelAt = 0;
  std::size_t StallAt = 0;
  std::size_t BadBlockAt = 0;
  std::size_t BadComplementAt = 0;
  std::size_t SkipAt = 0;
  std::size_t RepeatAt = 0;
  std::size_t NakAt = 0;
  std::size_t LoseAckAt = 0;
  std::size_t DoubleAckAt = 0;
  std::size_t LostEots = 0;  // so many ends of file are neither sent nor heard
  std::size_t RefusedEots = 0;
  bool NoStart = false;  // asks for no block, or sends none
};

// True if the fault lies on this block; it is over then.
bool Strikes(std::size_t& fault, std::size_t block);

class Transfer {
 public:
  virtual ~Transfer() = default;

  virtual void Receive(unsigned char byte, double now) = 0;
  virtual void Tick(double now) = 0;

  double Deadline() const { return deadline_; }
  TransferEnd End() const { return end_; }

  // The bytes to be sent since the last call.
  std::string TakeOutput();

 protected:
  void Emit(char byte) { output_.push_back(byte); }
  void Emit(std::string_view bytes) { output_.append(bytes); }
  void Finish(TransferEnd end);
  void CancelFromHere();
  void RefuseFromHere();
  // True at the second CAN in a row.
  bool IsSecondCancel(unsigned char byte);

  double deadline_ = kNever;

 private:
  TransferEnd end_ = TransferEnd::Running;
  bool cancelSeen_ = false;
  std::string output_;
};

// Sends a text in blocks of 128 or 1024 bytes, with the check that the receiver asks for.
class XmodemSender final : public Transfer {
 public:
  XmodemSender(std::string text, std::size_t blockSize, const TransferFaults& faults, double now);

  void Receive(unsigned char byte, double now) override;
  void Tick(double now) override;

 private:
  enum class State { Start, Block, EndOfFile, Stalled };

  std::size_t BlockCount() const;
  void Acknowledged(double now);
  void Send(double now);
  void Again(double now);
  std::string Framed(std::string_view data);

  std::string text_;
  std::size_t blockSize_;
  TransferFaults faults_;
  State state_ = State::Start;
  bool crc_ = false;
  std::size_t block_ = 0;  // the block in hand, from 1
  int tries_ = 0;
};

// Receives a text; asks for CRC ("C") first if told so, and for a checksum (NAK) when nobody
// answers that.
class XmodemReceiver final : public Transfer {
 public:
  // The most that is taken before the transfer is broken off.
  static constexpr std::size_t kLongest = std::size_t{1} << 20;

  // Gives up after `mostRequests` requests in a row without a block.
  XmodemReceiver(bool crc, const TransferFaults& faults, double now, int mostRequests = 20);

  void Receive(unsigned char byte, double now) override;
  void Tick(double now) override;

  // What has been received so far, with the padding of the last block.
  const std::string& Text() const { return text_; }

 private:
  enum class State { Header, Block, Drain, Stalled };

  void Header(unsigned char byte, double now);
  void EndOfFile();
  void BlockDone(double now);
  void TakeNext(double now);
  bool BlockGood() const;
  void Ask(double now);
  void Acknowledge(double now);

  bool crc_;
  TransferFaults faults_;
  int mostRequests_;
  State state_ = State::Header;
  bool started_ = false;  // a block has begun, so the sender has chosen its check
  std::size_t blockSize_ = 0;
  std::string frame_;       // number, complement, data and check of the block in hand
  std::size_t blocks_ = 0;  // good blocks so far
  int asked_ = 0;           // unanswered requests
  std::string text_;
};

}  // namespace tintbench::simulator
