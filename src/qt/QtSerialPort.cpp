#include "qt/QtSerialPort.h"

#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>
#include <cerrno>
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
// A line that takes nothing for so long, in seconds, and for the time that the largest portion
// needs in which a driver asks for more, has what it did not take dropped.
constexpr double kDrainPatience = 1.0;
constexpr double kLargestPortion = 512.0;
// Of a byte with start, parity and stop bits, rounded up.
constexpr double kBitsOfAByte = 12.0;

// What an open port reports while nothing is wrong. Control lines that a pseudo-terminal doesn't
// have, and settings that it ignores, are no error.
bool IsHarmless(QSerialPort::SerialPortError error) {
  return error == QSerialPort::NoError || error == QSerialPort::TimeoutError ||
         error == QSerialPort::UnsupportedOperationError;
}

constexpr const char* kHeld = "another program has it: end that program first";

std::string HeldBy(const std::string& holders, const std::string& otherwise) {
  return holders.empty() ? otherwise : "it is held by " + holders + ": end that program first";
}

std::string BadSettings(const std::string& settings) {
  return "the settings \"" + settings + "\" can't be used";
}

}  // namespace

QtSerialPort::QtSerialPort(base::Clock& clock, PortTable ports, Report report)
    : clock_(clock), ports_(std::move(ports)), report_(std::move(report)) {
  // A lost line that nobody reads tells of its loss again and again while events are served. The
  // port can't be closed from within what it tells.
  QObject::connect(&serial_, &QSerialPort::errorOccurred, &serial_, [this](auto error) {
    if (IsHarmless(error)) return;
    QMetaObject::invokeMethod(
        &serial_, [this] { NoticeLoss(); }, Qt::QueuedConnection);
  });
}

QtSerialPort::~QtSerialPort() { Close(); }

std::string QtSerialPort::Name(int number) const {
  return "port " + std::to_string(number) + " (" + ports_.Device(number) + ")";
}

void QtSerialPort::Tell(const std::string& problem) {
  if (told_.insert(problem).second && report_) report_(problem);
}

void QtSerialPort::Settings(const std::string& settings) {
  if (serial_.isOpen() && !Apply(settings)) {
    Tell(Name(openNumber_) + ": " + BadSettings(settings));
    Apply(settings_);
    return;
  }
  settings_ = settings;
}

bool QtSerialPort::DevicePresent() const {
  const std::string device = ports_.Device(number_);
  return !device.empty() && DeviceProblem(device).empty();
}

std::vector<link::PortDevice> QtSerialPort::Devices() {
  ports_.LookUp();
  std::vector<link::PortDevice> devices;
  for (const auto& [number, device] : ports_.Devices()) {
    const QSerialPortInfo info(QFileInfo(QString::fromStdString(device)).fileName());
    devices.push_back({number, device, info.description().toStdString(), ports_.IsNew(number)});
  }
  return devices;
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
  if (device.empty()) {
    problem_ = "no device is known as port " + std::to_string(number_);
    return false;
  }
  openNumber_ = number_;
  problem_ = TryToOpen(device);
  if (!problem_.empty()) {
    Close();
    problem_ = Name(number_) + " can't be opened: " + problem_;
    if (IsWorthTelling(device)) Tell(problem_);
    return false;
  }
  input_.clear();
  taken_ = 0;
  told_.clear();
  return true;
}

// A system also lists ports that no hardware stands behind.
bool QtSerialPort::IsWorthTelling(const std::string& device) const {
  return serial_.error() == QSerialPort::NoError || ports_.IsGiven(number_) ||
         !DeviceHolders(device).empty();
}

// Gives what stands in the way; nothing if the port is open.
std::string QtSerialPort::TryToOpen(const std::string& device) {
  serial_.clearError();
  std::string problem = DeviceProblem(device);
  if (!problem.empty()) return problem;
  serial_.setPortName(QString::fromStdString(device));
  serial_.setReadBufferSize(inBufferSize_);
  if (!serial_.open(QIODevice::ReadWrite)) {
    // The rights have been looked at already.
    const bool held = serial_.error() == QSerialPort::PermissionError;
    return HeldBy(DeviceHolders(device), held ? kHeld : serial_.errorString().toStdString());
  }
  if (!Reserve()) return HeldBy(DeviceHolders(device), kHeld);
  return Apply(settings_) ? std::string() : BadSettings(settings_);
}

bool QtSerialPort::Apply(const std::string& text) {
  LineSettings settings;
  if (!ParseLineSettings(text, settings)) return false;
  // A pseudo-terminal has no line that could have a parity.
  const bool pseudo = IsPseudoTerminal(ports_.Device(openNumber_));
  const auto taken = [this, pseudo](bool applied) {
    const bool ignored = pseudo && serial_.error() == QSerialPort::UnsupportedOperationError;
    serial_.clearError();
    return applied || ignored;
  };
  return taken(serial_.setBaudRate(settings.Baud)) && taken(serial_.setParity(settings.Parity)) &&
         taken(serial_.setDataBits(settings.DataBits)) &&
         taken(serial_.setStopBits(settings.StopBits)) &&
         taken(serial_.setFlowControl(QSerialPort::NoFlowControl));
}

// The terminal's own exclusive mode doesn't hold against a privileged user; the lock does, between
// programs that ask for it.
bool QtSerialPort::Reserve() {
#ifdef Q_OS_UNIX
  return ::flock(serial_.handle(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
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
  serial_.close();
  input_.clear();
  taken_ = 0;
  Tell(Name(openNumber_) +
       " was lost: check the adapter and its cable, then choose <Port Connection>");
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
  const double patience = kDrainPatience + kLargestPortion * kBitsOfAByte /
                                               static_cast<double>(std::max(serial_.baudRate(), 1));
  double end = clock_.Now() + patience;
  for (qint64 left = serial_.bytesToWrite(); left > 0 && clock_.Now() < end;) {
    if (!serial_.waitForBytesWritten(kLongestWaitMs) && IsLost()) return NoticeLoss();
    if (serial_.bytesToWrite() < left) end = clock_.Now() + patience;
    left = serial_.bytesToWrite();
  }
  if (serial_.bytesToWrite() > 0) serial_.clear(QSerialPort::Output);
}

bool QtSerialPort::WaitForInput(double seconds) {
  const double end = clock_.Now() + seconds;
  if (taken_ < input_.size()) return true;
  while (serial_.isOpen()) {
    const double rest = std::ceil((end - clock_.Now()) * 1000.0);
    Collect(static_cast<int>(std::clamp(rest, 0.0, static_cast<double>(kLongestWaitMs))));
    if (taken_ < input_.size()) return true;
    if (rest <= 0) return false;
  }
  clock_.SleepUntil(end);
  return false;
}

}  // namespace tintbench::desktop
