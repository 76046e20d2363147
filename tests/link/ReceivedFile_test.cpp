// Receiving a file on a disk that fails, at each operation and in each way: the earlier file or the
// received one is there, whole, and the status tells of the failure.
#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

constexpr int kBlocks = 3;
// Making the scratch file, writing the blocks and closing it come before the last acknowledgement.
constexpr int kClosing = kBlocks + 2;

const std::string kEarlier(500, 'e');
const std::string kReceived = Sample(kBlocks * 128);

// A sender that goes on to the operation that fails, and is told there if it isn't done yet.
void PlaySender(ScriptedPort& port, int failing) {
  port.Expect(kNak);
  for (int block = 1; block <= kBlocks; ++block) {
    port.Reply(Block(block, kReceived.substr(static_cast<std::size_t>(block - 1) * 128, 128)));
    if (failing <= block + 1) {
      port.Expect(kCancel);
      return;
    }
    port.Expect(kAck);
  }
  port.Reply(kEot).Expect(failing == kClosing ? kCancel : kAck);
}

TEST(ReceivedFile, TheEarlierFileOrTheReceivedOneIsThereWhateverFails) {
  for (const bool foreign : {false, true}) {
    SCOPED_TRACE(foreign ? "between two devices" : "on one device");
    const ScratchFolder folder;
    std::filesystem::create_directories(folder.Path("CONFIGUR"));
    int refused = 0;
    UnderEachDiskFault([&](FailingFileSystem& files) {
      const std::string target = folder.Put("CONFIGUR/target", kEarlier);
      base::VirtualClock clock;
      ScriptedPort port(clock);
      PlaySender(port, files.Operation);
      if (foreign) files.ForeignPath = folder.Path("TMP.TMP");
      link::Xmodem engine(port, clock, files, {.AppPath = folder.Path()});
      const int status = engine.XmodemReceiveQuiet(target);
      EXPECT_TRUE(status == 0 || (status == 7 && files.HasFailed())) << status;
      refused += status == 0 ? 0 : 1;
      const std::string content = folder.Get("CONFIGUR/target");
      EXPECT_TRUE(content == kReceived || (status != 0 && content == kEarlier)) << content.size();
      base::StandardFileSystem disk;
      if (files.Lasts) base::SweepTemporaryFiles(disk, folder.Path("CONFIGUR"));
      EXPECT_EQ(disk.List(folder.Path("CONFIGUR"), "*"), std::vector<std::string>{"target"});
      EXPECT_LE(disk.List(folder.Path(), "*").size(), 1U);
    });
    EXPECT_GT(refused, 7 * kClosing);
  }
}

// A target without a folder lies in the working one, and a name may hold what elsewhere would
// separate folders.
TEST(ReceivedFile, TheFolderOfAnyNameReachesTheDevice) {
  struct SyncedFiles final : base::StandardFileSystem {
    std::vector<std::string> Synced;
    base::FileResult SyncToDevice(const std::string& path) override {
      Synced.push_back(path);
      return {};
    }
    base::FileResult Rename(const std::string&, const std::string&) override { return {}; }
  };
  const struct {
    std::string Target;
    std::string Folder;
  } cases[] = {{"name", "."}, {"a:b", "."}, {"/x/a:b", "/x"}, {"/name", "/"}};
  for (const auto& one : cases) {
    const ScratchFolder folder;
    SyncedFiles files;
    base::VirtualClock clock;
    ScriptedPort port(clock);
    PlaySender(port, kClosing + 1);
    link::Xmodem engine(port, clock, files, {.AppPath = folder.Path()});
    EXPECT_EQ(engine.XmodemReceiveQuiet(one.Target), 0);
    EXPECT_EQ(files.Synced, (std::vector<std::string>{folder.Path("TMP.TMP"), one.Folder}));
  }
}

}  // namespace
}  // namespace tintbench::testing
