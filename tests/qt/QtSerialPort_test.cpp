// The real serial port over pseudo-terminals: bytes, buffers, exclusive use, refusals and loss.
#include "qt/QtSerialPort.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "qt/LineSettings.h"

namespace tintbench::desktop {

namespace {

// The far end of a line. The device that stands for the port keeps its name, as that of an adapter
// does that is plugged in again.
class FarEnd {
 public:
  explicit FarEnd(std::string link) : link_(std::move(link)) { Plug(); }
  ~FarEnd() {
    Unplug();
    std::filesystem::remove(link_);
  }
  FarEnd(const FarEnd&) = delete;
  FarEnd& operator=(const FarEnd&) = delete;

  const std::string& Device() const { return link_; }

  void Plug() {
    master_ = ::posix_openpt(O_RDWR | O_NOCTTY);
    ::grantpt(master_);
    ::unlockpt(master_);
    std::filesystem::remove(link_);
    std::filesystem::create_symlink(::ptsname(master_), link_);
  }
  void Unplug() {
    if (master_ >= 0) ::close(master_);
    master_ = -1;
  }
  void Write(const std::string& bytes) {
    ASSERT_EQ(::write(master_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  std::string Read(std::size_t count) {
    std::string bytes;
    char buffer[256];
    while (bytes.size() < count) {
      const ssize_t got = ::read(master_, buffer, std::min(count - bytes.size(), sizeof buffer));
      if (got <= 0) break;
      bytes.append(buffer, static_cast<std::size_t>(got));
    }
    return bytes;
  }

 private:
  std::string link_;
  int master_ = -1;
};

class RealPort : public testing::Test {
 protected:
  RealPort() { port.Settings("19200,N,8,1"); }

  // Waits until so many bytes have come.
  std::size_t Await(std::size_t count) {
    const double end = clock.Now() + 2;
    while (port.InBufferCount() < count && clock.Now() < end) clock.Sleep(0.001);
    return port.InBufferCount();
  }
  QtSerialPort MakePort(std::map<int, std::string> devices) {
    return {clock, PortTable(std::move(devices)),
            [this](const std::string& problem) { told.push_back(problem); }};
  }

  base::RealClock clock;
  FarEnd far{testing::TempDir() + "tintbench-port-" + std::to_string(getpid())};
  std::vector<std::string> told;
  QtSerialPort port = MakePort({{1, far.Device()}});
};

double ProcessorSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(RealPort, BytesPassUnchangedBothWays) {
  ASSERT_TRUE(port.PortOpen(true));
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  port.Output(all);
  EXPECT_EQ(far.Read(256), all);
  far.Write(all);
  EXPECT_TRUE(port.WaitForInput(2));
  EXPECT_EQ(Await(256), 256U);
  EXPECT_EQ(port.Input(), all);
  EXPECT_EQ(port.Input(), "");
  EXPECT_TRUE(told.empty());
}

TEST_F(RealPort, ReadsAsManyBytesAsAskedFor) {
  ASSERT_TRUE(port.PortOpen(true));
  far.Write("abcde");
  ASSERT_EQ(Await(5), 5U);
  port.InputLen(2);
  EXPECT_EQ(port.Input(), "ab");
  EXPECT_EQ(port.InBufferCount(), 3U);
  far.Write("f");
  EXPECT_EQ(Await(4), 4U) << "bytes that arrive while others wait must be counted";
  port.InputLen(0);
  EXPECT_EQ(port.Input(), "cdef");
}

TEST_F(RealPort, TheBufferHoldsNoMoreThanItsSize) {
  port.InBufferSize(100);
  ASSERT_TRUE(port.PortOpen(true));
  far.Write(std::string(250, 'x'));
  EXPECT_EQ(Await(100), 100U);
  clock.Sleep(0.05);
  EXPECT_EQ(port.InBufferCount(), 100U);
  EXPECT_EQ(port.Input().size(), 100U);
}

TEST_F(RealPort, OpeningAnewStartsEmpty) {
  ASSERT_TRUE(port.PortOpen(true));
  EXPECT_FALSE(port.PortOpen(true));
  far.Write("old");
  ASSERT_EQ(Await(3), 3U);
  EXPECT_TRUE(port.PortOpen(false));
  EXPECT_EQ(port.InBufferCount(), 0U);
  EXPECT_EQ(port.Input(), "");
  ASSERT_TRUE(port.PortOpen(true));
  EXPECT_EQ(port.InBufferCount(), 0U);
}

TEST_F(RealPort, WaitingIsBoundedAndFree) {
  ASSERT_TRUE(port.PortOpen(true));
  const double processor = ProcessorSeconds();
  for (const bool open : {true, false}) {
    port.PortOpen(false);
    if (open) port.PortOpen(true);
    const double start = clock.Now();
    EXPECT_FALSE(port.WaitForInput(0.3));
    EXPECT_NEAR(clock.Now() - start, 0.3, 0.1) << open;
  }
  EXPECT_LT(ProcessorSeconds() - processor, 0.1);
}

TEST_F(RealPort, IsNobodyElses) {
  ASSERT_TRUE(port.PortOpen(true));
  QtSerialPort second = MakePort({{1, far.Device()}});
  EXPECT_FALSE(second.PortOpen(true));
  EXPECT_EQ(told.size(), 1U);
  port.PortOpen(false);
  EXPECT_TRUE(second.PortOpen(true));
}

// Another program that holds the device until it is told to end.
class Holder {
 public:
  explicit Holder(const std::string& device) {
    EXPECT_EQ(::pipe(ready_), 0);
    process_ = ::fork();
    if (process_ == 0) {
      const int line = ::open(device.c_str(), O_RDWR | O_NOCTTY);
      ::flock(line, LOCK_EX);
      static_cast<void>(::write(ready_[1], "x", 1) == 1);
      for (;;) ::pause();
    }
    char byte = 0;
    EXPECT_EQ(::read(ready_[0], &byte, 1), 1);
  }
  ~Holder() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
    for (const int end : ready_) ::close(end);
  }
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  std::string Process() const { return "(process " + std::to_string(process_) + ")"; }

 private:
  int ready_[2] = {-1, -1};
  pid_t process_ = -1;
};

TEST_F(RealPort, RespectsALockAndNamesItsHolder) {
  {
    const Holder holder(far.Device());
    EXPECT_FALSE(port.PortOpen(true));
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find(holder.Process()), std::string::npos) << told[0];
  }
  EXPECT_TRUE(port.PortOpen(true));
}

struct Refusal {
  const char* Name;
  std::string Device;
  std::string Settings;
  std::string Told;  // must stand in the report
};

TEST_F(RealPort, SaysOnceWhyItCantBeOpened) {
  const std::string file = testing::TempDir() + "tintbench-no-device";
  std::ofstream(file).put('x');
  const std::vector<Refusal> refusals{
      {"nothing there", "/dev/tintbench-nothing", "9600,N,8,1", "/dev/tintbench-nothing"},
      {"a file", file, "9600,N,8,1", "not a serial device"},
      {"no settings", far.Device(), "", "settings"},
      {"parity", far.Device(), "9600,X,8,1", "settings"},
      {"four data bits", far.Device(), "9600,N,4,1", "settings"},
      {"speed", far.Device(), "fast,N,8,1", "settings"},
  };
  for (const Refusal& refusal : refusals) {
    told.clear();
    QtSerialPort refused = MakePort({{3, refusal.Device}});
    refused.CommPort(3);
    refused.Settings(refusal.Settings);
    for (int times = 0; times < 3; ++times) EXPECT_FALSE(refused.PortOpen(true)) << refusal.Name;
    ASSERT_EQ(told.size(), 1U) << refusal.Name;
    EXPECT_NE(told[0].find("port 3"), std::string::npos) << told[0];
    EXPECT_NE(told[0].find(refusal.Told), std::string::npos) << told[0];
  }
  port.CommPort(8);
  EXPECT_FALSE(port.PortOpen(true));
  EXPECT_EQ(told.size(), 1U) << "a number without a device is nothing to report";
}

TEST_F(RealPort, NamesTheGroupThatHasTheRight) {
  if (::geteuid() == 0) GTEST_SKIP() << "everything is allowed to this user";
  std::filesystem::permissions(std::filesystem::canonical(far.Device()),
                               std::filesystem::perms::none);
  EXPECT_FALSE(port.PortOpen(true));
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("no right"), std::string::npos) << told[0];
  EXPECT_NE(told[0].find("adduser"), std::string::npos) << told[0];
}

TEST_F(RealPort, TakesAllSettingsThatMakeSense) {
  for (const char* settings : {"  110,N,8,1", "9600,E,7,2", "28800,o,8,1", "250000,N,8,1",
                               "19200,M,8,1", "19200, ,8,1", "9600,N,5,1.5", "9600,N,8,1.5"}) {
    port.Settings(settings);
    EXPECT_TRUE(port.PortOpen(true)) << settings;
    port.Settings("9600,N,8,1");
    EXPECT_TRUE(port.PortOpen()) << settings;
    port.PortOpen(false);
  }
  EXPECT_TRUE(told.empty());
}

// Each way in which the program may be busy with the port when its far end goes.
struct Occupation {
  const char* Name;
  void (*Do)(QtSerialPort& port);
};

void PrintTo(const Occupation& occupation, std::ostream* out) { *out << occupation.Name; }

class Loss : public RealPort, public testing::WithParamInterface<Occupation> {};

TEST_P(Loss, ClosesThePortAndSaysSoOnce) {
  ASSERT_TRUE(port.PortOpen(true));
  far.Write("rest");
  ASSERT_EQ(Await(4), 4U);
  port.Input();
  far.Unplug();
  const double start = clock.Now();
  const double processor = ProcessorSeconds();
  while (port.PortOpen() && clock.Now() < start + 1) GetParam().Do(port);
  EXPECT_FALSE(port.PortOpen());
  for (int times = 0; times < 3; ++times) {
    GetParam().Do(port);
    clock.Sleep(0.02);
  }
  EXPECT_LT(ProcessorSeconds() - processor, 0.2);
  EXPECT_EQ(port.InBufferCount(), 0U);
  ASSERT_EQ(told.size(), 1U);
  EXPECT_NE(told[0].find("port 1"), std::string::npos) << told[0];

  far.Plug();
  ASSERT_TRUE(port.PortOpen(true));
  far.Write("back");
  EXPECT_EQ(Await(4), 4U);
}

INSTANTIATE_TEST_SUITE_P(
    While, Loss,
    testing::Values(Occupation{"Counting", [](QtSerialPort& port) { port.InBufferCount(); }},
                    Occupation{"Reading", [](QtSerialPort& port) { port.Input(); }},
                    Occupation{"Writing", [](QtSerialPort& port) { port.Output("#ir*"); }},
                    Occupation{"Waiting", [](QtSerialPort& port) { port.WaitForInput(0.1); }},
                    Occupation{"Serving",
                               [](QtSerialPort&) {
                                 QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
                               }}),
    [](const auto& one) { return std::string(one.param.Name); });

TEST_F(RealPort, ALineThatTakesNothingHangsNobody) {
  ASSERT_TRUE(port.PortOpen(true));
  const double start = clock.Now();
  port.Output(std::string(200000, 'x'));
  EXPECT_LT(clock.Now() - start, 3);
  EXPECT_TRUE(port.PortOpen());
  port.PortOpen(false);
}

TEST(PortNumbers, GivenDevicesKeepTheirNumbersAndComeOnce) {
  const PortTable table({{2, "/dev/ttyS0"}, {5, "/dev/tintbench-x"}});
  EXPECT_EQ(table.Device(2), "/dev/ttyS0");
  EXPECT_EQ(table.Device(5), "/dev/tintbench-x");
  EXPECT_TRUE(table.IsGiven(5));
  EXPECT_EQ(table.Device(0), "");
  EXPECT_EQ(table.Device(9), "");
  for (const int number : {1, 3, 4, 6, 7, 8}) {
    EXPECT_NE(table.Device(number), "/dev/ttyS0");
    EXPECT_FALSE(table.IsGiven(number));
  }
}

}  // namespace

}  // namespace tintbench::desktop
