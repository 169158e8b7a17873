// SPDX-License-Identifier: MIT
#include "calc/calc_line.h"

#include <algorithm>

#include "calc/calc_confirm.h"
#include "calc/calc_evaluation.h"
#include "calc/calc_ids.h"
#include "calc/calc_keys.h"
#include "calc/calc_list.h"
#include "calc/calc_notes.h"
#include "calc/calc_variables.h"

namespace pnl::calc {

namespace {

/// What the keys write keeps to the limit of what is typed: an edit that would pass it is none. A line that is longer
/// already, a row of the history for instance, may only get shorter.
void Show(CalcState& state, const Text& line, const CalcEdit& edit) {
  if (edit.text.size() > std::max(line.size(), kLongestExpression)) return state.View().FocusLine();
  state.View().SetLineText(edit.text);
  state.View().FocusLine();
  state.View().SetLineSelection({edit.caret, edit.caret});
}

}  // namespace

void WriteLine(CalcState& state, TextView text) {
  state.View().SetLineText(text);
  const int end = static_cast<int>(text.size());
  state.View().SetLineSelection({end, end});
}

void OnButton(CalcState& state, int id) {
  if (id == calc_id::kShowBases) ToggleNote(state, CalcNote::kBases);
  if (id == calc_id::kShowSolver) ToggleNote(state, CalcNote::kSolver);
  // What would change line, list or variables waits until a running confirmation has ended or was cancelled.
  if (state.IsConfirming()) return;
  if (id == calc_id::kOpenList) ToggleHistory(state);
  if (id == calc_id::kShowVariables) ToggleVariables(state);
  if (id == calc_id::kConfirm) {
    CloseVariables(state);
    Confirm(state);
    state.View().FocusLine();
  }
  if (!IsInsertion(id)) return;
  CloseVariables(state);
  const Text line = state.View().LineText();
  Show(state, line, InsertAtCaret(line, state.View().LineSelection(), id));
}

void InsertText(CalcState& state, TextView text) {
  const int caret = static_cast<int>(text.size());
  const Text line = state.View().LineText();
  Show(state, line, InsertPlainly(line, state.View().LineSelection(), text, caret));
}

bool OnCharacter(CalcState& state, char16_t character) {
  if (state.IsConfirming()) return true;
  // In an open list a character looks for a row.
  if (state.openList != CalcOpenList::kNone) return false;
  const auto command = CommandOfCharacter(character);
  if (command) OnButton(state, *command);
  return command.has_value();
}

void OnLineChanged(CalcState& state) {
  if (state.IsConfirming()) {
    // What got past the keys (pasting, a key held down) must not change what is being confirmed.
    if (state.View().LineText() != state.confirmedLine) WriteLine(state, state.confirmedLine);
    return;
  }
  state.hint.reset();
  PreviewLine(state);
}

}  // namespace pnl::calc
