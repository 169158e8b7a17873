// SPDX-License-Identifier: MIT
#include "places/qt/mount_watch.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>

#include <array>
#include <optional>

#include "support/event_wait.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

using test::RunUntil;

/// Something that is marked as the mount table is: each byte that is sent out of turn marks it until it is read.
class FakeTable {
 public:
  FakeTable() {
    std::array<int, 2> ends{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()), 0);
    watched = ends[0];
    sender_ = Descriptor(ends[1]);
  }
  void Mark() const { EXPECT_EQ(send(sender_.Get(), "x", 1, MSG_OOB), 1); }
  void TakeMark() const {
    char byte = 0;
    EXPECT_EQ(recv(watched, &byte, 1, MSG_OOB), 1);
  }

  int watched = -1;

 private:
  Descriptor sender_;
};

TEST(MountWatch, EachMarkOfTheTableIsReported) {
  const FakeTable table;
  int changes = 0;
  const MountWatch watch(Descriptor(table.watched), [&] {
    table.TakeMark();
    ++changes;
  });
  for (int mark = 1; mark <= 3; ++mark) {
    table.Mark();
    ASSERT_TRUE(RunUntil([&] { return changes == mark; }));
  }
}

TEST(MountWatch, NothingIsReportedAfterItsEnd) {
  const FakeTable table;
  int changes = 0;
  std::optional<MountWatch> watch;
  watch.emplace(Descriptor(table.watched), [&] { ++changes; });
  table.Mark();
  watch.reset();
  QCoreApplication::processEvents();
  EXPECT_EQ(changes, 0);
}

TEST(MountWatch, TheWatcherMayEndIt) {
  const FakeTable table;
  std::optional<MountWatch> watch;
  const auto changes = std::make_shared<int>(0);
  watch.emplace(Descriptor(table.watched), [&watch, changes] {
    watch.reset();
    ++*changes;
  });
  table.Mark();
  ASSERT_TRUE(RunUntil([&] { return *changes == 1; }));
}

TEST(MountWatch, WithoutATableItDoesNothing) {
  static int warnings;
  warnings = 0;
  const auto before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++warnings; });
  const MountWatch noTable(Descriptor(), [] { ADD_FAILURE(); });
  QCoreApplication::processEvents();
  qInstallMessageHandler(before);
  EXPECT_EQ(warnings, 0) << "nothing that can't be watched is watched";
}

TEST(MountWatch, WithoutAWatcherAMarkOfTheTableIsNobodys) {
  const FakeTable table;
  const MountWatch noWatcher(Descriptor(table.watched), {});
  table.Mark();
  QCoreApplication::processEvents();
  table.TakeMark();
}

// Needs the right to mount, which not every machine gives to its tests.
TEST(MountWatch, AMountIsReportedOnceAndItsEndToo) {
  const test::TempFolder temp;
  const std::string folder = temp.Folder("mount");
  if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
    GTEST_SKIP() << "no right to mount";
  }
  int changes = 0;
  const MountWatch watch(MountWatch::OpenTable(), [&] { ++changes; });
  QCoreApplication::processEvents();
  EXPECT_EQ(changes, 0);
  ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, nullptr), 0);
  EXPECT_TRUE(RunUntil([&] { return changes == 1; }));
  QCoreApplication::processEvents();
  EXPECT_EQ(changes, 1);
  ASSERT_EQ(umount(folder.c_str()), 0);
  EXPECT_TRUE(RunUntil([&] { return changes == 2; }));
}

}  // namespace
}  // namespace pnl
