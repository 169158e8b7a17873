// SPDX-License-Identifier: MIT
// What the touch keyboard remembers about touched fields, its own key and interruptions, and which signals it sends.
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTableWidget>
#include <QTextEdit>

#include "panel/qt/touch_desk_fixture.h"

namespace panel {
namespace {

TEST_F(TouchDeskTest, ATouchScreensOwnTouchRaisesItUntilSomethingElseThanAFieldHasTheFocus) {
  Touch(first);
  EXPECT_TRUE(desk.IsUp()) << "nobody has switched it on";
  Focus(second);
  EXPECT_TRUE(desk.IsUp()) << "from field to field";
  Focus(button);
  EXPECT_FALSE(desk.IsUp());
  Focus(first);
  EXPECT_FALSE(desk.IsUp()) << "and now a field must be touched again";
}

TEST_F(TouchDeskTest, AFieldThatWasTouchedKeepsItWhenTheScreenIsNoMoreATouchedOne) {
  desk.SetTouched(true);
  Finger(first);
  desk.SetTouched(false);
  Settle();
  EXPECT_TRUE(desk.IsUp());
  desk.PutAway();
  Focus(second);
  EXPECT_FALSE(desk.IsUp()) << "it was put away, so the touch counts no more";
}

TEST_F(TouchDeskTest, OnlyATouchOnTheFieldItselfBringsItBack) {
  desk.SetTouched(true);
  button->setFocusPolicy(Qt::NoFocus);
  auto* text = Make<QPlainTextEdit>(100);
  text->show();
  Focus(text);
  ASSERT_TRUE(desk.IsUp());
  desk.PutAway();
  Finger(button);
  EXPECT_EQ(QApplication::focusWidget(), text);
  EXPECT_FALSE(desk.IsUp());
  QMouseEvent sent(QEvent::MouseButtonPress, QPointF(5, 5), text->viewport()->mapToGlobal(QPointF(5, 5)),
                   Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(text->viewport(), &sent);
  Settle();
  EXPECT_FALSE(desk.IsUp()) << "the panel's own event is no finger";
  Finger(text->viewport());
  EXPECT_TRUE(desk.IsUp()) << "a part of the field is the field";
}

TEST_F(TouchDeskTest, TheSecondOfTwoQuickTouchesCountsToo) {
  desk.SetTouched(true);
  Finger(first);
  desk.PutAway();
  Finger(first, 50);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, SwitchedOnItRisesForEveryFieldUntilItsKeySwitchesItOff) {
  std::vector<bool> said;
  QObject::connect(&desk, &TouchDesk::Switched, [&said](bool on) { said.push_back(on); });
  Focus(first);
  ASSERT_FALSE(desk.IsUp());
  desk.SwitchOn();
  EXPECT_FALSE(desk.IsUp()) << "not at once: a tool may still be placing its fields";
  Settle();
  EXPECT_TRUE(desk.IsUp());
  Focus(button);
  EXPECT_FALSE(desk.IsUp());
  Focus(second);
  EXPECT_TRUE(desk.IsUp());
  EXPECT_TRUE(said.empty()) << "its key was not pressed";
  desk.Toggle();
  EXPECT_EQ(said, std::vector<bool>{false});
  Focus(first);
  EXPECT_FALSE(desk.IsUp());
  desk.Toggle();
  EXPECT_EQ(said, (std::vector<bool>{false, true}));
}

TEST_F(TouchDeskTest, ItsKeyOnATouchedScreenNeverSaysThatFieldsRaiseItNoMore) {
  std::vector<bool> said;
  QObject::connect(&desk, &TouchDesk::Switched, [&said](bool on) { said.push_back(on); });
  desk.SetTouched(true);
  Focus(first);
  desk.Toggle();
  ASSERT_FALSE(desk.IsUp());
  EXPECT_EQ(said, std::vector<bool>{true});
}

TEST_F(TouchDeskTest, ItsKeyEndsThatSomebodyTypesOnARealKeyboard) {
  desk.SetTouched(true);
  Focus(first);
  RealKey(Qt::Key_X);
  desk.Toggle();
  ASSERT_TRUE(desk.IsUp());
  desk.PutAway();
  Focus(second);
  EXPECT_TRUE(desk.IsUp()) << "every field raises it again";
}

TEST_F(TouchDeskTest, AnInterruptionChangesNothingOfWhatWasBefore) {
  desk.SetTouched(true);
  Focus(first);
  desk.PutAway();
  desk.SetInterrupted(true);
  Focus(button);
  Focus(first);
  desk.SetInterrupted(false);
  EXPECT_FALSE(desk.IsUp()) << "it was away";
  Finger(first);
  desk.SetTouched(false);
  Settle();
  ASSERT_TRUE(desk.IsUp());
  desk.SetInterrupted(true);
  Focus(button);
  Focus(first);
  desk.SetInterrupted(false);
  EXPECT_TRUE(desk.IsUp()) << "and now it was up";
}

TEST_F(TouchDeskTest, AKeyThatAnswersWhatInterruptedDoesNotPutAwayWhatItsKeyRaised) {
  desk.Toggle();
  desk.SetInterrupted(true);
  RealKey(Qt::Key_Return);
  desk.SetInterrupted(false);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, AFieldOfAnotherWindowRaisesNothingAndTheOldOneGoesOnAfterwards) {
  desk.SetTouched(true);
  Focus(first);
  ASSERT_TRUE(desk.IsUp());
  {
    QWidget box;
    QLineEdit field(&box);
    box.show();
    box.activateWindow();
    field.setFocus();
    Settle();
    ASSERT_EQ(QApplication::focusWidget(), &field);
    EXPECT_FALSE(desk.IsUp());
  }
  panel.activateWindow();
  Settle();
  ASSERT_EQ(QApplication::focusWidget(), first);
  EXPECT_TRUE(desk.IsUp());
}

TEST_F(TouchDeskTest, PartsOfAListThatAToolHasOpenedKeepItToo) {
  desk.SetTouched(true);
  auto* dialog = Make<QWidget>(100);
  dialog->setProperty("pnlDialog", true);
  auto* list = new QListWidget(dialog);
  list->addItem("G0 X1");
  dialog->show();
  Focus(first);
  Focus(list);
  EXPECT_TRUE(desk.IsUp());
  Focus(button);
  Focus(list);
  EXPECT_FALSE(desk.IsUp()) << "it stays for such a list and never rises for one";
}

TEST_F(TouchDeskTest, ItTellsOnceOfSeveralChangesAndOnlyWhileItIsUp) {
  desk.ReviewSoon();
  Settle();
  EXPECT_EQ(changes, 0) << "it is away and stays away";
  desk.SetTouched(true);
  Focus(first);
  changes = 0;
  desk.ReviewSoon();
  desk.ReviewSoon();
  EXPECT_EQ(changes, 0);
  Settle();
  EXPECT_EQ(changes, 1);
}

TEST_F(TouchDeskTest, ItTellsWhenWhatIsSeenMoves) {
  auto* frame = Make<QWidget>(100);
  auto* inner = new QLineEdit(frame);
  frame->show();
  const auto told = [this](const std::function<void()>& change) {
    changes = 0;
    change();
    Settle();
    return changes;
  };
  Focus(inner);
  EXPECT_EQ(told([&] { frame->move(0, 110); }), 0) << "it isn't up";
  desk.SetTouched(true);
  Settle();
  ASSERT_TRUE(desk.IsUp());
  EXPECT_EQ(told([&] { inner->move(5, 5); }), 1);
  EXPECT_EQ(told([&] { inner->resize(50, 20); }), 1);
  EXPECT_EQ(told([&] { frame->move(0, 120); }), 1) << "what it is in";
  EXPECT_EQ(told([&] { second->move(0, 200); }), 0) << "another field";
  EXPECT_EQ(told([&] { panel.resize(420, 320); }), 0) << "its owner knows of the window itself";
}

TEST_F(TouchDeskTest, TextIsTakenByWhatCanBeTypedIntoNow) {
  QLineEdit line;
  QPlainTextEdit plain;
  QTextEdit rich;
  QComboBox combo;
  EXPECT_FALSE(TouchDesk::TakesText(combo));
  combo.setEditable(true);
  EXPECT_FALSE(TouchDesk::TakesText(*button));
  for (QWidget* field : std::initializer_list<QWidget*>{&line, &plain, &rich, &combo}) {
    const char* name = field->metaObject()->className();
    EXPECT_TRUE(TouchDesk::TakesText(*field)) << name;
    field->setEnabled(false);
    EXPECT_FALSE(TouchDesk::TakesText(*field)) << name;
    field->setEnabled(true);
    if (field == &combo) continue;
    field->setProperty("readOnly", true);
    EXPECT_FALSE(TouchDesk::TakesText(*field)) << name;
  }
  QTableWidget table(1, 1);
  table.setItem(0, 0, new QTableWidgetItem(QStringLiteral("1")));
  EXPECT_FALSE(TouchDesk::TakesText(table)) << "no current cell";
  table.setCurrentCell(0, 0);
  EXPECT_TRUE(TouchDesk::TakesText(table));
  table.item(0, 0)->setFlags(Qt::ItemIsEditable | Qt::ItemIsSelectable);
  EXPECT_FALSE(TouchDesk::TakesText(table)) << "a cell that is disabled";
  table.item(0, 0)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
  EXPECT_FALSE(TouchDesk::TakesText(table)) << "a cell that only shows something";
}

TEST_F(TouchDeskTest, OfATableTheCellIsSeenAndOfAListTheItemOrAllOfIt) {
  auto* table = Make<QTableWidget>(100);
  table->resize(200, 150);
  table->setRowCount(100);
  table->setColumnCount(1);
  table->setCurrentCell(0, 0);
  table->show();
  Focus(table);
  const auto placeOf = [this](const QAbstractItemView& view) {
    return view.visualRect(view.currentIndex()).translated(view.viewport()->mapTo(&panel, QPoint(0, 0)));
  };
  EXPECT_EQ(TouchDesk::Seen(panel, 1000), placeOf(*table)) << "however much room there is";
  EXPECT_EQ(TouchDesk::Seen(*table, 1000).size(), placeOf(*table).size()) << "the field itself may be the area";
  table->scrollToBottom();
  EXPECT_EQ(TouchDesk::Seen(panel, 10), table->geometry()) << "a cell out of sight has no place";
  auto* list = Make<QListWidget>(100);
  list->resize(200, 150);
  list->show();
  Focus(list);
  EXPECT_EQ(TouchDesk::Seen(panel, 150), list->geometry());
  EXPECT_TRUE(TouchDesk::Seen(panel, 149).isEmpty()) << "no item";
  list->addItem("G0 X1");
  list->setCurrentRow(0);
  const QRect item = TouchDesk::Seen(panel, 149);
  EXPECT_EQ(item.size(), list->visualRect(list->currentIndex()).size());
  EXPECT_TRUE(list->geometry().contains(item));
}

}  // namespace
}  // namespace panel
