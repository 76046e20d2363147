#include "simulator/SimulatedPort.h"

#include <algorithm>
#include <utility>

namespace tintbench::simulator {

SimulatedPort::SimulatedPort(base::Clock& clock, std::map<int, Machine*> ports)
    : clock_(clock), ports_(std::move(ports)) {}

void SimulatedPort::Settings(const std::string& settings) {
  settings_ = settings;
  const std::optional<LineFormat> format = LineFormat::Parse(settings);
  if (format && PortOpen() && machine_ != nullptr) machine_->Retune(*format);
}

bool SimulatedPort::PortOpen() const {
  if (!open_) return false;
  if (machine_ == nullptr) return true;
  return machine_->Plugged() && machine_->PullCount() == pullsAtOpening_;
}

std::vector<link::PortDevice> SimulatedPort::Devices() {
  std::vector<link::PortDevice> devices;
  for (const auto& [number, machine] : ports_) {
    devices.push_back(
        {.Number = number, .Device = machine == nullptr ? "nothing" : "simulated machine"});
  }
  return devices;
}

bool SimulatedPort::DevicePresent() const {
  const auto port = ports_.find(number_);
  return port != ports_.end() && (port->second == nullptr || port->second->Plugged());
}

bool SimulatedPort::PortOpen(bool open) {
  if (open) return Open();
  Close();
  return true;
}

// What stands in the way of opening the port; nothing if it can be opened.
std::string SimulatedPort::Obstacle() const {
  const std::string name = "port " + std::to_string(number_);
  if (!ports_.contains(number_)) return "there is no simulated " + name;
  if (!DevicePresent()) return name + " can't be opened: plug its adapter in";
  if (!LineFormat::Parse(settings_)) {
    return name + " can't be opened: the settings \"" + settings_ + "\" can't be used";
  }
  return {};
}

bool SimulatedPort::Open() {
  if (PortOpen()) return false;
  Close();
  problem_ = Obstacle();
  if (!problem_.empty()) return false;
  machine_ = ports_.at(number_);
  if (machine_ != nullptr) {
    machine_->Attach(*LineFormat::Parse(settings_));
    pullsAtOpening_ = machine_->PullCount();
  }
  open_ = true;
  return true;
}

void SimulatedPort::Close() {
  if (PortOpen() && machine_ != nullptr) machine_->Detach();
  open_ = false;
  machine_ = nullptr;
  input_.clear();
}

void SimulatedPort::Collect() {
  if (!PortOpen() || machine_ == nullptr) {
    input_.clear();
    return;
  }
  input_ += machine_->Read();
  const auto room = static_cast<std::size_t>(std::max(inBufferSize_, 0));
  if (input_.size() > room) input_.resize(room);
}

std::size_t SimulatedPort::InBufferCount() {
  Collect();
  return input_.size();
}

std::string SimulatedPort::Input() {
  Collect();
  const std::size_t most = inputLen_ > 0 ? static_cast<std::size_t>(inputLen_) : input_.size();
  std::string taken = input_.substr(0, most);
  input_.erase(0, taken.size());
  return taken;
}

void SimulatedPort::Output(std::string_view bytes) {
  if (PortOpen() && machine_ != nullptr) machine_->Write(bytes);
}

bool SimulatedPort::WaitForInput(double seconds) {
  const double end = clock_.Now() + std::max(seconds, 0.0);
  while (InBufferCount() == 0) {
    if (clock_.Now() >= end) return false;
    const bool hears = PortOpen() && machine_ != nullptr;
    clock_.SleepUntil(hears ? std::min(end, machine_->NextEvent()) : end);
  }
  return true;
}

}  // namespace tintbench::simulator
