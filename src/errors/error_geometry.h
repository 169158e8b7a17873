// SPDX-License-Identifier: MIT
// Where the error window stands in the panel: the rectangle of "errman.ini", scaled to the panel's present size. What
// stands where inside the window is error_layout's business.
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

/// For a panel of that size; softKeys is their count in a row, at least 1.
[[nodiscard]] std::int32_t BottomMargin(int width, int height, int softKeys, bool standardMetrics);
[[nodiscard]] std::int32_t RightMargin(int width, bool standardMetrics);
/// What is left of a panel between its margins, as width and height from 0,0.
[[nodiscard]] Rect AvailableArea(const Rect& panel, const PanelFrame& frame);
/// A configured count other than 7 is capped by what the width holds, which is at least 7; below 1 it is 7.
[[nodiscard]] int SoftKeysIn(int configured, int width, bool standardMetrics);
/// The window scaled from one area to another; the default window where the result is too small or the old area has no
/// size.
[[nodiscard]] Rect ScaleErrorWindow(const Rect& window, const Rect& oldArea, const Rect& newArea);

/// Reads "Window", "ParentWindow" and "Frame"; writes all three back when the panel's area has changed since. A file
/// that can't be written changes nothing here.
[[nodiscard]] Rect PlaceErrorWindow(Files& files, Utilities& utilities);

/// "%s\errman.ini" in the machine's setup folder.
[[nodiscard]] Text ErrorIniPath(Utilities& utilities);

}  // namespace pnl
