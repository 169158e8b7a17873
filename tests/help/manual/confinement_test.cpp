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

#include "base/descriptor.h"
#include "support/temp_folder.h"

namespace pnl::chm {
namespace {

/// Confines a process of its own and does something in it.
class ConfinementTest : public testing::Test {
 protected:
  ConfinementTest() {
    temp_.Write("manual", "bytes");
    temp_.Write("other", "bytes");
    temp_.Write("objects", "");
    confinement_ = {temp_.Path() / "manual", 300'000'000, 1'000'000, 5};
    objects_ = Descriptor(open(Path("objects").c_str(), O_WRONLY));
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
  Descriptor objects_;
  mutable int killedBy_ = 0;
};

TEST_F(ConfinementTest, TheManualCanBeReadAndAnOpenFileWritten) {
  EXPECT_EQ(ExitOf([this] {
              char bytes[5];
              return ErrorOf(read(open(Path("manual").c_str(), O_RDONLY), bytes, sizeof bytes));
            }),
            0);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(pwrite(objects_.Get(), "x", 1, 2)); }), 0);
  EXPECT_EQ(temp_.Read("objects"), std::string("\0\0x", 3));
}

TEST_F(ConfinementTest, NoFileCanBeOpenedForWritingMadeOrRemovedOnAnyKernel) {
  const std::string other = Path("other");
  const std::string fresh = Path("new");
  for (const int flags : {O_WRONLY, O_RDWR, O_RDONLY | O_TRUNC, O_WRONLY | O_CREAT, O_RDONLY | O_CREAT | O_EXCL}) {
    for (const std::string& path : {other, fresh, Path("manual"), Path("objects")}) {
      EXPECT_EQ(ExitOf([&] { return ErrorOf(open(path.c_str(), flags, 0600)); }), EPERM) << path << " " << flags;
#if defined(__x86_64__)
      EXPECT_EQ(ExitOf([&] { return ErrorOf(syscall(__NR_open, path.c_str(), flags, 0600)); }), EPERM) << path << flags;
#endif
    }
  }
  EXPECT_EQ(ExitOf([&] { return ErrorOf(mkdir(fresh.c_str(), 0700)); }), EPERM);
  EXPECT_EQ(ExitOf([&] { return ErrorOf(mkdirat(AT_FDCWD, fresh.c_str(), 0700)); }), EPERM);
  EXPECT_EQ(ExitOf([&] { return ErrorOf(unlink(other.c_str())); }), EPERM);
  EXPECT_EQ(ExitOf([&] { return ErrorOf(unlinkat(AT_FDCWD, other.c_str(), 0)); }), EPERM);
  EXPECT_EQ(ExitOf([&] { return ErrorOf(rename(other.c_str(), fresh.c_str())); }), EPERM);
  EXPECT_EQ(ExitOf([&] { return ErrorOf(truncate(other.c_str(), 0)); }), EPERM);
  EXPECT_EQ(temp_.Read("other"), "bytes");
  EXPECT_FALSE(temp_.Has("new"));
}

TEST_F(ConfinementTest, NoOtherFileCanBeRead) {
  if (!HasFileRules()) GTEST_SKIP() << "this kernel has no rules for files";
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(Path("other").c_str(), O_RDONLY)); }), EACCES);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(open(temp_.Path().c_str(), O_RDONLY | O_DIRECTORY)); }), EACCES);
}

#if defined(__x86_64__)
TEST_F(ConfinementTest, TheSecondSetOfNumbersOfTheCallsEndsTheProcess) {
  EXPECT_EQ(ExitOf([] { return ErrorOf(syscall(__X32_SYSCALL_BIT | __NR_getpid)); }), -1);
  EXPECT_EQ(killedBy_, SIGSYS);
}
#endif

TEST_F(ConfinementTest, ThereIsNoNetworkAndNoOtherProcess) {
  EXPECT_EQ(ExitOf([] { return ErrorOf(socket(AF_INET, SOCK_STREAM, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(socket(AF_UNIX, SOCK_DGRAM, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(syscall(__NR_clone, SIGCHLD, 0, 0, 0, 0)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(execl("/bin/true", "true", nullptr)); }), EPERM);
  EXPECT_EQ(ExitOf([] { return ErrorOf(kill(getppid(), 0)); }), EPERM);
  EXPECT_EQ(ExitOf([this] { return ErrorOf(symlink("/etc", Path("link").c_str())); }), EPERM);
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
  EXPECT_EQ(ExitOf([this] { return ErrorOf(ftruncate(objects_.Get(), 2'000'000)); }), -1);
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
