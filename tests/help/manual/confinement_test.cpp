// SPDX-License-Identifier: MIT
// What is left to a process that reads a manual.
#include "help/manual/chm/confinement.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/landlock.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <new>

#include "support/temp_folder.h"

namespace pnl::chm {
namespace {

/// Confines a process of its own and does something in it.
class ConfinementTest : public testing::Test {
 protected:
  ConfinementTest() {
    temp_.Write("manual", "bytes");
    temp_.Write("other", "bytes");
    confinement_ = {temp_.Path() / "manual", temp_.Folder("folder"), 300'000'000, 1'000'000, 5};
  }
  /// What the process's exit code is; -1 when it was killed.
  [[nodiscard]] int ExitOf(const std::function<int()>& act) const {
    int status = 0;
    const pid_t pid = fork();
    if (pid == 0) _exit(Confine(confinement_) ? act() : 99);
    EXPECT_EQ(waitpid(pid, &status, 0), pid);
    killedBy_ = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  [[nodiscard]] std::string Path(const std::string& name) const { return temp_.Path() / name; }
  static bool HasFileRules() {
    return syscall(__NR_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION) >= 1;
  }
  /// 0, or the error of the call that failed.
  static int ErrorOf(long result) { return result >= 0 ? 0 : errno; }

  test::TempFolder temp_;
  Confinement confinement_;
  mutable int killedBy_ = 0;
};

TEST_F(ConfinementTest, TheManualCanBeReadAndTheFolderWritten) {
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(Path("manual").c_str(), O_RDONLY)); }), 0);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(mkdir(Path("folder/sub").c_str(), 0700)); }), 0);
  EXPECT_EQ(ExitOf([this] {
              const int file = open(Path("folder/sub/a").c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
              return ErrorOf(write(file, "x", 1));
            }),
            0);
  EXPECT_EQ(temp_.Read("folder/sub/a"), "x");
}

TEST_F(ConfinementTest, NoOtherFileCanBeReadWrittenOrMade) {
  if (!HasFileRules()) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(Path("other").c_str(), O_RDONLY)); }), EACCES);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(Path("manual").c_str(), O_WRONLY)); }), EACCES);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(Path("new").c_str(), O_WRONLY | O_CREAT, 0600)); }), EACCES);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(mkdir(Path("folder/../new").c_str(), 0700)); }), EACCES);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(unlink(Path("other").c_str())); }), EACCES);
  EXPECT_EQ(temp_.Read("other"), "bytes");
}

TEST_F(ConfinementTest, ThereIsNoNetworkAndNoOtherProcess) {
  EXPECT_EQ(ExitOf([] { return ErrorOf(socket(AF_INET, SOCK_STREAM, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(socket(AF_UNIX, SOCK_DGRAM, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(syscall(__NR_clone, SIGCHLD, 0, 0, 0, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(execl("/bin/true", "true", nullptr)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(kill(getppid(), 0)); }), EPERM);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(symlink("/etc", Path("folder/link").c_str())); }), EPERM);
}

TEST_F(ConfinementTest, MemoryAndFilesHaveTheirLimits) {
  if (!kHasAddressSanitizer) {
    EXPECT_EQ(ExitOf([] {
                auto* const small = new (std::nothrow) char[100'000'000];
                auto* const large = new (std::nothrow) char[400'000'000];
                return small != nullptr && large == nullptr ? 0 : 1;
              }),
              0);
  }
  EXPECT_EQ(ExitOf([this] {
              const int file = open(Path("folder/a").c_str(), O_WRONLY | O_CREAT, 0600);
              return ErrorOf(ftruncate(file, 2'000'000));
            }),
            -1);
  EXPECT_EQ(killedBy_, SIGXFSZ);
}

TEST_F(ConfinementTest, AnEndlessProcessIsEnded) {
  confinement_.processorSeconds = 1;
  EXPECT_EQ(ExitOf([] {
              for (volatile unsigned turns = 0;;) turns = turns + 1;
              return 0;
            }),
            -1);
  EXPECT_TRUE(killedBy_ == SIGXCPU || killedBy_ == SIGKILL) << killedBy_;
}

}  // namespace
}  // namespace pnl::chm
