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

bool SimulatedPort::DevicePresent() const {
  const auto port = ports_.find(number_);
  return port != ports_.end() && (port->second == nullptr || port->second->Plugged());
}

bool SimulatedPort::PortOpen(bool open) {
  if (open) return Open();
  Close();
  return true;
}

bool SimulatedPort::Open() {
  if (PortOpen()) return false;
  Close();
  const auto port = ports_.find(number_);
  const std::optional<LineFormat> format = LineFormat::Parse(settings_);
  if (port == ports_.end() || !format) return false;
  if (port->second != nullptr) {
    if (!port->second->Plugged()) return false;
    port->second->Attach(*format);
    pullsAtOpening_ = port->second->PullCount();
  }
  machine_ = port->second;
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
