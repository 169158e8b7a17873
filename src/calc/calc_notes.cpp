// SPDX-License-Identifier: MIT
#include "calc/calc_notes.h"

#include "base/format.h"
#include "calc/calc_format.h"
#include "calc/calc_ids.h"
#include "host/language.h"

namespace pnl {

namespace {

Text Decimal(double value) { return FormatResult(value, number_base::kDecimal); }

Text BasesText(double value) {
  return Format(u"%s  %s  %s", Decimal(value), FormatResult(value, number_base::kHexadecimal),
                FormatResult(value, number_base::kBinary));
}

Text HintText(const Language& language, const SolverReport& hint) {
  return Format(language.LoadToolText(calc_id::kTextTolerance), static_cast<int>(hint.steps), Decimal(hint.residual));
}

Text SolverText(const Language& language, const CalcStore& store) {
  const auto of = [&store](char letter) { return Decimal(store.Variables[static_cast<std::size_t>(letter - 'A')]); };
  const Text integral = Format(language.LoadToolText(calc_id::kTextIntegral), of('A'), of('B'), of('N'));
  const Text zero = Format(language.LoadToolText(calc_id::kTextZero), of('A'), of('N'), of('E'));
  return integral + u'\n' + zero;
}

}  // namespace

void CalcNotes::Close() {
  note_ = CalcNote::kNone;
  hint_.reset();
}

void CalcNotes::TakeReport(const SolverReport& report) {
  hint_.reset();
  if (report.kind == SolverReport::Kind::kZero && !report.reachedTolerance) hint_ = report;
}

Text CalcNotes::Words(const Language& language, const CalcStore& store, double value) const {
  Text text;
  if (note_ == CalcNote::kBases) text = BasesText(value);
  if (note_ == CalcNote::kSolver) text = SolverText(language, store);
  if (!hint_) return text;
  if (!text.empty()) text += u'\n';
  return text + HintText(language, *hint_);
}

}  // namespace pnl
