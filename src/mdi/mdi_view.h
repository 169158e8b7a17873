// SPDX-License-Identifier: MIT
// What the logic of the MDI/MDA command line asks of its window. The window has controls and decides nothing: every
// rule (when, which, with what text) is the logic's. Implemented by ZCMDIWindow on Qt and by a recording view in the
// tests. All rectangles are pixels; colours are 0x00BBGGRR.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "base/text.h"
#include "base/text_rows.h"
#include "mdi/mdi_layout.h"
#include "window/tool_view.h"

namespace pnl {

/// Everything that a ZCMDIList needs at its making. The items are borrowed for the call.
struct MdiDropListSpec {
  Rect screenRect;
  std::uint32_t back = 0;
  std::uint32_t text = 0;
  const TextRows* items = nullptr;  // null leaves the list empty; else all in order, the first one selected
};

class MdiView : public ToolView {
 public:
  /// Moves the window and its controls, shows and hides the list 5001 and the sign 3003. Neither shows nor hides the
  /// window, changes no text, no focus and no enabled state.
  virtual void Place(const MdiLayout& layout) = 0;
  /// Text of the title 5003.
  virtual void SetTitle(TextView title) = 0;
  /// Period in milliseconds; 0 stops the blinking. The same period again changes nothing.
  virtual void SetTitleBlinking(int period) = 0;
  /// Plus and ground of the sign 3003.
  virtual void SetSignColors(std::uint32_t fore, std::uint32_t back) = 0;

  // The focus. Each call that moves the focus brings the matching event (OnWindowFocus, OnEditFocus, OnListFocus, and
  // after the last OnFocusSettled) back into the logic, possibly before the call returns. A control that has the focus
  // already gets no event, and nothing happens when the control is disabled or can't be focused. The view may be gone
  // when such a call returns, since OnFocusSettled calls the host.
  virtual void FocusWindow() = 0;
  virtual void FocusEdit() = 0;
  virtual void FocusList() = 0;

  // The edit 5000, at most 255 characters when typed or pasted into.
  [[nodiscard]] virtual Text EditText() const = 0;
  /// Also texts beyond the limit; the caret goes to the start.
  virtual void SetEditText(TextView text) = 0;
  [[nodiscard]] virtual TextSelection EditSelection() const = 0;
  /// Ends beyond the text are cut to it. Start -1 takes the selection away and leaves the caret where it is.
  virtual void SetEditSelection(TextSelection selection) = 0;
  /// As typing over the selection would, also while the edit is read-only; the caret goes after the text.
  virtual void ReplaceEditSelection(TextView text) = 0;
  virtual void ScrollEditCaret() = 0;
  virtual void SetEditReadOnly(bool readOnly) = 0;
  /// Asks for a repaint; the colours come from MdiSession::ControlColors.
  virtual void RedrawEdit() = 0;

  // The list box 5001. Indices out of range and -1 mean no item; a wrong one is left alone.
  [[nodiscard]] virtual int ListCount() const = 0;
  [[nodiscard]] virtual Text ListItem(int index) const = 0;
  [[nodiscard]] virtual int ListSelection() const = 0;  // -1: none
  virtual void SetListSelection(int index) = 0;         // -1: none
  /// Replaces all items; nothing is selected after it.
  virtual void FillList(const TextRows& items) = 0;
  /// At index, or at the end when index is the count. The selected item stays selected.
  virtual void InsertListItem(int index, TextView text) = 0;
  virtual void ReplaceListItem(int index, TextView text) = 0;
  /// A deleted item that was selected leaves no selection.
  virtual void DeleteListItem(int index) = 0;
  virtual void SetListEnabled(bool enabled) = 0;

  // The drop list, a ZCMDIList that lives from Open to Close.
  [[nodiscard]] virtual Rect EditScreenRect() const = 0;
  [[nodiscard]] virtual bool IsDropListOpen() const = 0;
  /// Makes, fills and shows the list and gives it the focus.
  virtual void OpenDropList(const MdiDropListSpec& spec) = 0;
  /// Destroys it without a verdict ("MDI_ENDLIST" is not sent any more). May be called from within that message, so
  /// the widget must outlive the call.
  virtual void CloseDropList() = 0;
  /// The text selected in the open list, nothing if none is (ZCMDIList::GetSelected).
  [[nodiscard]] virtual std::optional<Text> DropListSelection() const = 0;
  /// The text that was picked, valid while "MDI_ENDLIST" is handled (ZCMDIList::GetText).
  [[nodiscard]] virtual Text DropListPicked() const = 0;
};

/// How a part of the logic reaches the window. The call throws WindowGone once the tool has ended, so the window is
/// asked for anew for each use.
using MdiViewAccess = std::function<MdiView&()>;

}  // namespace pnl
