// SPDX-License-Identifier: MIT
// A key that is touched on the screen, as a keyboard would send it.
#pragma once

#include <QString>
#include <Qt>

class QWidget;

namespace panel {

struct TouchStroke {
  int key = 0;
  Qt::KeyboardModifiers modifiers;
  QString text;  // what the key types
  bool operator==(const TouchStroke&) const = default;
};

/// The stroke that types this character. An upper-case letter comes with Shift, as from a keyboard.
[[nodiscard]] TouchStroke StrokeOf(QChar character);

/// Presses and releases the key in whatever has the keyboard: an open drop list, the widget with the focus, else the
/// panel. Each of them may be gone after the press. repeated: the key is being held.
void SendStroke(QWidget& panel, const TouchStroke& stroke, bool repeated = false);

}  // namespace panel
