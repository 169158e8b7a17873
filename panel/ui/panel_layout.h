// SPDX-License-Identifier: MIT
// Where the parts of the panel stand, as arithmetic: from the size of the window, or outward from a tool area of a
// given size. It knows no widget, so every size can be tried.
#pragma once

#include <QRect>
#include <QSize>

namespace panel {

struct PanelLayout {
  QSize window;
  double scale = 1;   // of the fonts; 1 at 800x600
  bool wide = false;  // axes and readings in a column at the left instead of a band above
  QRect status;       // channel state, mode, readings, errors
  QRect axes;
  QRect readings;  // feed, override, spindle, tool: in the column, or at the right of the status
  QRect modal;     // modal G codes and the block in hand
  QRect toolArea;
  QRect sideBar;
  QRect messages;
  QRect mainBar;
  QRect operatorKeys;
};

/// The least side of a key in a layout, whatever the window: nothing is made smaller than touch.
inline constexpr QSize kLeastWindow{640, 480};

/// Everything inside a window of that size; the tool area takes what is left. touch: least side of a key in pixels.
[[nodiscard]] PanelLayout LayOutWithin(QSize window, int touch);
/// Everything around a tool area of exactly that size.
[[nodiscard]] PanelLayout LayOutAround(QSize toolArea, int touch);

/// The largest part of area that a tool leaves free above, below or at a side; all of it where that is too little to
/// work in.
[[nodiscard]] QRect RoomBeside(const QRect& area, const QRect& tool);

}  // namespace panel
