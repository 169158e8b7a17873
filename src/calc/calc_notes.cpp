// SPDX-License-Identifier: MIT
#include "calc/calc_notes.h"

#include "base/format.h"
#include "calc/calc_ids.h"

namespace pnl::calc {

namespace {

Text Decimal(double value) { return FormatResult(value, number_base::kDecimal); }

Text BasesText(CalcState& state) {
  const double value = state.previewValue.value_or(state.value);
  return Format(u"%s  %s  %s", Decimal(value), FormatResult(value, number_base::kHexadecimal),
                FormatResult(value, number_base::kBinary));
}

Text HintText(CalcState& state) {
  return Format(state.context.language.LoadToolText(calc_id::kTextTolerance), static_cast<int>(state.hint->steps),
                Decimal(state.hint->residual));
}

Text SolverText(CalcState& state) {
  const auto of = [](char letter) {
    return Decimal(SharedCalcStore().Variables[static_cast<std::size_t>(letter - 'A')]);
  };
  const Language& language = state.context.language;
  const Text integral = Format(language.LoadToolText(calc_id::kTextIntegral), of('A'), of('B'), of('N'));
  const Text zero = Format(language.LoadToolText(calc_id::kTextZero), of('A'), of('N'), of('E'));
  return integral + u'\n' + zero;
}

/// A hint stands below whatever note is there.
Text NoteText(CalcState& state) {
  Text text;
  if (state.note == CalcNote::kBases) text = BasesText(state);
  if (state.note == CalcNote::kSolver) text = SolverText(state);
  if (!state.hint) return text;
  if (!text.empty()) text += u'\n';
  return text + HintText(state);
}

}  // namespace

void RefreshNote(CalcState& state) {
  Text text = NoteText(state);
  if (text == state.noteText) return;
  state.noteText = std::move(text);
  state.View().SetNote(state.noteText);
}

void ToggleNote(CalcState& state, CalcNote note) {
  state.note = state.note == note ? CalcNote::kNone : note;
  RefreshNote(state);
}

void CloseNote(CalcState& state) {
  state.note = CalcNote::kNone;
  state.hint.reset();
  RefreshNote(state);
}

void TakeSolverReport(CalcState& state, const SolverReport& report) {
  state.hint.reset();
  if (report.kind == SolverReport::Kind::kZero && !report.reachedTolerance) state.hint = report;
}

}  // namespace pnl::calc
