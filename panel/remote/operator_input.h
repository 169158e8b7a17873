// SPDX-License-Identifier: MIT
// An operator's input: keys, typed text, presses on controls, choices in lists. It makes the events that a keyboard and
// a touch screen make and sends them to the widgets they would reach, so that a tool sees no difference. It knows no
// tool, and leaves every check that the widgets make to them.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

class QWidget;

namespace panel {

struct KeyStroke {
  int key = 0;
  Qt::KeyboardModifiers modifiers;
  QString text;  // the text that the key types
};

/// The stroke of a key named "Enter", "F1" and so on, or of one character. Nothing for any other name.
[[nodiscard]] std::optional<KeyStroke> KeyByName(const QString& name, Qt::KeyboardModifiers modifiers);
/// The stroke that types this character. Line feed and carriage return are Enter.
[[nodiscard]] KeyStroke KeyForCharacter(const QString& character);
/// The modifiers named "Ctrl", "Shift", "Alt" or "Keypad". Nothing when a name is none of these.
[[nodiscard]] std::optional<Qt::KeyboardModifiers> ModifiersByName(const QStringList& names);

/// Presses and releases a key in the window. When the key is a hot key of the window or of the panel, only the hot key
/// fires. Otherwise the key goes to the control with the focus.
void PressKey(QWidget* window, const KeyStroke& stroke);
/// Replaces a control's text as typing would, even beyond its limit and with characters it forbids. Returns false for a
/// control without a text to type.
[[nodiscard]] bool TypeOver(QWidget* control, const QString& text);
/// Selects the text from start to end and puts the caret at the end. A place beyond the text means the end of the text.
/// Returns false for a control without a caret.
[[nodiscard]] bool MarkText(QWidget* control, int start, int end);

/// The number of items in a list; nothing for a control that isn't a list.
[[nodiscard]] std::optional<int> ItemCount(QWidget* control);
/// Chooses these items, all of which must exist. The first one is the anchor. An empty list clears the choice.
void PickItems(QWidget* control, const QList<int>& indices);

/// Where in a control a press goes: its middle (kNone), the header of a column (kHeader), or an item.
struct PressPlace {
  static constexpr int kNone = -2;
  static constexpr int kHeader = -1;
  int index = kNone;
  int column = 0;
};
/// Presses and releases at that place, twice for a double press. Returns false when the control has no such place.
[[nodiscard]] bool Press(QWidget* control, const PressPlace& place, bool twice);

}  // namespace panel
