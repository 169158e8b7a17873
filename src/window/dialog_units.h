// SPDX-License-Identifier: MIT
// Converts dialog units to pixels. At scale 1 a unit is 6/4 pixels wide and 13/8 pixels high. Each number is rounded on
// its own.
#pragma once

#include <cmath>

#include "window/window.h"

namespace pnl {

[[nodiscard]] inline int DialogPixelsX(int units, double scale) {
  return static_cast<int>(std::lround(units * scale * 6 / 4));
}

[[nodiscard]] inline int DialogPixelsY(int units, double scale) {
  return static_cast<int>(std::lround(units * scale * 13 / 8));
}

/// Rounds corner and size separately, so that controls of equal size keep equal sizes.
[[nodiscard]] inline Rect DialogPixels(const Rect& units, double scale) {
  const int left = DialogPixelsX(units.left, scale);
  const int top = DialogPixelsY(units.top, scale);
  return {left, top, left + DialogPixelsX(units.Width(), scale), top + DialogPixelsY(units.Height(), scale)};
}

}  // namespace pnl
