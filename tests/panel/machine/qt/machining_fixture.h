// SPDX-License-Identifier: MIT
// The machining calculator in the panel, on a demo machine with a factory file of cutting data and no data of the
// user's. Its controls are found by their ids, and touched and typed in as an operator does.
#pragma once

#include <QComboBox>
#include <QDialog>
#include <QFile>
#include <QPushButton>
#include <QTableView>
#include <QTimer>

#include "host/cutting_data.h"
#include "panel/machine/qt/panel_fixture.h"
#include "remote/window_inspector.h"
#include "ui/panel_key.h"
#include "ui/soft_key_bar.h"

namespace panel {

namespace machining {
inline constexpr int kTool = PNL_TOOL_MACHINING_CALCULATOR;
// Controls.
inline constexpr int kMaterial = 3008;
inline constexpr int kOperation = 3010;
inline constexpr int kGrid = 3028;
inline constexpr int kRemarkCheck = 228;
inline constexpr int kRemark = 3033;
inline constexpr int kToolCheck = 229;
inline constexpr int kToolBox = 3012;
inline constexpr int kM6Check = 230;
inline constexpr int kFCheck = 225;
inline constexpr int kF = 3034;
inline constexpr int kSCheck = 226;
inline constexpr int kS = 3035;
inline constexpr int kMaterials = 3055;
inline constexpr int kOperations = 3058;
// Commands.
inline constexpr int kMainTab = 32818;
inline constexpr int kMaterialsTab = 32819;
inline constexpr int kOperationsTab = 32820;
inline constexpr int kInsert = 32902;
inline constexpr int kAdd = 32779;
inline constexpr int kSave = 32783;
inline constexpr int kCalculator = 32822;
inline constexpr int kFromCalculator = 32821;
// Slots of its soft keys.
inline constexpr int kOpenSlot = 3;
inline constexpr int kCloseSlot = 6;
inline constexpr int kInsertSlot = 0;
}  // namespace machining

class MachiningFixture : public PanelFixture {
 protected:
  MachiningFixture() {
    for (const auto& [id, name] : {std::pair{118, u"\\CondicionesCorteP.xml"}, std::pair{52, u"\\ZMC7340.ini"}}) {
      if (const auto path = rig_.Files().HostPath(rig_.Files().Path(id) + name)) std::remove(path->c_str());
    }
    EXPECT_TRUE(PlaceCuttingData(rig_.Files(), QStringLiteral(PNL_SHARE_FOLDER "/cutting"), "en"));
  }
  ~MachiningFixture() override { rig_.AnswerBoxes({}); }

  void Open() {
    Do(Action::kOpenMachining);
    ASSERT_TRUE(IsShown());
  }
  void Send(int command) {
    op_->SendCommand(machining::kTool, command);
    Settle();
  }
  [[nodiscard]] QWidget* Window() const { return Tool(machining::kTool); }
  [[nodiscard]] bool IsShown() const { return Window() != nullptr && Window()->isVisible(); }
  [[nodiscard]] QWidget* Control(int id) const {
    QWidget* control = Window() == nullptr ? nullptr : WindowInspector::Control(Window(), id);
    EXPECT_NE(control, nullptr) << id;
    return control;
  }
  [[nodiscard]] QComboBox* Box(int id) const { return qobject_cast<QComboBox*>(Control(id)); }
  [[nodiscard]] QTableView* Grid(int id) const { return qobject_cast<QTableView*>(Control(id)); }
  [[nodiscard]] std::string Cell(int id, int row, int col) const {
    return Grid(id)->model()->index(row - 1, col).data().toString().toStdString();
  }
  [[nodiscard]] std::string FieldText(int id) const {
    const WindowInspector inspector(window_->ToolAreaWidget());
    return inspector.DescribeControl(Window(), Control(id))["text"].toString().toStdString();
  }
  [[nodiscard]] std::string ProgramText() const { return window_->ProgramText().toStdString(); }
  [[nodiscard]] bool IsChecked(int id) const { return Control(id)->property("pnlChecked").toBool(); }
  [[nodiscard]] QPlainTextEdit& Editor() const { return window_->Editor().Edit(); }
  [[nodiscard]] std::string Zone() const { return ZoneText().toStdString(); }

  void TouchMiddle(QWidget* widget) { TouchAt(widget, widget->rect().center()); }
  /// A finger on a widget of any window, also of an open list.
  void TouchAt(QWidget* widget, const QPoint& place, bool twice = false) {
    ASSERT_NE(widget->window()->windowHandle(), nullptr);
    const pnl::test::PlatformPlace at = pnl::test::PlatformPlaceOf(*widget, place);
    now_ += 10000;
    for (int press = 0; press < (twice ? 2 : 1); ++press) pnl::test::ClickPlatformButton(at, now_, 50);
    Settle();
  }
  /// Opens the list by touch and touches an item in it.
  void PickByTouch(int id, const QString& item) {
    QComboBox* box = Box(id);
    // For the time of a double click a list that has opened ignores the finger.
    const int doubleClick = QApplication::doubleClickInterval();
    QApplication::setDoubleClickInterval(0);
    TouchAt(box, QPoint(box->width() - 8, box->height() / 2));
    ASSERT_TRUE(box->view()->isVisible()) << id;
    const QModelIndex index = box->model()->index(box->findText(item), box->modelColumn());
    ASSERT_TRUE(index.isValid()) << item.toStdString();
    box->view()->scrollTo(index);
    TouchAt(box->view()->viewport(), box->view()->visualRect(index).center());
    QApplication::setDoubleClickInterval(doubleClick);
    EXPECT_FALSE(box->view()->isVisible());
    EXPECT_EQ(box->currentText(), item);
  }
  /// A key of the keyboard with its text, as the window system sends it.
  void Press(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    pnl::test::PressPlatformKey(*window_, key, text, modifiers);
    pnl::test::ReleasePlatformKey(*window_, key, text, modifiers);
    Settle();
  }
  void TypeOnKeyboard(const QString& text) {
    for (const QChar c : text) Press(c.toUpper().unicode(), {}, QString(c));
  }
  void PutCaret(int position, int anchor = -1) {
    QTextCursor cursor = Editor().textCursor();
    cursor.setPosition(anchor < 0 ? position : anchor);
    cursor.setPosition(position, QTextCursor::KeepAnchor);
    Editor().setTextCursor(cursor);
  }
  /// What a list reports when an item of it is chosen.
  void PickItem(int id, int index) {
    const QPointer<QComboBox> box = Box(id);
    box->setCurrentIndex(index);
    emit box->activated(index);
    if (box) emit box->textActivated(box->itemText(index));
    Settle();
  }
  /// Chooses the first pair, T3 and a cutting speed, with the tool's line and S in the block.
  void Choose() {
    for (const int id : {machining::kMaterial, machining::kOperation}) {
      PickItem(id, 0);
    }
    PickItem(machining::kToolBox, Box(machining::kToolBox)->findText("T3"));
    for (const int id : {machining::kToolCheck, machining::kSCheck}) TouchMiddle(Control(id));
    TypeIntoCell(machining::kGrid, 1, 3, "180");
  }
  void TypeIntoCell(int grid, int row, int col, const QString& text) {
    QTableView* view = Grid(grid);
    view->setFocus();
    view->setCurrentIndex(view->model()->index(row - 1, col));
    Press(Qt::Key_Return);
    TypeOnKeyboard(text);
    Press(Qt::Key_Return);
  }
};

}  // namespace panel
