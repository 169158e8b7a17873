// SPDX-License-Identifier: MIT
// Sizes and places of the calculator's window and of the lists over its keypad. Pure arithmetic in pixels; what there
// is to measure comes from the view.
#pragma once

#include <optional>

#include "calc/calc_view.h"

namespace pnl {

/// What the sizes depend on, in the client area.
struct CalcMeasures {
  Rect client;
  Rect line;      // 1008
  Rect result;    // 1010
  Rect status;    // 1011
  Rect firstKey;  // 1013
  Rect lastKey;   // 1016, the lowest of the first column
};
[[nodiscard]] CalcMeasures MeasureCalc(const CalcView& view);

/// The client area's height. Normal: the lowest key's left margin repeated below it. Compact: ends above the keypad.
[[nodiscard]] int CalcClientHeight(const CalcMeasures& measures, bool compact);
/// Normal: over the keypad, to the client area's bottom. Compact: over the result display.
[[nodiscard]] Rect CalcListRect(const CalcMeasures& measures, bool compact);

enum class CalcDirection { kLeft, kRight, kUp, kDown };
struct CalcPlace {
  int left = 0;
  int top = 0;
  friend bool operator==(const CalcPlace&, const CalcPlace&) = default;
};
/// One step of the window in its parent; nothing when too little of it would stay visible on that side.
[[nodiscard]] std::optional<CalcPlace> MoveCalc(const Rect& window, const Rect& parent, CalcDirection direction);

}  // namespace pnl
