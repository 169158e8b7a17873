// SPDX-License-Identifier: MIT
#include "calc/calc_preview.h"

#include <algorithm>

#include "base/format.h"
#include "calc/calc_format.h"
#include "calc/calc_ids.h"
#include "host/language.h"

namespace pnl {

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
  // Up to 32 digits take the whole line.
  if (base == number_base::kBinary) return number;
  if (extent == PreviewExtent::kLine) return Format(u"%s : %s", texts.value, number);
  return Format(u"%s %s : %s", texts.selection, texts.value, number);
}

Text ConfirmFailureStatus(const CalcTexts& texts, TextView tree) { return Format(u"%s: %s", texts.failed, tree); }

}  // namespace pnl
