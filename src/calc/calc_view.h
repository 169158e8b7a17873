// SPDX-License-Identifier: MIT
// What the calculator's logic asks of its window. The window has the controls and decides nothing. The logic has every
// rule: when, which, with what text. ZCCalc7340 implements it on Qt, and a recording view in the tests. All rectangles
// are in pixels. Colours are 0x00BBGGRR.
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
  // The window. Its rectangles are in the client area of the parent.
  [[nodiscard]] virtual Rect WindowRect() const = 0;
  virtual void MoveWindow(int left, int top) = 0;
  /// Sets the height of the client area, which begins below an attached menu bar. The width stays.
  virtual void SetClientHeight(int height) = 0;
  /// Destroys the window when the present event is over. Until then it still has its rows and its place.
  virtual void Destroy() = 0;
  /// Asks the top-level window of the panel to close.
  virtual void ClosePanel() = 0;
  virtual void SetTitle(TextView title) = 0;
  /// Shows the menu as a bar on the window, or removes the bar if menu is 0. Its commands come to OnMenuCommand. The
  /// client area has its height only after the next call of SetClientHeight.
  virtual void AttachMenu(MenuHandle menu) = 0;

  // The controls, by id. Their rectangles are in the client area, which begins below an attached menu bar.
  [[nodiscard]] virtual Rect ClientRect() const = 0;
  [[nodiscard]] virtual Rect ControlRect(int id) const = 0;
  virtual void MoveControl(int id, const Rect& rect) = 0;
  virtual void ShowControl(int id, bool shown) = 0;
  /// Sets the icon of a key. If the language does not have the bitmap, the key stays as it is.
  virtual void SetKeyIcon(int id, int bitmap) = 0;
  /// Sets the fonts of the line and of the result. Heights are relative to the dialog's font; a negative one is taller.
  virtual void MakeFonts(int lineHeight, int lineWeight, int resultHeight, int resultWeight) = 0;

  // The line 1008. If a call changes its text, OnLineChanged is called before it returns.
  [[nodiscard]] virtual Text LineText() const = 0;
  /// Sets the text. The caret goes to the start.
  virtual void SetLineText(TextView text) = 0;
  [[nodiscard]] virtual TextSelection LineSelection() const = 0;
  /// Sets the selection. Positions beyond the text mean its end. The caret is at the selection's end and is visible.
  virtual void SetLineSelection(TextSelection selection) = 0;
  virtual void LimitLine(int characters) = 0;
  virtual void FocusLine() = 0;

  // The result 1010 and the status line 1011.
  [[nodiscard]] virtual Text ResultText() const = 0;
  virtual void SetResultText(TextView text) = 0;
  virtual void SetResultColors(std::uint32_t back, std::uint32_t text) = 0;
  virtual void SetStatus(TextView text) = 0;

  // The history 1038, in which several rows can be selected. OnListSelection is called when the operator changes the
  // selection, and for each press on a row and each Up or Down that the list gets, even if the selection stays the
  // same. It isn't called for the calls below.
  [[nodiscard]] virtual int ListCount() const = 0;
  [[nodiscard]] virtual Text ListItem(int index) const = 0;
  /// The selected rows in ascending order.
  [[nodiscard]] virtual std::vector<int> ListSelection() const = 0;
  /// The current row, from which the keys move, or -1.
  [[nodiscard]] virtual int ListCurrent() const = 0;
  virtual void FillList(const TextRows& rows) = 0;
  [[nodiscard]] virtual TextRows ListRows() const = 0;
  virtual void InsertListItem(int index, TextView text) = 0;
  /// Deletes a row. The row after it, or the last one, becomes the current row and isn't selected.
  virtual void DeleteListItem(int index) = 0;
  /// Selects only that row.
  virtual void SelectListItem(int index) = 0;
  virtual void FocusList() = 0;
  /// Paints the values beside the rows again, which CalcSession::RowValue returns.
  virtual void RepaintRowValues() = 0;

  // The list of variables 1104, in which one row can be selected, and the note 1105, a text in a frame beside the
  // window. An empty text hides the note.
  virtual void FillVariables(const std::vector<Text>& rows) = 0;
  [[nodiscard]] virtual int VariablesSelection() const = 0;
  virtual void FocusVariables() = 0;
  virtual void SetNote(TextView text) = 0;

  /// With true the window calls CalcSession::Work again and again, after keys and painting, until a call with false.
  virtual void SetWorking(bool working) = 0;
};

}  // namespace pnl
