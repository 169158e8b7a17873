// SPDX-License-Identifier: MIT
// What the hands of the remote control do to controls, and how the panel comes to rest behind them.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShortcut>
#include <QTreeWidget>

#include "panel/qt/remote_window_fixture.h"

namespace panel {
namespace {

TEST_F(RemoteWindow, AKeyReachesTheFocusedControlThroughItsFilters) {
  struct Filter : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) seen.append(event->type());
      return false;
    }
    QList<QEvent::Type> seen;
  } filter;
  Show();
  edit->setFocus();
  edit->installEventFilter(&filter);
  Key("A");
  Key("b");
  EXPECT_EQ(edit->text(), "Ab");
  EXPECT_EQ(filter.seen.size(), 4);
  Key("Backspace");
  Key("Home");
  Key("Delete");
  EXPECT_EQ(edit->text(), "");
  edit->removeEventFilter(&filter);
}

TEST_F(RemoteWindow, TabMovesTheFocusAndArrowsMoveTheSelection) {
  Show();
  edit->setFocus();
  Key("Tab");
  EXPECT_TRUE(list->hasFocus());
  list->setCurrentRow(0);
  Key("Down");
  EXPECT_EQ(list->currentRow(), 1);
  Key("Tab", Qt::ShiftModifier);
  EXPECT_TRUE(edit->hasFocus());
}

TEST_F(RemoteWindow, CtrlWithALetterIsAShortcutAndTypesNothing) {
  Show();
  edit->setText("abc");
  edit->setFocus();
  Key("a", Qt::ControlModifier);
  EXPECT_EQ(edit->selectedText(), "abc");
}

TEST_F(RemoteWindow, AHotKeyOfTheWindowGoesBeforeTheFocusedControl) {
  Show();
  QShortcut hotKey(QKeySequence("Alt+W"), tool);
  int fired = 0;
  QObject::connect(&hotKey, &QShortcut::activated, [&fired] { ++fired; });
  edit->setFocus();
  Key("w", Qt::AltModifier);
  EXPECT_EQ(fired, 1);
  EXPECT_EQ(edit->text(), "");
}

TEST_F(RemoteWindow, AKeyThatEndsTheWindowIsSurvived) {
  struct Ender : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() != QEvent::KeyPress) return false;
      watched->deleteLater();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      return true;
    }
  } ender;
  Show();
  auto* doomed = Make<QLineEdit>(tool, 1, {0, 0, 5, 5});
  doomed->show();
  doomed->setFocus();
  doomed->installEventFilter(&ender);
  Key("Enter");
  Settle();
  EXPECT_EQ(WindowInspector::Control(tool, 1), nullptr);
}

struct KeyRow {
  const char* name;
  Qt::KeyboardModifiers modifiers;
  int key;
  const char* text;
};

class KeyNames : public ::testing::TestWithParam<KeyRow> {};

TEST_P(KeyNames, GiveKeyAndText) {
  const auto stroke = KeyByName(GetParam().name, GetParam().modifiers);
  ASSERT_TRUE(stroke.has_value());
  EXPECT_EQ(stroke->key, GetParam().key);
  EXPECT_EQ(stroke->text, GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    All, KeyNames,
    ::testing::Values(KeyRow{"Enter", {}, Qt::Key_Return, "\r"},
                      KeyRow{"Enter", Qt::KeypadModifier, Qt::Key_Enter, "\r"},
                      KeyRow{"Escape", {}, Qt::Key_Escape, "\x1b"}, KeyRow{"PageUp", {}, Qt::Key_PageUp, ""},
                      KeyRow{"Space", {}, Qt::Key_Space, " "}, KeyRow{"F1", {}, Qt::Key_F1, ""},
                      KeyRow{"F12", {}, Qt::Key_F12, ""}, KeyRow{"F", {}, Qt::Key_F, "F"},
                      KeyRow{"x", {}, Qt::Key_X, "x"}, KeyRow{"+", Qt::KeypadModifier, Qt::Key_Plus, "+"},
                      KeyRow{"x", Qt::ControlModifier, Qt::Key_X, "\x18"}, KeyRow{"ñ", {}, Qt::Key_Ntilde, "ñ"},
                      KeyRow{"\xF0\x9F\x98\x80", {}, 0x1F600, "\xF0\x9F\x98\x80"}));

TEST(KeyNames, OthersAreNoKeys) {
  for (const char* name : {"", "F0", "F36", "F01", "Return", "xy", "enter"}) {
    EXPECT_FALSE(KeyByName(name, {}).has_value()) << name;
  }
  EXPECT_FALSE(ModifiersByName({"Ctrl", "Meta"}).has_value());
}

TEST_F(RemoteWindow, TypingOverTellsTheEditAndIgnoresItsLimit) {
  QStringList edited;
  QObject::connect(edit, &QLineEdit::textEdited, edit, [&edited](const QString& text) { edited.append(text); });
  edit->setMaxLength(3);
  ASSERT_TRUE(TypeOver(edit, "12345"));
  EXPECT_EQ(edit->text(), "12345");
  EXPECT_EQ(edited, QStringList{"12345"});
  EXPECT_EQ(Control(edit)["limit"], 3);
  edit->setText("1");
  EXPECT_EQ(edit->maxLength(), 3);
  edit->setText("12345");
  EXPECT_EQ(edit->text(), "123");
}

TEST_F(RemoteWindow, AnInputMaskOrAListHoldsNoTextToType) { EXPECT_FALSE(TypeOver(list, "x")); }

TEST_F(RemoteWindow, MarkingSelectsAndEqualEndsPlaceTheCaret) {
  edit->setText("abcdef");
  ASSERT_TRUE(MarkText(edit, 1, 4));
  EXPECT_EQ(edit->selectedText(), "bcd");
  EXPECT_EQ(edit->cursorPosition(), 4);
  ASSERT_TRUE(MarkText(edit, 4, 1));
  EXPECT_EQ(edit->selectedText(), "bcd");
  EXPECT_EQ(edit->cursorPosition(), 1);
  ASSERT_TRUE(MarkText(edit, 2, 2));
  EXPECT_EQ(edit->cursorPosition(), 2);
  EXPECT_FALSE(edit->hasSelectedText());
  ASSERT_TRUE(MarkText(edit, 0, 1000));
  EXPECT_EQ(edit->selectedText(), "abcdef");
  EXPECT_FALSE(MarkText(list, 0, 0));
}

TEST_F(RemoteWindow, APlainTextEditIsTypedAndMarkedToo) {
  auto* text = Make<QPlainTextEdit>(tool, 11, {0, 0, 50, 50});
  ASSERT_TRUE(TypeOver(text, "ab\ncd"));
  ASSERT_TRUE(MarkText(text, 1, 4));
  const QJsonObject told = Control(text);
  EXPECT_EQ(told["text"], "ab\ncd");
  EXPECT_EQ(told["selection"], QJsonValue(QJsonArray({1, 4})));
}

TEST_F(RemoteWindow, PickingTellsTheListAndNoneTakesTheChoiceAway) {
  QList<int> rows;
  QObject::connect(list, &QListWidget::currentRowChanged, list, [&rows](int row) { rows.append(row); });
  PickItems(list, {2});
  EXPECT_EQ(Control(list)["selected"], QJsonValue(QJsonArray{2}));
  PickItems(list, {});
  EXPECT_EQ(Control(list)["selected"], QJsonValue(QJsonArray()));
  EXPECT_EQ(rows, QList<int>({2, -1}));
}

TEST_F(RemoteWindow, SeveralArePickedWithTheFirstAsAnchor) {
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  PickItems(list, {2, 0});
  EXPECT_EQ(Control(list)["selected"], QJsonValue(QJsonArray({0, 2})));
  EXPECT_EQ(list->currentRow(), 2);
}

TEST_F(RemoteWindow, PickingInAComboBoxIsAChoiceEvenOfTheSameItem) {
  auto* combo = Make<QComboBox>(tool, 8, {0, 0, 50, 20});
  combo->addItems({"a", "b"});
  QList<int> chosen;
  QObject::connect(combo, &QComboBox::activated, combo, [&chosen](int index) { chosen.append(index); });
  PickItems(combo, {1});
  PickItems(combo, {1});
  EXPECT_EQ(chosen, QList<int>({1, 1}));
}

TEST_F(RemoteWindow, AClickGivesTheFocusAndChoosesTheItem) {
  Show();
  edit->setFocus();
  ASSERT_TRUE(Press(list, {2, 0}, false));
  EXPECT_TRUE(list->hasFocus());
  EXPECT_EQ(list->currentRow(), 2);
  EXPECT_FALSE(Press(list, {3, 0}, false));
  EXPECT_FALSE(Press(edit, {0, 0}, false));
}

TEST_F(RemoteWindow, APressInADialogGivesTheFocusToNothingBehindIt) {
  panel.setFocusPolicy(Qt::ClickFocus);
  QDialog dialog(&panel);
  auto* label = Make<QLabel>(&dialog, 1, {0, 0, 50, 20});
  dialog.setFocusPolicy(Qt::NoFocus);
  Show();
  edit->setFocus();
  dialog.show();
  Settle();
  ASSERT_TRUE(Press(label, {}, true));
  EXPECT_NE(panel.focusWidget(), &panel);
}

TEST_F(RemoteWindow, AControlThatEndsAsItGetsTheFocusIsPressedNoMore) {
  struct Ender : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::FocusIn) watched->deleteLater();
      return false;
    }
  } ender;
  Show();
  auto* doomed = Make<QLineEdit>(tool, 1, {0, 0, 5, 5});
  doomed->show();
  QWidget other;
  other.show();
  other.activateWindow();
  Settle();
  doomed->setFocus();
  doomed->installEventFilter(&ender);
  const QPointer<QWidget> alive(doomed);
  EXPECT_TRUE(Press(doomed, {}, true));
  EXPECT_TRUE(alive.isNull()) << "its window came to the front, and it had the focus there";
}

TEST_F(RemoteWindow, ADoubleClickIncludesItsFirstClick) {
  Show();
  QStringList heard;
  QObject::connect(list, &QListWidget::itemClicked, list, [&heard](auto* item) { heard.append("1 " + item->text()); });
  QObject::connect(list, &QListWidget::itemDoubleClicked, list,
                   [&heard](auto* item) { heard.append("2 " + item->text()); });
  ASSERT_TRUE(Press(list, {1, 0}, true));
  ASSERT_GE(heard.size(), 2);
  EXPECT_EQ(heard[0], "1 G1 Y2");
  EXPECT_EQ(heard[1], "2 G1 Y2");
}

TEST_F(RemoteWindow, AClickOnAHeaderIsOneOnThatColumn) {
  auto* report = Make<QTreeWidget>(tool, 7, {0, 0, 180, 80});
  report->setRootIsDecorated(false);
  report->setColumnCount(2);
  report->setSortingEnabled(true);
  report->header()->setSortIndicator(0, Qt::AscendingOrder);
  Show();
  ASSERT_TRUE(Press(report, {PressPlace::kHeader, 1}, false));
  EXPECT_EQ(report->header()->sortIndicatorSection(), 1);
  EXPECT_FALSE(Press(report, {PressPlace::kHeader, 2}, false));
  EXPECT_FALSE(Press(list, {PressPlace::kHeader, 0}, false));
}

TEST_F(RemoteWindow, APressOnAControlThatLetsItThroughIsOneOnTheWindow) {
  struct Pressed : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::MouseButtonPress) place = static_cast<QMouseEvent*>(event)->position().toPoint();
      return false;
    }
    QPoint place;
  } pressed;
  auto* sign = Make<QLabel>(tool, 3003, {150, 10, 30, 30});
  sign->setAttribute(Qt::WA_TransparentForMouseEvents);
  Show();
  tool->installEventFilter(&pressed);
  ASSERT_TRUE(Press(sign, {}, false));
  EXPECT_EQ(pressed.place, QPoint(164, 24));
  tool->removeEventFilter(&pressed);
}

TEST(Settling, HandlesWhatIsPostedWhileItSettles) {
  struct Poster : QObject {
    bool event(QEvent* event) override {
      if (event->type() != QEvent::User) return QObject::event(event);
      if (--left > 0) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
      return true;
    }
    int left = 50;
  } poster;
  QCoreApplication::postEvent(&poster, new QEvent(QEvent::User));
  EXPECT_TRUE(Settle());
  EXPECT_EQ(poster.left, 0);
  poster.left = 1 << 30;
  QCoreApplication::postEvent(&poster, new QEvent(QEvent::User));
  EXPECT_FALSE(Settle());
  poster.left = 0;
  EXPECT_TRUE(Settle());
}

TEST(Settling, DoesNotWaitForWorkInSlicesButForWhatItPosts) {
  struct Worker : QObject {
    void timerEvent(QTimerEvent*) override {
      ++slices;
      if (slices == 2) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    }
    bool event(QEvent* event) override {
      if (event->type() == QEvent::User) told = true;
      return QObject::event(event);
    }
    int slices = 0;
    bool told = false;
  } worker;
  worker.startTimer(0);
  for (int round = 0; round < 4; ++round) EXPECT_TRUE(Settle()) << "the work never ends";
  EXPECT_GE(worker.slices, 2);
  EXPECT_TRUE(worker.told);
}

TEST(Settling, FreesWhatWasToBeDeletedLater) {
  QPointer<QObject> object = new QObject;
  object->deleteLater();
  Settle();
  EXPECT_TRUE(object.isNull());
}

}  // namespace
}  // namespace panel
