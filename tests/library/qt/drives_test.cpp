// SPDX-License-Identifier: MIT
// The drives that the library gives its tools: simulated ones, or those of this machine by the drive file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>

#include <QTreeWidget>
#include <QWidget>
#include <optional>

#include "explorer/xplr_ids.h"
#include "library/library_rig.h"
#include "support/event_wait.h"
#include "support/temp_folder.h"
#include "window/qt/control_properties.h"

namespace pnl {
namespace {

using test::RunUntil;

class DrivesTest : public testing::Test {
 protected:
  DrivesTest() {
    HostApi = {};
    const std::string c = temp_.Folder("c");
    temp_.Write("machine.ini", "[C]\nFolder=" + c + "\nLabel=MACHINE\n[E]\nFolder=" + temp_.Folder("stick") +
                                   "\nType=removable\n[DRIVES]\nHidden=H\n");
  }
  ~DrivesTest() override {
    if (tool_ != 0) library_->DestroyTool(tool_);
    qunsetenv("PNLTOOLS_DRIVE_FILE");
    qunsetenv("PNLTOOLS_DRIVES");
    HostApi = {};
  }
  /// A library whose drive file is the one that was written, with the explorer open.
  void Open() {
    qputenv("PNLTOOLS_DRIVE_FILE", (temp_.Path() / "machine.ini").c_str());
    library_.emplace();
    rig_.emplace(*library_);
    ASSERT_TRUE(rig_->StartBare());
    OpenExplorer();
  }
  void OpenExplorer() {
    const WindowHandle parent = WindowRegistry::Instance().Attach(&host_, nullptr, nullptr);
    tool_ = library_->LoadTool(PNL_TOOL_EXPLORER, parent);
    ASSERT_NE(tool_, 0);
  }
  [[nodiscard]] QStringList Roots() {
    const auto* tree = static_cast<QTreeWidget*>(FindControl(library_->Windows().WidgetOf(tool_), xplr_control::kTree));
    QStringList texts;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) texts << tree->topLevelItem(i)->text(0);
    return texts;
  }

  test::TempFolder temp_;
  QWidget host_;
  std::optional<Library> library_;
  std::optional<LibraryRig> rig_;
  WindowHandle tool_ = 0;
};

TEST_F(DrivesTest, WithoutADriveFileTheyAreSimulated) {
  for (const char* file : {"", "/nowhere/at all"}) {
    qputenv("PNLTOOLS_DRIVE_FILE", file);
    Library library;
    EXPECT_TRUE(LibraryRig(library).SimulatesDrives()) << file;
  }
}

TEST_F(DrivesTest, WithADriveFileTheExplorerShowsTheDrivesOfThisMachine) {
  Open();
  EXPECT_FALSE(rig_->SimulatesDrives());
  EXPECT_EQ(rig_->Files().HostPath(u"C:\\a"), temp_.Folder("c") + "/a");
  EXPECT_EQ(Roots(), QStringList({"C:  (MACHINE)"})) << "the stick isn't in";
}

TEST_F(DrivesTest, TheFoldersOfAStartGoBeforeThoseOfTheFile) {
  const std::string other = temp_.Folder("other");
  qputenv("PNLTOOLS_DRIVES", ("C=" + other).c_str());
  Open();
  EXPECT_EQ(rig_->Files().HostPath(u"C:\\a"), other + "/a");
  EXPECT_EQ(Roots(), QStringList({"C:  (MACHINE)"})) << "what the file says about the drive counts all the same";
}

TEST_F(DrivesTest, WithABackendLibraryTheyAreThoseOfThisMachine) {
  qputenv("PNLTOOLS_DRIVES", ("C=" + temp_.Folder("c")).c_str());
  library_.emplace();
  rig_.emplace(*library_);
  rig_->Files().SetDriveMasks("C", "", "");
  OpenExplorer();
  EXPECT_EQ(Roots(), QStringList()) << "the simulation hides the drive";
  library_->DestroyTool(tool_);
  Library::Drain();
  ASSERT_TRUE(library_->SetBackend(std::string(PNL_TEST_BACKENDS) + "/tiny_works.so"));
  OpenExplorer();
  EXPECT_EQ(Roots(), QStringList({"C:"}));
}

// Needs the right to mount, which not every machine gives to its tests.
TEST_F(DrivesTest, AStickThatIsMountedShowsAndGoesWithItsMount) {
  const std::string folder = temp_.Folder("stick");
  if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
    GTEST_SKIP() << "no right to mount";
  }
  Open();
  const QStringList without = Roots();
  for (int turn = 0; turn < 2; ++turn) {
    ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, nullptr), 0);
    EXPECT_TRUE(RunUntil([&] { return Roots() != without; }));
    EXPECT_EQ(Roots(), without + QStringList({"E:"}));
    ASSERT_EQ(umount(folder.c_str()), 0);
    EXPECT_TRUE(RunUntil([&] { return Roots() == without; }));
  }
  // Many changes in a row end in what there is at last.
  for (int turn = 0; turn < 20; ++turn) {
    ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, nullptr), 0);
    ASSERT_EQ(umount(folder.c_str()), 0);
  }
  ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, nullptr), 0);
  EXPECT_TRUE(RunUntil([&] { return Roots() != without; }));
  for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(Roots(), without + QStringList({"E:"}));
  ASSERT_EQ(umount(folder.c_str()), 0);
}

}  // namespace
}  // namespace pnl
