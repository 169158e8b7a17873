// SPDX-License-Identifier: MIT
#include <QHeaderView>

#include "explorer/qt/xplr_window_stage.h"
#include "host/pack_files.h"
#include "support/deleting_host.h"

namespace pnl::test {
namespace {

using testing::Contains;

TEST_F(XplrWindowTest, ItShowsTheFolderOfTheRequestOverTheWholeArea) {
  Open();
  EXPECT_TRUE(explorer->isVisible());
  EXPECT_EQ(explorer->geometry(), area->rect());
  EXPECT_EQ(Rows(), QStringList({"SUB", "B.TXT", "A.NC"}));
  EXPECT_EQ(Focus(), List());
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100");
  EXPECT_EQ(Back(List()), 10595253u);
  EXPECT_EQ(Back(Tree()), 8621463u);
  EXPECT_EQ(Tree()->SelectedNode()->text(0), "P100");
  EXPECT_EQ(explorer->property("pnlView").toInt(), Tree()->parentWidget()->property("pnlWindow").toInt());
}

TEST_F(XplrWindowTest, ScriptsReadItsColoursAndThoseOfTheTree) {
  Open();
  EXPECT_EQ(explorer->property("pnlBack").toUInt(), 4608090u);
  EXPECT_EQ(Tree()->property("pnlBack").toUInt(), 8621463u);
  ASSERT_TRUE(Tree()->property("pnlFore").isValid());
  EXPECT_EQ(Tree()->property("pnlFore").toUInt(), 0u);
}

TEST_F(XplrWindowTest, EnterHandsTheChosenFileBack) {
  Open();
  PressKeyAndIdle(Qt::Key_End);
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = A.NC");
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_TRUE(FieldText(request.File) == u"A.NC");
  EXPECT_THAT(TakeHostCalls(), testing::IsSupersetOf({"HostToolClosed(5,1)", "HostExplorerAccepted"}));
  EXPECT_TRUE(explorer.isNull());
}

TEST_F(XplrWindowTest, EscapeClosesItFromEveryControl) {
  for (const int id : {xplr_control::kTree, xplr_control::kList, xplr_control::kName}) {
    Open();
    Control(id)->setFocus();
    TakeHostCalls();
    PressKeyAndIdle(Qt::Key_Escape);
    EXPECT_THAT(TakeHostCalls(), Contains("HostToolClosed(5,2)")) << id;
    EXPECT_TRUE(explorer.isNull());
  }
}

TEST_F(XplrWindowTest, TheColumnsShareTheWidthByTwentieths) {
  Open();
  for (const int width : {800, 643}) {
    area->resize(width, 600);
    Idle();
    const int twentieth = List()->viewport()->width() / 20;
    EXPECT_EQ(List()->header()->sectionSize(0), 10 * twentieth);
    EXPECT_EQ(List()->header()->sectionSize(1), 4 * twentieth);
    EXPECT_EQ(List()->header()->sectionSize(2), 6 * twentieth);
    EXPECT_EQ(List()->geometry(), QRect(300, 69, width - 300, 502));
  }
}

TEST_F(XplrWindowTest, ADoubleClickOnTheSelectedFolderStepsIntoIt) {
  Open();
  PressRow(0);
  PressRow(0, QEvent::MouseButtonRelease);
  PressRow(0, QEvent::MouseButtonDblClick);
  EXPECT_EQ(Rows(), QStringList({"DEEP", "C.NC"}));
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB");
}

TEST_F(XplrWindowTest, ADoubleClickWhoseRowsHaveChangedMeanwhileIsAClick) {
  Open();
  PressRow(0);
  Send(PNL_MSG_COMMAND, 32790);
  Idle();
  PressRow(0, QEvent::MouseButtonDblClick);
  EXPECT_EQ(Rows(), QStringList({"SUB", "B.TXT", "A.NC"}));
}

TEST_F(XplrWindowTest, AClickOnAHeaderSortsByItsColumn) {
  Open();
  emit List()->header()->sectionClicked(0);
  Idle();
  EXPECT_EQ(Rows(), QStringList({"SUB", "A.NC", "B.TXT"}));
}

/// How much of a row has a colour, of ten thousand.
int ShareOf(ZCXPLRList* list, int row, std::uint32_t color) {
  QRect place = list->visualRect(list->model()->index(row, 0));
  place.setLeft(0);
  place.setRight(list->viewport()->width() - 1);
  return 10'000 * Count(Paint(*list->viewport()), color, place) / (place.width() * place.height());
}

struct RowLook {
  bool folderMode;
  const char* row;
  bool selected;
  bool focused;
  std::uint32_t back;
  std::uint32_t text;
};

TEST_F(XplrWindowTest, TheColoursOfARowTellSelectionFocusAndWhetherItCanBeChosen) {
  const RowLook looks[] = {
      {false, "A.NC", false, true, 10595253, 0},        {false, "A.NC", true, true, 660510, 0xffffff},
      {false, "A.NC", true, false, 0x808080, 0xC0C0C0}, {false, "SUB", true, true, 160, 0xffffff},
      {false, "SUB", true, false, 0x808080, 0xC0C0C0},  {true, "SUB", true, true, 660510, 0xffffff},
      {true, "A.NC", true, true, 160, 0xffffff},        {true, "A.NC", true, false, 0x808080, 0xC0C0C0},
      {true, "A.NC", false, true, 10595253, 0},
  };
  for (const RowLook& look : looks) {
    request.Flags = look.folderMode ? XPLR_FOLDERMODE : 0;
    Open();
    const int row = static_cast<int>(Rows().indexOf(look.row));
    const int another = static_cast<int>(Rows().indexOf("B.TXT"));
    PressRow(look.selected ? row : another);
    if (!look.focused) Name()->setFocus();
    Idle();
    const std::string which =
        look.row + std::string(look.selected ? " selected" : "") + (look.focused ? " focused" : "");
    EXPECT_GT(ShareOf(List(), row, look.back), 6000) << which;
    EXPECT_GT(ShareOf(List(), row, look.text), 0) << which;
    delete explorer;
    Idle();
  }
}

TEST_F(XplrWindowTest, SizesAreDrawnAtTheRightOfTheirColumnAndNamesAndDatesAtTheLeft) {
  Disc("C:\\P100\\A.NC", std::string(2048, ' '));
  Open();
  const int row = static_cast<int>(Rows().indexOf("B.TXT"));
  const QImage image = Paint(*List()->viewport());
  const QRect place = List()->visualRect(List()->model()->index(row, 0));
  const auto ink = [&](int column) {
    const QRect cell(List()->columnViewportPosition(column), place.top(), List()->columnWidth(column), place.height());
    const QRect inked = Ink(image, 10595253, cell);
    return std::pair(inked.left() - cell.left(), cell.right() - inked.right());
  };
  EXPECT_LT(ink(0).first, ink(0).second);
  EXPECT_GT(ink(1).first, ink(1).second);
  EXPECT_LT(ink(2).first, ink(2).second);
}

TEST_F(XplrWindowTest, TheNameTakesNoCharactersThatLeadElsewhere) {
  Open();
  Control(xplr_control::kName)->setFocus();
  for (const QChar c : QStringLiteral("a\\/:*?\"<>|b.nc")) PressKeyAndIdle(0, c);
  EXPECT_EQ(Control(xplr_control::kName)->property("text").toString(), "ab.nc");
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = ab.nc");
}

TEST_F(XplrWindowTest, ANodeOpensWhenItsFoldersHaveBeenRead) {
  Open();
  QTreeWidgetItem* node = Tree()->SelectedNode();
  EXPECT_EQ(node->childCount(), 0);
  EXPECT_EQ(node->childIndicatorPolicy(), QTreeWidgetItem::ShowIndicator);
  Tree()->setFocus();
  Key(Qt::Key_Space);
  EXPECT_FALSE(node->isExpanded());
  Idle();
  EXPECT_TRUE(node->isExpanded());
  ASSERT_EQ(node->childCount(), 1);
  EXPECT_EQ(node->child(0)->text(0), "SUB");
  EXPECT_EQ(node->child(0)->data(0, node_role::kKind).toInt(), 14);
}

TEST_F(XplrWindowTest, SelectingANodeReloadsTheListAndLightsItsHeading) {
  Open();
  Tree()->setFocus();
  EXPECT_EQ(Back(Control(xplr_control::kFilter)), 12569043u);
  PressKeyAndIdle(Qt::Key_Space);
  PressKeyAndIdle(Qt::Key_Down);
  EXPECT_EQ(TextOf(xplr_control::kFolder), "C:\\P100\\SUB");
  EXPECT_EQ(Rows(), QStringList({"DEEP", "C.NC"}));
}

TEST_F(XplrWindowTest, AFolderWithoutFoldersLosesItsMark) {
  SetField(request.Path, u"C:\\P100\\SUB\\DEEP");
  Open();
  QTreeWidgetItem* node = Tree()->SelectedNode();
  Tree()->setFocus();
  PressKeyAndIdle(Qt::Key_Space);
  EXPECT_FALSE(node->isExpanded());
  EXPECT_EQ(node->childIndicatorPolicy(), QTreeWidgetItem::DontShowIndicator);
}

TEST_F(XplrWindowTest, ThePinTakesTheTreeAway) {
  Open();
  Tree()->setFocus();
  Send(PNL_MSG_COMMAND, 32791);
  Idle();
  EXPECT_FALSE(Tree()->isVisible());
  EXPECT_EQ(List()->geometry(), QRect(0, 69, 800, 502));
  EXPECT_EQ(Focus(), List());
}

TEST_F(XplrWindowTest, WithoutTheLanguageLibraryThereIsNoDialog) {
  Open();
  Send(PNL_MSG_COMMAND, 32774);
  Idle();
  EXPECT_TRUE(explorer->findChildren<ZCFind*>().isEmpty());
  EXPECT_EQ(Focus(), List());
}

class XplrDialogTest : public XplrWindowTest {
 protected:
  XplrDialogTest() {
    const std::string program = QCoreApplication::applicationFilePath().toStdString();
    Disc("C:\\P15\\LPNLTOOLS.DLL", *ReadPackFile(PackFolders(nullptr, program), "en"));
  }
  void OpenFind() {
    Open();
    Send(PNL_MSG_COMMAND, 32774);
    Idle();
  }
  [[nodiscard]] ZCFind* Find() const { return explorer->findChild<ZCFind*>(); }
};

TEST_F(XplrDialogTest, TypingAndEnterSearchTheList) {
  OpenFind();
  ASSERT_NE(Find(), nullptr);
  EXPECT_TRUE(Find()->isVisible());
  for (const QChar c : QStringLiteral("nc")) PressKeyAndIdle(0, c);
  PressKeyAndIdle(Qt::Key_Return);
  EXPECT_EQ(TextOf(xplr_control::kCaption), " Pick = A.NC");
  EXPECT_TRUE(Find()->isVisible()) << "the dialog keeps the keyboard";
}

TEST_F(XplrDialogTest, EscapeEndsTheDialogAndTheNextOneTheExplorer) {
  OpenFind();
  PressKeyAndIdle(Qt::Key_Escape);
  ASSERT_FALSE(explorer.isNull());
  EXPECT_EQ(Find(), nullptr);
  EXPECT_EQ(Focus(), List());
  PressKeyAndIdle(Qt::Key_Escape);
  EXPECT_TRUE(explorer.isNull());
}

TEST_F(XplrDialogTest, TheDialogEndsWhenTheFocusGoesAndItsTextStays) {
  OpenFind();
  for (const QChar c : QStringLiteral("txt")) PressKeyAndIdle(0, c);
  PressKeyAndIdle(Qt::Key_Return);
  List()->setFocus();
  Idle();
  EXPECT_EQ(Find(), nullptr);
  Send(PNL_MSG_COMMAND, 32774);
  Idle();
  EXPECT_EQ(Find()->Text(), "TXT") << "as it was sought";
}

TEST_F(XplrDialogTest, TheHostMayDeleteTheParentInEveryCall) {
  DeletingHost killer(table);
  // The same calls in the same order each time.
  InlineWorker atOnce;
  const ToolContext repeatable{host, cnc, windows, timers, language, files, places, network, atOnce};
  FatalScene scene;
  scene.open = [this, &repeatable] {
    if (area.isNull()) MakeArea();
    Disc("C:\\P52\\XPLR7340.ini", "");
    SetField(request.File, u"");
    ZCVariable(cnc.Vars(), u"E.XPLRDATA").WriteInt(PublishRecord(&request));
    explorer = new ZCExplorer(repeatable, area);
    Use(explorer);
    explorer->Start();
    Idle();
  };
  const auto send = [this](int command) {
    return [this, command] {
      Send(PNL_MSG_COMMAND, command);
      Idle();
    };
  };
  scene.steps = {send(32791),
                 send(32791),
                 send(32774),
                 [this] { PressKeyAndIdle(Qt::Key_Escape); },
                 send(32770),
                 [this] { PressKeyAndIdle(Qt::Key_Return); },
                 [this] { PressKeyAndIdle(Qt::Key_End); },
                 [this] { PressKeyAndIdle(Qt::Key_Return); }};
  scene.destroy = [this] { delete area; };
  scene.close = [this] {
    delete area;
    Idle();
    EXPECT_TRUE(explorer.isNull());
  };
  EXPECT_THAT(PlayWithEachCallFatal(killer, scene), Contains("HostExplorerAccepted"));
}

}  // namespace
}  // namespace pnl::test
