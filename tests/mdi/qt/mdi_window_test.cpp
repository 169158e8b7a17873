// SPDX-License-Identifier: MIT
// The command line's window: where things lie, how they look, what keys and presses do, who has the focus.
#include "mdi/qt/mdi_window.h"

#include "controls/fonts.h"
#include "host/records.h"
#include "mdi_stage.h"

namespace pnl::test {
namespace {

constexpr uint kIdleBack = 0x78643C;
constexpr uint kFocusBack = 0xD3BF97;
constexpr uint kRunningBack = 0x00A573;
constexpr uint kWhite = 0xFFFFFF;
constexpr uint kBlack = 0;

class MdiWindowTest : public MdiStage {};

TEST_F(MdiWindowTest, IsMadeHiddenWithItsFourControls) {
  Make();
  EXPECT_TRUE(tool->isHidden());
  EXPECT_EQ(tool->property("pnlTool").toInt(), 6);
  EXPECT_EQ(tool->property("pnlBack").toUInt(), 0x05B9D2u);
  struct Row {
    int id;
    const char* kind;
  };
  for (const Row& row : {Row{5003, "static"}, Row{5000, "edit"}, Row{5001, "list"}, Row{3003, "static"}}) {
    ASSERT_NE(FindControl(tool, row.id), nullptr) << row.id;
    EXPECT_EQ(FindControl(tool, row.id)->property("pnlKind").toString(), row.kind);
  }
  EXPECT_EQ(Sign()->WindowText(), "MORE!");
  EXPECT_EQ(Edit()->property("pnlLimit").toInt(), 255);
}

TEST_F(MdiWindowTest, LiesAsALineAtTheParentsBottom) {
  Open();
  EXPECT_EQ(tool->geometry(), QRect(0, 400 - 29, 600, 29));
  EXPECT_EQ(Title()->geometry(), QRect(0, 0, 65, 30));
  EXPECT_EQ(Edit()->geometry(), QRect(65, 1, 600 - 65 - 31, 30));
  EXPECT_EQ(Sign()->geometry(), QRect(600 - 31, 1, 30, 30));
  EXPECT_TRUE(Sign()->isVisible());
  EXPECT_FALSE(List()->isVisible());
  EXPECT_FALSE(Edit()->isReadOnly());
  EXPECT_EQ(Title()->WindowText(), "MDI");
  EXPECT_EQ(tool->property("pnlTitle").toString(), "MDI");
}

TEST_F(MdiWindowTest, SwitchesPositionAndLengthByTheSideMenu) {
  Open();
  Send(PNL_MSG_COMMAND, 40005);
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 600, 29));
  Send(PNL_MSG_COMMAND, 40006);
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 300, 29));
  EXPECT_EQ(Edit()->geometry(), QRect(65, 1, 300 - 65 - 31, 30));
}

TEST_F(MdiWindowTest, FillsTheParentInMdaRole) {
  OpenMda();
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 600, 400));
  EXPECT_EQ(Title()->geometry(), QRect(0, 0, 600, 30));
  EXPECT_EQ(List()->geometry(), QRect(0, 30, 600, 400 - 61));
  EXPECT_EQ(Edit()->geometry(), QRect(0, 400 - 30, 600, 30));
  EXPECT_TRUE(List()->isVisible());
  EXPECT_FALSE(Sign()->isVisible());
  EXPECT_TRUE(Edit()->isReadOnly());
  EXPECT_EQ(Title()->WindowText(), "MDA");
  EXPECT_FALSE(Title()->IsBlinking());
}

TEST_F(MdiWindowTest, FollowsTheParentsSize) {
  Open();
  area->resize(500, 300);
  EXPECT_EQ(tool->geometry(), QRect(0, 300 - 29, 500, 29));
}

TEST_F(MdiWindowTest, SurvivesAParentWithoutRoom) {
  Open();
  for (const QSize& size : {QSize(0, 0), QSize(10, 10), QSize(64, 20)}) {
    area->resize(size);
    Paint(*tool);
    for (const QWidget* control : {static_cast<QWidget*>(Title()), static_cast<QWidget*>(Edit())}) {
      EXPECT_GE(control->width(), 0);
    }
    EXPECT_EQ(tool->geometry(), QRect(0, size.height() - 29, size.width(), 29));
    SwitchRole();
    EXPECT_EQ(tool->geometry(), QRect(QPoint(0, 0), size));
    Paint(*tool);
    SwitchRole();
  }
  area->resize(600, 400);
  EXPECT_EQ(Edit()->geometry(), QRect(65, 1, 600 - 65 - 31, 30));
  Type(Edit(), "G0");
  EXPECT_EQ(Edit()->text(), "G0");
}

TEST_F(MdiWindowTest, TheTitleBlinksWhileTheLineIsOpenAndRestsWhenItIsNot) {
  Open();
  EXPECT_TRUE(Title()->IsBlinking());
  EXPECT_EQ(Title()->Period(), 800);
  const bool phase = Title()->Phase();
  timers.Advance(800);
  EXPECT_EQ(Title()->Phase(), !phase);
  Command(3);
  EXPECT_FALSE(Title()->IsBlinking());
  EXPECT_EQ(timers.Running(), 0u);
}

TEST_F(MdiWindowTest, OpeningGivesTheFocusToTheEdit) {
  Open();
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(Focus(), Edit());
  EXPECT_EQ(Command(3), 0);
  EXPECT_FALSE(tool->isVisible());
  EXPECT_EQ(Focus(), nullptr) << "the focus must not wander into the panel";
  EXPECT_EQ(Command(4), 0);
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(MdiWindowTest, TheEditsColoursFollowFocusAndState) {
  Open();
  EXPECT_EQ(Back(Edit()), kFocusBack);
  EXPECT_EQ(Fore(Edit()), kBlack);
  other->setFocus();
  EXPECT_EQ(Back(Edit()), kIdleBack);
  EXPECT_EQ(Fore(Edit()), kWhite);
  EXPECT_EQ(ColorAt(Paint(*Edit()), 200, 15), kIdleBack);
  Edit()->setFocus();
  EXPECT_EQ(ColorAt(Paint(*Edit()), 200, 15), kFocusBack);
  Type(Edit(), "G0");
  StartKey();
  EXPECT_EQ(Back(Edit()), kRunningBack);
  EXPECT_EQ(Fore(Edit()), kBlack);
  Status(2);
  Status(1);
  EXPECT_EQ(Back(Edit()), kFocusBack);
}

TEST_F(MdiWindowTest, TitleAndSignShowThatABlockRuns) {
  Open();
  const QImage before = Paint(*Title());
  Type(Edit(), "G0");
  StartKey();
  EXPECT_EQ(Back(Title()), kRunningBack);
  EXPECT_EQ(Fore(Title()), kBlack);
  EXPECT_EQ(Back(Sign()), kRunningBack);
  Status(2);
  Status(4);
  EXPECT_EQ(Back(Title()), kRunningBack);
  Status(1);
  EXPECT_EQ(Back(Title()), kWhite);
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
}

TEST_F(MdiWindowTest, TheListKeepsItsColoursAlways) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  OpenMda();
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Back(List()), kIdleBack);
    EXPECT_EQ(Fore(List()), kWhite);
    EXPECT_EQ(ColorAt(Paint(*List()->viewport()), 300, 200), kIdleBack);
    if (round == 0) StartKey();
  }
  EXPECT_FALSE(List()->isEnabled());
}

TEST_F(MdiWindowTest, CustomColoursComeFromTheSettings) {
  DiscFiles(drives).Replace(u"C:\\P52\\MDIMAN.INI",
                            "[PRIVATE]\nCustomColors=YES\nRGB_Bkgnd=1 2 3\nRGB_BkgndFocus=4 5 6\nRGB_Text=7 8 9\n");
  Open();
  EXPECT_EQ(Back(Edit()), 0x060504u);
  EXPECT_EQ(Back(List()), 0x030201u);
  EXPECT_EQ(Fore(List()), 0x090807u);
}

TEST_F(MdiWindowTest, TheDialogIsFilledWithItsColour) {
  OpenMda();
  // Between the list's end and the edit there is one line of it.
  EXPECT_EQ(ColorAt(Paint(*tool), 300, 400 - 31), 0x05B9D2u);
}

TEST_F(MdiWindowTest, TheSignIsAPlusWhateverItsTextSays) {
  Open();
  const QImage sign = Paint(*Sign());
  EXPECT_EQ(Count(sign, 0x05B9D2), 18 * 6 + 2 * 6 * 6);
  EXPECT_EQ(ColorAt(sign, 15, 7), 0x05B9D2u);
  EXPECT_EQ(ColorAt(sign, 7, 15), 0x05B9D2u);
  EXPECT_EQ(ColorAt(sign, 7, 7), 0x02B6E8u);
}

TEST_F(MdiWindowTest, EditListTitleAndDropListAreInArialOfHeight18AndWeight600) {
  History(1);
  Disc("MDAC1.DAT", "HHHH\r\n");
  Open();
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  const QFont wanted = MakeFont("Arial", 18, 600).value();
  EXPECT_EQ(wanted.weight(), 600);
  for (const QWidget* control :
       {static_cast<QWidget*>(Edit()), static_cast<QWidget*>(List()), static_cast<QWidget*>(DropItems())}) {
    EXPECT_EQ(control->font().families(), wanted.families());
    EXPECT_EQ(control->font().pixelSize(), wanted.pixelSize());
    EXPECT_EQ(control->font().weight(), 600);
  }
  // The title keeps its font to itself: what it paints must be what a static with that font paints.
  ZWCStatic like(1, timers, files, nullptr);
  like.resize(Title()->size());
  like.SetFont("Arial", 18, 600);
  like.SetTextW("MDI", false);
  Command(3);  // at rest: no triangle
  EXPECT_EQ(Paint(*Title()), Paint(like));
  like.SetFont("Arial", 18, 400);
  EXPECT_NE(Paint(*Title()), Paint(like));
}

TEST_F(MdiWindowTest, TheSignLosesItsOpenColourWhenTheHostHidesTheTool) {
  // The list went with the window, and the sign said that it was open still.
  History(3);
  Open();
  PressSign();
  Settle();
  ASSERT_NE(Drop(), nullptr);
  ASSERT_EQ(Back(Sign()), 0x23D7F0u);
  area->hide();
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
  area->show();
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
}

TEST_F(MdiWindowTest, TheEditGetsTheFocusBackWhenLayingOutClosesTheDropList) {
  History(3);
  Open();
  Key(Qt::Key_Down);
  ASSERT_EQ(Focus(), DropItems());
  Send(PNL_MSG_COMMAND, 40005);
  EXPECT_EQ(Drop(), nullptr);
  EXPECT_EQ(Focus(), Edit());
}

TEST_F(MdiWindowTest, ALineOpenedAgainAfterACloseThatWaitedCanBeUsed) {
  Open();
  Type(Edit(), "G0");
  StartKey();
  EXPECT_EQ(Command(5), 1);
  Status(1);
  EXPECT_EQ(Command(2), 0);
  EXPECT_FALSE(Edit()->isReadOnly());
  EXPECT_EQ(Focus(), Edit());
  Type(Edit(), "G1");
  EXPECT_EQ(Edit()->text(), "G1");
}

TEST_F(MdiWindowTest, AListOpenedAgainAfterACloseThatWaitedCanBeUsed) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  OpenMda();
  StartKey();
  EXPECT_FALSE(List()->isEnabled());
  EXPECT_EQ(Command(5), 1);
  Status(1);
  EXPECT_EQ(Command(2), 0);
  EXPECT_TRUE(List()->isEnabled());
  EXPECT_EQ(Focus(), List());
  Key(Qt::Key_Down);
  EXPECT_EQ(List()->Selection(), 1);
}

TEST_F(MdiWindowTest, TheArrowKeysWalkTheListAfterItIsSavedAsAProgram) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\n");
  OpenMda();
  Send(PNL_MSG_COMMAND, 32775);
  const auto number = std::get<std::int64_t>(*cnc.Get(u"E.XPLRDATA"));
  auto* request = static_cast<XPLRDATA_ST*>(ResolveRecord(static_cast<std::int32_t>(number)));
  ASSERT_NE(request, nullptr);
  SetField(request->Path, u"C:\\P108");
  SetField(request->File, u"P.NC");
  other->setFocus();
  Send(PNL_MSG_RESULT_READY, 2);
  EXPECT_EQ(Focus(), List());
  Key(Qt::Key_Down);
  EXPECT_EQ(List()->Selection(), 1);
}

TEST_F(MdiWindowTest, TheHostLearnsOfTheMenusOnceTheListsFocusHasSettled) {
  OpenMda();
  Send(PNL_MSG_COMMAND, 32773);
  Type(Edit(), "G1");
  hostCalls.clear();
  List()->setFocus(Qt::MouseFocusReason);
  EXPECT_EQ(Edit()->text(), "") << "the edit ends at once";
  EXPECT_THAT(TakeHostCalls(), testing::IsEmpty()) << "the widget kit is in the middle of it";
  Settle();
  EXPECT_THAT(TakeHostCalls(), testing::ElementsAre("HostUpdateMainMenu(6)"));
}

TEST_F(MdiWindowTest, TheSignsColoursFollowFocusAndDropList) {
  Make();
  EXPECT_EQ(Fore(Sign()), 0x02B6E8u);
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
  Open();
  EXPECT_EQ(Fore(Sign()), 0x05B9D2u);
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
  PressSign();
  EXPECT_EQ(Back(Sign()), 0x23D7F0u);
  PressSign();
  EXPECT_EQ(Back(Sign()), 0x02B6E8u);
}

TEST_F(MdiWindowTest, TheEditTakesAtMost255CharactersTypedOrPasted) {
  Open();
  QApplication::clipboard()->setText(QString(300, 'X'));
  Edit()->paste();
  EXPECT_EQ(Edit()->text().size(), 255);
  Type(Edit(), "Y");
  EXPECT_EQ(Edit()->text().size(), 255);
}

TEST_F(MdiWindowTest, ALongerItemOfTheListIsShownWholeAndTheLimitComesBack) {
  Disc("MDAC1.DAT", std::string(300, 'X') + "\r\n");
  OpenMda();
  Send(PNL_MSG_COMMAND, 32772);
  EXPECT_EQ(Edit()->text().size(), 300);
  Type(Edit(), "Y");
  EXPECT_EQ(Edit()->text().size(), 300) << "no more can be typed";
  Edit()->end(false);
  for (int i = 0; i < 50; ++i) Edit()->backspace();
  Type(Edit(), "0123456789");
  EXPECT_EQ(Edit()->text().size(), 255);
}

TEST_F(MdiWindowTest, TheSelectionComesBackWithTheFocus) {
  Open();
  Type(Edit(), "G0 X10");
  Edit()->setSelection(1, 3);
  Key(Qt::Key_Down);
  ASSERT_NE(Drop(), nullptr);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Focus(), Edit());
  EXPECT_EQ(Edit()->selectionStart(), 1);
  EXPECT_EQ(Edit()->selectionEnd(), 4);
}

TEST_F(MdiWindowTest, EnterRunsNoBlockInMdiRole) {
  Open();
  Type(Edit(), "G0 X10");
  Key(Qt::Key_Return, "\r");
  EXPECT_EQ(Edit()->text(), "G0 X10");
  EXPECT_FALSE(Edit()->isReadOnly());
}

TEST_F(MdiWindowTest, EnterPutsATypedBlockIntoTheList) {
  OpenMda();
  Send(PNL_MSG_COMMAND, 32773);
  EXPECT_EQ(Focus(), Edit());
  EXPECT_FALSE(Edit()->isReadOnly());
  Type(Edit(), "G0 X10");
  Key(Qt::Key_Enter, "\r");
  EXPECT_EQ(List()->Count(), 1);
  EXPECT_EQ(List()->Item(0), u"G0 X10");
}

TEST_F(MdiWindowTest, DeleteTakesAnItemOutWhenNothingIsEdited) {
  Disc("MDAC1.DAT", "G0\r\nG1\r\nG2\r\n");
  OpenMda();
  ASSERT_EQ(Focus(), List());
  List()->Select(1);
  Key(Qt::Key_Delete);
  EXPECT_EQ(List()->Count(), 2);
  EXPECT_EQ(List()->Selection(), 1);
}

TEST_F(MdiWindowTest, DeleteDeletesACharacterInTheEdit) {
  Open();
  Type(Edit(), "G0");
  Edit()->setCursorPosition(0);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Edit()->text(), "0");
}

TEST_F(MdiWindowTest, EscapeLeavesTheIdleChannel) {
  Open();
  Key(Qt::Key_Escape);
  EXPECT_FALSE(tool->isVisible());
  EXPECT_THAT(TakeHostCalls(), testing::Contains("HostToolClosed(6,2)"));
}

TEST_F(MdiWindowTest, TabGoesRoundTheWindowsOwnControls) {
  Disc("MDAC1.DAT", "G0\r\n");
  Open();
  Key(Qt::Key_Tab, "\t");
  EXPECT_EQ(Focus(), Edit());
  SwitchRole();
  ASSERT_EQ(Focus(), List());
  Key(Qt::Key_Tab, "\t");
  EXPECT_EQ(Focus(), Edit());
  Key(Qt::Key_Backtab);
  EXPECT_EQ(Focus(), List());
}

TEST_F(MdiWindowTest, AWindowThatTheHostHidesGivesTheKeyboardOn) {
  Open();
  ASSERT_EQ(Focus(), Edit());
  tool->hide();
  EXPECT_EQ(Focus(), other);
}

TEST_F(MdiWindowTest, TheListsFocusEndsAnEdit) {
  Disc("MDAC1.DAT", "G0\r\n");
  OpenMda();
  Send(PNL_MSG_COMMAND, 32773);
  Type(Edit(), "G1");
  PressMouse(List()->viewport(), QPoint(10, 10));
  EXPECT_EQ(Focus(), List());
  EXPECT_EQ(Edit()->text(), "");
  EXPECT_TRUE(Edit()->isReadOnly());
}

TEST_F(MdiWindowTest, APressOnTheWindowGivesItTheFocus) {
  OpenMda();
  other->setFocus();
  PressMouse(Title(), QPoint(5, 5));
  EXPECT_EQ(Focus(), List());
}

TEST_F(MdiWindowTest, AReadOnlyLineCanStillHaveTheFocusWhileABlockRuns) {
  Open();
  Type(Edit(), "G0");
  StartKey();
  EXPECT_TRUE(Edit()->isReadOnly());
  Type(Edit(), "X1");
  EXPECT_EQ(Edit()->text(), "G0");
  Status(2);
  Status(1);
  EXPECT_FALSE(Edit()->isReadOnly());
  EXPECT_EQ(Edit()->text(), "");
  EXPECT_EQ(Focus(), Edit());
}

TEST_F(MdiWindowTest, TenThousandItemsAreShownWithoutAWidgetEach) {
  std::string all;
  for (int i = 0; i < 10000; ++i) all += "G1 X" + std::to_string(i) + "\r\n";
  Disc("MDAC1.DAT", all);
  Open();
  const auto before = tool->findChildren<QObject*>().size();
  SwitchRole();
  Settle();
  EXPECT_EQ(List()->Count(), 10000);
  EXPECT_LT(tool->findChildren<QObject*>().size(), before + 10);
  EXPECT_GT(Count(Paint(*List()->viewport()), kWhite), 50);
}

TEST_F(MdiWindowTest, ItsKeysWithCtrlStayTheHosts) {
  Make();
  Open();
  QKeyEvent plain(QEvent::ShortcutOverride, Qt::Key_Return, Qt::NoModifier);
  plain.ignore();
  QCoreApplication::sendEvent(Edit(), &plain);
  EXPECT_TRUE(plain.isAccepted());
  QKeyEvent start(QEvent::ShortcutOverride, Qt::Key_Return, Qt::ControlModifier);
  start.ignore();
  QCoreApplication::sendEvent(Edit(), &start);
  EXPECT_FALSE(start.isAccepted());
  const auto claims = [this](QWidget* control, int key, Qt::KeyboardModifiers modifiers) {
    QKeyEvent event(QEvent::ShortcutOverride, key, modifiers);
    event.ignore();
    QCoreApplication::sendEvent(control, &event);
    return event.isAccepted();
  };
  for (QWidget* control : {static_cast<QWidget*>(Edit()), static_cast<QWidget*>(List())}) {
    for (const int key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down}) {
      EXPECT_TRUE(claims(control, key, Qt::ShiftModifier)) << key;
      EXPECT_FALSE(claims(control, key, Qt::AltModifier)) << key;
      EXPECT_FALSE(claims(control, key, Qt::MetaModifier)) << key;
    }
    EXPECT_FALSE(claims(control, Qt::Key_F1, Qt::NoModifier)) << "a key that isn't the tool's";
  }
}

TEST_F(MdiWindowTest, TheEditHasNoFrameAndKeepsFourPixelsBesideItsText) {
  Make();
  EXPECT_FALSE(Edit()->hasFrame());
  EXPECT_EQ(Edit()->textMargins(), QMargins(4, 0, 4, 0));
}

TEST_F(MdiWindowTest, ASelectionIsCutToTheTextAndAnEndBelowZeroMeansAll) {
  Open();
  struct Row {
    TextSelection asked;
    TextSelection selected;
  };
  const Row rows[] = {{{0, -1}, {0, 6}}, {{2, -1}, {2, 6}}, {{1, 3}, {1, 3}},   {{2, 100}, {2, 6}},
                      {{6, 6}, {6, 6}},  {{9, 12}, {6, 6}}, {{-1, -1}, {6, 6}}, {{0, 0}, {0, 0}}};
  Edit()->SetText("G0 X10");
  for (const Row& row : rows) {
    Edit()->Select({0, 6});
    Edit()->Select(row.asked);
    EXPECT_EQ(Edit()->Selection(), row.selected) << row.asked.start << "," << row.asked.end;
  }
}

TEST_F(MdiWindowTest, AMenuOverTheEditIsNoChangeOfItsFocus) {
  Open();
  int changes = 0;
  QObject::connect(Edit(), &MdiEdit::FocusChanged, Edit(), [&changes] { ++changes; });
  for (const auto type : {QEvent::FocusOut, QEvent::FocusIn}) {
    QFocusEvent popup(type, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(Edit(), &popup);
  }
  EXPECT_EQ(changes, 0);
  other->setFocus();
  EXPECT_EQ(changes, 1);
}

TEST_F(MdiWindowTest, APressOnTheLineDoesntReachThePanelBelow) {
  Open();
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
    QMouseEvent press(QEvent::MouseButtonPress, QPoint(3, 3), tool->mapToGlobal(QPoint(3, 3)), button, button,
                      Qt::NoModifier);
    press.ignore();
    QApplication::sendEvent(tool, &press);
    EXPECT_TRUE(press.isAccepted());
  }
}

TEST_F(MdiWindowTest, ThePressOfAnotherButtonOpensNoDropList) {
  History(3);
  Open();
  PressMouse(tool, QPoint(590, 10), QEvent::MouseButtonPress, Qt::RightButton);
  EXPECT_EQ(Drop(), nullptr);
  PressMouse(tool, QPoint(590, 10));
  EXPECT_NE(Drop(), nullptr);
}

}  // namespace
}  // namespace pnl::test
