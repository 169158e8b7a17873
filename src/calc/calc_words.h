// SPDX-License-Identifier: MIT
// The calculator's words: the status line for a preview of the line or of a selection, the list of variables, and the
// note beside the window. The formats are here, and the words come from the language. It evaluates and shows nothing.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/text.h"
#include "calc/expr/calc_store.h"
#include "calc/expr/solver_report.h"

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

/// What a preview is about: the line, or the selection in it.
enum class PreviewExtent { kLine, kSelection };

/// The status line for a text that doesn't compile. It shows the text with a mark at the failing place. A place beyond
/// the text means its end.
[[nodiscard]] Text SyntaxStatus(const CalcTexts& texts, PreviewExtent extent, TextView text, std::size_t place);
[[nodiscard]] Text FailureStatus(const CalcTexts& texts, PreviewExtent extent);
/// The status line for a value. Binary digits have no label.
[[nodiscard]] Text ValueStatus(const CalcTexts& texts, PreviewExtent extent, double value, int base);
/// The status line for a confirmed expression that failed. tree is the expression as CalcWork describes it.
[[nodiscard]] Text ConfirmFailureStatus(const CalcTexts& texts, TextView tree);

/// A row of the list of variables.
struct VariableRow {
  Text name;
  Text words;  // name and value
  friend bool operator==(const VariableRow&, const VariableRow&) = default;
};
/// A row for each variable that isn't 0, and for the accumulator if it isn't 0. The values are always decimal, so that
/// fractions can be seen.
[[nodiscard]] std::vector<VariableRow> VariableRows(const CalcStore& store);

/// What the note shows, by the operator's choice.
enum class CalcNote { kNone, kBases, kSolver };

/// The text of the note: a value in all three bases or the parameters of the solvers, and below that a hint if ZERO did
/// not reach its tolerance.
class CalcNotes {
 public:
  /// Chooses that note, or none if it was chosen already.
  void Toggle(CalcNote note) { note_ = note_ == note ? CalcNote::kNone : note; }
  /// Removes the note and the hint.
  void Close();
  /// Takes the solver's report of a finished evaluation: sets the hint if ZERO did not reach its tolerance, else
  /// removes it.
  void TakeReport(const SolverReport& report);
  void DropHint() { hint_.reset(); }
  /// The note's present text, with the hint at its end. It is empty if there is neither. value is the value that is
  /// shown in all bases.
  [[nodiscard]] Text Words(const Language& language, const CalcStore& store, double value) const;

 private:
  CalcNote note_ = CalcNote::kNone;
  std::optional<SolverReport> hint_;
};

}  // namespace pnl
