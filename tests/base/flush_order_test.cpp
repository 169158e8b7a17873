// SPDX-License-Identifier: MIT
// What a replacement asks of the system, in order. This program's own fsync and rename stand in front of the C
// library's, note the call, and fail where they are told to.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include "base/files.h"
#include "support/temp_folder.h"

namespace {

struct SystemCalls {
  bool recording = false;
  std::vector<std::string> made;
  std::string failing;  // the call that fails
  int error = 0;
};
SystemCalls calls;

/// Notes the call; true when it is to fail.
bool Note(const std::string& call) {
  if (!calls.recording) return false;
  calls.made.push_back(call);
  errno = calls.error;
  return call == calls.failing;
}

}  // namespace

extern "C" int fsync(int file) {
  struct stat info {};
  const bool folder = fstat(file, &info) == 0 && S_ISDIR(info.st_mode);
  if (Note(folder ? "flush folder" : "flush file")) return -1;
  return static_cast<int>(syscall(SYS_fsync, file));
}

extern "C" int rename(const char* from, const char* to) noexcept {
  if (Note("rename")) return -1;
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

namespace pnl {
namespace {

class FlushOrderTest : public testing::Test {
 protected:
  FlushOrderTest() {
    drives.Set('C', temp.Path().string());
    temp.Write("a.txt", "old");
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
  EXPECT_EQ(calls.made, (std::vector<std::string>{"flush file", "rename", "flush folder"}));
}

TEST_F(FlushOrderTest, AnyFailedStepLeavesTheOldFileAndNothingElse) {
  const struct {
    const char* call;
    int error;
    FileStatus status;
  } rows[] = {{"flush file", EIO, FileStatus::kFailed},
              {"flush file", ENOSPC, FileStatus::kDiscFull},
              {"rename", EACCES, FileStatus::kDenied},
              {"rename", EIO, FileStatus::kFailed}};
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

}  // namespace
}  // namespace pnl
