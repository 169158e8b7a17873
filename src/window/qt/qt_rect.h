// SPDX-License-Identifier: MIT
// Converts rectangles between the library and Qt.
#pragma once

#include <QRect>

#include "window/window.h"

namespace pnl {

[[nodiscard]] inline QRect ToQRect(const Rect& rect) { return {rect.left, rect.top, rect.Width(), rect.Height()}; }

[[nodiscard]] inline Rect FromQRect(const QRect& rect) {
  return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

}  // namespace pnl
