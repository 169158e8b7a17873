// SPDX-License-Identifier: MIT
// Where the calculator's controls lie: the built-in dialog in dialog units, what a language pack makes of it, and the
// pixels that come of both. Not the rules of opening, closing and compacting, which move controls later.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/text.h"
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

/// Where a note of that size lies: below the window, above it where there is no room, else over its lower edge; always
/// inside the parent as far as that reaches.
[[nodiscard]] Rect CalcNoteRect(const Rect& parent, const Rect& window, CalcExtent note);

}  // namespace pnl
