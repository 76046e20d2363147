// Blocks that are lost on the line, whole or in their first character, at every place of a file and
// in both directions, with far ends of different patience: nothing that isn't whole passes for it,
// and every loss is mended.
#include <gtest/gtest.h>

#include <set>

#include "base/MemoryFileSystem.h"
#include "link/TransferPort.h"
#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

// Their numbers are control characters, when the start of a block is lost.
constexpr int kBlocks = 27;
// Ends that are as patient as ours are asked while they repeat by themselves.
constexpr double kPatiences[] = {5, 9.999, 10, 15};
constexpr double kByteSeconds = 10.0 / 19200;
constexpr double kRest = 1.0;
constexpr double kQuiet = 0.06;

struct Loss {
  std::set<int> Words;  // those of the sender, repeats counted, from 1
  bool Whole;           // or else the first character alone

  std::string Of(const std::string& word, int count) const {
    if (!Words.contains(count)) return word;
    return Whole ? std::string() : word.substr(1);
  }
};

// A sender that repeats its word by itself.
class FarSender final : public simulator::Transfer {
 public:
  FarSender(std::string text, double patience, Loss loss)
      : text_(std::move(text)), patience_(patience), loss_(std::move(loss)) {}

  void Receive(unsigned char byte, double now) override {
    const bool started = block_ > 0;
    if (!started && byte != 21) return;
    if (byte == 6 && At() >= text_.size() + 128) {
      return Finish(simulator::TransferEnd::Good);
    }
    if (byte == 6 || !started) ++block_;
    if (byte == 24) return Finish(simulator::TransferEnd::Failed);
    if (byte == 6 || byte == 21) Tick(now);
  }
  void Tick(double now) override {
    const bool data = At() < text_.size() + 128;
    Emit(loss_.Of(data ? Block(block_, text_.substr(At() - 128, 128)) : kEot, ++words_));
    deadline_ = now + patience_;
  }

 private:
  std::size_t At() const { return static_cast<std::size_t>(block_) * 128; }

  std::string text_;
  double patience_;
  Loss loss_;
  int block_ = 0;
  int words_ = 0;
};

// A receiver that asks again by itself, and believes an end of file only alone.
class FarReceiver final : public simulator::Transfer {
 public:
  FarReceiver(bool crc, double patience) : crc_(crc), patience_(patience) { deadline_ = 0.5; }

  std::string Text;

  void Receive(unsigned char byte, double now) override {
    heard_ += static_cast<char>(byte);
    deadline_ = now + (heard_ == kEot ? kQuiet : kRest);
    const int next = static_cast<int>(Text.size() / 128) + 1;
    const auto take = [&](int number) {
      return heard_.size() > 130 && heard_ == Block(number, heard_.substr(3, 128), 128, crc_);
    };
    const bool taken = take(next);
    if (taken) Text += heard_.substr(3, 128);
    if (taken || (next > 1 && take(next - 1))) Say('\x06', now);
  }
  void Tick(double now) override {
    if (heard_ != kEot) return Say(crc_ && Text.empty() ? 'C' : '\x15', now);
    Say('\x06', now);
    Finish(simulator::TransferEnd::Good);
  }

 private:
  void Say(char word, double now) {
    heard_.clear();
    Emit(word);
    deadline_ = now + patience_;
  }

  bool crc_;
  double patience_;
  std::string heard_;
};

// A line that loses words of the program.
class LossyPort final : public TransferPort {
 public:
  LossyPort(base::Clock& clock, simulator::Transfer& far, Loss loss)
      : TransferPort(clock, far), loss_(std::move(loss)) {}
  void Output(std::string_view bytes) override {
    TransferPort::Output(loss_.Of(std::string(bytes), ++words_));
  }

 private:
  Loss loss_;
  int words_ = 0;
};

struct Ending {
  int Status;
  bool FarGood;
  std::string Text;
};

Ending Receive(const std::string& text, double patience, const Loss& loss) {
  base::VirtualClock clock;
  MemoryFileSystem files;
  files.Put("/app/KEEP", "");
  FarSender far(text, patience, loss);
  TransferPort port(clock, far);
  link::Xmodem engine(port, clock, files, {.AppPath = "/app"});
  const int status = engine.XmodemReceiveQuiet("/app/file");
  clock.Sleep(kByteSeconds * 2);
  port.InBufferCount();
  return {status, far.End() == simulator::TransferEnd::Good, files.Get("/app/file")};
}

Ending Send(const std::string& text, bool crc, double patience, const Loss& loss) {
  base::VirtualClock clock;
  MemoryFileSystem files;
  files.Put("/app/file", text);
  FarReceiver far(crc, patience);
  LossyPort port(clock, far, loss);
  link::Xmodem engine(port, clock, files, {.AppPath = "/app"});
  engine.XmodemBind();
  const int status = engine.XmodemTransfer(link::kXmodemSend, 128, "/app/file");
  return {status, far.End() == simulator::TransferEnd::Good, far.Text};
}

void ExpectMended(const std::string& text, const Loss& loss) {
  for (const double patience : kPatiences) {
    for (const int way : {0, 1, 2}) {
      const Ending end =
          way == 0 ? Receive(text, patience, loss) : Send(text, way == 2, patience, loss);
      EXPECT_TRUE(end.Status == 0 && end.FarGood && end.Text == text)
          << (way == 0   ? "received"
              : way == 1 ? "sent"
                         : "sent with CRC")
          << ", " << (loss.Whole ? "whole" : "header") << " of " << *loss.Words.begin() << " and "
          << *loss.Words.rbegin() << " lost, patience " << patience << ": status " << end.Status
          << ", " << end.Text.size() << " of " << text.size() << " bytes";
    }
  }
}

TEST(LostBlocks, AreMendedAtEveryPlaceOfAFile) {
  const std::string text = Sample(kBlocks * 128);
  for (const bool whole : {true, false}) {
    for (int word = 1; word <= kBlocks + 1; ++word) ExpectMended(text, {{word}, whole});
  }
}

TEST(LostBlocks, AreMendedTwoAtATime) {
  const std::string text = Sample(3 * 128);
  for (const bool whole : {true, false}) {
    for (int first = 1; first <= 4; ++first) {
      for (int second = first + 1; second <= 5; ++second) {
        ExpectMended(text, {{first, second}, whole});
      }
    }
  }
}

}  // namespace
}  // namespace tintbench::testing
