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
  if (!state.hint) return {};
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
  const Text hint = HintText(state);
  return integral + u'\n' + zero + (hint.empty() ? Text() : u'\n' + hint);
}

Text NoteText(CalcState& state) {
  switch (state.note) {
    case CalcNote::kNone:
      break;
    case CalcNote::kBases:
      return BasesText(state);
    case CalcNote::kSolver:
      return SolverText(state);
    case CalcNote::kHint:
      return HintText(state);
  }
  return {};
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
  RefreshNote(state);
}

void TakeSolverReport(CalcState& state, const SolverReport& report) {
  const bool shortOf = report.kind == SolverReport::Kind::kZero && !report.reachedTolerance;
  if (!shortOf) {
    DropHint(state);
    return;
  }
  state.hint = report;
  // The solver's note tells it as well, beside the parameters.
  if (state.note != CalcNote::kSolver) state.note = CalcNote::kHint;
}

void DropHint(CalcState& state) {
  state.hint.reset();
  if (state.note == CalcNote::kHint) state.note = CalcNote::kNone;
}

}  // namespace pnl::calc
