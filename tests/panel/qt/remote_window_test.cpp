// SPDX-License-Identifier: MIT
// What the remote control sees of windows and controls.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QTreeWidget>

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

}  // namespace
}  // namespace panel
