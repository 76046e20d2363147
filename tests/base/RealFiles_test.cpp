// What only an operating system can show: names that are no files, names without end, missing
// rights, and disks that are really full.
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/Files.h"
#include "base/ScratchFolder.h"

namespace tintbench::base {
namespace {

using testing::ScratchFolder;

// No file can be read or written under this path, and each operation gives the reason.
void ExpectNoFile(const std::string& path) {
  StandardFileSystem files;
  const std::string shown = path.substr(0, 60);
  SCOPED_TRACE(shown);
  EXPECT_EQ(files.OpenToRead(path), nullptr);
  EXPECT_TRUE(LineReader(files, path).Failed());
  EXPECT_FALSE(ReadFile(files, path, 100));
  EXPECT_FALSE(files.FileExists(path) || files.Length(path) || files.TimeStamp(path));
  for (const WriteMode mode : {WriteMode::kCreate, WriteMode::kAppend}) {
    FileResult result;
    EXPECT_EQ(files.OpenToWrite(path, mode, result), nullptr);
    EXPECT_NE(result.Error(), "");
  }
  EXPECT_NE(files.Delete(path).Error(), "");
  EXPECT_NE(ReplaceFile(files, path, "new").Error(), "");
}

TEST(RealFiles, WhatIsNoFileIsNeitherReadNorReplaced) {
  const ScratchFolder folder;
  StandardFileSystem files;
  ASSERT_TRUE(files.MakeDir(folder.Path("folder")));
  ASSERT_EQ(::mkfifo(folder.Path("pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/full", folder.Path("device"));
  for (const char* name : {"folder", "pipe", "device"}) ExpectNoFile(folder.Path(name));
  ExpectNoFile("");
  EXPECT_TRUE(files.DirExists(folder.Path("folder")));
  EXPECT_TRUE(std::filesystem::is_fifo(folder.Path("pipe")));
  EXPECT_TRUE(std::filesystem::is_character_file(folder.Path("device")));
  EXPECT_EQ(folder.Count(), 3);
  EXPECT_TRUE(files.List(folder.Path(), "*").empty());
}

TEST(RealFiles, APathOfTenThousandCharactersFailsWithAReason) {
  const ScratchFolder folder;
  StandardFileSystem files;
  std::string deep = folder.Path("d");
  while (deep.size() < 10000) deep += "/d";
  for (const std::string& path : {folder.Path(std::string(10000, 'x')), deep}) {
    ExpectNoFile(path);
    EXPECT_FALSE(files.DirExists(path));
    EXPECT_NE(files.MakeDir(path).Error(), "");
    EXPECT_NE(files.Rename(folder.Put("file", "x"), path).Error(), "");
    EXPECT_TRUE(files.List(path, "*").empty());
    EXPECT_EQ(folder.Get("file"), "x");
    SweepTemporaryFiles(files, path);
  }
}

// A user that owns nothing, for as long as it lives; the rights of root are put off for it.
class Nobody {
 public:
  Nobody() { isNobody_ = ::geteuid() != 0 || ::seteuid(65534) == 0; }
  ~Nobody() {
    if (::getuid() == 0 && ::seteuid(0) != 0) ADD_FAILURE() << "root is lost";
  }
  Nobody(const Nobody&) = delete;
  Nobody& operator=(const Nobody&) = delete;
  bool IsNobody() const { return isNobody_; }

 private:
  bool isNobody_ = false;
};

TEST(RealFiles, WithoutRightsNothingIsReadWrittenOrLost) {
  const ScratchFolder folder;
  const std::string path = folder.Put("file", "old");
  ASSERT_EQ(::chmod(path.c_str(), 0), 0);
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0555), 0);
  {
    const Nobody nobody;
    if (!nobody.IsNobody()) GTEST_SKIP() << "root can't put off its rights here";
    StandardFileSystem files;
    EXPECT_EQ(files.OpenToRead(path), nullptr);
    EXPECT_TRUE(LineReader(files, path).Failed());
    FileResult result;
    EXPECT_EQ(files.OpenToWrite(path, WriteMode::kCreate, result), nullptr);
    EXPECT_EQ(result.Error(), "Permission denied");
    EXPECT_EQ(ReplaceFile(files, path, "new").Error(), "Permission denied");
    EXPECT_NE(files.Delete(path).Error(), "");
    EXPECT_NE(files.MakeDir(folder.Path("below")).Error(), "");
  }
  ASSERT_EQ(::chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod(path.c_str(), 0600), 0);
  EXPECT_EQ(folder.Get("file"), "old");
  EXPECT_EQ(folder.Count(), 1);
}

// Rewrites a file with more than there is room for; gives what is wrong then.
std::string RewriteWithoutRoom(const ScratchFolder& folder, const std::string& reason) {
  const std::string old(20000, 'o');
  const std::string path = folder.Put("file", old);
  StandardFileSystem files;
  const FileResult result = ReplaceFile(files, path, std::string(1'000'000, 'n'));
  if (result.Error() != reason) return "reason: " + result.Error();
  if (folder.Get("file") != old) return "the old file is lost";
  if (folder.Count() != 1) return "something is left";
  if (!ReplaceFile(files, path, "new")) return "what there is room for isn't written";
  return folder.Get("file") == "new" ? "" : "the new file is wrong";
}

// The limit makes the system take a part of a write and refuse the rest.
TEST(RealFiles, AFileThatGrowsBeyondItsLimitLeavesTheOldOne) {
  const ScratchFolder folder;
  rlimit before{};
  ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
  const auto handler = ::signal(SIGXFSZ, SIG_IGN);
  const rlimit small{100000, before.rlim_max};
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string wrong = RewriteWithoutRoom(folder, "File too large");
  ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
  ::signal(SIGXFSZ, handler);
  EXPECT_EQ(wrong, "");
}

TEST(RealFiles, AFullDiskLeavesTheOldFile) {
  const ScratchFolder folder;
  constexpr int kNotPermitted = 77;
  const pid_t child = ::fork();
  if (child == 0) {
    // A disk of its own that only this process sees, gone with it.
    if (::unshare(CLONE_NEWNS) != 0 ||
        ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("tmpfs", folder.Path().c_str(), "tmpfs", 0, "size=100k") != 0) {
      ::_exit(kNotPermitted);
    }
    const std::string wrong = RewriteWithoutRoom(folder, "No space left on device");
    if (!wrong.empty()) GTEST_LOG_(ERROR) << wrong;
    ::_exit(wrong.empty() ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_TRUE(WIFEXITED(status));
  if (WEXITSTATUS(status) == kNotPermitted) GTEST_SKIP() << "no disk can be mounted here";
  EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace
}  // namespace tintbench::base
