#include "transfer/TransferDisplay.h"

#include <algorithm>
#include <cmath>

#include "base/Numbers.h"
#include "base/Paths.h"

namespace tintbench::transfer {

namespace {

std::string Seconds(double seconds) {
  return base::PlainNumber(static_cast<std::int64_t>(std::ceil(seconds))) + " s";
}

// The padding of the last block is none of the file's.
std::uint64_t Capped(std::int64_t bytes, std::uint64_t size) {
  const auto all = static_cast<std::uint64_t>(std::max<std::int64_t>(bytes, 0));
  return size == 0 ? all : std::min(all, size);
}

}  // namespace

link::XmodemDisplay TransferDisplay::Controls() {
  return {.LblEstat = window_.LblEstat,
          .LblCurrb = window_.LblCurrb,
          .LblTotb = window_.LblTotb,
          .LblCurrs = window_.LblCurrs,
          .PrgbTransf = window_.PrgbTransf,
          .OptCheck = window_.OptCheck,
          .OptSize = window_.OptSize,
          .Told = [this] {
            if (running_) Show();
          }};
}

void TransferDisplay::Clear(const std::string& file) {
  running_ = false;
  window_.PrgbTransf.Value = 0;
  for (ui::Label* label :
       {&window_.LblEstat, &window_.LblCurrb, &window_.LblTotb, &window_.LblCurrs,
        &window_.LblPercent, &window_.LblBytes, &window_.LblRate, &window_.LblLeft,
        &window_.LblRepeated, &window_.Lbldeb(0), &window_.Lbldeb(1)}) {
    label->Caption = "";
  }
  window_.LblFileName.Caption = base::FileName(file);
}

void TransferDisplay::Begin(const std::string& file, std::uint64_t size, std::uint64_t left) {
  Clear(file);
  size_ = size;
  left_ = left;
  since_ = clock_.Now();
  running_ = true;
}

void TransferDisplay::Show() {
  const link::XmodemState& state = engine_.State();
  const std::uint64_t bytes = Capped(state.TransferredBytes, size_);
  const std::string done = base::PlainNumber(bytes);
  if (size_ > 0) {
    window_.LblPercent.Caption = base::PlainNumber(state.Percent) + " %";
    window_.LblBytes.Caption = done + " of " + base::PlainNumber(size_) + " bytes";
  } else {
    window_.LblBytes.Caption = done + " bytes";
  }
  window_.LblRepeated.Caption =
      base::PlainNumber(state.RepeatedBlocks) +
      (state.RepeatedBlocks == 1 ? " block repeated" : " blocks repeated");
  const double seconds = clock_.Now() - since_;
  if (seconds <= 0 || bytes == 0) return;
  const double rate = static_cast<double>(bytes) / seconds;
  window_.LblRate.Caption = base::PlainNumber(std::lround(rate)) + " bytes a second";
  if (left_ > 0) {
    const double rest = static_cast<double>(left_) - static_cast<double>(bytes);
    window_.LblLeft.Caption = Seconds(std::max(rest, 0.0) / rate) + " left";
  }
}

void TransferDisplay::End() {
  if (!running_) return;
  Show();
  running_ = false;
  window_.LblLeft.Caption = "in " + Seconds(clock_.Now() - since_);
}

}  // namespace tintbench::transfer
