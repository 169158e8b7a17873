// SPDX-License-Identifier: MIT
// What the keys, menu commands and typed characters write: one table, and pure functions that turn the line and a
// command into the new line and its caret. They know no window and evaluate nothing. The key that confirms isn't here.
#pragma once

#include <optional>
#include <span>

#include "base/text.h"
#include "calc/calc_view.h"

namespace pnl {

/// How a key's text and the selection are put together.
enum class CalcForm { kPlain, kOperator, kFunction, kAssignment };

/// One row: the key, the menu command and the typed character that write the text. 0 means that there is none.
struct CalcKeyRow {
  int key;
  int menu;
  char16_t typed;
  CalcForm form;
  TextView text;
  /// How far the caret is moved. Not a mistake: some numbers are greater than the length of the text. The caret is then
  /// in the text that follows or at the end of the line.
  int caret;
};

[[nodiscard]] std::span<const CalcKeyRow> CalcKeyTable();

/// The line after a command. The caret may be beyond the end of the text.
struct CalcEdit {
  Text text;
  int caret = 0;
  friend bool operator==(const CalcEdit&, const CalcEdit&) = default;
};

/// Carries out the command of a key or a menu. An unknown id leaves the text as it is and puts the caret at 0.
[[nodiscard]] CalcEdit InsertAtCaret(TextView line, TextSelection selection, int command);
/// Replaces the selection with the text, or inserts the text at the caret if nothing is selected. The new caret is that
/// many characters after the start of the selection.
[[nodiscard]] CalcEdit InsertPlainly(TextView line, TextSelection selection, TextView text, int caret);
/// The selected part of the line. It is empty for a caret. Positions beyond the line mean its end.
[[nodiscard]] Text SelectedText(TextView line, TextSelection selection);
/// The command of a typed character. Returns nothing for a character that the line takes as it is.
[[nodiscard]] std::optional<int> CommandOfCharacter(char16_t character);
/// Whether InsertAtCaret handles the id: a key of the keypad except the one that confirms, or a menu command that
/// writes.
[[nodiscard]] bool IsInsertion(int command);

}  // namespace pnl
