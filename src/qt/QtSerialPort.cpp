#include "qt/QtSerialPort.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "qt/LineSettings.h"
#include "qt/PortProblem.h"

#ifdef Q_OS_UNIX
#include <poll.h>
#include <sys/file.h>
#endif

namespace tintbench::desktop {

namespace {

// A loss that no read reports is looked for this often while waiting, in milliseconds.
constexpr int kLongestWaitMs = 250;
// A line that takes nothing for so long has what it did not take dropped.
constexpr int kDrainMs = 1000;

// What an open port reports while nothing is wrong. Control lines that a pseudo-terminal doesn't
// have, and settings that it ignores, are no error.
bool IsHarmless(QSerialPort::SerialPortError error) {
  return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
         error == QSerialPort::UnsupportedOperationError;
}

}  // namespace

QtSerialPort::QtSerialPort(base::Clock& clock, PortTable ports, Report report)
    : clock_(clock), ports_(std::move(ports)), report_(std::move(report)) {}

QtSerialPort::~QtSerialPort() { Close(); }

std::string QtSerialPort::Name() const {
  return "port " + std::to_string(number_) + " (" + ports_.Device(number_) + ")";
}

void QtSerialPort::Tell(const std::string& problem) {
  if (told_.insert(problem).second && report_) report_(problem);
}

void QtSerialPort::Settings(const std::string& settings) {
  settings_ = settings;
  if (serial_.isOpen() && !Apply(settings)) {
    Tell(Name() + ": the settings \"" + settings + "\" can't be used");
  }
}

bool QtSerialPort::PortOpen(bool open) {
  if (!open) {
    Close();
    return true;
  }
  return !serial_.isOpen() && Open();
}

bool QtSerialPort::Open() {
  const std::string device = ports_.Device(number_);
  if (device.empty()) return false;
  serial_.setPortName(QString::fromStdString(device));
  serial_.setReadBufferSize(inBufferSize_);
  std::string problem = DeviceProblem(device);
  if (problem.empty() && !serial_.open(QIODevice::ReadWrite)) {
    const std::string holders = DeviceHolders(device);
    problem = holders.empty() ? serial_.errorString().toStdString() : "it is held by " + holders;
  } else if (problem.empty() && !Reserve()) {
    problem = "it is held by " + DeviceHolders(device) + ": end that program first";
  } else if (problem.empty() && !Apply(settings_)) {
    problem = "the settings \"" + settings_ + "\" can't be used";
  }
  if (!problem.empty()) {
    Close();
    if (ports_.IsGiven(number_)) Tell(Name() + " can't be opened: " + problem);
    return false;
  }
  serial_.clearError();
  input_.clear();
  taken_ = 0;
  openNumber_ = number_;
  told_.clear();
  return true;
}

bool QtSerialPort::Apply(const std::string& text) {
  LineSettings settings;
  if (!ParseLineSettings(text, settings)) return false;
  const bool applied = serial_.setBaudRate(settings.Baud) && serial_.setParity(settings.Parity) &&
                       serial_.setDataBits(settings.DataBits) &&
                       serial_.setStopBits(settings.StopBits) &&
                       serial_.setFlowControl(QSerialPort::NoFlowControl);
  const bool good = applied || serial_.error() == QSerialPort::UnsupportedOperationError;
  serial_.clearError();
  return good;
}

// The terminal's own exclusive mode doesn't hold against a privileged user; the lock does, between
// programs that ask for it.
bool QtSerialPort::Reserve() {
#ifdef Q_OS_UNIX
  return ::flock(serial_.handle(), LOCK_EX | LOCK_NB) == 0;
#else
  return true;
#endif
}

void QtSerialPort::Close() {
  if (!serial_.isOpen()) return;
  Drain();
  serial_.close();
  input_.clear();
  taken_ = 0;
}

bool QtSerialPort::IsLost() const {
  if (!IsHarmless(serial_.error())) return true;
#ifdef Q_OS_UNIX
  pollfd line{serial_.handle(), POLLIN, 0};
  return ::poll(&line, 1, 0) > 0 && (line.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
#else
  return false;
#endif
}

void QtSerialPort::NoticeLoss() {
  if (!serial_.isOpen() || !IsLost()) return;
  const std::string name =
      "port " + std::to_string(openNumber_) + " (" + serial_.portName().toStdString() + ")";
  serial_.close();
  Tell(name + " was lost: check the adapter and its cable, then choose <Port Connection>");
}

// Takes what has arrived into our own buffer, after waiting for it for so long at the most.
void QtSerialPort::Collect(int waitMs) {
  const std::size_t room = static_cast<std::size_t>(std::max(inBufferSize_, 1));
  const std::size_t waiting = input_.size() - taken_;
  if (waiting >= room) return;
  if (!serial_.waitForReadyRead(waitMs) && serial_.bytesAvailable() == 0) {
    if (serial_.error() == QSerialPort::TimeoutError) serial_.clearError();
    NoticeLoss();
    return;
  }
  input_.erase(0, taken_);
  taken_ = 0;
  input_ += serial_.read(static_cast<qint64>(room - waiting)).toStdString();
}

std::size_t QtSerialPort::InBufferCount() {
  if (serial_.isOpen()) Collect(0);
  return input_.size() - taken_;
}

std::string QtSerialPort::Input() {
  if (taken_ == input_.size()) InBufferCount();
  std::size_t count = input_.size() - taken_;
  if (inputLen_ > 0) count = std::min(count, static_cast<std::size_t>(inputLen_));
  std::string bytes = input_.substr(taken_, count);
  taken_ += count;
  return bytes;
}

void QtSerialPort::Output(std::string_view bytes) {
  if (!serial_.isOpen()) return;
  serial_.write(bytes.data(), static_cast<qint64>(bytes.size()));
  Drain();
}

void QtSerialPort::Drain() {
  const double end = clock_.Now() + kDrainMs / 1000.0;
  while (serial_.bytesToWrite() > 0 && clock_.Now() < end) {
    if (!serial_.waitForBytesWritten(kLongestWaitMs) && IsLost()) return NoticeLoss();
  }
  if (serial_.bytesToWrite() > 0) serial_.clear(QSerialPort::Output);
}

bool QtSerialPort::WaitForInput(double seconds) {
  const double end = clock_.Now() + seconds;
  if (taken_ < input_.size()) return true;
  if (!serial_.isOpen()) {
    clock_.SleepUntil(end);
    return false;
  }
  while (serial_.isOpen()) {
    const double rest = std::ceil((end - clock_.Now()) * 1000.0);
    Collect(static_cast<int>(std::clamp(rest, 0.0, static_cast<double>(kLongestWaitMs))));
    if (taken_ < input_.size()) return true;
    if (rest <= 0) return false;
  }
  return false;  // lost while waiting
}

}  // namespace tintbench::desktop
