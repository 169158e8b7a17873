// SPDX-License-Identifier: MIT
// What the remote control sees of windows and controls.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTableWidget>
#include <QTextEdit>
#include <QTreeWidget>
#include <memory>
#include <vector>

#include "panel/qt/remote_window_fixture.h"

namespace panel {
namespace {

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

// The keys of a compact calculator lie below its lower edge and were told as visible.
TEST_F(RemoteWindow, AControlThatIsCutOffIsNotVisible) {
  Show();
  edit->move(5, 99);
  EXPECT_EQ(Control(edit)["visible"], true) << "a row of it is seen";
  edit->move(5, 100);
  EXPECT_EQ(Control(edit)["visible"], false);
  edit->move(-100, 6);
  EXPECT_EQ(Control(edit)["visible"], false);
  edit->move(-99, 6);
  EXPECT_EQ(Control(edit)["visible"], true);
  tool->move(-1, 20);
  EXPECT_EQ(Control(edit)["visible"], false) << "what it lies in is cut off too";
  tool->move(10, 300 - 6);
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

TEST_F(RemoteWindow, OfControlsThatAreAllHiddenTheFirstOnAShownPageAnswers) {
  const auto hiddenOn = [this](QWidget* page) {
    auto* control = Make<QLabel>(page, 77, {});
    control->hide();
    return control;
  };
  auto* away = new QWidget(tool);
  away->hide();
  auto* onAway = hiddenOn(away);
  EXPECT_EQ(WindowInspector::Control(tool, 77), onAway);
  auto* onShown = hiddenOn(new QWidget(tool));
  hiddenOn(new QWidget(tool));
  Show();
  EXPECT_EQ(WindowInspector::Control(tool, 77), onShown);
}

TEST_F(RemoteWindow, AControlBesideTheWindowMayHaveTheNumberZero) {
  auto* beside = Make<QLabel>(&panel, 0, {});
  beside->setProperty("pnlOwner", handle);
  EXPECT_EQ(WindowInspector::Control(tool, 0), beside);
  EXPECT_TRUE(Window()["controls"].toArray().contains(0));
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

TEST_F(RemoteWindow, EveryControlTellsItsKind) {
  auto* tree = Make<QTreeWidget>(tool, 7, {0, 0, 50, 50});
  EXPECT_EQ(Control(edit)["kind"], "edit");
  EXPECT_EQ(Control(list)["kind"], "list");
  EXPECT_EQ(Control(Make<QComboBox>(tool, 8, {}))["kind"], "combo");
  EXPECT_EQ(Control(Make<QPushButton>(tool, 8, {}))["kind"], "button");
  EXPECT_EQ(Control(Make<QLabel>(tool, 8, {}))["kind"], "static");
  EXPECT_EQ(Control(Make<QTableWidget>(tool, 8, {}))["kind"], "report");
  EXPECT_EQ(Control(Make<QWidget>(tool, 8, {}))["kind"], "window");
  EXPECT_EQ(Control(tree)["kind"], "list") << "it shows where nodes open";
  tree->setRootIsDecorated(false);
  EXPECT_EQ(Control(tree)["kind"], "report");
  tree->setHeaderHidden(true);
  EXPECT_EQ(Control(tree)["kind"], "list");
  edit->setProperty("pnlKind", "editor");
  EXPECT_EQ(Control(edit)["kind"], "editor");
}

TEST_F(RemoteWindow, EveryControlTellsItsText) {
  auto* combo = Make<QComboBox>(tool, 8, {});
  combo->addItems({"a", "b"});
  auto* plain = Make<QPlainTextEdit>(tool, 8, {});
  plain->setPlainText("plain");
  auto* rich = Make<QTextEdit>(tool, 8, {});
  rich->setPlainText("rich");
  auto* label = Make<QLabel>(tool, 8, {});
  label->setText("label");
  auto* other = Make<QWidget>(tool, 8, {});
  EXPECT_EQ(Control(combo)["text"], "a");
  EXPECT_EQ(Control(plain)["text"], "plain");
  EXPECT_EQ(Control(rich)["text"], "rich");
  EXPECT_EQ(Control(label)["text"], "label");
  label->setProperty("pnlText", "shown");
  EXPECT_EQ(Control(label)["text"], "shown");
  EXPECT_EQ(Control(other)["text"], "");
  other->setProperty("pnlTitle", "title");
  EXPECT_EQ(Control(other)["text"], "title");
}

TEST_F(RemoteWindow, AControlTellsEachPropertyThatItHasAndNoOther) {
  const std::pair<const char*, const char*> properties[] = {
      {"limit", "pnlLimit"}, {"back", "pnlBack"},         {"fore", "pnlFore"},        {"frame", "pnlFrame"},
      {"phase", "pnlPhase"}, {"blinking", "pnlBlinking"}, {"period", "pnlPeriod"},    {"location", "pnlLocation"},
      {"state", "pnlState"}, {"playing", "pnlPlaying"},   {"position", "pnlPosition"}};
  auto* label = Make<QLabel>(tool, 8, {});
  int value = 100;
  for (const auto& [key, name] : properties) {
    const QJsonObject before = Control(label);
    EXPECT_EQ(before.value(key), QLatin1StringView(key) == "state" ? QJsonValue(0) : QJsonValue(QJsonValue::Undefined));
    label->setProperty(name, ++value);
    QJsonObject expected = before;
    expected[key] = value;
    EXPECT_EQ(Control(label), expected) << key;
  }
}

TEST_F(RemoteWindow, OnlyWhatCanBeCheckedTellsWhetherItIs) {
  auto* button = Make<QPushButton>(tool, 9, {});
  EXPECT_FALSE(Control(button).contains("checked"));
  button->setCheckable(true);
  EXPECT_EQ(Control(button)["checked"], false);
  button->setChecked(true);
  EXPECT_EQ(Control(button)["checked"], true);
  EXPECT_FALSE(Control(edit).contains("checked"));
}

TEST_F(RemoteWindow, OnlyAnEditWithALimitTellsIt) {
  EXPECT_FALSE(Control(edit).contains("limit"));
  edit->setMaxLength(32766);
  EXPECT_EQ(Control(edit)["limit"], 32766);
}

TEST_F(RemoteWindow, ACaretIsToldOfEveryTextThatHasOne) {
  auto* rich = Make<QTextEdit>(tool, 8, {});
  rich->setPlainText("abcdef");
  QTextCursor cursor = rich->textCursor();
  cursor.setPosition(4);
  cursor.setPosition(1, QTextCursor::KeepAnchor);
  rich->setTextCursor(cursor);
  EXPECT_EQ(Control(rich)["caret"], 1);
  EXPECT_EQ(Control(rich)["selection"], QJsonValue(QJsonArray({1, 4})));
  auto* combo = Make<QComboBox>(tool, 8, {});
  EXPECT_FALSE(Control(combo).contains("caret"));
  combo->setEditable(true);
  combo->lineEdit()->setText("abc");
  combo->lineEdit()->setCursorPosition(2);
  EXPECT_EQ(Control(combo)["caret"], 2);
}

TEST_F(RemoteWindow, AListOfOneColumnOfManyTellsThatColumn) {
  QStandardItemModel model(2, 3);
  for (int row = 0; row < 2; ++row) {
    for (int column = 0; column < 3; ++column) {
      model.setItem(row, column, new QStandardItem(QString("%1%2").arg(row).arg(column)));
    }
  }
  auto* view = Make<QListView>(tool, 8, {});
  EXPECT_FALSE(Control(view).contains("items")) << "it has no model";
  view->setModel(&model);
  EXPECT_EQ(Control(view)["items"], QJsonValue(QJsonArray({"00", "10"})));
  view->setModelColumn(2);
  EXPECT_EQ(Control(view)["items"], QJsonValue(QJsonArray({"02", "12"})));
  auto* table = Make<QTableView>(tool, 8, {});
  table->setModel(&model);
  EXPECT_EQ(Control(table)["items"],
            QJsonValue(QJsonArray{QJsonArray({"00", "01", "02"}), QJsonArray({"10", "11", "12"})}));
  table->selectRow(1);
  EXPECT_EQ(Control(table)["selected"], QJsonValue(QJsonArray{1})) << "a row of three cells once";
}

TEST_F(RemoteWindow, AComboBoxTellsThatNothingIsChosenAndThatItIsOpen) {
  auto* combo = Make<QComboBox>(tool, 8, {0, 0, 50, 20});
  combo->addItems({"a", "b"});
  EXPECT_EQ(Control(combo)["items"], QJsonValue(QJsonArray({"a", "b"})));
  EXPECT_EQ(Control(combo)["selected"], QJsonValue(QJsonArray{0}));
  combo->setCurrentIndex(-1);
  EXPECT_EQ(Control(combo)["selected"], QJsonValue(QJsonArray()));
  Show();
  combo->showPopup();
  EXPECT_EQ(Control(combo)["dropped"], true);
  combo->hidePopup();
}

TEST_F(RemoteWindow, AControlHasTheFocusOfItsPartsThatAreNoControls) {
  auto* box = Make<QWidget>(tool, 8, {0, 0, 50, 50});
  auto* part = new QLineEdit(box);
  Show();
  part->setFocus();
  EXPECT_EQ(Control(box)["focused"], true);
  EXPECT_EQ(Window()["focus"], 8);
  EXPECT_EQ(Control(edit)["focused"], false);
  part->setProperty("pnlId", 9);
  EXPECT_EQ(Control(box)["focused"], false);
  EXPECT_EQ(Window()["focus"], 9);
  part->clearFocus();
  EXPECT_EQ(Control(part)["focused"], false);
}

TEST_F(RemoteWindow, OnlyWidgetsWithAnIdAreControlsZeroIncluded) {
  new QLineEdit(tool);
  Make<QLineEdit>(tool, 0, {});
  EXPECT_EQ(Window()["controls"], QJsonValue(QJsonArray({5000, 5001, 0})));
  EXPECT_NE(WindowInspector::Control(tool, 0), nullptr);
}

TEST_F(RemoteWindow, AControlBesideTheWindowIsItsOwnersOne) {
  const auto beside = [this](int id, int owner) {
    auto* widget = Make<QLabel>(&panel, id, {0, 0, 10, 10});
    widget->setProperty("pnlOwner", owner);
    return widget;
  };
  QWidget* own = beside(71, handle);
  beside(72, handle + 1);
  beside(-1, handle);
  Make<QLabel>(&panel, 74, {});
  EXPECT_EQ(Window()["controls"], QJsonValue(QJsonArray({5000, 5001, 71})));
  EXPECT_EQ(WindowInspector::Control(tool, 71), own);
}

TEST_F(RemoteWindow, WithoutAColourOfItsOwnAWindowTellsThatOfItsPalette) {
  tool->setProperty("pnlBack", QVariant());
  QPalette palette;
  palette.setColor(tool->backgroundRole(), QColor(1, 2, 3));
  tool->setPalette(palette);
  EXPECT_EQ(Window()["back"].toInt(), 0x030201);
}

TEST_F(RemoteWindow, AWindowTellsItsMenuItsViewAndTheTitleOfItsFrame) {
  tool->setProperty("pnlMenuAttached", true);
  tool->setProperty("pnlView", 77);
  tool->setProperty("pnlTitle", QVariant());
  tool->setWindowTitle("frame");
  EXPECT_EQ(Window()["menuAttached"], true);
  EXPECT_EQ(Window()["view"], 77);
  EXPECT_EQ(Window()["title"], "frame");
  EXPECT_EQ(Window()["visible"], false);
}

TEST_F(RemoteWindow, AWindowOfItsOwnLiesInItself) {
  QWidget alone;
  alone.setGeometry(50, 60, 70, 80);
  const QJsonObject told = WindowInspector(&panel).DescribeWindow(&alone);
  EXPECT_EQ(told["rect"], QJsonValue(QJsonArray({0, 0, 70, 80})));
  EXPECT_EQ(told["parent"], QJsonValue(QJsonArray({70, 80})));
}

TEST_F(RemoteWindow, ADialogLiesInTheToolArea) {
  Show();
  QWidget dialog(tool, Qt::Tool);
  dialog.setProperty("pnlDialog", true);
  dialog.resize(30, 40);
  dialog.move(panel.mapToGlobal(QPoint(15, 25)));
  const QJsonObject told = WindowInspector(&panel).DescribeWindow(&dialog);
  EXPECT_EQ(told["rect"], QJsonValue(QJsonArray({15, 25, 30, 40})));
  EXPECT_EQ(told["parent"], QJsonValue(QJsonArray({400, 300})));
}

TEST_F(RemoteWindow, AWindowWithoutTheFocusTellsNoneAndKeysGoToItsLastControl) {
  Show();
  list->setFocus();
  QLineEdit outside(&panel);
  outside.show();
  EXPECT_EQ(Window()["focus"], 5001);
  EXPECT_EQ(WindowInspector::Focused(tool), list);
  outside.setFocus();
  EXPECT_EQ(Window()["focus"], 0);
  EXPECT_EQ(WindowInspector::Focused(tool), list);
  EXPECT_EQ(WindowInspector::Focused(&panel), &outside);
  QWidget other;
  other.show();
  other.activateWindow();
  Settle();
  EXPECT_EQ(WindowInspector::Focused(&panel), &outside) << "it gets the focus as soon as its window does";
}

TEST_F(RemoteWindow, OpenDialogsComeInTheOrderOfTheirNumbers) {
  Show();
  // Later ones may lie before earlier ones among a program's widgets, so many are made.
  std::vector<std::unique_ptr<QWidget>> dialogs(20);
  QJsonArray expected;
  for (auto& dialog : dialogs) dialog = std::make_unique<QWidget>(&panel);
  for (auto& dialog : dialogs) {
    dialog->setProperty("pnlDialog", true);
    const PnlWindow window = PnlAttachWidget(dialog.get(), nullptr, nullptr);
    dialog->setWindowTitle(QString::number(window));
    expected.append(QJsonObject{{"window", window}, {"title", QString::number(window)}});
  }
  for (auto dialog = dialogs.rbegin(); dialog != dialogs.rend(); ++dialog) (*dialog)->show();
  EXPECT_EQ(WindowInspector::Dialogs(), expected);
  tool->show();
  dialogs.clear();
  EXPECT_TRUE(WindowInspector::Dialogs().isEmpty()) << "a tool is no dialog";
}

TEST_F(RemoteWindow, ADrawnCheckBoxSaysWhetherItIsChecked) {
  auto* box = Make<QWidget>(tool, 228, {0, 0, 20, 20});
  EXPECT_FALSE(Control(box).contains("checked"));
  box->setProperty("pnlKind", "check");
  box->setProperty("pnlState", 5);
  box->setProperty("pnlChecked", true);
  EXPECT_EQ(Control(box)["kind"], "check");
  EXPECT_EQ(Control(box)["state"], 5);
  EXPECT_EQ(Control(box)["checked"], true);
  box->setProperty("pnlChecked", false);
  EXPECT_EQ(Control(box)["checked"], false);
}

}  // namespace
}  // namespace panel
