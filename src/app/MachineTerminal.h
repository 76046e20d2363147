// A pseudo-terminal in raw mode with a link to it: where the simulated machine meets other
// programs.
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace tintbench::app {

class MachineTerminal {
 public:
  explicit MachineTerminal(std::string linkPath) : link_(std::move(linkPath)) {}
  ~MachineTerminal() { Close(); }
  MachineTerminal(const MachineTerminal&) = delete;
  MachineTerminal& operator=(const MachineTerminal&) = delete;

  // Opens a new pseudo-terminal and makes the link, in place of one that an earlier machine left.
  // False if that fails; `error` is then one line that says why.
  bool Open(std::string& error);

  // Hangs up, and removes the link if it still leads here.
  void Close();

  bool IsOpen() const { return master_ >= 0; }

  // The descriptor to wait on; -1 while closed.
  int Descriptor() const { return master_; }

  // Path of the device that the link leads to.
  const std::string& Device() const { return device_; }

  // Takes what has come, without blocking.
  std::string Read();

  // Gives bytes out, without blocking. What nobody takes is lost, as on a line.
  void Write(std::string_view bytes);

 private:
  bool OpenTerminal(std::string& error);
  bool MakeLink(std::string& error);
  // Where the link leads to; empty if there is none.
  std::string LinkTarget() const;

  std::string link_;
  std::string device_;
  int master_ = -1;
  int slave_ = -1;  // held open, so that the other side may close and open again
};

}  // namespace tintbench::app
