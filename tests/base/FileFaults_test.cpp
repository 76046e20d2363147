// Rewriting a file on a disk that fails, at each operation and in each way: the old file or the new
// one is there, whole, the caller is told, and what is left besides is swept up.
#include <gtest/gtest.h>

#include "base/FailingFileSystem.h"
#include "base/Files.h"
#include "base/Paths.h"
#include "base/ScratchFolder.h"

namespace tintbench::base {
namespace {

using testing::FailingFileSystem;
using testing::ScratchFolder;
using testing::UnderEachDiskFault;

const std::string kOld(70000, 'o');

FileResult InPieces(FileSystem& files, const std::string& path, const std::string& content) {
  ReplacementFile file(files, path);
  const std::size_t half = content.size() / 2;
  std::ignore = file.Write(content.substr(0, half));
  std::ignore = file.Write("");
  std::ignore = file.Write(content.substr(half));
  return file.Commit();
}

FileResult InOnePiece(FileSystem& files, const std::string& path, const std::string& content) {
  return ReplaceFile(files, path, content);
}

TEST(FileFaults, ARewriteLeavesTheOldFileOrTheNewOne) {
  const struct {
    const char* Name;
    FileResult (*Rewrite)(FileSystem& files, const std::string& path, const std::string& content);
    bool HasOld;
    std::string New;
  } cases[] = {
      {"short", InOnePiece, true, "new"},
      {"of some pages", InOnePiece, true, std::string(200000, 'n')},
      {"empty", InOnePiece, true, ""},
      {"in pieces", InPieces, true, std::string(200000, 'n')},
      {"the first of its name", InPieces, false, "new"},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Name);
    const ScratchFolder folder;
    UnderEachDiskFault([&](FailingFileSystem& files) {
      const std::string path = folder.Path("target");
      std::filesystem::remove(path);
      if (one.HasOld) folder.Put("target", kOld);
      const FileResult result = one.Rewrite(files, path, one.New);
      const bool failed = files.HasFailed();
      EXPECT_NE(failed, static_cast<bool>(result));
      EXPECT_EQ(failed, result.Error() != "");
      StandardFileSystem disk;
      if (files.Lasts) SweepTemporaryFiles(disk, folder.Path());
      const bool isThere = disk.FileExists(path);
      EXPECT_EQ(folder.Count(), isThere ? 1 : 0);
      const bool isNew = isThere && folder.Get("target") == one.New;
      const bool isOld = isThere == one.HasOld && folder.Get("target") == (isThere ? kOld : "");
      EXPECT_TRUE(isNew || (failed && isOld)) << folder.Get("target").size() << " bytes";
    });
  }
}

// Notes what the disk holds when something is brought to the device or gets its name.
class NotingFiles final : public StandardFileSystem {
 public:
  explicit NotingFiles(const ScratchFolder& folder) : folder_(folder) {}

  std::vector<std::string> Steps;

  FileResult SyncToDevice(const std::string& path) override {
    Steps.push_back("sync " + (DirExists(path) ? "folder " + path : folder_.Get(path)));
    return {};
  }
  FileResult Rename(const std::string& from, const std::string& to) override {
    Steps.push_back("rename to " + to);
    return StandardFileSystem::Rename(from, to);
  }

 private:
  const ScratchFolder& folder_;
};

TEST(FileFaults, TheContentReachesTheDeviceBeforeTheNameAndTheNameBeforeTheEnd) {
  const ScratchFolder folder;
  NotingFiles files(folder);
  const std::string path = folder.Put("target", "old");
  const std::string parent = std::filesystem::path(path).parent_path();
  ASSERT_TRUE(ReplaceFile(files, path, "new"));
  ASSERT_TRUE(SyncFolderOf(files, "name-alone"));
  EXPECT_EQ(files.Steps, (std::vector<std::string>{"sync new", "rename to " + path,
                                                   "sync folder " + parent, "sync folder ."}));
}

TEST(FileFaults, AReplacementTakesNothingAfterItsEnd) {
  const ScratchFolder folder;
  StandardFileSystem files;
  ReplacementFile replacement(files, folder.Path("target"));
  EXPECT_TRUE(replacement.Write("new"));
  EXPECT_TRUE(replacement.Commit());
  EXPECT_TRUE(replacement.Commit());
  EXPECT_FALSE(replacement.Write("more"));
  EXPECT_FALSE(replacement.Commit());
  EXPECT_EQ(folder.Get("target"), "new");
  EXPECT_EQ(folder.Count(), 1);
}

TEST(FileFaults, ARewriteTouchesNoOtherFileAndNeedsNoLongerName) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string name(255, 'x');
  folder.Put(name.substr(0, 251) + ".tmp", "mine");
  folder.Put("target.tmp", "mine");
  EXPECT_TRUE(ReplaceFile(files, folder.Path(name), "new"));
  EXPECT_TRUE(ReplaceFile(files, folder.Path("target"), "new"));
  EXPECT_EQ(folder.Get(name) + folder.Get("target"), "newnew");
  EXPECT_EQ(folder.Get(name.substr(0, 251) + ".tmp") + folder.Get("target.tmp"), "minemine");
}

TEST(FileFaults, TheSweepTakesNothingButItsOwn) {
  const ScratchFolder folder;
  StandardFileSystem files;
  const std::string own = TemporaryPath(folder.Path());
  EXPECT_NE(own, TemporaryPath(folder.Path()));
  const std::string name = FileName(own);
  const std::string digits = name.substr(11, 16);
  const std::vector<std::string> others{
      "TMP.TMP",
      "target.tmp",
      ".tintbench-.tmp",
      ".tintbench-20260101.tmp",
      name.substr(1),
      name + ".cfm",
      "x" + name,
      "copy of " + name,
      ".tintbench-" + digits.substr(1) + ".tmp",
      ".tintbench-" + digits + "0.tmp",
      ".tintbench-" + digits.substr(1) + "g.tmp",
      ".tintbench-" + digits.substr(1) + "A.tmp",
      ".TINTBENCH-" + digits + ".TMP",
  };
  for (const std::string& other : others) folder.Put(other, "mine");
  ASSERT_TRUE(files.MakeDir(folder.Path(".tintbench-0123456789abcdef.tmp")));
  ASSERT_TRUE(files.MakeDir(folder.Path("below")));
  const std::string below = folder.Put("below/" + name, "in a folder that isn't ours");
  folder.Put(name, "left by a run that was cut off");
  folder.Put(".tintbench-fedcba9876543210.tmp", "");

  FailingFileSystem failing(1, true);
  SweepTemporaryFiles(failing, folder.Path());
  EXPECT_TRUE(files.FileExists(own)) << "what can't be deleted waits";
  SweepTemporaryFiles(files, folder.Path("missing"));
  SweepTemporaryFiles(files, folder.Path());
  EXPECT_FALSE(files.FileExists(own));
  EXPECT_TRUE(files.FileExists(below));
  EXPECT_EQ(folder.Count(), static_cast<int>(others.size()) + 2);
  for (const std::string& other : others) EXPECT_EQ(folder.Get(other), "mine") << other;
}

}  // namespace
}  // namespace tintbench::base
