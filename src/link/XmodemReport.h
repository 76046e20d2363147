// What the operator sees of an Xmodem transfer: a status caption, counts, a progress bar and the
// kind of check and block in use.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "ui/Controls.h"

namespace tintbench::link {

// The controls that the report is shown on. They belong to a window, which must outlive their use.
struct XmodemDisplay {
  ui::Label& LblEstat;
  ui::Label& LblCurrb;
  ui::Label& LblTotb;
  ui::Label& LblCurrs;
  ui::ProgressBar& PrgbTransf;
  ui::ControlArray<ui::OptionButton>& OptCheck;  // 0 checksum, 1 CRC
  ui::ControlArray<ui::OptionButton>& OptSize;   // 0 for 128 bytes, 1 for 1024
  std::function<void()> Told = {};               // called behind each report
};

// The numbers of a report. -1 leaves what is shown as it is.
struct XmodemProgress {
  std::int64_t Block = -1;
  std::int64_t Total = -1;
  std::int64_t Bytes = -1;
  int Percent = -1;
  int Crc = -1;       // 0 for a checksum
  int Size1024 = -1;  // 0 for blocks of 128
};

class XmodemReport {
 public:
  void Bind(const XmodemDisplay& display) { display_.emplace(display); }
  void Unbind() { display_.reset(); }

  // Shows a status and what is told of the progress. Without a display nothing is shown.
  void ReportStatus(int status, const XmodemProgress& progress = {});

 private:
  std::optional<XmodemDisplay> display_;
};

}  // namespace tintbench::link
