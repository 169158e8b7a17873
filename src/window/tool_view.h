// SPDX-License-Identifier: MIT
// What the logic of every tool needs from its window. Each tool's own view adds the rest. ToolWindowWith implements it
// on Qt.
#pragma once

#include "window/window.h"

namespace pnl {

/// A selection in a line of text, in UTF-16 units. Both ends are equal at a caret without a selection.
struct TextSelection {
  int start = 0;
  int end = 0;
  friend bool operator==(const TextSelection&, const TextSelection&) = default;
};

class ToolView {
 public:
  virtual ~ToolView() = default;

  [[nodiscard]] virtual WindowHandle Handle() const = 0;
  /// The client area of the parent in pixels, measured from the parent's top left corner. Empty without a parent.
  [[nodiscard]] virtual Rect ParentClientRect() const = 0;
  /// True when the window is on the screen: neither it nor a window around it is hidden.
  [[nodiscard]] virtual bool IsVisible() const = 0;
  virtual void Show() = 0;
  /// Gives up the focus first, so that it doesn't move to another control of the panel, then hides the window.
  virtual void Hide() = 0;
  /// Brings the window in front of the other windows of the panel.
  virtual void BringToTop() = 0;
  /// Takes the focus from the window and its controls. No other widget gets it.
  virtual void ClearFocus() = 0;
};

}  // namespace pnl
