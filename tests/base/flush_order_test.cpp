// SPDX-License-Identifier: MIT
// What a replacement asks of the system, in order. This program's own calls stand in front of the C library's, note
// what was asked, and fail where they are told to.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "base/files.h"
#include "support/temp_folder.h"
#include "system_calls.h"

namespace {

struct SystemCalls {
  bool recording = false;
  std::vector<std::string> made;
  std::string failing;  // the call that fails
  int error = 0;
  int failures = -1;  // how often it fails; -1 for ever
  bool shortWrites = false;
  bool strangeOwner = false;  // this process seems to be somebody else's than its files
  int createFlags = 0;
  std::function<void(const std::string& path)> beforeLock;  // once, with the new file's path
  std::function<void()> beforeOpen;                         // once, before a file is opened for reading
  std::string created;
  int readFlags = 0;
};
SystemCalls calls;

/// Notes the call; true when it is to fail.
bool Note(const std::string& call) {
  if (pnl::test::beforeChange) pnl::test::beforeChange();
  if (!calls.recording) return false;
  calls.made.push_back(call);
  if (call != calls.failing || calls.failures == 0) return false;
  if (calls.failures > 0) --calls.failures;
  errno = calls.error;
  return true;
}

bool IsFolder(int file) {
  struct stat info {};
  return fstat(file, &info) == 0 && S_ISDIR(info.st_mode);
}

std::string Octal(unsigned mode) {
  char text[8];
  snprintf(text, sizeof text, "%o", mode);
  return text;
}

}  // namespace

extern "C" int fsync(int file) {
  if (Note(IsFolder(file) ? "flush folder" : "flush file")) return -1;
  return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int rename(const char* from, const char* to) noexcept {
  if (Note("rename")) return -1;
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

extern "C" int unlink(const char* path) noexcept {
  if (Note("remove")) return -1;
  return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

extern "C" ssize_t write(int file, const void* bytes, size_t size) {
  if (Note("write")) return calls.error == 0 ? 0 : -1;
  return syscall(SYS_write, file, bytes, calls.shortWrites && size > 1 ? 1 : size);
}

extern "C" uid_t geteuid() noexcept { return static_cast<uid_t>(syscall(SYS_geteuid)) + (calls.strangeOwner ? 1 : 0); }

extern "C" int fchown(int file, uid_t user, gid_t group) noexcept {
  if (Note("owner")) return -1;
  return static_cast<int>(syscall(SYS_fchown, file, user, group));
}

extern "C" int mkdir(const char* path, mode_t mode) noexcept {
  if (Note("folder " + Octal(mode))) return -1;
  return static_cast<int>(syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

extern "C" int fchmod(int file, mode_t mode) noexcept {
  if (Note("mode " + Octal(mode))) return -1;
  return static_cast<int>(syscall(SYS_fchmod, file, mode));
}

extern "C" int open(const char* path, int flags, ...) {
  va_list arguments;
  va_start(arguments, flags);
  const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
  va_end(arguments);
  if ((flags & O_CREAT) != 0) {
    if (Note("create " + Octal(mode))) return -1;
    calls.created = path;
    calls.createFlags = flags;
  } else if (calls.recording && (flags & O_DIRECTORY) == 0) {
    calls.readFlags = flags;
    if (const auto hook = std::exchange(calls.beforeOpen, nullptr)) hook();
  }
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" int flock(int file, int operation) noexcept {
  if (const auto hook = std::exchange(calls.beforeLock, nullptr)) hook(calls.created);
  if (calls.recording && calls.failing == "lock" && Note("lock")) {
    calls.failing.clear();
    return -1;
  }
  return static_cast<int>(syscall(SYS_flock, file, operation));
}

namespace pnl {
namespace {

using Calls = std::vector<std::string>;

class FlushOrderTest : public testing::Test {
 protected:
  FlushOrderTest() {
    drives.Set('C', temp.Path().string());
    temp.Write("a.txt", "old");
    std::filesystem::permissions(temp.Path() / "a.txt", std::filesystem::perms(0644));
    calls = {};
    calls.recording = true;
  }
  ~FlushOrderTest() override { calls = {}; }
  FlushOrderTest(const FlushOrderTest&) = delete;
  FlushOrderTest& operator=(const FlushOrderTest&) = delete;

  FileStatus ReplaceFailing(const std::string& call, int error) {
    calls.failing = call;
    calls.error = error;
    return files.Replace(u"C:\\a.txt", "new");
  }
  [[nodiscard]] auto CountFiles() const { return std::distance(std::filesystem::directory_iterator(temp.Path()), {}); }

  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
};

TEST_F(FlushOrderTest, TheContentIsOnTheDiscBeforeItTakesTheName) {
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  // Nobody else can read the new content before it has the old file's mode.
  EXPECT_EQ(calls.made, (Calls{"create 600", "mode 644", "write", "flush file", "rename", "flush folder"}));
}

TEST_F(FlushOrderTest, AFileThatWasNotThereIsMadeLikeAnyOther) {
  EXPECT_EQ(files.Replace(u"C:\\b.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(calls.made, (Calls{"create 666", "write", "flush file", "rename", "flush folder"}));
}

TEST_F(FlushOrderTest, AnyFailedStepLeavesTheOldFileAndNothingElse) {
  const struct {
    const char* call;
    int error;
    FileStatus status;
  } rows[] = {{"create 600", EACCES, FileStatus::kDenied}, {"mode 644", EPERM, FileStatus::kDenied},
              {"write", ENOSPC, FileStatus::kDiscFull},    {"write", EIO, FileStatus::kFailed},
              {"flush file", EIO, FileStatus::kFailed},    {"flush file", ENOSPC, FileStatus::kDiscFull},
              {"rename", EACCES, FileStatus::kDenied},     {"rename", EIO, FileStatus::kFailed}};
  for (const auto& row : rows) {
    EXPECT_EQ(ReplaceFailing(row.call, row.error), row.status) << row.call;
    EXPECT_EQ(temp.Read("a.txt"), "old");
    EXPECT_EQ(CountFiles(), 1);
  }
}

TEST_F(FlushOrderTest, AFileSystemThatCantFlushIsNoFailure) {
  EXPECT_EQ(ReplaceFailing("flush file", EINVAL), FileStatus::kOk);
  EXPECT_EQ(ReplaceFailing("flush folder", EINVAL), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "new");
}

TEST_F(FlushOrderTest, ATemporaryFileThatACleanerTookIsMadeAnew) {
  // Between its making and its lock another writer of the same file may take it for a leftover.
  calls.beforeLock = [](const std::string& path) { std::filesystem::remove(path); };
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "new");
  EXPECT_EQ(calls.made[0], "create 600");
  EXPECT_EQ(calls.made[1], "create 600");
}

TEST_F(FlushOrderTest, ATemporaryFileThatACleanerHasLockedIsMadeAnew) {
  EXPECT_EQ(ReplaceFailing("lock", EWOULDBLOCK), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "new");
  EXPECT_EQ(calls.made[2], "create 600");
}

TEST_F(FlushOrderTest, NewFoldersAreFlushedLikeFiles) {
  // A power cut could take a new folder back with every file that had been flushed into it.
  EXPECT_EQ(files.MakeFolder(u"C:\\one\\two"), FileStatus::kOk);
  EXPECT_EQ(calls.made, (Calls{"folder 777", "flush folder", "folder 777", "flush folder"}));
  EXPECT_EQ(files.MakeFolder(u"C:\\one\\two"), FileStatus::kOk);
  EXPECT_EQ(calls.made.size(), 4u) << "what was there needs no flush";
}

TEST_F(FlushOrderTest, APipePutInAFilesPlaceAfterTheCheckIsNotWaitedFor) {
  calls.beforeOpen = [this] {
    const std::string path = (temp.Path() / "a.txt").string();
    // Without the flag the opening would wait for the pipe's writer.
    ASSERT_NE(calls.readFlags & O_NONBLOCK, 0);
    std::filesystem::remove(path);
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  };
  FileStatus status = FileStatus::kOk;
  EXPECT_EQ(files.OpenRead(u"C:\\a.txt", &status), nullptr);
  EXPECT_EQ(status, FileStatus::kDenied);
  EXPECT_NE(calls.readFlags & O_CLOEXEC, 0) << "a program that the panel starts must not inherit it";
}

TEST_F(FlushOrderTest, AFolderThatSomebodyElseMakesMeanwhileIsThereAllTheSame) {
  calls.failing = "folder 777";
  calls.error = EEXIST;
  EXPECT_EQ(files.MakeFolder(u"C:\\one"), FileStatus::kOk);
  EXPECT_EQ(calls.made, (Calls{"folder 777", "flush folder"}));
  calls.error = ENOSPC;
  EXPECT_EQ(files.MakeFolder(u"C:\\one"), FileStatus::kDiscFull);
}

TEST_F(FlushOrderTest, AnInterruptedCallIsMadeAgain) {
  for (const char* const call : {"create 600", "write", "flush file"}) {
    calls.made.clear();
    calls.failures = 2;
    EXPECT_EQ(ReplaceFailing(call, EINTR), FileStatus::kOk) << call;
    EXPECT_EQ(std::count(calls.made.begin(), calls.made.end(), call), 3) << call;
    EXPECT_EQ(temp.Read("a.txt"), "new");
    temp.Write("a.txt", "old");
    std::filesystem::permissions(temp.Path() / "a.txt", std::filesystem::perms(0644));
  }
}

TEST_F(FlushOrderTest, ANameThatIsTakenIsTriedAnewButNotForEver) {
  calls.failures = 5;
  EXPECT_EQ(ReplaceFailing("create 600", EEXIST), FileStatus::kOk);
  EXPECT_EQ(calls.made[5], "create 600");
  EXPECT_EQ(calls.made[6], "mode 644");
  calls.failures = -1;
  calls.made.clear();
  EXPECT_EQ(ReplaceFailing("create 600", EEXIST), FileStatus::kFailed);
  EXPECT_EQ(calls.made.size(), 100u);
  EXPECT_EQ(temp.Read("a.txt"), "new");
  EXPECT_EQ(CountFiles(), 1);
}

TEST_F(FlushOrderTest, AWriteInPartsGoesOnAndOneOfNothingIsAFullDisc) {
  calls.shortWrites = true;
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "longer"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "longer");
  EXPECT_EQ(std::count(calls.made.begin(), calls.made.end(), "write"), 6);
  calls.shortWrites = false;
  EXPECT_EQ(ReplaceFailing("write", 0), FileStatus::kDiscFull);
  EXPECT_EQ(temp.Read("a.txt"), "longer");
}

TEST_F(FlushOrderTest, ADiscThatKnowsNoFlushOrNoLocksIsGoodEnough) {
  EXPECT_EQ(ReplaceFailing("flush file", ENOTSUP), FileStatus::kOk);
  EXPECT_EQ(ReplaceFailing("lock", ENOLCK), FileStatus::kOk);
  EXPECT_EQ(std::count(calls.made.begin(), calls.made.end(), "create 600"), 2) << "once each";
  EXPECT_EQ(temp.Read("a.txt"), "new");
}

TEST_F(FlushOrderTest, ATemporaryFileIsNewAndNoOtherProgramsBusiness) {
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  for (const int flag : {O_EXCL, O_NOFOLLOW, O_CLOEXEC}) EXPECT_NE(calls.createFlags & flag, 0) << flag;
  EXPECT_EQ(calls.createFlags & O_ACCMODE, O_WRONLY);
}

TEST_F(FlushOrderTest, AFileOfAnotherOwnerIsGivenToItBeforeItsMode) {
  calls.strangeOwner = true;
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(calls.made, (Calls{"create 600", "owner", "mode 644", "write", "flush file", "rename", "flush folder"}));
  EXPECT_EQ(ReplaceFailing("owner", EPERM), FileStatus::kOk) << "as far as this process may";
}

}  // namespace
}  // namespace pnl
