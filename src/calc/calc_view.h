// SPDX-License-Identifier: MIT
// What the calculator's logic asks of its window. The window holds controls and decides nothing: every rule (when,
// which, with what text) is the logic's. Implemented by ZCCalc7340 on Qt and by a recording view in the tests. All
// rectangles are pixels; colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"
#include "base/text_rows.h"
#include "window/menu.h"
#include "window/tool_view.h"

namespace pnl {

class CalcView : public ToolView {
 public:
  // The window. Rectangles of the window are in the parent's client area.
  [[nodiscard]] virtual Rect WindowRect() const = 0;
  virtual void MoveWindow(int left, int top) = 0;
  /// Of the client area below an attached menu bar; the width stays.
  virtual void SetClientHeight(int height) = 0;
  /// The window goes when the present event is over. Until then it still reports its rows and its place.
  virtual void Destroy() = 0;
  /// Asks the top-level window of the panel to close.
  virtual void ClosePanel() = 0;
  virtual void SetTitle(TextView title) = 0;
  /// Puts that menu on the window as a bar, or takes it off (0). Its commands come as OnMenuCommand.
  virtual void AttachMenu(MenuHandle menu) = 0;

  // Controls by id. Rectangles are in the client area, below an attached menu bar.
  [[nodiscard]] virtual Rect ClientRect() const = 0;
  [[nodiscard]] virtual Rect ControlRect(int id) const = 0;
  virtual void MoveControl(int id, const Rect& rect) = 0;
  virtual void ShowControl(int id, bool shown) = 0;
  /// The face of a key; a bitmap that the language doesn't have leaves the key as it is.
  virtual void SetKeyIcon(int id, int bitmap) = 0;
  /// Heights relative to the line's own font (negative: taller) and weights of the line's and the result's font.
  virtual void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) = 0;

  // The line 1008. A change of its text brings OnLineChanged back before the call returns.
  [[nodiscard]] virtual Text LineText() const = 0;
  /// The caret goes to the start.
  virtual void SetLineText(TextView text) = 0;
  [[nodiscard]] virtual TextSelection LineSelection() const = 0;
  /// Ends beyond the text are cut to it; the caret, at the end, is scrolled into view.
  virtual void SetLineSelection(TextSelection selection) = 0;
  virtual void LimitLine(int characters) = 0;
  virtual void FocusLine() = 0;

  // Result 1010 and status line 1011.
  [[nodiscard]] virtual Text ResultText() const = 0;
  virtual void SetResultText(TextView text) = 0;
  virtual void SetResultColors(std::uint32_t back, std::uint32_t text) = 0;
  virtual void SetStatus(TextView text) = 0;

  // The history 1038, with extended selection. What the operator does to the selection brings OnListSelection, and so
  // does each press on a row and each Up or Down that the list gets, even if the selection stays as it is. Orders
  // don't.
  [[nodiscard]] virtual int ListCount() const = 0;
  [[nodiscard]] virtual Text ListItem(int index) const = 0;
  /// Selected rows in ascending order.
  [[nodiscard]] virtual std::vector<int> ListSelection() const = 0;
  /// The row that the keys move from; -1: none.
  [[nodiscard]] virtual int ListCurrent() const = 0;
  virtual void FillList(const TextRows& rows) = 0;
  [[nodiscard]] virtual TextRows ListRows() const = 0;
  virtual void InsertListItem(int index, TextView text) = 0;
  /// The keys then move from the row that took its place, or from the last one; it isn't selected.
  virtual void DeleteListItem(int index) = 0;
  /// That row alone.
  virtual void SelectListItem(int index) = 0;
  virtual void FocusList() = 0;

  // The variables 1104: the rows as they are given, nothing or one of them selected; and the note 1105, a line or more
  // in a frame below the window (above it where there is no room), which an empty text hides.
  virtual void FillVariables(const std::vector<Text>& rows) = 0;
  [[nodiscard]] virtual int VariablesSelection() const = 0;
  virtual void FocusVariables() = 0;
  virtual void SetNote(TextView text) = 0;

  /// Asks for CalcSession::Work soon, again and again, until it is asked to stop. Keys and painting go first.
  virtual void SetWorking(bool working) = 0;
};

}  // namespace pnl
