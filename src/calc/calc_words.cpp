// SPDX-License-Identifier: MIT
#include "calc/calc_words.h"

#include <algorithm>

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

// The status line.

CalcTexts LoadCalcTexts(Language& language) {
  const auto& shared = language.SharedToolTexts();
  const auto text = [&shared](int id) {
    const auto found = shared.find(id);
    return found == shared.end() ? Text() : found->second;
  };
  return {text(calc_id::kTextTitle),  text(calc_id::kTextEmpty), text(calc_id::kTextFailed),
          text(calc_id::kTextSyntax), text(calc_id::kTextValue), text(calc_id::kTextSelection)};
}

Text SyntaxStatus(const CalcTexts& texts, PreviewExtent extent, TextView text, std::size_t place) {
  const TextView before = text.substr(0, std::min(place, text.size()));
  const TextView from = text.substr(before.size());
  if (extent == PreviewExtent::kLine) return Format(u"%s: %s< >%s", texts.syntax, before, from);
  return Format(u"%s %s: %s< >%s", texts.selection, texts.syntax, before, from);
}

Text FailureStatus(const CalcTexts& texts, PreviewExtent extent) {
  if (extent == PreviewExtent::kLine) return texts.failed;
  return Format(u"%s %s", texts.selection, texts.failed);
}

Text ValueStatus(const CalcTexts& texts, PreviewExtent extent, double value, int base) {
  Text number = FormatResult(value, base);
  // A label would leave no room for 32 digits.
  if (base == number_base::kBinary) return number;
  if (extent == PreviewExtent::kLine) return Format(u"%s : %s", texts.value, number);
  return Format(u"%s %s : %s", texts.selection, texts.value, number);
}

Text ConfirmFailureStatus(const CalcTexts& texts, TextView tree) { return Format(u"%s: %s", texts.failed, tree); }

// The variables.

std::vector<VariableRow> VariableRows(const CalcStore& store) {
  std::vector<VariableRow> rows;
  const auto add = [&rows](TextView name, double value) {
    if (value != 0) rows.push_back({Text(name), Format(u"%s = %s", name, Decimal(value))});
  };
  constexpr TextView kLetters = u"ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (std::size_t i = 0; i < store.Variables.size(); ++i) add(kLetters.substr(i, 1), store.Variables[i]);
  add(u"ACC", store.Acc);
  return rows;
}

// The note.

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
