// SPDX-License-Identifier: MIT
// When the touch keyboard is up: for which fields, after which touches and keys, and when it goes.
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableWidget>

#include "panel/qt/touch_desk_fixture.h"

namespace panel {
namespace {

TEST_F(TouchDeskTest, WithoutATouchScreenNothingRaisesItButItsKey) {
  Focus(first);
  Finger(second);
  EXPECT_FALSE(desk.IsUp()) << "a mouse beside a real keyboard";
  EXPECT_EQ(changes, 0);
  desk.Toggle();
  EXPECT_TRUE(desk.IsUp());
  EXPECT_EQ(changes, 1);
  desk.Toggle();
  EXPECT_FALSE(desk.IsUp());
  Focus(first);
  EXPECT_FALSE(desk.IsUp());
}

TEST_F(TouchDeskTest, OnATouchedScreenEveryFieldThatGetsTheKeyboardRaisesIt) {
  desk.SetTouched(true);
  Settle();
  EXPECT_FALSE(desk.IsUp()) << "a button takes no text";
  Focus(first);
  EXPECT_TRUE(desk.IsUp());
  Focus(second);
  EXPECT_TRUE(desk.IsUp());
  Focus(button);
  EXPECT_FALSE(desk.IsUp());
  desk.SetTouched(false);
  Focus(first);
  EXPECT_FALSE(desk.IsUp());
}

TEST_F(TouchDeskTest, MovingFromFieldToFieldItNeverGoesInBetween) {
  desk.SetTouched(true);
  Focus(first);
  std::vector<bool> seen;
  QObject::connect(&desk, &TouchDesk::Changed, [&] { seen.push_back(desk.IsUp()); });
  first->clearFocus();
  Focus(second);
  for (const bool up : seen) EXPECT_TRUE(up);
  EXPECT_FALSE(seen.empty()) << "the other field has to be seen now";
}

TEST_F(TouchDeskTest, AFieldThatCannotBeTypedIntoRaisesNothing) {
  desk.SetTouched(true);
  first->setReadOnly(true);
  Focus(first);
  EXPECT_FALSE(desk.IsUp());
  first->setReadOnly(false);
  Settle();
  EXPECT_TRUE(desk.IsUp()) << "now it can";
  first->setReadOnly(true);
  Settle();
  EXPECT_FALSE(desk.IsUp());
  second->setEnabled(false);
  Finger(second);
  EXPECT_FALSE(desk.IsUp());
  EXPECT_FALSE(TouchDesk::TakesText(*second));
}

TEST_F(TouchDeskTest, PutAwayItStaysAwayUntilAnotherFieldOrAnotherTouch) {
  desk.SetTouched(true);
  Focus(first);
  desk.PutAway();
  EXPECT_FALSE(desk.IsUp());
  desk.ReviewSoon();
  Settle();
  EXPECT_FALSE(desk.IsUp());
  Finger(first);
  EXPECT_TRUE(desk.IsUp()) << "the same field, touched again";
  desk.PutAway();
  Focus(second);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, ARealKeyboardBeingTypedOnPutsItAwayUntilATouch) {
  desk.SetTouched(true);
  Focus(first);
  RealKey(Qt::Key_X);
  EXPECT_FALSE(desk.IsUp());
  EXPECT_EQ(first->text(), "x") << "the key itself is typed";
  Focus(second);
  EXPECT_FALSE(desk.IsUp()) << "whoever types goes on typing";
  Finger(first);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, KeysOfThePanelItselfAreNoKeyboard) {
  desk.SetTouched(true);
  Focus(first);
  QKeyEvent sent(QEvent::KeyPress, Qt::Key_X, {}, QStringLiteral("x"));
  QCoreApplication::sendEvent(first, &sent);
  Settle();
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, ItsKeyRaisesItWhateverHasTheFocus) {
  desk.Toggle();
  EXPECT_TRUE(desk.IsUp());
  Focus(first);
  Focus(button);
  EXPECT_TRUE(desk.IsUp()) << "until it is put away";
  desk.PutAway();
  EXPECT_FALSE(desk.IsUp());
  Focus(first);
  EXPECT_TRUE(desk.IsUp()) << "it is still switched on";
  desk.Toggle();
  EXPECT_FALSE(desk.IsUp());
  Focus(second);
  EXPECT_FALSE(desk.IsUp()) << "its key switched it off";
  desk.Toggle();
  RealKey(Qt::Key_X);
  EXPECT_FALSE(desk.IsUp());
}

TEST_F(TouchDeskTest, ItsKeyNeverForgetsThatTheScreenIsTouched) {
  desk.SetTouched(true);
  Focus(first);
  desk.Toggle();
  EXPECT_FALSE(desk.IsUp());
  Focus(second);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, AFieldThatIsDeletedTakesItAway) {
  desk.SetTouched(true);
  Focus(first);
  delete first;
  Settle();
  EXPECT_EQ(QApplication::focusWidget() == second, desk.IsUp()) << "unless another field has the focus now";
  Focus(button);
  EXPECT_FALSE(desk.IsUp());
}

TEST_F(TouchDeskTest, AListThatOpensUnderItsFieldKeepsIt) {
  desk.SetTouched(true);
  auto* list = Make<QListWidget>(100);
  list->addItem("G0 X1");
  list->show();
  Focus(first);
  Focus(list);
  EXPECT_FALSE(desk.IsUp()) << "a list takes no text";
  list->setProperty("pnlDialog", true);
  Focus(first);
  Focus(list);
  EXPECT_TRUE(desk.IsUp()) << "but one that a tool has opened is chosen from with the same keys";
  desk.PutAway();
  EXPECT_FALSE(desk.IsUp());
}

TEST_F(TouchDeskTest, WhatInterruptsSendsItAwayAndItComesBackAsItWas) {
  desk.Toggle();
  desk.SetInterrupted(true);
  EXPECT_FALSE(desk.IsUp());
  Focus(first);
  Focus(button);
  desk.SetInterrupted(false);
  EXPECT_TRUE(desk.IsUp()) << "raised by its key";
  desk.SetInterrupted(true);
  desk.Toggle();
  EXPECT_TRUE(desk.IsUp()) << "its key counts more";
  desk.Toggle();
  desk.SetTouched(true);
  Focus(first);
  desk.SetInterrupted(true);
  EXPECT_FALSE(desk.IsUp());
  Finger(second);
  EXPECT_TRUE(desk.IsUp()) << "so does a touch on a field";
}

TEST_F(TouchDeskTest, OtherFieldsAreFieldsToo) {
  desk.SetTouched(true);
  auto* text = Make<QPlainTextEdit>(100);
  auto* plainCombo = Make<QComboBox>(130);
  auto* combo = Make<QComboBox>(160);
  combo->setEditable(true);
  for (QWidget* widget : std::initializer_list<QWidget*>{text, plainCombo, combo}) widget->show();
  Focus(text);
  EXPECT_TRUE(desk.IsUp());
  Focus(plainCombo);
  EXPECT_FALSE(desk.IsUp());
  Focus(combo);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, ACellThatCanBeTypedOverIsAField) {
  desk.SetTouched(true);
  auto* table = Make<QTableWidget>(100);
  table->setRowCount(1);
  table->setColumnCount(2);
  for (int column = 0; column < 2; ++column) table->setItem(0, column, new QTableWidgetItem(QStringLiteral("1")));
  table->item(0, 1)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  table->show();
  const auto upAt = [&](int column) {
    Focus(button);
    table->setCurrentCell(0, column);
    Focus(table);
    return desk.IsUp();
  };
  EXPECT_TRUE(upAt(0));
  EXPECT_FALSE(upAt(1));
  table->setEnabled(false);
  EXPECT_FALSE(upAt(0));
}

TEST_F(TouchDeskTest, WhatMustBeSeenIsTheFieldOrItsCaretOrItsCell) {
  Focus(second);
  EXPECT_EQ(TouchDesk::Seen(panel, 100), QRect(0, 30, 200, 28));
  auto* text = Make<QPlainTextEdit>(100);
  text->resize(200, 150);
  text->setPlainText("1\n2\n3\n4\n5");
  text->show();
  Focus(text);
  EXPECT_EQ(TouchDesk::Seen(panel, 150), text->geometry());
  text->moveCursor(QTextCursor::End);
  const QRect caret = TouchDesk::Seen(panel, 100);
  EXPECT_LT(caret.height(), 40);
  EXPECT_GT(caret.top(), 100);
  EXPECT_TRUE(text->geometry().contains(caret.center()));
  const QWidget elsewhere;
  EXPECT_TRUE(TouchDesk::Seen(elsewhere, 100).isEmpty());
}

}  // namespace
}  // namespace panel
