// What the monitor of a group calls on for each session: the recording, the instruments and the
// long trend.
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
  virtual void Load() = 0;
  // The window is activated for the first time, with all rows set up.
  virtual void BuildSymbols() = 0;
  // The symbol with its separator in front, such as ". >) V_03_ON".
  virtual std::string Symbol(Mark mark) const = 0;
  // The same of input `index`, from 0, of a kind; empty for a row that isn't enabled.
  virtual std::string InputSymbol(config::InputKind kind, int index, InputMark mark) const = 0;

  // The box of recording was ticked or unticked.
  virtual void ChkMemo_Click() = 0;
  // Writes a line if a file is open, and drops it otherwise. It is on its way to the disk then.
  virtual void WriteRecordLine(const std::string& text) = 0;
  // Looks at the file's size and ends the recording at the limit. Without `force` only if a file
  // is open.
  virtual void CheckFileSize(bool force) = 0;
  // The window unloads: writes the forced end if a file is open, and closes it.
  virtual void Unload() = 0;

  virtual const std::string& Path() const = 0;
  virtual double LimitKb() const = 0;
  // Takes a new limit: renews the tool tip and checks the size.
  virtual void SetLimitKb(double limit) = 0;
};

class InstrumentPanel {
 public:
  InstrumentPanel() = default;
  virtual ~InstrumentPanel() = default;
  InstrumentPanel(const InstrumentPanel&) = delete;
  InstrumentPanel& operator=(const InstrumentPanel&) = delete;

  // The window is activated for the first time: factors, dials, side scales, the dynamic lines and
  // the trends' places.
  virtual void Activate() = 0;
  // The window unloads: the dynamic lines go.
  virtual void Unload() = 0;

  // A dial's needle; dials and bars count from 0. The angle is in degrees from the positive x axis.
  virtual void DrawNeedle(int dial, double angle) = 0;
  virtual void DrawBar(int bar, double value) = 0;
  // A new point of the trend of input `index`, from 0; kNoReading for an enquiry without a reading.
  virtual void PlotTrend(int index, double value) = 0;
  // Shows minimum and maximum in place of the limits, or the limits again.
  virtual void LblNCurr_Click(int index) = 0;
};

// Keeps the readings of all analogue inputs since the window was opened, by the time of day.
class ReadingsLog {
 public:
  ReadingsLog() = default;
  virtual ~ReadingsLog() = default;
  ReadingsLog(const ReadingsLog&) = delete;
  ReadingsLog& operator=(const ReadingsLog&) = delete;

  virtual void Clear() = 0;
  // An enquiry of input `index`, from 0, that has just been answered; kNoReading if by no reading.
  virtual void AddReading(int index, double value) = 0;
};

}  // namespace tintbench::groups
