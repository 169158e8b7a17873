// SPDX-License-Identifier: MIT
// How big a thing must be that a finger presses.
#pragma once

#include <QtWidgets/QWidget>

namespace pnl {

/// The least side of what a finger presses, in pixels, never less than 34. It is what the host's widget around the tool
/// asks for with the property "pnlFinger"; otherwise 9 mm on the screen that shows the widget. A screen that doesn't
/// know its size counts as one of 96 dots per inch.
[[nodiscard]] int FingerPixels(const QWidget& widget);

}  // namespace pnl
