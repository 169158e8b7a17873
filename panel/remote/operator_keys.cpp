// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QShortcut>
#include <QWidget>
#include <array>

#include "remote/operator_input.h"
#include "remote/window_inspector.h"

namespace panel {

namespace {

struct NamedKey {
  const char* name;
  int key;
  const char* text;
};

constexpr NamedKey kKeys[] = {
    {"Enter", Qt::Key_Return, "\r"},    {"Escape", Qt::Key_Escape, "\x1b"},
    {"Tab", Qt::Key_Tab, "\t"},         {"Up", Qt::Key_Up, ""},
    {"Down", Qt::Key_Down, ""},         {"Left", Qt::Key_Left, ""},
    {"Right", Qt::Key_Right, ""},       {"Home", Qt::Key_Home, ""},
    {"End", Qt::Key_End, ""},           {"PageUp", Qt::Key_PageUp, ""},
    {"PageDown", Qt::Key_PageDown, ""}, {"Insert", Qt::Key_Insert, ""},
    {"Delete", Qt::Key_Delete, "\x7f"}, {"Backspace", Qt::Key_Backspace, "\b"},
    {"Space", Qt::Key_Space, " "},
};

constexpr int kLastFunctionKey = 35;

std::optional<int> FunctionKey(const QString& name) {
  if (name.size() < 2 || name[0] != 'F') return std::nullopt;
  bool ok = false;
  const int number = name.mid(1).toInt(&ok);
  if (!ok || number < 1 || number > kLastFunctionKey || name[1] == '0') return std::nullopt;
  return Qt::Key_F1 + number - 1;
}

bool IsOneCharacter(const QString& name) {
  return name.size() == 1 || (name.size() == 2 && name[0].isHighSurrogate() && name[1].isLowSurrogate());
}

QString TextWithModifiers(int key, const QString& text, Qt::KeyboardModifiers modifiers) {
  // With Ctrl a letter types its control character; any other character types nothing.
  if (!modifiers.testFlag(Qt::ControlModifier)) return text;
  return key >= Qt::Key_A && key <= Qt::Key_Z ? QString(QChar(key - Qt::Key_A + 1)) : QString();
}

KeyStroke CharacterStroke(const QString& character, Qt::KeyboardModifiers modifiers) {
  const uint code = character.size() == 2 ? QChar::surrogateToUcs4(character[0], character[1]) : character[0].unicode();
  const int key = static_cast<int>(QChar::toUpper(code));
  if (QChar::isUpper(code)) modifiers |= Qt::ShiftModifier;
  return {key, modifiers, TextWithModifiers(key, character, modifiers)};
}

/// Fires the hot key of this stroke, if there is one. A window reserves a key for itself with a QShortcut among its
/// children. A tool reserves one for the whole panel with a QShortcut of the top-level window that names the tool. The
/// window's own keys come first, because two tools may have reserved the same one.
bool FireHotKey(QWidget* window, const KeyStroke& stroke) {
  const QKeySequence pressed(QKeyCombination(stroke.modifiers, static_cast<Qt::Key>(stroke.key)));
  QList<QShortcut*> found = window->findChildren<QShortcut*>();
  for (QShortcut* shortcut : window->window()->findChildren<QShortcut*>(Qt::FindDirectChildrenOnly)) {
    const QVariant owner = shortcut->property("pnlOwner");
    if (!owner.isValid()) continue;
    const bool own = owner.toInt() == window->property("pnlWindow").toInt();
    own ? found.prepend(shortcut) : found.append(shortcut);
  }
  for (QShortcut* shortcut : found) {
    if (!shortcut->isEnabled() || shortcut->key() != pressed) continue;
    emit shortcut->activated();
    return true;
  }
  return false;
}

}  // namespace

std::optional<KeyStroke> KeyByName(const QString& name, Qt::KeyboardModifiers modifiers) {
  for (const NamedKey& known : kKeys) {
    if (name != QLatin1StringView(known.name)) continue;
    int key = known.key;
    if (key == Qt::Key_Return && modifiers.testFlag(Qt::KeypadModifier)) key = Qt::Key_Enter;
    if (key == Qt::Key_Tab && modifiers.testFlag(Qt::ShiftModifier)) key = Qt::Key_Backtab;
    return KeyStroke{key, modifiers, QString::fromLatin1(known.text)};
  }
  if (const auto key = FunctionKey(name)) return KeyStroke{*key, modifiers, QString()};
  if (IsOneCharacter(name)) return CharacterStroke(name, modifiers);
  return std::nullopt;
}

KeyStroke KeyForCharacter(const QString& character) {
  if (character == "\n" || character == "\r") return *KeyByName("Enter", {});
  if (character == "\t") return *KeyByName("Tab", {});
  if (character == "\b") return *KeyByName("Backspace", {});
  if (character == "\x1b") return *KeyByName("Escape", {});
  return CharacterStroke(character, {});
}

std::optional<Qt::KeyboardModifiers> ModifiersByName(const QStringList& names) {
  Qt::KeyboardModifiers modifiers;
  for (const QString& name : names) {
    if (name == "Ctrl") {
      modifiers |= Qt::ControlModifier;
    } else if (name == "Shift") {
      modifiers |= Qt::ShiftModifier;
    } else if (name == "Alt") {
      modifiers |= Qt::AltModifier;
    } else if (name == "Keypad") {
      modifiers |= Qt::KeypadModifier;
    } else {
      return std::nullopt;
    }
  }
  return modifiers;
}

void PressKey(QWidget* window, const KeyStroke& stroke) {
  if (FireHotKey(window, stroke)) return;
  const QPointer<QWidget> target = WindowInspector::Focused(window);
  QKeyEvent press(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(target, &press);
  // The press may have destroyed the control or moved the focus. The release goes to the focus, as a keyboard's does.
  QWidget* released = QApplication::focusWidget() != nullptr ? QApplication::focusWidget() : target.data();
  if (released == nullptr) return;
  QKeyEvent release(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
  QApplication::sendEvent(released, &release);
}

}  // namespace panel
