// SPDX-License-Identifier: MIT
// Programs on the network: they are opened as those of a drive are, and saved on a drive.
#include <pnltools/rig.h>

#include <QCoreApplication>

#include "common/words.h"
#include "panel/qt/files_fixture.h"
#include "remote/settle.h"
#include "ui/program_desk.h"
#include "ui/program_editor.h"
#include "ui/question.h"

namespace panel {
namespace {

constexpr int kPatience = 60'000;
constexpr char kProgram[] = R"(\\CAM\PARTS\SUB\a.nc)";

/// A server of the simulated network with a share that a folder of this test backs.
class NetworkProgramTest : public FilesTest, public FileAsker {
 protected:
  NetworkProgramTest() {
    UseWords("en");
    folder_.Write("PROGRAMS/b.nc", "G0 X2\n");
    folder_.Write("share/SUB/a.nc", "G0 X1\r\nG1 X5\n");
    pnl::rig::NetworkNode share;
    share.display = 3;
    share.remote = u"\\\\CAM\\PARTS";
    share.dir = Host("share").toStdString();
    pnl::rig::NetworkNode server;
    server.display = 2;
    server.remote = u"\\\\CAM";
    server.children.push_back(share);
    PnlRig()->Files().SetNetwork({server});
    QObject::connect(&desk_, &ProgramDesk::Said, &desk_,
                     [this](const QString& text, bool warning) { said_ << (warning ? "!" : "") + text; });
    desk_.SetProgramsFolder("C:\\PROGRAMS");
  }
  ~NetworkProgramTest() override { PnlRig()->Files().SetNetwork({}); }
  void Ask(const FileRequest& request, Accepted accepted, Left /*left*/) override {
    asked_.push_back(request);
    accepted_ = std::move(accepted);
  }
  void Rest() {
    ASSERT_TRUE(WaitWhile([this] { return desk_.Working(); }, kPatience));
  }
  void Load(const QString& path) {
    desk_.Load(path);
    Rest();
  }
  [[nodiscard]] std::string BytesOf(const char* name) const {
    QFile file(Host(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
  }

  QWidget window_;
  ProgramEditor editor_{&window_};
  Question question_{&window_};
  ProgramDesk desk_{editor_, *this, question_, Resolver(), nullptr};
  std::vector<FileRequest> asked_;
  Accepted accepted_;
  QStringList said_;
};

TEST_F(NetworkProgramTest, AProgramOfAShareIsOpened) {
  Load(kProgram);
  EXPECT_EQ(editor_.Text(), "G0 X1\nG1 X5\n");
  EXPECT_EQ(editor_.Name(), kProgram);
  EXPECT_EQ(desk_.Path(), kProgram);
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_EQ(said_, QStringList(QString("Opened: ") + kProgram));
}

TEST_F(NetworkProgramTest, TheNextOneIsLookedForBesideIt) {
  Load(kProgram);
  desk_.Open();
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].folder, R"(\\CAM\PARTS\SUB)");
}

TEST_F(NetworkProgramTest, APlaceInItIsMarked) {
  pnl::rig::ProgramSpot spot;
  spot.folder = u"\\\\CAM\\PARTS\\SUB";
  spot.file = u"a.nc";
  spot.position = 7;  // the second block
  spot.span = 3;
  desk_.ShowSpot(spot);
  Rest();
  EXPECT_EQ(editor_.Edit().textCursor().selectedText(), "X5");
}

TEST_F(NetworkProgramTest, WhyItCannotBeOpenedIsSaid) {
  folder_.Write("share/binary.nc", std::string("G0\0M30", 6));
  QFile huge(Host("share/huge.nc"));
  ASSERT_TRUE(huge.open(QIODevice::WriteOnly) && huge.resize(kMostProgramBytes + 1));
  for (const char* name : {"none.nc", "binary.nc", "huge.nc", "SUB"}) Load(QString(R"(\\CAM\PARTS\)") + name);
  Load(R"(\\OTHER\PARTS\a.nc)");
  EXPECT_EQ(said_,
            (QStringList{R"(!Can't be read: \\CAM\PARTS\none.nc)", R"(!Not a program text: \\CAM\PARTS\binary.nc)",
                         R"(!Too big for the editor, more than 32 MB: \\CAM\PARTS\huge.nc)",
                         R"(!Can't be read: \\CAM\PARTS\SUB)", R"(!Can't be read: \\OTHER\PARTS\a.nc)"}));
  ASSERT_TRUE(huge.resize(kMostProgramBytes));
  Load(R"(\\CAM\PARTS\huge.nc)");
  EXPECT_EQ(said_.last(), R"(!Not a program text: \\CAM\PARTS\huge.nc)") << "of no more bytes than an editor takes";
}

TEST_F(NetworkProgramTest, ItIsSavedOnADriveUnderItsOwnName) {
  Load(kProgram);
  editor_.Edit().insertPlainText("G4\n");
  said_.clear();
  desk_.Save();
  EXPECT_EQ(said_, QStringList(QString("!A program can't be saved on the network; choose a drive: ") + kProgram));
  ASSERT_EQ(asked_.size(), 1u);
  EXPECT_EQ(asked_[0].folder, "C:\\PROGRAMS");
  EXPECT_EQ(asked_[0].file, "a.nc");
  EXPECT_EQ(asked_[0].flags, XPLR_CONFIRMOVERWRITE | XPLR_NOREADONLY);
  accepted_("C:\\PROGRAMS", "c.nc");
  Rest();
  EXPECT_EQ(desk_.Path(), "C:\\PROGRAMS\\c.nc");
  EXPECT_FALSE(editor_.IsModified());
  EXPECT_EQ(BytesOf("PROGRAMS/c.nc"), "G4\r\nG0 X1\r\nG1 X5\r\n");
  EXPECT_EQ(BytesOf("share/SUB/a.nc"), "G0 X1\r\nG1 X5\n") << "as it was";
}

TEST_F(NetworkProgramTest, APlaceOnTheNetworkIsRefusedAndTheChangesStay) {
  Load("C:\\PROGRAMS\\b.nc");
  editor_.Edit().insertPlainText("G4\n");
  desk_.SaveAs();
  said_.clear();
  accepted_(R"(\\CAM\PARTS)", "new.nc");
  Rest();
  EXPECT_EQ(said_, QStringList(R"(!A program can't be saved on the network; choose a drive: \\CAM\PARTS\new.nc)"));
  EXPECT_TRUE(editor_.IsModified());
  EXPECT_EQ(desk_.Path(), "C:\\PROGRAMS\\b.nc");
  EXPECT_FALSE(QFile::exists(Host("share/new.nc")));
}

}  // namespace
}  // namespace panel
