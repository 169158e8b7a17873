// SPDX-License-Identifier: MIT
// Computes the sizes and places of the calculator: of its controls, in the built-in dialog and in that of a language
// pack, in pixels, and of its window, the lists over the keypad and the note beside the window. It is pure arithmetic
// on what the view has measured. The session decides when something is moved.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "base/text.h"
#include "calc/calc_view.h"
#include "host/language.h"
#include "window/dialog_units.h"
#include "window/window.h"

namespace pnl {

enum class CalcKind { kResult, kEdit, kStatic, kKey, kList };

struct CalcControl {
  int id;
  CalcKind kind;
  TextView text;            // shown on a key that has no icon
  int x, y, width, height;  // dialog units
};

struct CalcExtent {
  int width = 0;
  int height = 0;
};

/// All controls of the dialog, in the order in which they are made. Later ones are over earlier ones.
[[nodiscard]] std::span<const CalcControl> CalcControls();
/// The size of the whole dialog, in dialog units.
[[nodiscard]] CalcExtent CalcDialogUnits();

/// The control with the text and the place that it has in the language's dialog. What the dialog doesn't have is as in
/// control. The result's text belongs to one of the two.
[[nodiscard]] CalcControl LocalizedControl(const CalcControl& control, const DialogTemplate* dialog);

/// The place of the control in pixels.
[[nodiscard]] Rect DialogPixels(const CalcControl& control, double scale);
/// The scale of the dialog in a parent of that size: 1 in one 800 pixels wide, and more in a wider one, where it takes
/// at most half of the height for that. On a dense screen it is at least so large that a key is as large as a finger; a
/// density that can't be true doesn't count. It is a multiple of a quarter and never below 1. The dialog never takes
/// more than half the width of the parent or more than its height, unless it does so at scale 1.
[[nodiscard]] double DialogScale(double dotsPerInch, const Rect& parent);

/// The rectangles on which sizes and places depend. Those of the controls are in the client area.
struct CalcMeasures {
  Rect client;
  Rect line;      // 1008
  Rect result;    // 1010
  Rect status;    // 1011
  Rect firstKey;  // 1013
  Rect lastKey;   // 1016, the lowest key of the first column
};
[[nodiscard]] CalcMeasures MeasureCalc(const CalcView& view);

/// The height of the client area. It ends below the lowest key, with the same margin as to the left of that key. In a
/// compact window it ends above the keypad.
[[nodiscard]] int CalcClientHeight(const CalcMeasures& measures, bool compact);
/// The place of a list: over the keypad down to the bottom of the client area. In a compact window it is over the
/// result display.
[[nodiscard]] Rect CalcListRect(const CalcMeasures& measures, bool compact);

enum class CalcDirection { kLeft, kRight, kUp, kDown };
struct CalcPlace {
  int left = 0;
  int top = 0;
  friend bool operator==(const CalcPlace&, const CalcPlace&) = default;
};
/// The place of the window after one step in its parent. Returns nothing if too little of it would then be visible.
[[nodiscard]] std::optional<CalcPlace> MoveCalc(const Rect& window, const Rect& parent, CalcDirection direction);

/// The place of a window that opens where it was left. If the parent is smaller than it was then, so that less of the
/// window would be visible than a step leaves, it is moved until all of it is in the parent, or its top left corner if
/// it is larger than the parent.
[[nodiscard]] CalcPlace CalcInSight(const Rect& window, const Rect& parent);

/// The place of a note of that size: below the window, above it if there is no room below, else over the window at the
/// bottom of the parent. It is inside the parent if the parent is large enough.
[[nodiscard]] Rect CalcNoteRect(const Rect& parent, const Rect& window, CalcExtent note);

}  // namespace pnl
