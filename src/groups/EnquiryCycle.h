// The enquiry: asks for the inputs of a group one by one and for ever, shows each answer, keeps the
// readings and records them, until it is told to stop.
#pragma once

#include <string>

#include "groups/MonitorWork.h"
#include "groups/SensorAnswer.h"

namespace tintbench::groups {

class EnquiryCycle {
 public:
  explicit EnquiryCycle(MonitorWork& work) : work_(work) {}

  // The window loads: nothing runs, and only a start can be chosen.
  void Reset();
  // True from the start, even one that is refused, until all is tidied up behind the last enquiry.
  bool IsUnderWay() const { return underWay_; }

  // Starts the cycle and returns when it has ended. Events are served between enquiries.
  void Start();
  // Has it end behind the enquiry that runs, as the operator's tick does.
  void Stop();
  void ChkStopEnquire_Click();

 private:
  struct Enquired {
    std::string Time;
    std::string Answer;
  };

  void Lock(bool locked);
  void ClearInputStatus();
  bool ValidateEnquiry();
  bool Refuse(std::string_view reason, std::string_view outcome);
  bool HasInputInUse();
  bool EnquiryLoop();
  void EnquireDigitalInputs();
  void EnquireAnalogueInputs();
  void EnquireDigital(int row);
  void EnquireAnalogue(int row);
  Enquired Ask(const std::string& enquiry);
  void ShowDigitalStatus(int row, const SensorAnswer& answer);
  void ShowAnalogueReading(int row, const SensorAnswer& answer);
  void MoveInstrument(int row);
  void Record(config::InputKind kind, int row, const Enquired& enquired, const std::string& enquiry,
              const std::string& shown);
  void Pause();

  MonitorWork& work_;
  GroupWindow& window_{work_.Window};
  Group& group_{work_.TheGroup};
  double delay_ = 0;  // seconds behind each enquiry
  bool underWay_ = false;
  bool running_ = false;
  bool paused_ = false;  // in this round
};

}  // namespace tintbench::groups
