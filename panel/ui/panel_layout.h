// SPDX-License-Identifier: MIT
// Computes where the parts of the panel are, from the size of the window or outward from a tool area of a given size.
// It knows no widget, so a test can try every size.
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
  QRect modal;     // modal G codes and the current block
  QRect toolArea;
  QRect sideBar;
  QRect messages;
  QRect mainBar;
  QRect reservedRow;
  QRect operatorKeys;
  QRect keyboard;  // the touch keyboard, while it is up
};

/// The smallest window.
inline constexpr QSize kLeastWindow{640, 480};

/// The least side of a key that is pressed while the machine moves: 12 mm, where an ordinary key has 9. touch: the
/// least side of an ordinary key, in pixels.
[[nodiscard]] constexpr int MovingTouch(int touch) { return (touch * 4 + 2) / 3; }

/// Lays out a window of that size; the tool area takes what is left. touch: the least side of a key, in pixels.
[[nodiscard]] PanelLayout LayOutWithin(QSize window, int touch);
/// Lays out a window around a tool area of exactly that size.
[[nodiscard]] PanelLayout LayOutAround(QSize toolArea, int touch);

/// The greatest side of a key with which a window of that size keeps an eighth of its height for the tool area.
[[nodiscard]] int MostTouch(QSize window);

/// Makes room for a touch keyboard of that height in place of the main bar: the messages move up, and what is left of
/// the tool area is the part of it that can be seen. A side bar whose keys would be too small is empty.
[[nodiscard]] PanelLayout WithKeyboard(const PanelLayout& rest, int height, int touch);
/// The greatest height of a keyboard that leaves enough of the tool area to see what is typed.
[[nodiscard]] int MostForKeyboard(const PanelLayout& rest, int touch);

/// Returns the largest part of area that the tool leaves free above, below or at a side. Returns all of area when that
/// part is smaller than a third of it.
[[nodiscard]] QRect RoomBeside(const QRect& area, const QRect& tool);

}  // namespace panel
