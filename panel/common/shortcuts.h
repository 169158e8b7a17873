// SPDX-License-Identifier: MIT
// What an operator can ask of the panel, and the keys for it. One table feeds the keyboard, the names on the keys, the
// tooltips and the printed page. Nothing here carries an action out.
#pragma once

#include <QKeySequence>
#include <QList>
#include <QString>

#include "common/words.h"

namespace panel {

enum class Action {
  kCycleStart,
  kFeedHold,
  kSingleBlock,
  kCancel,
  kReset,
  kOverrideDown,
  kOverrideUp,
  kInspect,
  kOpenMdi,
  kSwitchRole,
  kOpenCalculator,
  kOpenMachining,
  kHelp,
  kClearError,
  kErrorList,
  kFocusTool,
  kOpenProgram,
  kSaveProgram,
  kSaveProgramAs,
  kNewProgram,
  kCoordinates,
  kOverrideFull,
  kUndoRemoval,
  kUndo,
  kRedo,
  kFind,
  kReplace,
  kGoToLine,
  kMainMore,
  kMainBack,
  kSideMore,
  kSideBack,
  kCount
};

struct ShortcutRow {
  Action action;
  Word what;
  const char* keys;  // portable key names, separated by "; "; the first one is shown
};

/// One row for each action, in the order of Action.
[[nodiscard]] const QList<ShortcutRow>& ShortcutTable();
[[nodiscard]] QList<QKeySequence> KeysOf(Action action);
[[nodiscard]] Word WordOf(Action action);
/// Whether the action's keys belong to the program editor: they act only while the editor has the keyboard.
[[nodiscard]] bool IsOfEditor(Action action);
/// Whether the action repeats while its key is held down. A held start key starts only once.
[[nodiscard]] bool Repeats(Action action);
/// What the action does and its first key, as in "Start (F9)".
[[nodiscard]] QString TooltipOf(Action action);

inline constexpr int kMainKeys = 7;
inline constexpr int kSideKeys = 6;
/// The key on the keyboard for a soft key, counted from 0: F1 to F7 for the bar below, Shift+F1 to Shift+F6 for the bar
/// at the side.
[[nodiscard]] QKeySequence MainKey(int index);
[[nodiscard]] QKeySequence SideKey(int index);

/// The whole table as a page in Markdown, in the current language.
[[nodiscard]] QString ShortcutPage();

}  // namespace panel
