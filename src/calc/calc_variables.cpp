// SPDX-License-Identifier: MIT
#include "calc/calc_variables.h"

#include "base/format.h"
#include "calc/calc_ids.h"
#include "calc/calc_line.h"
#include "calc/calc_list.h"

namespace pnl::calc {

namespace {

void Fill(CalcState& state) {
  std::vector<Text> rows;
  state.variableNames.clear();
  const auto add = [&state, &rows](const Text& name, double value) {
    if (value == 0) return;
    // In decimal whatever the base is, so that a fraction is seen.
    rows.push_back(Format(u"%s = %s", name, FormatResult(value, number_base::kDecimal)));
    state.variableNames.push_back(name);
  };
  const CalcStore& store = SharedCalcStore();
  char16_t letter = u'A';
  for (const double value : store.Variables) add(Text(1, letter++), value);
  add(u"ACC", store.Acc);
  if (rows.empty()) rows.push_back(state.context.language.LoadToolText(calc_id::kTextNoVariables));
  state.View().FillVariables(rows);
}

}  // namespace

void ToggleVariables(CalcState& state) {
  if (state.openList == CalcOpenList::kVariables) {
    CloseVariables(state);
    return;
  }
  CloseHistory(state, CalcKeep::kSavedLine);
  state.openList = CalcOpenList::kVariables;
  Fill(state);
  LayOverKeypad(state, calc_id::kVariables, true);
  state.View().FocusVariables();
}

void CloseVariables(CalcState& state) {
  if (state.openList != CalcOpenList::kVariables) return;
  state.openList = CalcOpenList::kNone;
  LayOverKeypad(state, calc_id::kVariables, false);
  state.View().FocusLine();
}

void PickVariable(CalcState& state) {
  if (state.openList != CalcOpenList::kVariables) return;
  const int row = state.View().VariablesSelection();
  if (row < 0) return;
  CloseVariables(state);
  // The row that says that there are none has no name.
  const auto index = static_cast<std::size_t>(row);
  if (index < state.variableNames.size()) InsertText(state, state.variableNames[index]);
}

}  // namespace pnl::calc
