// SPDX-License-Identifier: MIT
// What an operator's hands do: keys, typed text, presses on controls, choices in lists. It makes the events that a
// keyboard and a touch screen make and sends them to the widget they would reach, so that tools see nothing unusual.
// Knows no tool; checks nothing that the widgets check themselves.
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
  QString text;  // what the key types
};

/// "Enter", "F1" or one character; nothing for another name.
[[nodiscard]] std::optional<KeyStroke> KeyByName(const QString& name, Qt::KeyboardModifiers modifiers);
/// The key that types this character; line feed and carriage return are Enter.
[[nodiscard]] KeyStroke KeyForCharacter(const QString& character);
/// "Ctrl", "Shift", "Alt", "Keypad"; nothing when one of them is none of these.
[[nodiscard]] std::optional<Qt::KeyboardModifiers> ModifiersByName(const QStringList& names);

/// Presses and releases a key in the window. A hot key of the window goes first; the rest arrives in the focused
/// control.
void PressKey(QWidget* window, const KeyStroke& stroke);
/// Replaces a control's text as typing would, past its limit and its forbidden characters. False for a control that
/// holds no text to type.
[[nodiscard]] bool TypeOver(QWidget* control, const QString& text);
/// Selects text from start to end, where the caret then stands; places beyond the text mean its end. False for a
/// control without a caret.
[[nodiscard]] bool MarkText(QWidget* control, int start, int end);

/// How many items a control offers to choose; nothing for one that isn't a list.
[[nodiscard]] std::optional<int> ItemCount(QWidget* control);
/// Chooses these items, all of which must exist; the first is the anchor. None takes the choice away.
void PickItems(QWidget* control, const QList<int>& indices);

/// Where a press goes: the middle of a control, one of its items, or the header of a column.
struct PressPlace {
  static constexpr int kNone = -2;
  static constexpr int kHeader = -1;
  int index = kNone;
  int column = 0;
};
/// False when there is no such place in the control.
[[nodiscard]] bool Press(QWidget* control, const PressPlace& place, bool twice);

}  // namespace panel
