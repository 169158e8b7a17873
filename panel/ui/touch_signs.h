// SPDX-License-Identifier: MIT
// The signs on keys of the touch keyboard for which no font can be trusted to have a character.
#pragma once

#include <QColor>
#include <QRect>

#include "ui/touch_layouts.h"

class QPainter;

namespace panel {

/// Draws the sign of a key in the middle of place. A character key is the space bar. locked: Shift stays on. Draws
/// nothing for a key that has a caption instead.
void DrawTouchSign(QPainter& painter, TouchAct act, const QRect& place, const QColor& color, bool locked);

}  // namespace panel
