// SPDX-License-Identifier: MIT
// The keys and presses of the remote control on controls, and how the panel comes to rest after them.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QShortcut>
#include <QTableWidget>
#include <QTextEdit>
#include <QTimer>
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
    ::testing::Values(
        KeyRow{"Enter", {}, Qt::Key_Return, "\r"}, KeyRow{"Enter", Qt::KeypadModifier, Qt::Key_Enter, "\r"},
        KeyRow{"Escape", {}, Qt::Key_Escape, "\x1b"}, KeyRow{"PageUp", {}, Qt::Key_PageUp, ""},
        KeyRow{"PageDown", {}, Qt::Key_PageDown, ""}, KeyRow{"Tab", {}, Qt::Key_Tab, "\t"},
        KeyRow{"Tab", Qt::ShiftModifier, Qt::Key_Backtab, "\t"}, KeyRow{"Up", {}, Qt::Key_Up, ""},
        KeyRow{"Down", {}, Qt::Key_Down, ""}, KeyRow{"Left", {}, Qt::Key_Left, ""},
        KeyRow{"Right", {}, Qt::Key_Right, ""}, KeyRow{"Home", {}, Qt::Key_Home, ""},
        KeyRow{"End", {}, Qt::Key_End, ""}, KeyRow{"Insert", {}, Qt::Key_Insert, ""},
        KeyRow{"Delete", {}, Qt::Key_Delete, "\x7f"}, KeyRow{"Backspace", {}, Qt::Key_Backspace, "\b"},
        KeyRow{"F35", {}, Qt::Key_F35, ""}, KeyRow{"F10", {}, Qt::Key_F10, ""},
        KeyRow{"a", Qt::ControlModifier, Qt::Key_A, "\x01"}, KeyRow{"z", Qt::ControlModifier, Qt::Key_Z, "\x1a"},
        KeyRow{"[", Qt::ControlModifier, '[', ""}, KeyRow{"@", Qt::ControlModifier, '@', ""},
        KeyRow{"5", Qt::ControlModifier, '5', ""}, KeyRow{"5", Qt::AltModifier, '5', "5"}, KeyRow{"\n", {}, '\n', "\n"},
        KeyRow{"Space", {}, Qt::Key_Space, " "}, KeyRow{"F1", {}, Qt::Key_F1, ""}, KeyRow{"F12", {}, Qt::Key_F12, ""},
        KeyRow{"F", {}, Qt::Key_F, "F"}, KeyRow{"x", {}, Qt::Key_X, "x"},
        KeyRow{"+", Qt::KeypadModifier, Qt::Key_Plus, "+"}, KeyRow{"x", Qt::ControlModifier, Qt::Key_X, "\x18"},
        KeyRow{"ñ", {}, Qt::Key_Ntilde, "ñ"}, KeyRow{"\xF0\x9F\x98\x80", {}, 0x1F600, "\xF0\x9F\x98\x80"}));

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

TEST(KeyNames, CarryTheirModifiersAndACapitalItsShift) {
  EXPECT_EQ(KeyByName("Enter", Qt::AltModifier)->modifiers, Qt::AltModifier);
  EXPECT_EQ(KeyByName("F5", Qt::ControlModifier)->modifiers, Qt::ControlModifier);
  EXPECT_EQ(KeyByName("a", Qt::AltModifier)->modifiers, Qt::AltModifier);
  EXPECT_EQ(KeyByName("a", {})->modifiers, Qt::NoModifier);
  EXPECT_EQ(KeyByName("A", {})->modifiers, Qt::ShiftModifier);
  EXPECT_EQ(KeyByName("Ñ", Qt::AltModifier)->modifiers, Qt::ShiftModifier | Qt::AltModifier);
}

TEST(KeyNames, AModifierIsKnownByItsName) {
  const std::pair<const char*, Qt::KeyboardModifier> all[] = {{"Ctrl", Qt::ControlModifier},
                                                              {"Shift", Qt::ShiftModifier},
                                                              {"Alt", Qt::AltModifier},
                                                              {"Keypad", Qt::KeypadModifier}};
  for (const auto& [name, modifier] : all) EXPECT_EQ(ModifiersByName({name}), modifier) << name;
  EXPECT_EQ(ModifiersByName({}), Qt::NoModifier);
  EXPECT_EQ(ModifiersByName({"Alt", "Ctrl"}), Qt::AltModifier | Qt::ControlModifier);
  EXPECT_FALSE(ModifiersByName({"ctrl"}).has_value());
}

TEST(KeyNames, ACharacterOfATextIsTheKeyThatTypesIt) {
  const std::pair<const char*, int> all[] = {{"\n", Qt::Key_Return},    {"\r", Qt::Key_Return},   {"\t", Qt::Key_Tab},
                                             {"\b", Qt::Key_Backspace}, {"\x1b", Qt::Key_Escape}, {"x", Qt::Key_X},
                                             {" ", Qt::Key_Space}};
  for (const auto& [character, key] : all) EXPECT_EQ(KeyForCharacter(character).key, key) << key;
  EXPECT_EQ(KeyForCharacter("\n").text, "\r");
  EXPECT_EQ(KeyForCharacter("x").text, "x");
  EXPECT_EQ(KeyForCharacter("X").modifiers, Qt::ShiftModifier);
}

TEST_F(RemoteWindow, AKeyIsLetGoWhereTheFocusIsByThen) {
  struct Keys : QObject {
    bool eventFilter(QObject* watched, QEvent* event) override {
      if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
        const auto* key = static_cast<QKeyEvent*>(event);
        seen.append(QString("%1 %2 %3").arg(watched->property("pnlId").toInt()).arg(event->type()).arg(key->text()));
        if (event->type() == QEvent::KeyPress && next != nullptr) next->setFocus();
      }
      return false;
    }
    QWidget* next = nullptr;
    QStringList seen;
  } keys;
  Show();
  edit->setFocus();
  edit->installEventFilter(&keys);
  list->installEventFilter(&keys);
  keys.next = list;
  Key("x");
  EXPECT_EQ(keys.seen,
            QStringList({QString("5000 %1 x").arg(QEvent::KeyPress), QString("5001 %1 x").arg(QEvent::KeyRelease)}));
  edit->removeEventFilter(&keys);
  list->removeEventFilter(&keys);
}

TEST_F(RemoteWindow, AHotKeyOfTheWindowGoesBeforeThatOfAnotherTool) {
  Show();
  QStringList fired;
  const auto reserve = [&](QWidget* parent, const char* key, const QVariant& owner) {
    auto* hotKey = new QShortcut(QKeySequence(key), parent);
    hotKey->setProperty("pnlOwner", owner);
    QObject::connect(hotKey, &QShortcut::activated, [&fired, owner] { fired << owner.toString(); });
    return hotKey;
  };
  reserve(&panel, "Alt+W", 99999);
  QShortcut* own = reserve(&panel, "Alt+W", handle);
  reserve(&panel, "Alt+V", 99999);
  edit->setFocus();
  Key("w", Qt::AltModifier);
  EXPECT_EQ(fired, QStringList{QString::number(handle)});
  own->setEnabled(false);
  Key("w", Qt::AltModifier);
  EXPECT_EQ(fired.last(), "99999") << "one that is switched off leaves its key to the other";
  Key("v", Qt::AltModifier);
  EXPECT_EQ(fired.size(), 3);
  Key("w");
  EXPECT_EQ(fired.size(), 3) << "without Alt it is no hot key";
}

TEST_F(RemoteWindow, TheLimitOfAnEditComesBackOnceAndIsThenItsOwn) {
  edit->setMaxLength(3);
  ASSERT_TRUE(TypeOver(edit, "123"));
  EXPECT_EQ(edit->maxLength(), 3);
  EXPECT_FALSE(edit->property("pnlLimit").isValid());
  ASSERT_TRUE(TypeOver(edit, "12345"));
  EXPECT_EQ(edit->maxLength(), 5);
  ASSERT_TRUE(TypeOver(edit, "1234567"));
  EXPECT_EQ(Control(edit)["limit"], 3) << "what it was made with";
  edit->setText("123");
  EXPECT_EQ(edit->maxLength(), 3);
  edit->setMaxLength(10);
  edit->setText("1");
  EXPECT_EQ(edit->maxLength(), 10) << "nobody sets it back again";
  EXPECT_EQ(Control(edit)["limit"], 10);
  edit->setProperty("pnlLimit", 4);
  ASSERT_TRUE(TypeOver(edit, QString(11, 'x')));
  EXPECT_EQ(Control(edit)["limit"], 4) << "what its tool says";
  edit->setText("1");
  EXPECT_EQ(Control(edit)["limit"], 4);
  EXPECT_EQ(edit->maxLength(), 10);
}

TEST_F(RemoteWindow, EveryControlWithATextIsTypedOverAndMarked) {
  auto* rich = Make<QTextEdit>(tool, 11, {});
  auto* plain = Make<QPlainTextEdit>(tool, 12, {});
  auto* combo = Make<QComboBox>(tool, 13, {});
  EXPECT_FALSE(TypeOver(combo, "x")) << "its text can't be typed";
  EXPECT_FALSE(MarkText(combo, 0, 0));
  combo->setEditable(true);
  for (QWidget* control : {static_cast<QWidget*>(rich), static_cast<QWidget*>(plain), static_cast<QWidget*>(combo)}) {
    ASSERT_TRUE(TypeOver(control, "abcdef"));
    EXPECT_EQ(Control(control)["text"], "abcdef");
    ASSERT_TRUE(MarkText(control, 4, 2));
    EXPECT_EQ(Control(control)["caret"], 2);
    EXPECT_EQ(Control(control)["selection"], QJsonValue(QJsonArray({2, 4})));
    ASSERT_TRUE(MarkText(control, 100, 200));
    EXPECT_EQ(Control(control)["selection"], QJsonValue(QJsonArray({6, 6}))) << "beyond the text is its end";
  }
  EXPECT_FALSE(TypeOver(tool, "x"));
}

TEST_F(RemoteWindow, OnlyListsHaveItemsToCount) {
  auto* combo = Make<QComboBox>(tool, 8, {});
  combo->addItems({"a", "b"});
  EXPECT_EQ(ItemCount(combo), 2);
  EXPECT_EQ(ItemCount(list), 3);
  EXPECT_FALSE(ItemCount(edit).has_value());
  EXPECT_FALSE(ItemCount(Make<QListView>(tool, 9, {})).has_value()) << "it has no model";
}

TEST_F(RemoteWindow, AChoiceInAComboBoxClosesItAndTellsIndexAndText) {
  auto* combo = Make<QComboBox>(tool, 8, {0, 0, 50, 20});
  combo->addItems({"a", "b"});
  QStringList told;
  QObject::connect(combo, &QComboBox::activated, [&told](int index) { told << QString::number(index); });
  QObject::connect(combo, &QComboBox::textActivated, [&told](const QString& text) { told << text; });
  Show();
  combo->showPopup();
  PickItems(combo, {1});
  EXPECT_FALSE(combo->view()->isVisible());
  EXPECT_EQ(told, QStringList({"1", "b"}));
  PickItems(combo, {});
  EXPECT_EQ(combo->currentIndex(), -1);
  EXPECT_EQ(told.size(), 2) << "no choice is no item";
}

TEST_F(RemoteWindow, PickingSelectsWhatTheListSelects) {
  auto* table = Make<QTreeWidget>(tool, 8, {});
  table->setColumnCount(2);
  for (const char* name : {"a", "b", "c"}) table->addTopLevelItem(new QTreeWidgetItem({name, name}));
  table->setSelectionMode(QAbstractItemView::ExtendedSelection);
  PickItems(table, {2, 0});
  EXPECT_EQ(table->selectionModel()->selectedRows().size(), 2) << "whole rows";
  table->setSelectionBehavior(QAbstractItemView::SelectItems);
  PickItems(table, {1, 2});
  EXPECT_EQ(table->selectionModel()->selectedIndexes().size(), 2) << "a cell each";
  list->setSelectionMode(QAbstractItemView::SingleSelection);
  PickItems(list, {1, 2});
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_EQ(Control(list)["selected"], QJsonValue(QJsonArray{1}));
}

struct Mouse : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    static const QHash<QEvent::Type, QString> kNames{{QEvent::MouseButtonPress, "press"},
                                                     {QEvent::MouseButtonRelease, "release"},
                                                     {QEvent::MouseButtonDblClick, "double"}};
    if (!kNames.contains(event->type())) return false;
    const auto* mouse = static_cast<QMouseEvent*>(event);
    EXPECT_EQ(mouse->button(), Qt::LeftButton);
    EXPECT_EQ(mouse->buttons(), event->type() == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton);
    seen << kNames[event->type()];
    place = mouse->position().toPoint();
    return false;
  }
  QStringList seen;
  QPoint place;
};

TEST_F(RemoteWindow, APressGoesToTheMiddleOfItsPlace) {
  Mouse mouse;
  Show();
  edit->installEventFilter(&mouse);
  ASSERT_TRUE(Press(edit, {}, false));
  EXPECT_EQ(mouse.seen, QStringList({"press", "release"}));
  EXPECT_EQ(mouse.place, edit->rect().center());
  mouse.seen.clear();
  ASSERT_TRUE(Press(edit, {}, true));
  EXPECT_EQ(mouse.seen, QStringList({"press", "release", "double", "release"}));
  edit->removeEventFilter(&mouse);
  list->viewport()->installEventFilter(&mouse);
  for (int row = 0; row < 3; ++row) {
    ASSERT_TRUE(Press(list, {row, 0}, false));
    const QRect seen = list->visualItemRect(list->item(row)) & list->viewport()->rect();
    EXPECT_EQ(mouse.place, seen.center()) << row;
  }
  list->viewport()->removeEventFilter(&mouse);
}

TEST_F(RemoteWindow, AnItemOutOfSightIsBroughtIntoItAndThenPressed) {
  for (int i = 0; i < 100; ++i) list->addItem(QString::number(i));
  Show();
  QStringList clicked;
  QObject::connect(list, &QListWidget::itemClicked, list, [&clicked](auto* item) { clicked << item->text(); });
  ASSERT_TRUE(Press(list, {102, 0}, false));
  EXPECT_EQ(clicked, QStringList{"99"});
}

TEST_F(RemoteWindow, AHeaderIsPressedInTheMiddleOfItsColumn) {
  auto* report = Make<QTreeWidget>(tool, 7, {0, 0, 180, 80});
  report->setColumnCount(3);
  report->header()->resizeSection(0, 40);
  report->header()->resizeSection(1, 60);
  Show();
  Mouse mouse;
  report->header()->viewport()->installEventFilter(&mouse);
  ASSERT_TRUE(Press(report, {PressPlace::kHeader, 1}, false));
  EXPECT_EQ(mouse.place, QPoint(70, report->header()->height() / 2));
  report->header()->hideSection(1);
  EXPECT_FALSE(Press(report, {PressPlace::kHeader, 1}, false)) << "a column that isn't shown";
  EXPECT_FALSE(Press(report, {PressPlace::kHeader, -1}, false));
  EXPECT_FALSE(Press(report, {PressPlace::kHeader, 3}, false));
  report->header()->viewport()->removeEventFilter(&mouse);
  auto* table = Make<QTableWidget>(tool, 8, {0, 0, 180, 80});
  table->setColumnCount(1);
  EXPECT_TRUE(Press(table, {PressPlace::kHeader, 0}, false));
}

TEST_F(RemoteWindow, APressGivesTheFocusToTheInnermostThatTakesIt) {
  auto* label = Make<QLabel>(tool, 7, {0, 0, 10, 10});
  Show();
  tool->setFocusPolicy(Qt::ClickFocus);
  edit->setFocus();
  ASSERT_TRUE(Press(label, {}, false));
  EXPECT_TRUE(tool->hasFocus()) << "a label takes none";
  edit->setFocus();
  label->setFocusPolicy(Qt::ClickFocus);
  label->setEnabled(false);
  ASSERT_TRUE(Press(label, {}, false));
  EXPECT_TRUE(tool->hasFocus());
  label->setEnabled(true);
  ASSERT_TRUE(Press(label, {}, false));
  EXPECT_TRUE(label->hasFocus());
  QWidget other;
  other.show();
  other.activateWindow();
  Settle();
  ASSERT_FALSE(panel.isActiveWindow());
  ASSERT_TRUE(Press(edit, {}, false));
  EXPECT_TRUE(panel.isActiveWindow());
  EXPECT_TRUE(edit->hasFocus());
}

TEST(Settling, WaitingEndsWithThePatienceWhenNothingElseHappens) {
  // Without an event of its own the loop would sleep until something comes.
  int asked = 0;
  EXPECT_FALSE(WaitWhile([&asked] { return ++asked > 0; }, 1));
  EXPECT_LT(asked, 1000) << "it waits for events and doesn't turn";
}

TEST(Settling, WaitingEndsWithTheWork) {
  int left = 3;
  QTimer work;
  QObject::connect(&work, &QTimer::timeout, [&left] { --left; });
  work.start(0);
  constexpr int kAnHour = 3600000;
  EXPECT_TRUE(WaitWhile([&left] { return left > 0; }, kAnHour));
  EXPECT_EQ(left, 0);
  EXPECT_TRUE(WaitWhile([] { return false; }, kAnHour));
  EXPECT_FALSE(WaitWhile([] { return true; }, 0)) << "no patience at all";
}

}  // namespace
}  // namespace panel
