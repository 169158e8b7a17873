// SPDX-License-Identifier: MIT
#include "calc/calc_confirm.h"

#include <utility>

#include "calc/calc_closing.h"
#include "calc/calc_evaluation.h"
#include "calc/calc_ids.h"
#include "calc/calc_line.h"
#include "calc/calc_list.h"
#include "calc/calc_menus.h"
#include "calc/calc_notes.h"

namespace pnl::calc {

namespace {

constexpr TextView kResultVariable = u"E.CALCRESUL";

void InsertAndClose(CalcState& state) {
  ZCVariable result(state.context.cnc.Vars(), kResultVariable);
  if (result.IsValid()) result.WriteDouble(state.value);
  Close(state, PNL_CLOSED_ACCEPTED);
}

void Confirm(CalcState& state, CalcTask task) {
  Text line = LineText(state);
  auto work = std::make_unique<CalcWork>(SharedCalcStore());
  if (work->Compile(line)) return;  // the status line tells why already
  work->Begin(state.radians);
  const bool ended = StartWork(state, std::move(work), task);
  state.confirmedLine = std::move(line);
  if (ended) {
    EndConfirm(state);
  } else {
    state.View().SetStatus(state.context.language.LoadToolText(calc_id::kTextConfirming));
  }
}

}  // namespace

void Confirm(CalcState& state) { Confirm(state, CalcTask::kConfirm); }

void EndConfirm(CalcState& state) {
  const std::unique_ptr<CalcWork> work = std::move(state.work);
  const CalcTask task = std::exchange(state.task, CalcTask::kNone);
  const Text line = std::exchange(state.confirmedLine, {});
  const std::optional<double> value = work->Finish();
  // Also after a failure: assignments made before it stay.
  work->StoreTo(SharedCalcStore());
  if (!value) {
    state.View().SetStatus(ConfirmFailureStatus(state.texts, work->Description()));
    RefreshNote(state);
    return;
  }
  state.value = *value;
  state.View().SetResultText(FormatResult(state.value, state.numberBase));
  state.View().InsertListItem(0, line);
  state.history.NoteAdded(line);
  state.View().SetLineText({});
  TakeSolverReport(state, work->Solver());
  RefreshNote(state);
  if (task == CalcTask::kConfirmAndClose) InsertAndClose(state);
}

void CancelConfirm(CalcState& state) {
  state.confirmedLine.clear();
  DropWork(state);
  PreviewLine(state);
}

void OnEnter(CalcState& state) {
  const Text line = ToUpper(LineText(state));
  if (line == u"SETMENU(TRUE)") AttachMenu(state, true);
  if (line == u"SETMENU(FALSE)") AttachMenu(state, false);
  if (state.openList == CalcOpenList::kHistory) {
    CloseHistory(state, CalcKeep::kSelectedRow);
  } else if (!Trim(line).empty()) {
    OnButton(state, calc_id::kConfirm);
  } else {
    const Text result(Trim(state.View().ResultText()));
    if (result != u"0") WriteLine(state, result);
  }
}

void OnInsert(CalcState& state) {
  if (LineText(state).empty()) {
    InsertAndClose(state);
  } else {
    Confirm(state, CalcTask::kConfirmAndClose);
  }
}

void TakeValue(CalcState& state) {
  const ZCVariable handed(state.context.cnc.Vars(), kResultVariable);
  double value = 0;
  if (!handed.IsValid() || handed.ReadDouble(value) != 0 || value == 0) return;
  WriteLine(state, FormatValue(value));
}

}  // namespace pnl::calc
