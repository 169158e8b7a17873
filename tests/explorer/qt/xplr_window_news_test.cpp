// SPDX-License-Identifier: MIT
// What the explorer's window does beyond choosing: drives that come and go, typing in the list, the preview, places
// that fail or take long, and the path in its heading.
#include <QHeaderView>

#include "explorer/qt/xplr_window_stage.h"

namespace pnl::test {
namespace {

TEST_F(XplrWindowTest, ADriveThatComesAndGoesIsANodeAtItsPlace) {
  const TempFolder stick;
  stick.Write("J.NC", "G0");
  rig::Drive drive;
  drive.type = drive_type::kRemovable;
  drive.dir = stick.Path().string();
  const auto roots = [this] {
    QStringList texts;
    for (int i = 0; i < Tree()->topLevelItemCount(); ++i) texts << Tree()->topLevelItem(i)->text(0);
    return texts;
  };
  Open();
  const QStringList before = roots();
  for (const char letter : {'B', 'X'}) {
    drive.letter = letter;
    cnc.Storage().SetDrive(drive);
  }
  Idle();
  EXPECT_EQ(roots(), QStringList({"B:"}) + before + QStringList({"X:"}));
  EXPECT_EQ(Tree()->SelectedNode()->text(0), "P100") << "the operator stays where he is";
  Tree()->setCurrentItem(Tree()->topLevelItem(static_cast<int>(roots().size()) - 1));
  Idle();
  EXPECT_EQ(Rows(), QStringList({"J.NC"}));
  drive.dir.clear();
  cnc.Storage().SetDrive(drive);
  Idle();
  EXPECT_EQ(roots(), QStringList({"B:"}) + before);
  EXPECT_EQ(Tree()->SelectedNode()->text(0), before.back());
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:");
}

class XplrTypingTest : public XplrWindowTest {
 protected:
  XplrTypingTest() {
    for (const char* name : {"PART1.NC", "PART2.NC", "POCKET.NC"}) Disc(std::string("C:\\P100\\") + name, "G0");
  }
  /// The pixels of the marked letters in the selected row.
  [[nodiscard]] int MarkedPixels() const {
    const QImage image = List()->viewport()->grab().toImage();
    const QRgb mark = qRgb(0xFF, 0xD8, 0x60);
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) count += image.pixel(x, y) == mark ? 1 : 0;
    }
    return count;
  }
};

TEST_F(XplrTypingTest, TypingGoesToTheNameAndMarksTheLetters) {
  Open();
  EXPECT_EQ(MarkedPixels(), 0);
  for (const QChar c : QStringLiteral("pa")) PressKeyAndIdle(c.toUpper().unicode(), c);
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = PART2.NC") << "the first in the list's order";
  const int two = MarkedPixels();
  EXPECT_GT(two, 0);
  PressKeyAndIdle(Qt::Key_Backspace);
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = POCKET.NC");
  EXPECT_LT(MarkedPixels(), two);
  PressKeyAndIdle(Qt::Key_Down);
  EXPECT_EQ(MarkedPixels(), 0);
  PressKeyAndIdle(Qt::Key_Escape);
  EXPECT_TRUE(explorer.isNull()) << "Escape closes";
}

TEST_F(XplrTypingTest, KeysOfThePanelAreNotTyped) {
  Open();
  Key(Qt::Key_P, Qt::ControlModifier, "p");
  Key(Qt::Key_P, Qt::AltModifier, "p");
  Key(Qt::Key_Delete, {}, QChar(0x7F));
  Idle();
  EXPECT_EQ(MarkedPixels(), 0);
}

// ---------------------------------------------------------------- the preview

TEST_F(XplrWindowTest, ThePreviewIsBesideTheListFrom1200PixelsOn) {
  Disc("C:\\P100\\A.NC", "G0 X1\nM30\n");
  SetField(request.File, u"A.NC");
  panel.resize(1300, 800);
  area->resize(1199, 600);
  Open();
  EXPECT_FALSE(List()->Preview()->isVisible());
  const int columns = List()->viewport()->width() / 20 * 20;
  EXPECT_EQ(List()->header()->length(), columns);
  area->resize(1200, 600);
  Idle();
  EXPECT_TRUE(List()->Preview()->isVisible());
  EXPECT_EQ(List()->Preview()->Lines(), QStringList({"G0 X1", "M30"}));
  EXPECT_EQ(List()->geometry(), QRect(300, 69, 900, 502)) << "the list has its place";
  EXPECT_EQ(List()->viewport()->geometry().right(), List()->Preview()->geometry().right());
  EXPECT_EQ(List()->viewport()->x() + List()->header()->length(), List()->Preview()->geometry().left());
  EXPECT_NEAR(List()->Preview()->width(), XplrPreviewPane::WidthIn(List()->viewport()->width()), 19);
  PressRow(0);
  EXPECT_EQ(List()->Preview()->Lines(), QStringList()) << "a folder has none";
  area->resize(1199, 600);
  Idle();
  EXPECT_FALSE(List()->Preview()->isVisible());
  EXPECT_EQ(List()->header()->length(), columns);
}

// ---------------------------------------------------------------- places that fail or take long

TEST_F(XplrWindowTest, AFolderThatTakesLongSaysSoAndCanBeLeft) {
  Open();
  rig::Drive drive;
  drive.letter = 'X';
  drive.dir = disc.Path().string();
  cnc.Storage().SetDrive(drive);
  Idle();
  const auto* sign = List()->findChild<XplrComingSign*>();
  timers.Advance(1000);
  EXPECT_FALSE(sign->isVisible()) << "the rows came at once";
  cnc.Storage().Hold()->Hold('X');
  Tree()->setCurrentItem(Tree()->topLevelItem(Tree()->topLevelItemCount() - 1));
  Settle();
  timers.Advance(99);
  EXPECT_FALSE(sign->isVisible());
  timers.Advance(1);
  EXPECT_TRUE(sign->isVisible());
  Tree()->setCurrentItem(Tree()->topLevelItem(0));
  Settle();
  EXPECT_FALSE(sign->isVisible()) << "another folder was asked for";
  cnc.Storage().Hold()->Release('X');
  Idle();
  timers.Advance(1000);
  EXPECT_FALSE(sign->isVisible());
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:");
}

TEST_F(XplrWindowTest, EscapeClosesWhileAFolderHangs) {
  Open();
  cnc.Storage().Hold()->Hold('C');
  Send(PNL_MSG_COMMAND, 32790);
  Settle();
  timers.Advance(100);
  Key(Qt::Key_Escape);
  Settle();
  EXPECT_TRUE(explorer.isNull());
  EXPECT_EQ(timers.Running(), 0u);
  cnc.Storage().Hold()->ReleaseForGood();
}

class XplrFailingTest : public XplrWindowTest {
 protected:
  XplrFailingTest() {
    // The messages have colours of their own.
    noting.onMessage = [](const HostMessage&) {};
    SetServer(place_error::kRemoteNotListening);
  }
  void SetServer(int error) {
    rig::NetworkNode node;
    node.display = network_display::kServer;
    node.remote = u"\\\\SRV";
    node.error = error;
    rig::NetworkNode domain;
    domain.display = network_display::kDomain;
    domain.remote = u"OFFICE";
    domain.children = {node};
    rig::NetworkNode provider;
    provider.display = network_display::kProvider;
    provider.provider = u"Microsoft Network";
    provider.comment = u"Microsoft Network";
    provider.children = {domain};
    cnc.Storage().SetNetwork({provider});
  }
  void OpenServer() {
    Open();
    // High enough for all its rows.
    Tree()->resize(Tree()->width(), 600);
    Tree()->setFocus();
    for (QTreeWidgetItem* item = Tree()->topLevelItem(Tree()->topLevelItemCount() - 1); item != nullptr;
         item = item->child(0)) {
      server = item;
      if (item->data(0, node_role::kKind).toInt() == 13) break;
      item->setExpanded(true);
      Idle();
    }
    ASSERT_EQ(server->text(0), "\\\\SRV");
    above = server->parent();
    Tree()->setCurrentItem(above);
    Idle();
    TakeHostCalls();
  }
  void PressServer() {
    PressMouse(Tree()->viewport(), Tree()->visualItemRect(server).center(), QEvent::MouseButtonPress);
    PressMouse(Tree()->viewport(), Tree()->visualItemRect(server).center(), QEvent::MouseButtonRelease);
    Idle();
  }
  [[nodiscard]] bool LooksFailed() const { return server->foreground(0).style() != Qt::NoBrush; }

  QTreeWidgetItem* server = nullptr;
  QTreeWidgetItem* above = nullptr;
};

TEST_F(XplrFailingTest, TheArrowsWalkOverAFailedServerWithoutAskingItForHalfAMinute) {
  OpenServer();
  EXPECT_FALSE(LooksFailed());
  PressKeyAndIdle(Qt::Key_Down);
  EXPECT_TRUE(LooksFailed());
  SetServer(0);
  for (int walk = 0; walk < 3; ++walk) {
    PressKeyAndIdle(Qt::Key_Up);
    PressKeyAndIdle(Qt::Key_Down);
  }
  EXPECT_TRUE(LooksFailed()) << "it would answer now, but wasn't asked";
  timers.Advance(30'000);
  EXPECT_FALSE(LooksFailed());
  PressKeyAndIdle(Qt::Key_Up);
  PressKeyAndIdle(Qt::Key_Down);
  EXPECT_FALSE(LooksFailed());
}

TEST_F(XplrFailingTest, TouchingAFailedServerAgainAsksIt) {
  OpenServer();
  PressServer();
  EXPECT_TRUE(LooksFailed());
  SetServer(0);
  PressServer();
  EXPECT_FALSE(LooksFailed());
  EXPECT_EQ(TextOf(xplr_control::kFolder), "\\\\SRV");
}

TEST_F(XplrFailingTest, OnlyATouchOnTheSelectedNodeIsOneAgain) {
  OpenServer();
  std::vector<NodeId> touched;
  QObject::connect(Tree(), &ZCFolderTree::NodeTouched, Tree(), [&](NodeId node) { touched.push_back(node); });
  PressServer();
  EXPECT_TRUE(touched.empty());
  PressServer();
  EXPECT_EQ(touched.size(), 1u);
  Tree()->resize(Tree()->width(), 2000);
  PressMouse(Tree()->viewport(), QPoint(5, Tree()->viewport()->height() - 5), QEvent::MouseButtonPress);
  EXPECT_EQ(touched.size(), 1u) << "below the nodes";
}

TEST_F(XplrFailingTest, TouchingItAfterAnotherNodeAsksItToo) {
  OpenServer();
  PressServer();
  Tree()->setCurrentItem(above);
  Idle();
  SetServer(0);
  PressServer();
  EXPECT_FALSE(LooksFailed());
}

// ---------------------------------------------------------------- the path

TEST_F(XplrWindowTest, TouchingAPieceOfThePathGoesToItsFolder) {
  SetField(request.Path, u"C:\\P100\\SUB\\DEEP");
  Open();
  auto* heading = static_cast<XplrPathHeading*>(Control(xplr_control::kFolder));
  const auto touch = [&](int x) {
    PressMouse(heading, QPoint(x, 15), QEvent::MouseButtonPress);
    Idle();
  };
  const auto width = [&] {
    int right = 0;
    const QImage image = heading->grab().toImage();
    for (int y = 4; y < 26; ++y) {
      for (int x = 2; x < image.width() - 2; ++x) {
        if (image.pixel(x, y) != image.pixel(image.width() - 3, 4)) right = std::max(right, x);
      }
    }
    return right;
  };
  touch(width() + 40);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB\\DEEP") << "beside the path";
  touch(width() - 3);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB\\DEEP") << "the folder itself";
  touch(width() * 3 / 4 - 8);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB");
  EXPECT_EQ(Rows(), QStringList({"DEEP", "C.NC"}));
  EXPECT_EQ(Focus(), List()) << "the focus stays";
  touch(8);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:");
  EXPECT_EQ(Tree()->SelectedNode()->text(0).left(2), "C:");
}

}  // namespace
}  // namespace pnl::test
