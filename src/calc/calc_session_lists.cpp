// SPDX-License-Identifier: MIT
// The part of the session that handles the keys and the two lists over the keypad: the history and the variables.
#include <algorithm>
#include <utility>

#include "calc/calc_ids.h"
#include "calc/calc_session.h"

namespace pnl {

// Keys.

bool CalcSession::OnKey(CalcKey key, bool ctrl) {
  if (ctrl) return OnCtrlKey(key);
  if (OnFreeKey(key)) return true;
  if (!run_.IsConfirming()) return OnEditingKey(key);
  // While a confirmation runs, only the keys that move the caret reach the line.
  return key != CalcKey::kLeft && key != CalcKey::kRight;
}

bool CalcSession::OnCtrlKey(CalcKey key) {
  switch (key) {
    case CalcKey::kEnter:
      View().MoveWindow(0, 0);
      return true;
    case CalcKey::kLeft:
      MoveStep(CalcDirection::kLeft);
      return true;
    case CalcKey::kRight:
      MoveStep(CalcDirection::kRight);
      return true;
    case CalcKey::kUp:
      MoveStep(CalcDirection::kUp);
      return true;
    case CalcKey::kDown:
      MoveStep(CalcDirection::kDown);
      return true;
    default:
      return false;
  }
}

/// Moves the window by one step, if enough of it stays visible.
void CalcSession::MoveStep(CalcDirection direction) {
  const auto place = MoveCalc(View().WindowRect(), View().ParentClientRect(), direction);
  if (place) View().MoveWindow(place->left, place->top);
}

/// Handles the keys that also work while a confirmation runs, because they don't change line, lists or variables.
bool CalcSession::OnFreeKey(CalcKey key) {
  switch (key) {
    case CalcKey::kEscape:
      OnEscape();
      return true;
    case CalcKey::kAltF4:
      View().ClosePanel();
      return true;
    case CalcKey::kBases:
      OnButton(calc_id::kShowBases);
      return true;
    case CalcKey::kSolver:
      OnButton(calc_id::kShowSolver);
      return true;
    default:
      return false;
  }
}

bool CalcSession::OnEditingKey(CalcKey key) {
  switch (key) {
    case CalcKey::kEnter:
      OnEnter();
      return true;
    case CalcKey::kInsert:
      OnInsert();
      return true;
    case CalcKey::kDelete:
      if (openList_ == OpenList::kHistory) DeleteSelectedRows();
      return openList_ == OpenList::kHistory;
    case CalcKey::kUp:
    case CalcKey::kDown:
      if (openList_ == OpenList::kHistory) return TakeCurrentRow();
      if (openList_ == OpenList::kVariables) return false;
      OpenHistory();
      return true;
    case CalcKey::kVariables:
      OnButton(calc_id::kShowVariables);
      return true;
    default:
      return false;
  }
}

void CalcSession::OnEscape() {
  if (run_.IsConfirming()) return CancelConfirm();
  if (openList_ == OpenList::kVariables) return CloseVariables();
  // The key closes the note and also does its other work, so that the operator needn't press it twice.
  CloseNote();
  if (openList_ == OpenList::kHistory) return CloseHistory(Keep::kSavedLine);
  Host().HostToolWantsClose(PNL_TOOL_CALCULATOR);
}

void CalcSession::OnEnter() {
  if (openList_ == OpenList::kVariables) {
    if (View().VariablesSelection() < 0) return CloseVariables();
    return PickVariable();
  }
  const Text line = ToUpper(LineText());
  if (line == u"SETMENU(TRUE)") AttachMenu(true);
  if (line == u"SETMENU(FALSE)") AttachMenu(false);
  if (openList_ == OpenList::kHistory) return CloseHistory(Keep::kSelectedRow);
  if (!Trim(line).empty()) return OnButton(calc_id::kConfirm);
  const Text result(Trim(View().ResultText()));
  if (result != u"0") WriteLine(result);
}

// Both lists.

/// Shows a list over the keypad, or hides it and shows the keypad again.
void CalcSession::LayOverKeypad(int list, bool shown) {
  if (shown) View().MoveControl(list, CalcListRect(MeasureCalc(View()), minimized_));
  // In a compact window the list is in the place of the result display.
  if (!shown || minimized_) View().ShowControl(calc_id::kResult, !shown);
  if (shown) View().ShowControl(list, true);
  for (int key = calc_id::kFirstKey; key <= calc_id::kLastKey; ++key) View().ShowControl(key, !shown);
  for (int key = calc_id::kShowBases; key <= calc_id::kShowSolver; ++key) View().ShowControl(key, !shown);
  if (!shown) View().ShowControl(list, false);
}

// The history.

void CalcSession::OnListSelection() {
  if (!run_.IsConfirming()) ShowSelectedRow();
}

void CalcSession::OnListDoubleClick() {
  if (!run_.IsConfirming()) CloseHistory(Keep::kSelectedRow);
}

/// The selected row. If several are selected, it is the current one, or the first one if the current row isn't
/// selected. Returns nothing if none is selected.
std::optional<Text> CalcSession::SelectedRow() const {
  const std::vector<int> selected = View().ListSelection();
  if (selected.empty()) return std::nullopt;
  const int current = View().ListCurrent();
  const bool onIt = std::find(selected.begin(), selected.end(), current) != selected.end();
  return View().ListItem(onIt ? current : selected.front());
}

void CalcSession::OpenHistory() {
  CloseVariables();
  openList_ = OpenList::kHistory;
  savedLine_ = View().LineText();
  LayOverKeypad(calc_id::kHistory, true);
  View().FocusList();
}

/// Closes the history. Does nothing if it isn't open.
void CalcSession::CloseHistory(Keep keep) {
  if (openList_ != OpenList::kHistory) return;
  openList_ = OpenList::kNone;
  const std::optional<Text> row = keep == Keep::kSavedLine ? savedLine_ : SelectedRow();
  WriteLine(row ? *row : View().LineText());
  LayOverKeypad(calc_id::kHistory, false);
  View().FocusLine();
}

void CalcSession::ToggleHistory() {
  if (openList_ == OpenList::kHistory) return CloseHistory(Keep::kSavedLine);
  OpenHistory();
}

void CalcSession::ShowSelectedRow() {
  if (openList_ != OpenList::kHistory) return;
  if (const auto row = SelectedRow()) View().SetLineText(*row);
}

/// If no row is selected, selects the current row, writes it to the line and returns true. Else returns false. So the
/// row after a deleted one isn't skipped.
bool CalcSession::TakeCurrentRow() {
  const int current = View().ListCurrent();
  if (current < 0 || !View().ListSelection().empty()) return false;
  View().SelectListItem(current);
  ShowSelectedRow();
  return true;
}

void CalcSession::DeleteSelectedRows() {
  const std::vector<int> selected = View().ListSelection();
  if (selected.empty()) return;
  CalcRemoval removal;
  for (const int row : selected) removal.rows.emplace_back(row, View().ListItem(row));
  removal.values.resize(selected.size());
  for (std::size_t i = selected.size(); i-- > 0;) {
    removal.values[i] = values_.Rows().Erase(selected[i]);
    View().DeleteListItem(selected[i]);
  }
  history_.NoteChanged();
  removal.left = View().ListCount();
  removed_.Note(std::move(removal));
}

Text CalcSession::RowValue(int row, const Text& expression) {
  const std::optional<double> value = values_.ValueOf(row, expression, radians_);
  return value ? FormatResult(*value, numberBase_) : Text();
}

// The variables.

void CalcSession::OnVariablesPicked() {
  if (!run_.IsConfirming()) PickVariable();
}

/// Opens or closes the list of variables. An open history is closed, and the line gets back its saved text.
void CalcSession::ToggleVariables() {
  if (openList_ == OpenList::kVariables) return CloseVariables();
  CloseHistory(Keep::kSavedLine);
  openList_ = OpenList::kVariables;
  FillVariables();
  LayOverKeypad(calc_id::kVariables, true);
  View().FocusVariables();
}

/// Closes the list of variables. Does nothing if it isn't open.
void CalcSession::CloseVariables() {
  if (openList_ != OpenList::kVariables) return;
  openList_ = OpenList::kNone;
  LayOverKeypad(calc_id::kVariables, false);
  View().FocusLine();
}

void CalcSession::FillVariables() {
  variables_ = VariableRows(SharedCalcStore());
  std::vector<Text> rows;
  for (const VariableRow& variable : variables_) rows.push_back(variable.words);
  if (rows.empty()) rows.push_back(Context().language.LoadToolText(calc_id::kTextNoVariables));
  View().FillVariables(rows);
}

/// Inserts the name of the selected variable at the caret and closes the list. Does nothing if none is selected.
void CalcSession::PickVariable() {
  if (openList_ != OpenList::kVariables) return;
  const int row = View().VariablesSelection();
  if (row < 0) return;
  CloseVariables();
  // The row that says that there are no variables has no name.
  const auto index = static_cast<std::size_t>(row);
  if (index < variables_.size()) InsertText(variables_[index].name);
}

}  // namespace pnl
