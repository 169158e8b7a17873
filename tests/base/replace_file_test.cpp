// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <vector>

#include "base/descriptor.h"
#include "base/files.h"
#include "base/replace_file.h"
#include "support/failing_files.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

namespace fs = std::filesystem;

class ReplaceFileTest : public testing::Test {
 protected:
  ReplaceFileTest() { drives.Set('C', temp.Path().string()); }
  [[nodiscard]] std::string Host(const std::string& name) const { return (temp.Path() / name).string(); }
  [[nodiscard]] mode_t ModeOf(const std::string& name) const {
    struct stat info {};
    stat(Host(name).c_str(), &info);
    return info.st_mode & 07777;
  }
  void Mode(const std::string& name, mode_t mode) const { ASSERT_EQ(chmod(Host(name).c_str(), mode), 0); }
  [[nodiscard]] std::vector<std::string> Names(const std::string& folder = "") const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(temp.Path() / folder)) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The name that a writer of this file, now dead, would have left behind.
  std::string LeaveTemporary(const std::string& name) {
    struct rlimit old {};
    const pid_t child = fork();
    if (child == 0) {
      // The signal of an exceeded limit kills the child in the middle of its write.
      getrlimit(RLIMIT_FSIZE, &old);
      const struct rlimit none { 1, old.rlim_max };
      setrlimit(RLIMIT_FSIZE, &none);
      const struct rlimit noCore { 0, 0 };
      setrlimit(RLIMIT_CORE, &noCore);
      std::signal(SIGXFSZ, SIG_DFL);
      static_cast<void>(ReplaceFile(Host(name), "0123456789"));
      _exit(1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    for (const std::string& each : Names()) {
      if (each.starts_with(".pnl-")) return each;
    }
    return "";
  }

  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
};

TEST_F(ReplaceFileTest, ReplacesTheContentWholeAndLeavesNothingElse) {
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "first"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "first");
  EXPECT_EQ(files.Replace(u"C:\\A.TXT", "second, longer"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "second, longer");
  EXPECT_EQ(files.Replace(u"C:\\a.txt", ""), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.txt"});
}

TEST_F(ReplaceFileTest, PiecesAreWrittenOneBehindTheOtherUpToTheFirstEmptyOne) {
  std::vector<std::string> pieces = {"one ", "two ", "", "never"};
  test::FailingFiles gathering(files);
  for (Files* const way : {static_cast<Files*>(&files), static_cast<Files*>(&gathering)}) {
    std::size_t asked = 0;
    EXPECT_EQ(way->ReplaceInPieces(u"C:\\a.txt", [&] { return std::string_view(pieces[asked++]); }), FileStatus::kOk);
    EXPECT_EQ(asked, 3u);
    EXPECT_EQ(temp.Read("a.txt"), "one two ");
    temp.Write("a.txt", "old");
  }
}

TEST_F(ReplaceFileTest, KeepsTheOldFilesModeAndGivesANewOneTheUsual) {
  const mode_t mask = umask(022);
  temp.Write("a.txt", "old");
  Mode("a.txt", 0640);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(ModeOf("a.txt"), 0640u);
  EXPECT_EQ(files.Replace(u"C:\\b.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(ModeOf("b.txt"), 0644u);
  umask(mask);
}

TEST_F(ReplaceFileTest, ALinkStaysAndItsTargetIsReplaced) {
  temp.Write("real/a.txt", "old");
  fs::create_symlink("real/a.txt", Host("link.txt"));
  EXPECT_EQ(files.Replace(u"C:\\link.txt", "new"), FileStatus::kOk);
  EXPECT_TRUE(fs::is_symlink(Host("link.txt")));
  EXPECT_EQ(temp.Read("real/a.txt"), "new");
  fs::create_symlink("nowhere", Host("dangling.txt"));
  EXPECT_EQ(files.Replace(u"C:\\dangling.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("nowhere"), "new");
  EXPECT_TRUE(fs::is_symlink(Host("dangling.txt")));
}

TEST_F(ReplaceFileTest, ALinkToADiscThatIsAwayIsNotReplacedByAFile) {
  // The link was taken for a missing file and a fresh one put in its place.
  fs::create_symlink(Host("unmounted/a.txt"), Host("link.txt"));
  fs::create_symlink("loop.txt", Host("loop.txt"));
  for (const TextView path : {u"C:\\link.txt", u"C:\\loop.txt"}) {
    EXPECT_EQ(files.CanReplace(path), FileStatus::kOutOfReach);
    EXPECT_EQ(files.Replace(path, "new"), FileStatus::kOutOfReach);
  }
  EXPECT_TRUE(fs::is_symlink(Host("link.txt")));
  EXPECT_TRUE(fs::is_symlink(Host("loop.txt")));
}

TEST_F(ReplaceFileTest, AsksAndRefusesAlike) {
  temp.Write("locked.txt", "old");
  Mode("locked.txt", 0444);
  temp.Write("readonly/a.txt", "old");
  Mode("readonly", 0555);
  fs::create_directory(Host("dir"));
  temp.Write("file", "x");
  const struct {
    Text path;
    FileStatus status;
  } rows[] = {
      {u"C:\\locked.txt", FileStatus::kDenied},
      {u"C:\\readonly\\a.txt", FileStatus::kDenied},
      {u"C:\\readonly\\new.txt", FileStatus::kDenied},
      {u"C:\\dir", FileStatus::kIsFolder},
      {u"C:\\", FileStatus::kIsFolder},
      {u"C:\\none\\a.txt", FileStatus::kOutOfReach},
      {u"C:\\file\\a.txt", FileStatus::kOutOfReach},
      {u"D:\\a.txt", FileStatus::kOutOfReach},
      {u"", FileStatus::kOutOfReach},
      {Text(u"C:\\a\0b", 6), FileStatus::kOutOfReach},
      {u"C:\\" + Text(300, u'x'), FileStatus::kOutOfReach},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(files.CanReplace(row.path), row.status) << ToUtf8(row.path);
    EXPECT_EQ(files.Replace(row.path, "new"), row.status) << ToUtf8(row.path);
  }
  EXPECT_EQ(temp.Read("locked.txt"), "old");
  EXPECT_EQ(temp.Read("readonly/a.txt"), "old");
  EXPECT_EQ(Names(), (std::vector<std::string>{"dir", "file", "locked.txt", "readonly"}));
  EXPECT_EQ(Names("readonly"), (std::vector<std::string>{"a.txt"}));
}

TEST_F(ReplaceFileTest, NoFileTakesThePlaceOfADrivesMissingFolder) {
  // Written there, it would have stood where the drive is mounted.
  drives.Set('E', Host("unplugged"));
  for (const TextView path : {u"E:", u"E:\\", u"E:\\a\\.."}) {
    EXPECT_EQ(files.CanReplace(path), FileStatus::kIsFolder);
    EXPECT_EQ(files.Replace(path, "x"), FileStatus::kIsFolder);
  }
  EXPECT_EQ(files.Replace(u"E:\\a", "x"), FileStatus::kOutOfReach);
  EXPECT_TRUE(Names().empty());
}

TEST_F(ReplaceFileTest, AskingChangesNothing) {
  EXPECT_EQ(files.CanReplace(u"C:\\new.txt"), FileStatus::kOk);
  temp.Write("a.txt", "old");
  EXPECT_EQ(files.CanReplace(u"C:\\a.txt"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "old");
  EXPECT_EQ(Names(), std::vector<std::string>{"a.txt"});
}

TEST_F(ReplaceFileTest, TheLongestNameCanBeReplaced) {
  const Text path = u"C:\\" + Text(255, u'x');
  EXPECT_EQ(files.Replace(path, "new"), FileStatus::kOk);
  EXPECT_EQ(ReadWhole(files, path), "new");
}

TEST_F(ReplaceFileTest, ADiscThatFillsInTheMiddleLeavesTheOldFile) {
  temp.Write("a.txt", "old");
  const pid_t child = fork();
  if (child == 0) {
    std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit limit { 1000, 1000 };
    setrlimit(RLIMIT_FSIZE, &limit);
    const FileStatus tooMuch = files.Replace(u"C:\\a.txt", std::string(5000, 'n'));
    const FileStatus newFile = files.Replace(u"C:\\b.txt", std::string(1001, 'n'));
    const FileStatus fits = files.Replace(u"C:\\c.txt", std::string(1000, 'n'));
    _exit(tooMuch == FileStatus::kDiscFull && newFile == FileStatus::kDiscFull && fits == FileStatus::kOk ? 0 : 1);
  }
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  EXPECT_EQ(temp.Read("a.txt"), "old");
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.txt", "c.txt"}));
}

TEST_F(ReplaceFileTest, WhatAKilledWriterLeftGoesWhenItsFileIsNextReplaced) {
  temp.Write("a.txt", "old");
  const std::string leftover = LeaveTemporary("a.txt");
  ASSERT_NE(leftover, "");
  EXPECT_EQ(temp.Read("a.txt"), "old");
  EXPECT_EQ(files.Replace(u"C:\\b.txt", "other"), FileStatus::kOk);
  EXPECT_TRUE(temp.Has(leftover)) << "another file's writer must leave it alone";
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(Names(), (std::vector<std::string>{"a.txt", "b.txt"}));
}

TEST_F(ReplaceFileTest, ALivingWritersTemporaryFileIsLeftAlone) {
  const std::string name = LeaveTemporary("a.txt");
  const Descriptor writer(open(Host(name).c_str(), O_WRONLY | O_CLOEXEC));
  ASSERT_EQ(flock(writer.Get(), LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_TRUE(temp.Has(name));
}

TEST_F(ReplaceFileTest, AFileOfALeftoversNameThatIsNoneDelaysNobody) {
  // Opening a pipe that nobody writes to would wait for ever.
  const std::string name = LeaveTemporary("a.txt");
  ASSERT_EQ(unlink(Host(name).c_str()), 0);
  ASSERT_EQ(mkfifo(Host(name).c_str(), 0600), 0);
  temp.Write("b.txt", "somebody's");
  fs::create_symlink("b.txt", Host(name + "2"));
  EXPECT_EQ(files.Replace(u"C:\\a.txt", "new"), FileStatus::kOk);
  EXPECT_EQ(temp.Read("a.txt"), "new");
  EXPECT_EQ(temp.Read("b.txt"), "somebody's");
  EXPECT_TRUE(fs::is_symlink(Host(name + "2"))) << "a link is no leftover";
}

TEST_F(ReplaceFileTest, AChainOfAsManyLinksAsTheSystemFollowsKeepsItsLinks) {
  temp.Write("end", "old");
  const auto link = [this](int number) { return Host("link" + std::to_string(number)); };
  constexpr int kFollowed = 40;
  for (int i = 1; i <= kFollowed + 1; ++i) {
    fs::create_symlink(i == 1 ? Host("end") : link(i - 1), link(i));
  }
  EXPECT_EQ(ReplaceFile(link(kFollowed), "new"), FileStatus::kOk);
  EXPECT_TRUE(fs::is_symlink(link(kFollowed)));
  EXPECT_EQ(temp.Read("end"), "new");
  EXPECT_EQ(ReplaceFile(link(kFollowed + 1), "newer"), FileStatus::kOutOfReach);
  EXPECT_EQ(temp.Read("end"), "new");
}

TEST_F(ReplaceFileTest, BelowAFileThereIsNothingToReplace) {
  temp.Write("file", "x");
  EXPECT_EQ(ReplaceFile(Host("file/below"), "new"), FileStatus::kOutOfReach);
  EXPECT_EQ(ReplaceFile(Host("none/below"), "new"), FileStatus::kOutOfReach);
  EXPECT_EQ(ReplaceFile(Host(std::string(256, 'x')), "new"), FileStatus::kFailed);
}

TEST(StatusOfError, TellsTheKindsApart) {
  const struct {
    int error;
    FileStatus status;
  } rows[] = {{0, FileStatus::kOk},
              {ENOENT, FileStatus::kNotFound},
              {ENOTDIR, FileStatus::kOutOfReach},
              {ELOOP, FileStatus::kOutOfReach},
              {ESTALE, FileStatus::kOutOfReach},
              {ENODEV, FileStatus::kOutOfReach},
              {ENXIO, FileStatus::kOutOfReach},
              {ETIMEDOUT, FileStatus::kOutOfReach},
              {ENOTCONN, FileStatus::kOutOfReach},
              {EHOSTDOWN, FileStatus::kOutOfReach},
              {EHOSTUNREACH, FileStatus::kOutOfReach},
              {EACCES, FileStatus::kDenied},
              {EPERM, FileStatus::kDenied},
              {EROFS, FileStatus::kDenied},
              {EISDIR, FileStatus::kIsFolder},
              {ENOSPC, FileStatus::kDiscFull},
              {EDQUOT, FileStatus::kDiscFull},
              {EFBIG, FileStatus::kDiscFull},
              {EIO, FileStatus::kFailed},
              {ENAMETOOLONG, FileStatus::kFailed}};
  for (const auto& row : rows) EXPECT_EQ(StatusOfError(row.error), row.status) << row.error;
}

}  // namespace
}  // namespace pnl
