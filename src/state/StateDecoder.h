// Turns the machine's answers on inputs, outputs and status into what the sensor panels of a
// window show. Any bytes are taken; what is no good answer shows as missing data.
#pragma once

#include <array>
#include <functional>
#include <string>

#include "state/ErrorCatalogue.h"
#include "state/SensorNames.h"
#include "state/SensorPanels.h"

namespace tintbench::state {

class StateDecoder {
 public:
  // `firmwareNumber` gives the firmware's version as a number, as it stands at the moment.
  StateDecoder(const SensorNames& names, const ErrorTable& errors,
               std::function<double()> firmwareNumber)
      : names_(names), errors_(errors), firmwareNumber_(std::move(firmwareNumber)) {}

  // Each moves the panel's life sign and shows the answer. True if it was a good one.
  bool DecodeInputs(SensorPanels& panels, const std::string& answer);   // of "#ir*"
  bool DecodeOutputs(SensorPanels& panels, const std::string& answer);  // of "#ur*"
  bool DecodeStatus(SensorPanels& panels, const std::string& answer);   // of "#s*", upper case

  // The next answers redraw everything.
  void ClearLastAnswers() { lastAnswers_ = {}; }

  // Characters by which old firmware shifts a busy machine's status: 0 or 1.
  int StatusOffset(const std::string& status) const;
  // How many errors a status reports.
  int StatusErrorCount(const std::string& status) const;
  // The text of a status's errors: a line for each.
  std::string StatusErrors(const std::string& status) const;

 private:
  enum Kind : std::size_t { kInputs, kOutputs, kStatus, kKinds };

  // False if the answer is the last one again. It counts as the last one from now on.
  bool IsNew(Kind kind, const std::string& answer);
  void ShowInputBits(SensorPanels& panels, const std::string& bits) const;
  void ShowOutputBits(SensorPanels& panels, const std::string& bits) const;

  const SensorNames& names_;
  const ErrorTable& errors_;
  std::function<double()> firmwareNumber_;
  std::array<std::string, kKinds> lastAnswers_;
};

}  // namespace tintbench::state
