// SPDX-License-Identifier: MIT
// What the keys, menu commands and typed characters write: one table, and pure functions from the line and a command
// to the new line and its caret. Knows no window and no evaluation; the key that confirms is not here.
#pragma once

#include <optional>
#include <span>

#include "base/text.h"
#include "calc/calc_view.h"

namespace pnl {

/// Where a key's text goes around the selection.
enum class CalcForm { kPlain, kOperator, kFunction, kAssignment };

/// One row: what writes the text. 0 means no key, no menu command, no character.
struct CalcKeyRow {
  int key;
  int menu;
  char16_t typed;
  CalcForm form;
  TextView text;
  /// How far the caret goes from the selection; some numbers exceed what the text has, and the caret then stops at
  /// the line's end or in what follows.
  int caret;
};

[[nodiscard]] std::span<const CalcKeyRow> CalcKeyTable();

/// The line after a command; the caret may lie beyond the text's end.
struct CalcEdit {
  Text text;
  int caret = 0;
  friend bool operator==(const CalcEdit&, const CalcEdit&) = default;
};

/// By a key's or a menu command's id. An id that names nothing leaves the text and puts the caret at 0.
[[nodiscard]] CalcEdit InsertAtCaret(TextView line, TextSelection selection, int command);
/// The text takes the place of the selection; without one it goes to the caret.
[[nodiscard]] CalcEdit InsertPlainly(TextView line, TextSelection selection, TextView text, int caret);
/// Empty for a caret; ends beyond the line are cut to it.
[[nodiscard]] Text SelectedText(TextView line, TextSelection selection);
/// The command that a typed character means; nothing for those that the line takes itself.
[[nodiscard]] std::optional<int> CommandOfCharacter(char16_t character);
/// Does the id reach InsertAtCaret: a key of the keypad but the one that confirms, or a menu command of that range?
[[nodiscard]] bool IsInsertion(int command);

}  // namespace pnl
