// SPDX-License-Identifier: MIT
// What the remote control sees of windows and controls, and what its hands do to them, on plain Qt widgets that carry
// the library's properties.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QTreeWidget>

#include "remote/operator_input.h"
#include "remote/settle.h"
#include "remote/window_inspector.h"

namespace panel {
namespace {

template <typename W>
W* Make(QWidget* parent, int id, const QRect& place) {
  auto* widget = new W(parent);
  widget->setProperty("pnlId", id);
  widget->setGeometry(place);
  return widget;
}

/// A panel of 400 by 300 with a tool window at 10, 20 in its tool area.
class RemoteWindow : public ::testing::Test {
 protected:
  RemoteWindow() {
    panel.resize(400, 300);
    tool = new QWidget(&panel);
    tool->setGeometry(10, 20, 200, 100);
    tool->setProperty("pnlTool", 6);
    tool->setProperty("pnlTitle", "MDI");
    tool->setProperty("pnlBack", 0x05B9D2u);
    handle = PnlAttachWidget(tool, nullptr, nullptr);
    edit = Make<QLineEdit>(tool, 5000, {5, 6, 100, 20});
    list = Make<QListWidget>(tool, 5001, {5, 30, 100, 60});
    list->addItems({"G0 X1", "G1 Y2", "M30"});
  }
  void Show() {
    panel.show();
    panel.activateWindow();
    Settle();
  }
  QJsonObject Control(QWidget* control) { return WindowInspector(&panel).DescribeControl(tool, control); }
  QJsonObject Window() { return WindowInspector(&panel).DescribeWindow(tool); }
  void Key(const char* name, Qt::KeyboardModifiers modifiers = {}) { PressKey(tool, *KeyByName(name, modifiers)); }

  QWidget panel;
  QWidget* tool = nullptr;
  PnlWindow handle = 0;
  QLineEdit* edit = nullptr;
  QListWidget* list = nullptr;
};

TEST_F(RemoteWindow, IsFoundByItsHandleWhileItLives) {
  EXPECT_EQ(WindowInspector::Window(handle), tool);
  delete tool;
  EXPECT_EQ(WindowInspector::Window(handle), nullptr);
  EXPECT_EQ(WindowInspector::Window(0), nullptr);
}

TEST_F(RemoteWindow, TellsPlaceTitleColourAndControls) {
  Show();
  edit->setFocus();
  const QJsonObject told = Window();
  EXPECT_EQ(told["visible"], true);
  EXPECT_EQ(told["title"], "MDI");
  EXPECT_EQ(told["back"].toInt(), 0x05B9D2);
  EXPECT_EQ(told["rect"], QJsonValue(QJsonArray({10, 20, 200, 100})));
  EXPECT_EQ(told["parent"], QJsonValue(QJsonArray({400, 300})));
  EXPECT_EQ(told["focus"], 5000);
  EXPECT_EQ(told["menuAttached"], false);
  EXPECT_EQ(told["view"], 0);
  EXPECT_EQ(told["controls"], QJsonValue(QJsonArray({5000, 5001})));
}

TEST_F(RemoteWindow, AControlInAHiddenWindowIsNotVisible) {
  EXPECT_EQ(Control(edit)["visible"], false);
  Show();
  EXPECT_EQ(Control(edit)["visible"], true);
  tool->hide();
  EXPECT_EQ(Control(edit)["visible"], false);
}

TEST_F(RemoteWindow, OfControlsThatShareAnIdTheVisibleOneAnswers) {
  Show();
  auto* other = Make<QLineEdit>(tool, 5000, {0, 0, 10, 10});
  EXPECT_EQ(WindowInspector::Control(tool, 5000), edit);
  edit->hide();
  other->show();
  EXPECT_EQ(WindowInspector::Control(tool, 5000), other);
  other->hide();
  EXPECT_NE(WindowInspector::Control(tool, 5000), nullptr);
  EXPECT_EQ(WindowInspector::Control(tool, 1), nullptr);
}

TEST_F(RemoteWindow, ControlsOfAWindowInsideAreItsOwn) {
  auto* inner = new QWidget(tool);
  PnlAttachWidget(inner, nullptr, nullptr);
  Make<QLineEdit>(inner, 1202, {0, 0, 10, 10});
  EXPECT_EQ(WindowInspector::Control(tool, 1202), nullptr);
  EXPECT_NE(WindowInspector::Control(inner, 1202), nullptr);
}

TEST_F(RemoteWindow, AnEditTellsTextCaretSelectionAndLimit) {
  Show();
  edit->setMaxLength(255);
  edit->setText("G1 X10");
  edit->setReadOnly(true);
  edit->setSelection(3, 2);
  const QJsonObject told = Control(edit);
  EXPECT_EQ(told["kind"], "edit");
  EXPECT_EQ(told["text"], "G1 X10");
  EXPECT_EQ(told["readOnly"], true);
  EXPECT_EQ(told["enabled"], true);
  EXPECT_EQ(told["focused"], edit->hasFocus());
  EXPECT_EQ(told["rect"], QJsonValue(QJsonArray({5, 6, 100, 20})));
  EXPECT_EQ(told["caret"], 5);
  EXPECT_EQ(told["selection"], QJsonValue(QJsonArray({3, 5})));
  EXPECT_EQ(told["limit"], 255);
  EXPECT_FALSE(told.contains("items"));
  EXPECT_FALSE(told.contains("blinking"));
}

TEST_F(RemoteWindow, WithoutASelectionItIsEmptyAtTheCaret) {
  edit->setText("abc");
  edit->setCursorPosition(1);
  EXPECT_EQ(Control(edit)["selection"], QJsonValue(QJsonArray({1, 1})));
}

TEST_F(RemoteWindow, AListTellsItemsAndSelection) {
  list->setCurrentRow(1);
  const QJsonObject told = Control(list);
  EXPECT_EQ(told["items"], QJsonValue(QJsonArray({"G0 X1", "G1 Y2", "M30"})));
  EXPECT_EQ(told["selected"], QJsonValue(QJsonArray{1}));
  list->clearSelection();
  EXPECT_EQ(Control(list)["selected"], QJsonValue(QJsonArray()));
}

TEST_F(RemoteWindow, AReportListTellsRowsOfColumns) {
  auto* report = Make<QTreeWidget>(tool, 7, {0, 0, 50, 50});
  report->setRootIsDecorated(false);
  report->setColumnCount(2);
  report->addTopLevelItem(new QTreeWidgetItem({"a.txt", "12"}));
  const QJsonObject told = Control(report);
  EXPECT_EQ(told["kind"], "report");
  EXPECT_EQ(told["items"], QJsonValue(QJsonArray{QJsonArray({"a.txt", "12"})}));
}

TEST_F(RemoteWindow, AComboBoxTellsItsItemsAndWhetherItIsOpen) {
  auto* combo = Make<QComboBox>(tool, 8, {0, 0, 50, 20});
  combo->addItems({"a", "b"});
  combo->setCurrentIndex(1);
  const QJsonObject told = Control(combo);
  EXPECT_EQ(told["kind"], "combo");
  EXPECT_EQ(told["text"], "b");
  EXPECT_EQ(told["selected"], QJsonValue(QJsonArray{1}));
  EXPECT_EQ(told["dropped"], false);
}

TEST_F(RemoteWindow, AThemedControlTellsItsColoursAndItsBlinking) {
  auto* label = Make<QLabel>(tool, 5003, {0, 0, 50, 20});
  label->setProperty("pnlKind", "static");
  label->setProperty("pnlText", "MDI");
  label->setProperty("pnlBack", 0x02B6E8u);
  label->setProperty("pnlFore", 1u);
  label->setProperty("pnlFrame", 2u);
  label->setProperty("pnlBlinking", true);
  label->setProperty("pnlPhase", false);
  label->setProperty("pnlPeriod", 800);
  const QJsonObject told = Control(label);
  EXPECT_EQ(told["kind"], "static");
  EXPECT_EQ(told["text"], "MDI");
  EXPECT_EQ(told["back"].toInt(), 0x02B6E8);
  EXPECT_EQ(told["fore"], 1);
  EXPECT_EQ(told["frame"], 2);
  EXPECT_EQ(told["blinking"], true);
  EXPECT_EQ(told["phase"], false);
  EXPECT_EQ(told["period"], 800);
}

TEST_F(RemoteWindow, ACheckBoxTellsWhetherItIsChecked) {
  auto* box = Make<QCheckBox>(tool, 9, {0, 0, 50, 20});
  box->setChecked(true);
  EXPECT_EQ(Control(box)["checked"], true);
}

TEST_F(RemoteWindow, OpenDialogsAreToldInTheOrderOfTheirMaking) {
  Show();
  QWidget dialog(&panel);
  dialog.setProperty("pnlDialog", true);
  dialog.setProperty("pnlTitle", "History");
  const PnlWindow window = PnlAttachWidget(&dialog, nullptr, nullptr);
  EXPECT_TRUE(WindowInspector::Dialogs().isEmpty());
  dialog.show();
  const QJsonArray open = WindowInspector::Dialogs();
  ASSERT_EQ(open.size(), 1);
  EXPECT_EQ(open[0].toObject()["window"], window);
  EXPECT_EQ(open[0].toObject()["title"], "History");
}

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
                      KeyRow{"x", Qt::ControlModifier, Qt::Key_X, "\x18"}, KeyRow{"ñ", {}, Qt::Key_Ntilde, "ñ"}));

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

TEST(Settling, FreesWhatWasToBeDeletedLater) {
  QPointer<QObject> object = new QObject;
  object->deleteLater();
  Settle();
  EXPECT_TRUE(object.isNull());
}

}  // namespace
}  // namespace panel
