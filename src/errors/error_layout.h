// SPDX-License-Identifier: MIT
// What stands where inside the error window. Arithmetic on rectangles only; the base geometry is measured once from the
// dialog.
#pragma once

#include "window/window.h"

namespace pnl {

/// As the dialog has it, measured at start.
struct ErrorBaseGeometry {
  Rect titleRect;
  int titleToTextGap = 0;
  int textToBottomGap = 0;
};

/// The controls of the top row.
struct ErrorTopRow {
  Rect titleBox;
  Rect channelBox;
  Rect help;
  Rect sign;  // of 1043, 1044 and 1045, which stand in one place
};

/// Sizes and tops are kept, columns are new.
[[nodiscard]] ErrorTopRow LayoutTop(int windowWidth, const ErrorTopRow& before, bool withChannel);
/// An arrow above the title line, its counter below it.
struct ErrorArrow {
  Rect arrow;
  Rect counter;
};
/// right: its distance from the window's right edge is kept, from a window of oldWidth; else its left edge is.
[[nodiscard]] ErrorArrow LayoutArrow(const ErrorArrow& before, int titleTop, int oldWidth, int newWidth, bool right);
[[nodiscard]] Rect LayoutTitleLine(const Rect& before, int windowWidth);
/// From below the title line to 15 pixels above the window's bottom.
[[nodiscard]] Rect LayoutDescription(const Rect& titleLine, int gap, const Rect& client);

/// The height that a title line takes, given its base height, its present one and that of its text; and whether its
/// text is centred. Nothing changes when `changed` is false.
struct TitleFit {
  bool changed = false;
  int height = 0;
  bool centred = true;
};
[[nodiscard]] TitleFit FitTitle(int base, int current, int needed);

}  // namespace pnl
