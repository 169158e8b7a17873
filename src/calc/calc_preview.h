// SPDX-License-Identifier: MIT
// The words of the status line for what became of a preview, of the whole line or of a selection. The formats are the
// calculator's own; only the six texts come from the language. Evaluates nothing.
#pragma once

#include <cstddef>

#include "base/text.h"

namespace pnl {

class Language;

/// The language texts 1 to 6.
struct CalcTexts {
  Text title;
  Text empty;
  Text failed;
  Text syntax;
  Text value;
  Text selection;
};
[[nodiscard]] CalcTexts LoadCalcTexts(Language& language);

/// What is previewed: the line, or the selection in it.
enum class PreviewExtent { kLine, kSelection };

/// A text that doesn't compile, parted at the failing place; a place beyond it is its end.
[[nodiscard]] Text SyntaxStatus(const CalcTexts& texts, PreviewExtent extent, TextView text, std::size_t place);
[[nodiscard]] Text FailureStatus(const CalcTexts& texts, PreviewExtent extent);
/// Binary digits stand alone, without a label.
[[nodiscard]] Text ValueStatus(const CalcTexts& texts, PreviewExtent extent, double value, int base);
/// A confirmed evaluation that failed, with the tree in words.
[[nodiscard]] Text ConfirmFailureStatus(const CalcTexts& texts, TextView tree);

}  // namespace pnl
