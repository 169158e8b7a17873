// SPDX-License-Identifier: MIT
// Sizes and places of the calculator: its controls in the built-in dialog, what a language pack makes of that, the
// pixels that come of both; its window, the lists over its keypad and the note beside it. Pure arithmetic; what there
// is to measure comes from the view. Not the rules of opening, closing and compacting, which decide when something
// moves.
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
  TextView text;            // of a key whose icon is missing
  int x, y, width, height;  // dialog units
};

struct CalcExtent {
  int width = 0;
  int height = 0;
};

/// Every control that has a place of its own, in the order in which they are made: later ones lie over earlier ones.
[[nodiscard]] std::span<const CalcControl> CalcControls();
/// Of the whole dialog, in dialog units.
[[nodiscard]] CalcExtent CalcDialogUnits();

/// The control as the language's dialog has it; what that lacks stays as built in. The result points into both.
[[nodiscard]] CalcControl LocalizedControl(const CalcControl& control, const DialogTemplate* dialog);

/// In pixels.
[[nodiscard]] Rect DialogPixels(const CalcControl& control, double scale);
/// The scale that keeps keys as large as a finger on a screen of that density, in steps of a quarter; 1 for one of some
/// 96 dots per inch or less, or one that can't be true. Never so large that the dialog takes more than half the
/// parent's width or more than its height, unless it does so at 1.
[[nodiscard]] double DialogScale(double dotsPerInch, const Rect& parent);

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

/// Where a note of that size lies: below the window, above it where there is no room, else over its lower edge; always
/// inside the parent as far as that reaches.
[[nodiscard]] Rect CalcNoteRect(const Rect& parent, const Rect& window, CalcExtent note);

}  // namespace pnl
