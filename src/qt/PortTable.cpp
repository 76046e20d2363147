#include "qt/PortTable.h"

#include <QCollator>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "link/ComPort.h"

namespace tintbench::desktop {

namespace {

// What a device is in the end, whatever links lead to it.
QString RealDevice(const QString& device) {
  const QString real = QFileInfo(device).canonicalFilePath();
  return real.isEmpty() ? device : real;
}

QStringList SystemPorts() {
  QStringList ports;
  for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) {
    ports.append(port.systemLocation());
  }
  QCollator natural;
  natural.setNumericMode(true);
  std::sort(ports.begin(), ports.end(), natural);
  return ports;
}

}  // namespace

PortTable::PortTable(std::map<int, std::string> given) : given_(std::move(given)) {
  devices_ = given_;
  LookUp();
  new_.clear();
}

void PortTable::LookUp() {
  QSet<QString> used;
  for (const auto& [number, device] : devices_) {
    used.insert(RealDevice(QString::fromStdString(device)));
  }
  int number = 1;
  for (const QString& port : SystemPorts()) {
    if (used.contains(RealDevice(port))) continue;
    while (devices_.contains(number)) ++number;
    if (number > link::kMostPorts) return;
    devices_[number] = port.toStdString();
    new_.insert(number);
  }
}

std::string PortTable::Device(int number) const {
  const auto found = devices_.find(number);
  return found == devices_.end() ? std::string() : found->second;
}

}  // namespace tintbench::desktop
