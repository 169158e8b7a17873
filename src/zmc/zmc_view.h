// SPDX-License-Identifier: MIT
// What the logic of the machining calculator asks of its window: a frame with three tabs, made when they are first
// shown, and the controls of each. The controls' texts and states are the model; the logic reads them back. Setting one
// brings no event. Implemented by ZCZelorMacCalc on Qt and by a recording view in the tests.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "window/tool_view.h"
#include "window/window.h"
#include "zmc/logic/zmc_formats.h"
#include "zmc/zmc_ids.h"

namespace pnl {

struct ZmcCell {
  int row = 0;
  int col = 0;
  friend bool operator==(const ZmcCell&, const ZmcCell&) = default;
};

enum class ZmcCellKind { kText, kNumber, kCheck, kList };

/// How the rows of a table are shown.
namespace zmc_row_state {
inline constexpr int kFactory = 0;
inline constexpr int kNormal = 1;
inline constexpr int kRefused = 2;
}  // namespace zmc_row_state

/// A grid of a tab. Rows and columns count from the header row and the header column, which are 0. A cell that isn't
/// there reads as empty, and writing it does nothing.
class ZmcGrid {
 public:
  virtual ~ZmcGrid() = default;
  [[nodiscard]] virtual int Rows() const = 0;
  [[nodiscard]] virtual Text CellText(int row, int col) const = 0;
  virtual void SetCellText(int row, int col, TextView text) = 0;
  [[nodiscard]] virtual bool IsChecked(int row, int col) const = 0;
  virtual void SetChecked(int row, int col, bool on) = 0;
  [[nodiscard]] virtual bool IsReadOnly(int row, int col) const = 0;
  virtual void SetReadOnly(int row, int col, bool on) = 0;
  virtual void SetNumberFormat(int row, int col, const ZmcDigits& digits) = 0;
  virtual void SetCellKind(int row, int col, ZmcCellKind kind, const std::vector<Text>& items) = 0;
  virtual void SetRowState(int row, int state) = 0;
  /// Tints a cell whose value the operator should look at.
  virtual void SetTint(int row, int col, bool on) = 0;
  /// Adds a row at the end and returns its number.
  virtual int AddRow() = 0;
  virtual void RemoveRow(int row) = 0;
  /// Removes all rows but the header.
  virtual void RemoveAllRows() = 0;
  [[nodiscard]] virtual ZmcCell Current() const = 0;
  virtual void Select(ZmcCell cell) = 0;
  /// First and last selected row; {0, 0} without one.
  [[nodiscard]] virtual std::pair<int, int> SelectedRows() const = 0;
  [[nodiscard]] virtual bool IsEditing() const = 0;
  virtual void BeginEdit(ZmcCell cell) = 0;
  /// Ends the edit with its text. Brings the event of the commit before it returns.
  virtual void CommitEdit() = 0;
  virtual void CancelEdit() = 0;
  /// Column 0 takes the marker away.
  virtual void ShowSortMarker(int col, bool ascending) = 0;
  virtual void Redraw() = 0;
};

class ZmcView : public ToolView {
 public:
  /// Destroys the frame, which is hidden already, once the present operation is over. Nothing may be asked of the view
  /// after it.
  virtual void Destroy() = 0;
  /// Posts a key-down of Tab to the window that has the focus.
  virtual void PostTab() = 0;

  /// Makes the tab's controls, hidden, if they aren't there.
  virtual void MakeTab(ZmcTab tab) = 0;
  /// Shows the tab over the frame's client area, in front of the others.
  virtual void ShowTab(ZmcTab tab) = 0;
  virtual void HideTab(ZmcTab tab) = 0;
  /// The tab's own window; 0 for a tab that wasn't made.
  [[nodiscard]] virtual WindowHandle TabHandle(ZmcTab tab) const = 0;
  [[nodiscard]] virtual ZmcGrid& Grid(ZmcTab tab) = 0;

  // Controls of the main tab, by id.
  [[nodiscard]] virtual Text ControlText(int id) const = 0;
  virtual void SetControlText(int id, TextView text) = 0;
  virtual void ShowControl(int id, bool on) = 0;
  virtual void EnableControl(int id, bool on) = 0;
  virtual void SetLabelColor(int id, std::uint32_t color) = 0;
  virtual void SetDigits(int id, const ZmcDigits& digits) = 0;
  /// The state of a picture control: 0 or another value for a check box, the picture's number for the tool's picture.
  [[nodiscard]] virtual int State(int id) const = 0;
  virtual void SetState(int id, int state) = 0;
  /// The bar of the cutting power in percent of the rated power; nothing leaves it empty.
  virtual void SetPowerBar(std::optional<double> percent) = 0;
  /// An edit is open in the data field.
  [[nodiscard]] virtual bool IsFieldEditing(int id) const = 0;

  // Lists.
  virtual void FillList(int id, const std::vector<Text>& items) = 0;
  [[nodiscard]] virtual std::vector<Text> ListItems(int id) const = 0;
  /// The selected item, -1 for none.
  [[nodiscard]] virtual int ListSelection(int id) const = 0;
  virtual void SelectItem(int id, int index) = 0;
  [[nodiscard]] virtual bool IsListOpen(int id) const = 0;
  virtual void OpenList(int id, bool open) = 0;
  /// Moves the mark in an open list by so many items.
  virtual void MoveInList(int id, int by) = 0;
  /// Selects the marked item of an open list and closes it. False when there is none.
  virtual bool AcceptItem(int id) = 0;

  // Text lines and the tool box.
  virtual void SelectAllText(int id) = 0;

  // Focus.
  /// The control of the visible tab that has the focus; 0 when none has it.
  [[nodiscard]] virtual int FocusedControl() const = 0;
  virtual void FocusControl(int id) = 0;
  virtual void FocusGrid(ZmcTab tab) = 0;

  /// Shows the tool's own message box, title "CNC", and returns what was pressed. Runs an event loop.
  virtual BoxAnswer AskInBox(const BoxSpec& box) = 0;
};

}  // namespace pnl
