// SPDX-License-Identifier: MIT
// A machining calculator in a panel's window, off screen: a milling machine with DMC, a few tools, a factory file with
// a pair that has limits, and an empty user file.
#pragma once

#include <string>

#include "support/window_stage.h"
#include "zmc/qt/zmc_window.h"

namespace pnl::test {

class ZmcWindowStage : public WindowStage {
 protected:
  explicit ZmcWindowStage(QSize size = {800, 600});

  void Define(TextView name, std::int64_t value) { cnc.Define(name, rig::VariableType::kInt, value, true, true); }
  /// Opens the tool. The pair is Steel and Milling, the tool T3, unless the settings were written before.
  void Open();
  /// A window with no other selection than what an empty settings file gives.
  void OpenBare();
  void Menu(int id) { Send(PNL_MSG_COMMAND, id), Settle(); }
  std::intptr_t Command(std::intptr_t code) { return Send(PNL_MSG_TOOL_COMMAND, code); }
  void Settings(const std::string& lines) const { Disc("C:\\P52\\ZMC7340.ini", "[PRIVATE]\r\n" + lines); }
  [[nodiscard]] std::string Stored(const std::string& key) const;

  /// A key as the platform sends it: to the open list, else to what has the focus, and to the shortcuts first.
  bool Key(int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
  void Write(const QString& text);
  /// Gives a control the focus as a touch does.
  void Focus(int id);
  /// The control that has the focus, 0 for none: a control's inner widgets count as the control.
  [[nodiscard]] int FocusedId() const;

  [[nodiscard]] QWidget* Page(ZmcTab tab) const;
  /// A control of a page: two pages have controls of the same number.
  [[nodiscard]] QWidget* On(ZmcTab tab, int id) const;
  [[nodiscard]] QWidget* Main(int id) const { return On(ZmcTab::kMain, id); }
  [[nodiscard]] ZmcBox* Box(int id) const { return qobject_cast<ZmcBox*>(Main(id)); }
  [[nodiscard]] ZCDatoWrap* Field(int id) const { return qobject_cast<ZCDatoWrap*>(Main(id)); }
  [[nodiscard]] QLineEdit* Line(int id) const { return qobject_cast<QLineEdit*>(Main(id)); }
  [[nodiscard]] CMultistatic* Check(int id) const { return qobject_cast<CMultistatic*>(Main(id)); }
  [[nodiscard]] std::string MainText(int id) const;
  [[nodiscard]] ZCGridXWrap* Grid(ZmcTab tab = ZmcTab::kMain) const;
  [[nodiscard]] std::pair<int, int> Cell(ZmcTab tab = ZmcTab::kMain) const {
    return {Grid(tab)->Row(), Grid(tab)->Column()};
  }
  [[nodiscard]] std::string CellText(int row, int col, ZmcTab tab = ZmcTab::kMain) const {
    return Grid(tab)->Cells().CellText(row, col).toStdString();
  }
  [[nodiscard]] QPoint CellPlace(int row, int col, ZmcTab tab) const;
  void TouchCell(int row, int col, ZmcTab tab = ZmcTab::kMain);
  /// Touches an item of an open list.
  void TouchItem(int box, int item);
  /// Moves to the cell and types into it.
  void EditCell(int row, int col, const QString& text, ZmcTab tab = ZmcTab::kMain);

  QPointer<ZCZelorMacCalc> tool;
};

class ZmcWindowTest : public ZmcWindowStage {};

}  // namespace pnl::test
