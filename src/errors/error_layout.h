// SPDX-License-Identifier: MIT
// Computes the places of the controls in the error window. It is arithmetic on rectangles only. The session measures
// the base geometry once, when the dialog has its original size.
#pragma once

#include "window/window.h"

namespace pnl {

/// The scale of the controls in a window of that size, in a panel of that area: 1 in one of 800 by 600, and more in a
/// larger one, as long as the top row keeps its room beside the arrows and the description below it. Never below 1.
[[nodiscard]] double ErrorScale(const Rect& area, const Rect& window);

/// The geometry of the dialog, measured at the start, in pixels.
struct ErrorBaseGeometry {
  Rect titleRect;
  int titleToTextGap = 0;
};

/// The controls of the top row.
struct ErrorTopRow {
  Rect titleBox;
  Rect channelBox;
  Rect help;
  Rect sign;  // the controls 1043, 1044 and 1045 share this place
};

/// The top row, centred in a window of that width. The title box is 320 pixels wide. The help and the sign get its top.
[[nodiscard]] ErrorTopRow LayoutTop(int windowWidth, const ErrorTopRow& before, bool withChannel);
/// An arrow above the title line, with its counter below the arrow.
struct ErrorArrow {
  Rect arrow;
  Rect counter;
};
/// An arrow and its counter in a window of newWidth. With right set they keep their distance from the right edge, which
/// they had in a window of oldWidth; else they keep their left edges.
[[nodiscard]] ErrorArrow LayoutArrow(const ErrorArrow& before, int titleTop, int oldWidth, int newWidth, bool right);
[[nodiscard]] Rect LayoutTitleLine(const Rect& before, int windowWidth);
/// The description begins gap pixels below the title line and ends 15 pixels above the window's bottom.
[[nodiscard]] Rect LayoutDescription(const Rect& titleLine, int gap, const Rect& client);

/// The new height of the title line, and whether its text is centred. If `changed` is false, everything stays as it is.
struct TitleFit {
  bool changed = false;
  int height = 0;
  bool centred = true;
};
/// Fits the title line to its text. base is its height in the dialog, current its present height, and needed the height
/// of the text.
[[nodiscard]] TitleFit FitTitle(int base, int current, int needed);

}  // namespace pnl
