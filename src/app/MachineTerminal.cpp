#include "app/MachineTerminal.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>

namespace tintbench::app {

namespace {

// Where the devices of pseudo-terminals lie; a link there is one that a machine has made.
constexpr std::string_view kTerminals = "/dev/pts/";

std::string Reason(std::string_view what) { return std::string(what) + ": " + strerror(errno); }

// No echo, no line editing, no translation, eight bits.
bool MakeRaw(int terminal) {
  termios settings{};
  if (tcgetattr(terminal, &settings) != 0) return false;
  cfmakeraw(&settings);
  return tcsetattr(terminal, TCSANOW, &settings) == 0;
}

void CloseDescriptor(int& descriptor) {
  if (descriptor >= 0) close(descriptor);
  descriptor = -1;
}

}  // namespace

bool MachineTerminal::Open(std::string& error) {
  Close();
  if (OpenTerminal(error) && MakeLink(error)) return true;
  CloseDescriptor(slave_);
  CloseDescriptor(master_);
  return false;
}

bool MachineTerminal::OpenTerminal(std::string& error) {
  master_ = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
  if (master_ < 0 || grantpt(master_) != 0 || unlockpt(master_) != 0) {
    error = Reason("no pseudo-terminal");
    return false;
  }
  // One thread runs here, so the shared buffer of ptsname is safe.
  const char* name = ptsname(master_);
  device_ = name == nullptr ? "" : name;
  slave_ = open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (slave_ < 0 || !MakeRaw(slave_)) {
    error = Reason(device_);
    return false;
  }
  return true;
}

std::string MachineTerminal::LinkTarget() const {
  std::array<char, PATH_MAX> target{};
  const ssize_t length = readlink(link_.c_str(), target.data(), target.size());
  return length < 0 ? std::string() : std::string(target.data(), static_cast<std::size_t>(length));
}

bool MachineTerminal::MakeLink(std::string& error) {
  struct stat found {};
  if (lstat(link_.c_str(), &found) == 0) {
    if (!S_ISLNK(found.st_mode) || !LinkTarget().starts_with(kTerminals)) {
      error = link_ + ": is there, and is no link to a terminal";
      return false;
    }
    unlink(link_.c_str());
  }
  if (symlink(device_.c_str(), link_.c_str()) == 0) return true;
  error = Reason(link_);
  return false;
}

void MachineTerminal::Close() {
  if (!IsOpen()) return;
  if (LinkTarget() == device_) unlink(link_.c_str());
  CloseDescriptor(slave_);
  CloseDescriptor(master_);
}

std::string MachineTerminal::Read() {
  std::array<char, 4096> buffer{};
  const ssize_t count = IsOpen() ? read(master_, buffer.data(), buffer.size()) : 0;
  return std::string(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
}

void MachineTerminal::Write(std::string_view bytes) {
  while (IsOpen() && !bytes.empty()) {
    const ssize_t count = write(master_, bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace tintbench::app
