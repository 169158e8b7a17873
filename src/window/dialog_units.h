// SPDX-License-Identifier: MIT
// Dialog units as pixels. At scale 1 a unit is 6/4 pixels wide and 13/8 high; each number is rounded by itself.
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

/// Corner and size each rounded by themselves, so that controls of one size stay so.
[[nodiscard]] inline Rect DialogPixels(const Rect& units, double scale) {
  const int left = DialogPixelsX(units.left, scale);
  const int top = DialogPixelsY(units.top, scale);
  return {left, top, left + DialogPixelsX(units.Width(), scale), top + DialogPixelsY(units.Height(), scale)};
}

}  // namespace pnl
