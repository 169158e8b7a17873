// SPDX-License-Identifier: MIT
// What an operator can ask of the panel, and the keys for it: one table that feeds the keyboard, the names on the keys,
// the tooltips and the printed page. It does nothing itself.
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
  kMainMore,
  kMainBack,
  kSideMore,
  kSideBack,
  kCount
};

struct ShortcutRow {
  Action action;
  Word what;
  const char* keys;  // portable key names, parted by "; "; the first is shown
};

/// One row for each action, in order.
[[nodiscard]] const QList<ShortcutRow>& ShortcutTable();
[[nodiscard]] QList<QKeySequence> KeysOf(Action action);
[[nodiscard]] Word WordOf(Action action);
/// Whether the action goes on while its key is held. A held start key starts once.
[[nodiscard]] bool Repeats(Action action);
/// "Start (F9)": what a key does and the keyboard's way to it.
[[nodiscard]] QString TooltipOf(Action action);

inline constexpr int kMainKeys = 7;
inline constexpr int kSideKeys = 6;
/// The keyboard's key for a soft key, counted from 0: F1 to F7 below, Shift+F1 to Shift+F6 at the side.
[[nodiscard]] QKeySequence MainKey(int index);
[[nodiscard]] QKeySequence SideKey(int index);

/// The whole table as a page in Markdown, in the language in use.
[[nodiscard]] QString ShortcutPage();

}  // namespace panel
