// SPDX-License-Identifier: MIT
// What the logic of the MDI/MDA command line asks of its window. The window has the controls and decides nothing. The
// logic has every rule: when, which, with what text. ZCMDIWindow implements it on Qt, and a recording view in the
// tests. All rectangles are in pixels. Colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "base/text.h"
#include "base/text_rows.h"
#include "mdi/mdi_drop_rows.h"
#include "mdi/mdi_layout.h"
#include "window/tool_view.h"

namespace pnl {

/// Everything that is needed to make a ZCMDIList. The items must be valid during the call only.
struct MdiDropListSpec {
  Rect screenRect;
  std::uint32_t back = 0;
  std::uint32_t text = 0;
  const TextRows* items = nullptr;  // shown in order, the first one selected; null for an empty list
  bool above = false;               // the list is above the edit, and its keys are above the list
};

/// The two keys beside the drop list, and the word on the row of a refused block.
struct MdiDropKeys {
  Text arrange;             // the key that changes between the history and the arranged rows
  Text pin;                 // the key that pins the selected row, or unpins it
  bool pinEnabled = false;  // a row is selected
  Text refused;
};

class MdiView : public ToolView {
 public:
  /// Moves the window and its controls, and shows or hides the list 5001 and the sign 3003. It doesn't show or hide the
  /// window, and changes no text, no focus and no enabled state.
  virtual void Place(const MdiLayout& layout) = 0;
  /// Sets the text of the title 5003.
  virtual void SetTitle(TextView title) = 0;
  /// Lets the title blink with a period in milliseconds; 0 stops it. The same period again changes nothing.
  virtual void SetTitleBlinking(int period) = 0;
  /// Sets the colours of the plus and the background of the sign 3003.
  virtual void SetSignColors(std::uint32_t fore, std::uint32_t back) = 0;

  // The focus. Each call that moves the focus causes calls of OnWindowFocus, OnEditFocus, OnListFocus and, after the
  // last change, OnFocusSettled, possibly before it returns. Nothing happens if the control already has the focus, is
  // disabled or can't have it. The view may be gone when the call returns, because OnFocusSettled calls the host.
  virtual void FocusWindow() = 0;
  virtual void FocusEdit() = 0;
  virtual void FocusList() = 0;

  // The edit 5000. At most 255 characters can be typed or pasted into it.
  [[nodiscard]] virtual Text EditText() const = 0;
  /// Sets the text, even if it is longer than the limit. The caret goes to the start.
  virtual void SetEditText(TextView text) = 0;
  [[nodiscard]] virtual TextSelection EditSelection() const = 0;
  /// Sets the selection. Positions beyond the text mean its end. Start -1 removes the selection and leaves the caret.
  virtual void SetEditSelection(TextSelection selection) = 0;
  /// Replaces the selection as if the text were typed, even if the edit is read-only. The caret goes after the text.
  virtual void ReplaceEditSelection(TextView text) = 0;
  virtual void ScrollEditCaret() = 0;
  virtual void SetEditReadOnly(bool readOnly) = 0;
  /// Paints the edit again, with the colours of MdiSession::ControlColors.
  virtual void RedrawEdit() = 0;

  // The list box 5001. An index out of range and -1 mean no item. Then ListItem is empty and no item is changed.
  [[nodiscard]] virtual int ListCount() const = 0;
  [[nodiscard]] virtual Text ListItem(int index) const = 0;
  [[nodiscard]] virtual int ListSelection() const = 0;  // -1 for none
  virtual void SetListSelection(int index) = 0;         // -1 for none
  /// Replaces all items. Then nothing is selected.
  virtual void FillList(const TextRows& items) = 0;
  /// Inserts before the item at index, or at the end if index is the count. The selected item stays selected.
  virtual void InsertListItem(int index, TextView text) = 0;
  virtual void ReplaceListItem(int index, TextView text) = 0;
  /// Deletes an item. If it was selected, nothing is selected then.
  virtual void DeleteListItem(int index) = 0;
  virtual void SetListEnabled(bool enabled) = 0;

  // The drop list, a ZCMDIList that exists from OpenDropList to CloseDropList.
  [[nodiscard]] virtual Rect EditScreenRect() const = 0;
  [[nodiscard]] virtual bool IsDropListOpen() const = 0;
  /// Makes, fills and shows the drop list and gives it the focus.
  virtual void OpenDropList(const MdiDropListSpec& spec) = 0;
  /// Replaces the rows of the open drop list and their marks, and selects the row that rows names. If the rows are the
  /// same as before, only marks and selection change. Calls nobody outside.
  virtual void ShowDropRows(const MdiDropRows& rows) = 0;
  virtual void ShowDropKeys(const MdiDropKeys& keys) = 0;
  /// Destroys the drop list without a verdict: "MDI_ENDLIST" isn't sent any more. It may be called while that message
  /// is handled, so the widget must live until the call stack is left.
  virtual void CloseDropList() = 0;
  /// The selected text of the open drop list, or nothing if none is selected (ZCMDIList::GetSelected).
  [[nodiscard]] virtual std::optional<Text> DropListSelection() const = 0;
  /// The picked text, while "MDI_ENDLIST" is handled (ZCMDIList::GetText).
  [[nodiscard]] virtual Text DropListPicked() const = 0;
};

/// Returns the window. Throws WindowGone if the tool has ended, so a part of the logic calls it for each use.
using MdiViewAccess = std::function<MdiView&()>;

}  // namespace pnl
