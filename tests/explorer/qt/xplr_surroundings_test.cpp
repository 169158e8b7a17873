// SPDX-License-Identifier: MIT
// The explorer's window where discs and folders are bad: drives that hang, that aren't ready or may not be read,
// folders and files that go while they are shown, names that are odd, links and depths without end, a settings file
// that can be neither read nor written.
#include <sys/stat.h>

#include "explorer/qt/xplr_window_stage.h"
#include "explorer/xplr_outcomes.h"
#include "support/folder_snapshot.h"

namespace pnl::test {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::Not;

class XplrSurroundings : public XplrWindowStage {
 protected:
  XplrSurroundings() {
    noting.onMessage = [this](const HostMessage& message) { shown_ = ToUtf8(FieldText(message.text)); };
    disc.Write("d/A.NC", "G0");
    std::filesystem::create_directories(disc.Path() / "d/SUB");
    SetDrive(0);
    SetField(request.Path, u"D:");
    asked_ = request;
  }
  ~XplrSurroundings() override { ForgetQualityTest(); }
  void SetDrive(int error) {
    rig::Drive drive;
    drive.letter = 'D';
    drive.dir = disc.Folder("d");
    drive.error = error;
    cnc.Storage().SetDrive(drive);
  }
  [[nodiscard]] std::string TextOfPack(int id) { return ToUtf8(language.LoadToolText(id)); }
  [[nodiscard]] int RowOf(const QString& name) const { return static_cast<int>(Rows().indexOf(name)); }
  void PickRow(const QString& name) {
    ASSERT_GE(RowOf(name), 0) << name.toStdString();
    PressRow(RowOf(name));
    PressRow(RowOf(name), QEvent::MouseButtonRelease);
  }
  void StepInto(const QString& name) {
    PickRow(name);
    if (!HasFatalFailure()) PressRow(RowOf(name), QEvent::MouseButtonDblClick);
  }
  void ExpectNothingHandedBack() {
    EXPECT_TRUE(FieldText(request.Path) == FieldText(asked_.Path));
    EXPECT_TRUE(FieldText(request.File) == FieldText(asked_.File));
    EXPECT_THAT(TakeHostCalls(), Not(Contains("HostToolClosed(5,1)")));
  }
  void EscapeCloses() {
    TakeHostCalls();
    Key(Qt::Key_Escape);
    EXPECT_THAT(TakeHostCalls(), Contains("HostToolClosed(5,2)"));
    Settle();
    EXPECT_TRUE(explorer.isNull());
  }

  std::string shown_;  // on the message line
  XPLRDATA_ST asked_{};
};

// Drives that hang.

class HangingDrive : public XplrSurroundings {
 protected:
  ~HangingDrive() override { hold_->ReleaseForGood(); }
  const std::shared_ptr<sim::SimHold> hold_ = cnc.Storage().Hold();
};

TEST_F(HangingDrive, EscapeClosesAnExplorerThatStillWaitsForItsFirstFolder) {
  // The frame had no focus until the first rows came, so that Escape went to whatever had it before.
  other->setFocus();
  hold_->Hold('D');
  Begin(context);
  ASSERT_TRUE(hold_->AwaitWaiting(1));
  Settle();
  EXPECT_TRUE(explorer->isVisible());
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = ");
  Name()->insert("x.nc");
  EXPECT_EQ(Name()->text(), "x.nc") << "the window is alive";
  EscapeCloses();
  EXPECT_TRUE(hold_->AwaitWaiting(1)) << "no thread was waited for";
  ExpectNothingHandedBack();
}

TEST_F(HangingDrive, TheFirstFocusStaysWhereItIsToldOnceTheRowsCome) {
  other->setFocus();
  hold_->Hold('D');
  Begin(context);
  ASSERT_TRUE(hold_->AwaitWaiting(1));
  Settle();
  EXPECT_EQ(Focus(), explorer.data());
  hold_->Release('D');
  Idle();
  EXPECT_EQ(Focus(), List());
  EXPECT_EQ(Rows(), QStringList({"SUB", "A.NC"}));
}

TEST_F(HangingDrive, ARefreshAndAnEnterThatHangLeaveTheWindowAlive) {
  Open();
  hold_->Hold('D');
  PressMouse(List()->viewport(), List()->visualRect(List()->model()->index(1, 0)).center());
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = A.NC");
  Key(Qt::Key_Return);
  ASSERT_TRUE(hold_->AwaitWaiting(1));
  Send(PNL_MSG_COMMAND, xplr_command::kRefresh);
  ASSERT_TRUE(hold_->AwaitWaiting(2));
  Settle();
  EXPECT_THAT(Rows(), IsEmpty());
  Send(PNL_MSG_COMMAND, xplr_command::kSortBySize);
  area->resize(500, 400);
  Settle();
  EXPECT_EQ(List()->geometry(), QRect(300, 69, 200, 302));
  ExpectNothingHandedBack();
  EscapeCloses();
}

TEST_F(HangingDrive, AnAnswerAfterTheEndReachesNobody) {
  Open();
  PickRow("A.NC");
  hold_->Hold('D');
  Key(Qt::Key_Return);
  ASSERT_TRUE(hold_->AwaitWaiting(1));
  EscapeCloses();
  hold_->Release('D');
  Idle();
  ExpectNothingHandedBack();
}

TEST_F(HangingDrive, TheTreeLeavesItForAnotherDrive) {
  Open();
  hold_->Hold('D');
  Tree()->setFocus();
  Send(PNL_MSG_COMMAND, xplr_command::kRefresh);
  ASSERT_TRUE(hold_->AwaitWaiting(1));
  Key(Qt::Key_Up);
  // Not Idle: what hangs never ends.
  for (int round = 0; round < 1000 && !Rows().contains("P100"); ++round) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:");
  EXPECT_THAT(Rows(), Contains("P100"));
  EscapeCloses();
}

TEST_F(HangingDrive, MoreListingsThanThereAreThreadsStillLetItClose) {
  Open();
  hold_->Hold('D');
  for (std::size_t waiting = 1; waiting <= QtWorker::kMostThreads; ++waiting) {
    Send(PNL_MSG_COMMAND, xplr_command::kRefresh);
    ASSERT_TRUE(hold_->AwaitWaiting(waiting));
  }
  for (int i = 0; i < 10; ++i) Send(PNL_MSG_COMMAND, xplr_command::kRefresh);
  EscapeCloses();
}

// Drives and folders that can't be read.

struct DriveErrorCase {
  int error;
  int text;
};

TEST_F(XplrSurroundings, EnterOnADriveWithAnErrorSaysWhyAndHandsNothingBack) {
  for (const DriveErrorCase& row : {DriveErrorCase{21, xplr_text::kNotReady}, DriveErrorCase{5, xplr_text::kNoAccess},
                                    DriveErrorCase{51, xplr_text::kNoAccess}, DriveErrorCase{3, xplr_text::kNoFolder},
                                    DriveErrorCase{1117, xplr_text::kNoAccess}}) {
    SetDrive(0);
    Open();
    PickRow("A.NC");
    SetDrive(row.error);
    PressKeyAndIdle(Qt::Key_Return);
    EXPECT_EQ(shown_, TextOfPack(row.text)) << row.error;
    ExpectNothingHandedBack();
    EscapeCloses();
  }
}

TEST_F(XplrSurroundings, AFolderThatMayNotBeReadEmptiesTheListAndSaysSo) {
  disc.Write("d/SUB/C.NC", "");
  Open();
  Tree()->setFocus();
  PressKeyAndIdle(Qt::Key_Space);
  ASSERT_EQ(chmod((disc.Path() / "d/SUB").c_str(), 0), 0);
  PressKeyAndIdle(Qt::Key_Down);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "D:\\SUB");
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_EQ(shown_, TextOfPack(xplr_text::kNoAccess));
  PressKeyAndIdle(Qt::Key_Up);
  EXPECT_EQ(Rows(), QStringList({"SUB", "A.NC"})) << "the way back is open";
}

TEST_F(XplrSurroundings, AFolderThatIsDeletedUnderItsListIsNotFound) {
  disc.Write("d/SUB/C.NC", "");
  SetField(request.Path, u"D:\\SUB");
  asked_ = request;
  Open();
  PickRow("C.NC");
  std::filesystem::remove_all(disc.Path() / "d/SUB");
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(shown_, TextOfPack(xplr_text::kNoFolder));
  ExpectNothingHandedBack();
  Send(PNL_MSG_COMMAND, xplr_command::kRefresh);
  Idle();
  EXPECT_THAT(Rows(), IsEmpty());
  EscapeCloses();
}

TEST_F(XplrSurroundings, AFileThatVanishesBetweenListingAndPickingIsRefusedWhenItMustExist) {
  request.Flags = asked_.Flags = XPLR_MUSTEXIST;
  Open();
  PickRow("A.NC");
  std::filesystem::remove(disc.Path() / "d/A.NC");
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(shown_, TextOfPack(xplr_text::kNoFile));
  ExpectNothingHandedBack();
}

TEST_F(XplrSurroundings, AFolderThatVanishesBeforeTheStepIntoItSelectsNothing) {
  Open();
  PressRow(RowOf("SUB"));
  std::filesystem::remove(disc.Path() / "d/SUB");
  PressRow(RowOf("SUB"), QEvent::MouseButtonDblClick);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "");
  EXPECT_THAT(Rows(), IsEmpty());
  EscapeCloses();
}

// Names and depths.

TEST_F(XplrSurroundings, NamesThatAreNoUtf8ShowAReplacementAndOpen) {
  disc.Write(
      "d/bad\xFF"
      "folder/bad\xC3.nc",
      "G0");
  Open();
  StepInto(QString("bad") + QChar(0xFFFD) + "folder");
  EXPECT_EQ(Rows(), QStringList(QString("bad") + QChar(0xFFFD) + ".nc"));
  PressKeyAndIdle(Qt::Key_Home);
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_TRUE(FieldText(request.Path) == u"D:\\bad\uFFFDfolder");
  EXPECT_TRUE(FieldText(request.File) == u"bad\uFFFD.nc");
  EXPECT_TRUE(files.Query(u"D:\\bad\uFFFDfolder\\bad\uFFFD.nc").exists);
}

TEST_F(XplrSurroundings, TheLongestNameOfADiscIsHandedBackWhole) {
  const std::string longest = std::string(252, 'l') + ".nc";
  disc.Write("d/" + longest, "G0");
  Open();
  PickRow(QString::fromStdString(longest));
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(ToUtf8(FieldText(request.File)), longest);
}

TEST_F(XplrSurroundings, ATypedNameEndsAt256Characters) {
  Open();
  Name()->setFocus();
  for (int i = 0; i < 300; ++i) Key(0, {}, "n");
  EXPECT_EQ(Name()->text().size(), 256);
  PressKeyAndIdle(Qt::Key_Escape);
}

TEST_F(XplrSurroundings, PastedNamesLeadNowhereElse) {
  request.Flags = asked_.Flags = XPLR_FOLDERMODE | XPLR_MUSTEXIST;
  std::filesystem::create_directories(disc.Path() / "outside");
  const FolderSnapshot before = SnapshotOf(disc.Path(), {"P52/XPLR7340.ini"});
  Open();
  for (const QString& name :
       {QString(".."), QString("..\\outside\\made"), QString("../outside/made"), QString("C:\\made"), QString("C:made"),
        QString("\\\\srv\\share"), QString("."), QString("SUB\\made"), QString("ma") + QChar(0) + "de"}) {
    Name()->setFocus();
    Name()->selectAll();
    Name()->insert(name);
    PressKeyAndIdle(Qt::Key_Return);
    ASSERT_FALSE(explorer.isNull()) << name.toStdString();
    EXPECT_EQ(shown_, TextOfPack(xplr_text::kNoAccess)) << name.toStdString();
    ExpectNothingHandedBack();
  }
  EXPECT_EQ(SnapshotOf(disc.Path(), {"P52/XPLR7340.ini"}), before);
}

TEST_F(XplrSurroundings, AFolderThatIsALinkToItsParentIsAFolderLikeAnyOther) {
  std::filesystem::create_directory_symlink(".", disc.Path() / "d/LOOP");
  Open();
  std::string path = "D:";
  for (int depth = 0; depth < 12; ++depth) {
    StepInto("LOOP");
    path += "\\LOOP";
    ASSERT_EQ(TextOf(xplr_control::kFolder), path);
    ASSERT_EQ(Rows(), QStringList({"SUB", "LOOP", "A.NC"}));
  }
  PickRow("A.NC");
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(ToUtf8(FieldText(request.Path)), path);
}

TEST_F(XplrSurroundings, AHundredNestedLevelsAreWalkedAtOnceAndStepByStep) {
  std::string folder = "d";
  std::string path = "D:";
  for (int depth = 0; depth < 100; ++depth) folder += "/n", path += "\\n";
  disc.Write(folder + "/X.NC", "G0");
  Open();
  for (int depth = 0; depth < 100; ++depth) {
    StepInto("n");
    ASSERT_FALSE(HasFatalFailure()) << depth;
  }
  EXPECT_EQ(TextOf(xplr_control::kFolder), path);
  EXPECT_EQ(Rows(), QStringList("X.NC"));
  EscapeCloses();
  SetField(request.Path, FromUtf8(path));
  Open();
  EXPECT_EQ(TextOf(xplr_control::kFolder), path);
  EXPECT_EQ(Rows(), QStringList("X.NC"));
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(ToUtf8(FieldText(request.Path)), path);
  EXPECT_EQ(ToUtf8(FieldText(request.File)), "X.NC");
}

// The settings file.

TEST_F(XplrSurroundings, ASettingsFileThatCanBeNeitherReadNorWrittenIsNamedAndStopsNothing) {
  ASSERT_EQ(DiscFiles(drives).MakeFolder(u"C:\\P52\\XPLR7340.ini"), FileStatus::kOk);
  Open();
  EXPECT_EQ(Rows(), QStringList({"SUB", "A.NC"}));
  Send(PNL_MSG_COMMAND, xplr_command::kTogglePin);
  Idle();
  EXPECT_NE(shown_.find("XPLR7340.ini"), std::string::npos) << shown_;
  shown_.clear();
  PickRow("A.NC");
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_NE(shown_.find("XPLR7340.ini"), std::string::npos) << shown_;
  EXPECT_TRUE(FieldText(request.File) == u"A.NC") << "the choice counts all the same";
}

TEST_F(XplrSurroundings, AnySettingsFileOpensInSomeOrder) {
  for (const char* bytes :
       {"", "[PRIVATE]\nPrgSort=9 -1 x", "[PRIVATE]\nPrgSort=1 1 1 1,99999999999", "\xFF\xFE[\n=\n]",
        "[PRIVATE\nPrgSort=\n[USER_1006]\nPinnedFolder=\\..\\..", "[USER_1006]\nPinnedFolder=D:"}) {
    Disc("C:\\P52\\XPLR7340.ini", bytes);
    Open();
    EXPECT_EQ(Rows().size(), 2) << bytes;
    EscapeCloses();
  }
}

}  // namespace
}  // namespace pnl::test
