// SPDX-License-Identifier: MIT
// Computes the place of the error window in the panel: the rectangle of "errman.ini", scaled to the panel's present
// size. The places of the controls in the window are in error_layout.
#pragma once

#include <cstdint>

#include "base/files.h"
#include "facade/utilities.h"
#include "window/window.h"

namespace pnl {

/// The margins of the panel's frame, in pixels.
struct PanelFrame {
  std::int32_t top = 73;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  std::int32_t left = 25;
  friend bool operator==(const PanelFrame&, const PanelFrame&) = default;
};

inline constexpr Rect kDefaultErrorWindow{0, 0, 710, 298};
inline constexpr Rect kDefaultErrorPanel{0, 0, 800, 600};
inline constexpr int kDefaultSoftKeys = 7;

/// The margins of the frame for a panel of that size, in pixels. softKeys is the number of soft keys in a row; less
/// than 1 counts as 1.
[[nodiscard]] std::int32_t BottomMargin(int width, int height, int softKeys, bool standardMetrics);
[[nodiscard]] std::int32_t RightMargin(int width, bool standardMetrics);
/// The area of a panel that its margins leave free, as a rectangle from 0,0.
[[nodiscard]] Rect AvailableArea(const Rect& panel, const PanelFrame& frame);
/// The number of soft keys in a row. A configured number below 1 means 7. Any number is limited to the keys that fit
/// into the width, and this limit is at least 7.
[[nodiscard]] int SoftKeysIn(int configured, int width, bool standardMetrics);
/// Scales the window from one area to another. Returns the default window if the result is too small or the old area
/// has no size.
[[nodiscard]] Rect ScaleErrorWindow(const Rect& window, const Rect& oldArea, const Rect& newArea);

/// Reads "Window", "ParentWindow" and "Frame" and returns the window's place in the present panel. If the panel's area
/// has changed since they were written, writes all three anew. The result is the same if that fails.
[[nodiscard]] Rect PlaceErrorWindow(Files& files, Utilities& utilities);

/// The path of "errman.ini" in the machine's setup folder.
[[nodiscard]] Text ErrorIniPath(Utilities& utilities);

}  // namespace pnl
