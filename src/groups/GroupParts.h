// What the monitor of a group calls on for each session: the recording, the instruments and the
// long trend. What one of them doesn't override it doesn't do.
#pragma once

#include <string>

#include "config/MachineFacts.h"

namespace tintbench::groups {

// What a line of the recording is about, beside the inputs.
enum class Mark {
  DispensingCheck,
  StartRecording,
  EndRecording,
  EnquiryOn,
  EnquiryOff,
  EnquiryTime,
  CapOpen,
  CapClose,
  ValveOn,
  ValveOff,
  StirringOn,
  StirringOff,
  MotorOn,
  MotorOff,
  MotorSpeed,
};

// What a line is about that tells of one input.
enum class InputMark { On, Off, Enquired, FunctionOn, FunctionOff };

class SessionRecord {
 public:
  SessionRecord() = default;
  virtual ~SessionRecord() = default;
  SessionRecord(const SessionRecord&) = delete;
  SessionRecord& operator=(const SessionRecord&) = delete;

  // The window loads, and knows its address: makes the folder, names the file, shows path, limit
  // and size. The header is still to be written.
  virtual void Load() {}
  // The window is activated for the first time, with all rows set up.
  virtual void BuildSymbols() {}
  // The symbol with its separator in front, such as ". >) V_03_ON".
  virtual std::string Symbol(Mark /*mark*/) const { return {}; }
  // The same of input `index`, from 0, of a kind; empty for a row that isn't enabled.
  virtual std::string InputSymbol(config::InputKind /*kind*/, int /*index*/,
                                  InputMark /*mark*/) const {
    return {};
  }

  // The box of recording was ticked or unticked.
  virtual void ChkMemo_Click() {}
  // Writes a line if a file is open, and drops it otherwise. It is on its way to the disk then.
  virtual void WriteRecordLine(const std::string& /*text*/) {}
  // Looks at the file's size and ends the recording at the limit. Without `force` only if a file
  // is open.
  virtual void CheckFileSize(bool /*force*/) {}
  // The window unloads: writes the forced end if a file is open, and closes it.
  virtual void Unload() {}

  virtual const std::string& Path() const {
    static const std::string kNone;
    return kNone;
  }
  virtual double LimitKb() const { return 0; }
  // Takes a new limit: renews the tool tip and checks the size.
  virtual void SetLimitKb(double /*limit*/) {}
};

class InstrumentPanel {
 public:
  InstrumentPanel() = default;
  virtual ~InstrumentPanel() = default;
  InstrumentPanel(const InstrumentPanel&) = delete;
  InstrumentPanel& operator=(const InstrumentPanel&) = delete;

  // The window is activated for the first time: factors, dials, side scales, the dynamic lines and
  // the trends' places.
  virtual void Activate() {}
  // The window unloads: the dynamic lines go.
  virtual void Unload() {}

  // A dial's needle; dials and bars count from 0. The angle is in degrees from the positive x axis.
  virtual void DrawNeedle(int /*dial*/, double /*angle*/) {}
  virtual void DrawBar(int /*bar*/, double /*value*/) {}
  // A new point of the trend of input `index`, from 0; kNoReading for an enquiry without a reading.
  virtual void PlotTrend(int /*index*/, double /*value*/) {}
  // Shows minimum and maximum in place of the limits, or the limits again.
  virtual void LblNCurr_Click(int /*index*/) {}
};

// Keeps the readings of all analogue inputs since the window was opened, by the time of day.
class ReadingsLog {
 public:
  ReadingsLog() = default;
  virtual ~ReadingsLog() = default;
  ReadingsLog(const ReadingsLog&) = delete;
  ReadingsLog& operator=(const ReadingsLog&) = delete;

  virtual void Clear() {}
  // An enquiry of input `index`, from 0, that has just been answered; kNoReading if by no reading.
  virtual void AddReading(int /*index*/, double /*value*/) {}
};

}  // namespace tintbench::groups
