// SPDX-License-Identifier: MIT
#include "calc/calc_list.h"

#include <algorithm>
#include <optional>

#include "calc/calc_ids.h"
#include "calc/calc_layout.h"
#include "calc/calc_line.h"
#include "calc/calc_variables.h"

namespace pnl::calc {

namespace {

/// Of several selected rows the one that the keys are on, else the first; nothing without a selection.
std::optional<Text> SelectedRow(CalcState& state) {
  const std::vector<int> selected = state.View().ListSelection();
  if (selected.empty()) return std::nullopt;
  const int current = state.View().ListCurrent();
  const bool onIt = std::find(selected.begin(), selected.end(), current) != selected.end();
  return state.View().ListItem(onIt ? current : selected.front());
}

}  // namespace

void LayOverKeypad(CalcState& state, int list, bool shown) {
  CalcView& view = state.View();
  if (shown) view.MoveControl(list, CalcListRect(MeasureCalc(view), state.minimized));
  // In a compact window the list takes the place of the result display.
  if (!shown || state.minimized) view.ShowControl(calc_id::kResult, !shown);
  if (shown) view.ShowControl(list, true);
  for (int key = calc_id::kFirstKey; key <= calc_id::kLastKey; ++key) view.ShowControl(key, !shown);
  for (int key = calc_id::kShowBases; key <= calc_id::kShowSolver; ++key) view.ShowControl(key, !shown);
  if (!shown) view.ShowControl(list, false);
}

void OpenHistory(CalcState& state) {
  CloseVariables(state);
  state.openList = CalcOpenList::kHistory;
  state.savedLine = state.View().LineText();
  LayOverKeypad(state, calc_id::kHistory, true);
  state.View().FocusList();
}

void CloseHistory(CalcState& state, CalcKeep keep) {
  if (state.openList != CalcOpenList::kHistory) return;
  state.openList = CalcOpenList::kNone;
  const std::optional<Text> row = keep == CalcKeep::kSavedLine ? state.savedLine : SelectedRow(state);
  WriteLine(state, row ? *row : state.View().LineText());
  LayOverKeypad(state, calc_id::kHistory, false);
  state.View().FocusLine();
}

void ToggleHistory(CalcState& state) {
  if (state.openList == CalcOpenList::kHistory) {
    CloseHistory(state, CalcKeep::kSavedLine);
  } else {
    OpenHistory(state);
  }
}

void ShowSelectedRow(CalcState& state) {
  if (state.openList != CalcOpenList::kHistory) return;
  if (const auto row = SelectedRow(state)) state.View().SetLineText(*row);
}

bool TakeCurrentRow(CalcState& state) {
  const int current = state.View().ListCurrent();
  if (current < 0 || !state.View().ListSelection().empty()) return false;
  state.View().SelectListItem(current);
  ShowSelectedRow(state);
  return true;
}

void DeleteSelectedRows(CalcState& state) {
  const std::vector<int> selected = state.View().ListSelection();
  for (auto row = selected.rbegin(); row != selected.rend(); ++row) state.View().DeleteListItem(*row);
}

}  // namespace pnl::calc
