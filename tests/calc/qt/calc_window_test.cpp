// SPDX-License-Identifier: MIT
// The calculator's window with a keyboard and a finger: where its controls lie, that the caret never leaves the line,
// and which keys it takes before anybody else.
#include <algorithm>

#include "calc_stage.h"

namespace pnl::test {
namespace {

using ::testing::ElementsAre;

class CalcWindowTest : public CalcStage {
 protected:
  CalcWindowTest() { Open(); }
};

TEST_F(CalcWindowTest, ShowsItselfAtTheEndOfItsOpening) {
  EXPECT_TRUE(tool->isVisible());
  EXPECT_EQ(Focus(), Line());
  EXPECT_EQ(tool->property(property::kTitle).toString(), "Calculator");
  EXPECT_EQ(Result(), "0");
  EXPECT_EQ(Status(), "Type an expression");
  EXPECT_EQ(Line()->property(property::kLimit).toInt(), 255);
  EXPECT_FALSE(List()->isVisible());
  EXPECT_FALSE(Variables()->isVisible());
  EXPECT_THAT(TakeHostCalls(),
              ElementsAre("box", "HostToolOpening(3)", "main menu", "side menu", "HostUpdateSideMenu(3)"));
}

struct PixelRow {
  int id;
  QRect place;
};

TEST_F(CalcWindowTest, HasEveryControlAtItsPixels) {
  const PixelRow rows[] = {
      {1010, {3, 3, 276, 28}},    {1008, {3, 36, 245, 26}},   {1012, {251, 36, 29, 26}},  {1011, {3, 67, 276, 16}},
      {1038, {3, 88, 276, 128}},  {1013, {3, 88, 33, 28}},    {1014, {3, 122, 33, 28}},   {1015, {3, 156, 33, 28}},
      {1016, {3, 190, 33, 28}},   {1017, {89, 88, 33, 28}},   {1018, {128, 88, 33, 28}},  {1019, {167, 88, 33, 28}},
      {1020, {206, 88, 33, 28}},  {1021, {246, 88, 33, 28}},  {1022, {89, 122, 33, 28}},  {1023, {128, 122, 33, 28}},
      {1024, {167, 122, 33, 28}}, {1025, {206, 122, 33, 28}}, {1026, {246, 122, 33, 28}}, {1027, {89, 156, 33, 28}},
      {1028, {128, 156, 33, 28}}, {1029, {167, 156, 33, 28}}, {1030, {206, 156, 33, 28}}, {1031, {246, 156, 33, 28}},
      {1032, {89, 190, 33, 28}},  {1033, {128, 190, 33, 28}}, {1034, {167, 190, 33, 28}}, {1035, {206, 190, 33, 28}},
      {1036, {246, 190, 33, 28}},
  };
  for (const PixelRow& row : rows) EXPECT_EQ(Control(row.id)->geometry(), row.place) << row.id;
  EXPECT_EQ(tool->geometry(), QRect(0, 0, 282, 221)) << "the lowest key's left margin is repeated below it";
}

TEST_F(CalcWindowTest, EndsAboveItsKeysWhenCompact) {
  Menu(calc_id::kMenuCompact);
  EXPECT_EQ(tool->size(), QSize(282, 87));
  Menu(calc_id::kMenuCompact);
  EXPECT_EQ(tool->size(), QSize(282, 221));
}

TEST_F(CalcWindowTest, KnowsEachControlByItsKind) {
  EXPECT_EQ(ControlKind(Control(1008)), "edit");
  EXPECT_EQ(ControlKind(Control(1010)), "static");
  EXPECT_EQ(ControlKind(Control(1011)), "static");
  EXPECT_EQ(ControlKind(Control(1038)), "list");
  for (int id = 1012; id <= 1037; ++id) EXPECT_EQ(ControlKind(Control(id)), "button") << id;
}

TEST_F(CalcWindowTest, ATouchedKeyWritesAndLeavesTheCaretInTheLine) {
  Touch(1017);
  Touch(1035);
  Touch(1028);
  EXPECT_EQ(LineText(), "7+2");
  EXPECT_EQ(Focus(), Line());
  EXPECT_EQ(Status(), "Result : 9");
  Touch(1036);
  EXPECT_EQ(Result(), "9");
  EXPECT_EQ(LineText(), "");
  EXPECT_EQ(Focus(), Line());
}

TEST_F(CalcWindowTest, QuickTouchesAllCount) {
  QWidget* seven = Control(1017);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick,
                          QEvent::MouseButtonRelease}) {
    PressMouse(seven, seven->rect().center(), type);
  }
  EXPECT_EQ(LineText(), "77") << "the second press of a double press is a press";
}

TEST_F(CalcWindowTest, NoKeyOfTheKeypadTakesTheFocus) {
  for (int id = 1012; id <= 1037; ++id) {
    EXPECT_EQ(Control(id)->focusPolicy(), Qt::NoFocus) << id;
    EXPECT_EQ(Control(id)->focusProxy(), Line()) << id << ": or a press on it gives the focus to the host's widget";
  }
}

TEST_F(CalcWindowTest, APressOnTheResultChangesNothing) {
  Touch(calc_id::kResult);
  EXPECT_EQ(Focus(), Line());
}

TEST_F(CalcWindowTest, APressInTheLinePutsTheCaretThere) {
  Write("1234567890");
  PressMouse(Line(), QPoint(1, Line()->height() / 2));
  EXPECT_EQ(Line()->Selection(), (TextSelection{0, 0}));
}

TEST_F(CalcWindowTest, AnOperatorWrapsASelectionMarkedByHand) {
  Write("2+3*4");
  Line()->Select({0, 3});
  Touch(1021);
  EXPECT_EQ(LineText(), "Sqrt(2+3)*4");
  EXPECT_EQ(Line()->Selection(), (TextSelection{9, 9}));
}

TEST_F(CalcWindowTest, TypedOperatorsFollowTheRulesOfTheKeys) {
  Write("2+3*4");
  Line()->Select({0, 3});
  Type(Line(), "+");
  EXPECT_EQ(LineText(), "(2+3)+*4");
}

TEST_F(CalcWindowTest, ACharacterOfADeadKeyIsTypedToo) {
  Write("2");
  Line()->Select({0, 1});
  QInputMethodEvent committed;
  committed.setCommitString("^");
  committed.ignore();
  QApplication::sendEvent(Line(), &committed);
  EXPECT_EQ(LineText(), "(2)^");
  EXPECT_TRUE(committed.isAccepted());
}

TEST_F(CalcWindowTest, AWordOfAScreenKeyboardGoesToTheLine) {
  QInputMethodEvent committed;
  committed.setCommitString("SIN 30");
  QApplication::sendEvent(Line(), &committed);
  EXPECT_EQ(LineText(), "SIN 30");
}

TEST_F(CalcWindowTest, EnterConfirmsAndShowsTheValue) {
  Write("2+3*4");
  EXPECT_TRUE(Key(Qt::Key_Return));
  EXPECT_EQ(Result(), "14");
  EXPECT_EQ(List()->Item(0), u"2+3*4");
}

TEST_F(CalcWindowTest, TheEnterOfTheKeypadConfirmsToo) {
  Write("1+1");
  EXPECT_TRUE(Key(Qt::Key_Enter, Qt::KeypadModifier));
  EXPECT_EQ(Result(), "2");
}

TEST_F(CalcWindowTest, EscapeAsksTheHost) {
  TakeHostCalls();
  EXPECT_TRUE(Key(Qt::Key_Escape));
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolWantsClose(3)"));
}

TEST_F(CalcWindowTest, CtrlWithArrowsMovesItEightPixels) {
  Key(Qt::Key_Right, Qt::ControlModifier);
  Key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(tool->pos(), QPoint(8, 8));
  Key(Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(tool->pos(), QPoint(0, 8));
  Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(tool->pos(), QPoint(0, 0));
}

TEST_F(CalcWindowTest, MovesOnlyWhileEnoughOfItStaysVisible) {
  for (int i = 0; i < 200; ++i) Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_GE(area->width() - tool->x(), 24);
  EXPECT_LT(area->width() - tool->x(), 24 + 8);
}

struct OverrideRow {
  int key;
  Qt::KeyboardModifiers modifiers;
  bool taken;
};

TEST_F(CalcWindowTest, ItsKeysComeBeforeTheShortcutsOfThePanel) {
  const OverrideRow rows[] = {
      {Qt::Key_Return, Qt::ControlModifier, true}, {Qt::Key_Up, Qt::ControlModifier, true},
      {Qt::Key_B, Qt::ControlModifier, true},      {Qt::Key_R, Qt::ControlModifier, true},
      {Qt::Key_E, Qt::ControlModifier, true},      {Qt::Key_F4, Qt::AltModifier, true},
      {Qt::Key_Escape, Qt::NoModifier, true},      {Qt::Key_Insert, Qt::NoModifier, true},
      {Qt::Key_F9, Qt::NoModifier, false},         {Qt::Key_Escape, Qt::ShiftModifier, false},
      {Qt::Key_O, Qt::ControlModifier, false},     {Qt::Key_Left, Qt::AltModifier, false},
      {Qt::Key_Minus, Qt::ControlModifier, false},
  };
  for (const OverrideRow& row : rows) {
    QKeyEvent event(QEvent::ShortcutOverride, row.key, row.modifiers);
    event.ignore();
    QApplication::sendEvent(Line(), &event);
    EXPECT_EQ(event.isAccepted(), row.taken) << row.key << " " << row.modifiers;
  }
}

TEST_F(CalcWindowTest, TabStaysInside) {
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), Line());
  Touch(calc_id::kOpenList);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), Line());
  Key(Qt::Key_Tab);
  EXPECT_EQ(Focus(), List());
}

TEST_F(CalcWindowTest, AWindowThatTheHostHidesGivesTheKeyboardOn) {
  ASSERT_EQ(Focus(), Line());
  tool->hide();
  EXPECT_EQ(Focus(), other);
}

TEST_F(CalcWindowTest, AltF4ClosesTheWholePanel) {
  EXPECT_TRUE(Key(Qt::Key_F4, Qt::AltModifier));
  EXPECT_TRUE(panel.isVisible()) << "the key is over first";
  Settle();
  EXPECT_FALSE(panel.isVisible());
}

TEST_F(CalcWindowTest, AValueFromOutsideComesByItsMessage) {
  cnc.Set(u"E.CALCRESUL", 2.5);
  Send(RegisterMessage("TM_HANDLEVALUE"), 0);
  EXPECT_EQ(LineText(), "2.5");
}

TEST_F(CalcWindowTest, UnknownMessagesAnswerNothing) {
  EXPECT_EQ(Send(0x801, 1, 2), 0);
  EXPECT_EQ(Send(PNL_MSG_TOOL_COMMAND, 999), 0);
  EXPECT_TRUE(tool->isVisible());
}

TEST_F(CalcWindowTest, TheLineTakesLongerTextsThanMayBeTyped) {
  const QString text(300, '1');
  Line()->SetText(text);
  EXPECT_EQ(Line()->text().size(), 300);
  Key(Qt::Key_End);
  Type(Line(), "2");
  EXPECT_EQ(Line()->text().size(), 300) << "typing doesn't make it longer still";
}

// The keys of operators went beyond the limit, and each one laid the whole line out anew.
TEST_F(CalcWindowTest, AHeldOperatorKeyStopsAtTheLimitAndLeavesTheLineAlone) {
  Type(Line(), QString(300, '+'));
  EXPECT_EQ(LineText(), std::string(255, '+'));
  const QMetaObject::Connection changed =
      QObject::connect(Line(), &QLineEdit::textChanged, [] { ADD_FAILURE() << "the line is written again"; });
  Type(Line(), QString(1000, '+'));
  for (int i = 0; i < 100; ++i) Touch(1035);
  QObject::disconnect(changed);
  EXPECT_EQ(LineText(), std::string(255, '+'));
}

TEST_F(CalcWindowTest, HidingItGivesTheFocusAway) {
  Command(6);
  EXPECT_FALSE(Focus() != nullptr && area->isAncestorOf(Focus()));
}

TEST_F(CalcWindowTest, SettingsAndHistoryLieOnTheDiscWhenItIsClosed) {
  Write("1+1");
  Key(Qt::Key_Return);
  Key(Qt::Key_Right, Qt::ControlModifier);
  TakeHostCalls();
  EXPECT_EQ(Command(20), 2);
  EXPECT_EQ(OnDisc("C:\\P1\\calc.htr"), "1+1\r\n") << "before the host goes on";
  EXPECT_THAT(OnDisc("C:\\P52\\Calc7340.ini"), ::testing::HasSubstr("8,0"));
  EXPECT_FALSE(windows.IsAlive(handle)) << "nothing reaches it any more";
  Settle();
  EXPECT_TRUE(tool.isNull());
  EXPECT_THAT(TakeHostCalls(), ElementsAre("HostToolClosed(3,2)"));
}

}  // namespace
}  // namespace pnl::test
