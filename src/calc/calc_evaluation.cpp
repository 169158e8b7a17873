// SPDX-License-Identifier: MIT
#include "calc/calc_evaluation.h"

#include <algorithm>
#include <utility>

#include "calc/calc_confirm.h"
#include "calc/calc_ids.h"
#include "calc/calc_notes.h"

namespace pnl::calc {

namespace {

constexpr std::size_t kLongestPreview = 199;
// Counted, not timed, so that every run is the same: on a slow panel a fraction of the time that a key may take.
constexpr std::int64_t kStepsAtOnce = 200'000;
constexpr std::int64_t kStepsAPiece = 30'000;

PreviewExtent ExtentOf(CalcTask task) {
  return task == CalcTask::kSelectionPreview ? PreviewExtent::kSelection : PreviewExtent::kLine;
}

Text PreviewedText(CalcState& state) { return LineText(state).substr(0, kLongestPreview); }

Text SelectedText(TextView line, CalcSelection selection) {
  const auto unit = [&line](int at) { return std::min(static_cast<std::size_t>(std::max(at, 0)), line.size()); };
  const std::size_t start = unit(std::min(selection.start, selection.end));
  const std::size_t end = unit(std::max(selection.start, selection.end));
  return Text(line.substr(start, end - start));
}

void EndPreview(CalcState& state, CalcWork& work, CalcTask task) {
  const std::optional<double> value = work.Finish();
  const PreviewExtent extent = ExtentOf(task);
  state.View().SetStatus(value ? ValueStatus(state.texts, extent, *value, state.numberBase)
                               : FailureStatus(state.texts, extent));
  if (value) state.previewValue = value;
  TakeSolverReport(state, value ? work.Solver() : SolverReport());
}

void Preview(CalcState& state, const Text& text, CalcTask task) {
  DropWork(state);
  auto work = std::make_unique<CalcWork>(SharedCalcStore());
  if (const auto place = work->Compile(text)) {
    state.View().SetStatus(SyntaxStatus(state.texts, ExtentOf(task), text, *place));
  } else {
    work->Begin(state.radians);
    if (StartWork(state, std::move(work), task)) {
      const std::unique_ptr<CalcWork> done = std::move(state.work);
      EndPreview(state, *done, std::exchange(state.task, CalcTask::kNone));
    } else {
      state.View().SetStatus(state.context.language.LoadToolText(calc_id::kTextComputing));
    }
  }
  RefreshNote(state);
}

/// False without a selection in what is previewed.
bool PreviewSelection(CalcState& state) {
  const Text selected = SelectedText(PreviewedText(state), state.View().LineSelection());
  if (selected.empty()) return false;
  Preview(state, selected, CalcTask::kSelectionPreview);
  return true;
}

}  // namespace

Text LineText(CalcState& state) {
  Text line = state.View().LineText();
  line.resize(std::min(line.find(u'\0'), line.size()));
  return line;
}

void PreviewLine(CalcState& state) {
  const Text text = PreviewedText(state);
  if (!text.empty()) {
    Preview(state, text, CalcTask::kLinePreview);
    return;
  }
  DropWork(state);
  state.previewValue.reset();
  state.View().SetStatus(state.texts.empty);
  RefreshNote(state);
}

void RefreshPreview(CalcState& state) {
  if (state.IsConfirming()) return;
  if (!PreviewSelection(state)) PreviewLine(state);
}

void CompareSelection(CalcState& state) {
  if (state.closed || state.IsConfirming()) return;
  Text selected = SelectedText(LineText(state), state.View().LineSelection());
  if (selected == state.lastSelectedText) return;
  RefreshPreview(state);
  state.lastSelectedText = std::move(selected);
}

bool StartWork(CalcState& state, std::unique_ptr<CalcWork> work, CalcTask task) {
  DropWork(state);
  state.work = std::move(work);
  state.task = task;
  if (state.work->Advance(kStepsAtOnce)) return true;
  state.View().SetWorking(true);
  return false;
}

void DropWork(CalcState& state) {
  if (state.work == nullptr) return;
  state.work.reset();
  state.task = CalcTask::kNone;
  state.View().SetWorking(false);
}

void ContinueWork(CalcState& state) {
  if (state.work == nullptr || !state.work->Advance(kStepsAPiece)) return;
  state.View().SetWorking(false);
  if (state.IsConfirming()) {
    EndConfirm(state);
    return;
  }
  const std::unique_ptr<CalcWork> done = std::move(state.work);
  EndPreview(state, *done, std::exchange(state.task, CalcTask::kNone));
  RefreshNote(state);
}

}  // namespace pnl::calc
