// SPDX-License-Identifier: MIT
// The controls of the error window's dialog, where they lie in dialog units and which picture they show. What moves
// later is error_layout's business.
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
  int picture;              // number of the language's bitmap, 0 for none
  TextView instead;         // shown where the language lacks the picture
};

inline constexpr int kErrorDialogWidth = 393;
inline constexpr int kErrorDialogHeight = 157;

[[nodiscard]] std::span<const ErrorControl> ErrorControls();
/// In pixels; where the language's dialog places it, else as built in.
[[nodiscard]] Rect PixelsOf(const ErrorControl& control, const DialogTemplate* dialog, double scale);

}  // namespace pnl
