// SPDX-License-Identifier: MIT
// The controls of the error window's dialog: their places in dialog units and their pictures. error_layout computes
// their places after the window has another size.
#pragma once

#include <span>

#include "base/text.h"
#include "host/language.h"
#include "window/dialog_units.h"
#include "window/window.h"

namespace pnl {

enum class ErrorControlKind { kBox, kText, kCounter, kPicture };

struct ErrorControl {
  int id;
  ErrorControlKind kind;
  int x, y, width, height;  // dialog units
  int picture;              // the number of the language's bitmap, or 0
  TextView instead;         // shown if the language does not have the bitmap
};

inline constexpr int kErrorDialogWidth = 393;
inline constexpr int kErrorDialogHeight = 157;

[[nodiscard]] std::span<const ErrorControl> ErrorControls();
/// The control's place in pixels: from the language's dialog if that has one for it, else the built-in place.
[[nodiscard]] Rect PixelsOf(const ErrorControl& control, const DialogTemplate* dialog, double scale);

}  // namespace pnl
