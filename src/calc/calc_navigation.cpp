// SPDX-License-Identifier: MIT
#include "calc/calc_navigation.h"

#include "calc/calc_confirm.h"
#include "calc/calc_ids.h"
#include "calc/calc_layout.h"
#include "calc/calc_line.h"
#include "calc/calc_list.h"
#include "calc/calc_notes.h"
#include "calc/calc_variables.h"

namespace pnl::calc {

namespace {

/// Always the end of the key: at the edge the window just stays.
bool Step(CalcState& state, CalcDirection direction) {
  const auto place = MoveCalc(state.View().WindowRect(), state.View().ParentClientRect(), direction);
  if (place) state.View().MoveWindow(place->left, place->top);
  return true;
}

bool OnCtrlKey(CalcState& state, CalcKey key) {
  switch (key) {
    case CalcKey::kEnter:
      state.View().MoveWindow(0, 0);
      return true;
    case CalcKey::kLeft:
      return Step(state, CalcDirection::kLeft);
    case CalcKey::kRight:
      return Step(state, CalcDirection::kRight);
    case CalcKey::kUp:
      return Step(state, CalcDirection::kUp);
    case CalcKey::kDown:
      return Step(state, CalcDirection::kDown);
    default:
      return false;
  }
}

void Escape(CalcState& state) {
  if (state.IsConfirming()) {
    CancelConfirm(state);
    return;
  }
  if (state.openList == CalcOpenList::kVariables) {
    CloseVariables(state);
    return;
  }
  // A note goes along with whatever else the key does: it never costs the operator a second press.
  CloseNote(state);
  if (state.openList == CalcOpenList::kHistory) {
    CloseHistory(state, CalcKeep::kSavedLine);
  } else {
    state.context.host.HostToolWantsClose(tool_id::kCalculator);
  }
}

void Enter(CalcState& state) {
  if (state.openList != CalcOpenList::kVariables) {
    OnEnter(state);
  } else if (state.View().VariablesSelection() >= 0) {
    PickVariable(state);
  } else {
    CloseVariables(state);
  }
}

/// Keys that leave line, lists and variables alone, and so work while a confirmation runs.
bool OnFreeKey(CalcState& state, CalcKey key) {
  switch (key) {
    case CalcKey::kEscape:
      Escape(state);
      return true;
    case CalcKey::kAltF4:
      state.View().ClosePanel();
      return true;
    case CalcKey::kBases:
      OnButton(state, calc_id::kShowBases);
      return true;
    case CalcKey::kSolver:
      OnButton(state, calc_id::kShowSolver);
      return true;
    default:
      return false;
  }
}

bool OnEditingKey(CalcState& state, CalcKey key) {
  switch (key) {
    case CalcKey::kEnter:
      Enter(state);
      return true;
    case CalcKey::kInsert:
      OnInsert(state);
      return true;
    case CalcKey::kDelete:
      if (state.openList == CalcOpenList::kHistory) DeleteSelectedRows(state);
      return state.openList == CalcOpenList::kHistory;
    case CalcKey::kUp:
    case CalcKey::kDown:
      if (state.openList == CalcOpenList::kHistory) return TakeCurrentRow(state);
      if (state.openList == CalcOpenList::kVariables) return false;
      OpenHistory(state);
      return true;
    case CalcKey::kVariables:
      OnButton(state, calc_id::kShowVariables);
      return true;
    default:
      return false;
  }
}

}  // namespace

bool OnKey(CalcState& state, CalcKey key, bool ctrl) {
  if (ctrl) return OnCtrlKey(state, key);
  if (OnFreeKey(state, key)) return true;
  if (!state.IsConfirming()) return OnEditingKey(state, key);
  // The caret may walk; everything else waits for the end, or for Escape.
  return key != CalcKey::kLeft && key != CalcKey::kRight;
}

}  // namespace pnl::calc
