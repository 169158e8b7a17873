// SPDX-License-Identifier: MIT
// What the calculator says in words: the status line about a preview, of the whole line or of a selection, the list of
// variables, and the note beside the window. The formats are the calculator's own, the words come from the language.
// Evaluates nothing and shows nothing.
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

/// What is previewed: the line, or the selection in it.
enum class PreviewExtent { kLine, kSelection };

/// A text that doesn't compile, divided at the failing place; a place beyond it is its end.
[[nodiscard]] Text SyntaxStatus(const CalcTexts& texts, PreviewExtent extent, TextView text, std::size_t place);
[[nodiscard]] Text FailureStatus(const CalcTexts& texts, PreviewExtent extent);
/// Binary digits have no label.
[[nodiscard]] Text ValueStatus(const CalcTexts& texts, PreviewExtent extent, double value, int base);
/// A confirmed evaluation that failed, with the tree in words.
[[nodiscard]] Text ConfirmFailureStatus(const CalcTexts& texts, TextView tree);

/// A row of the list of variables.
struct VariableRow {
  Text name;
  Text words;  // name and value
  friend bool operator==(const VariableRow&, const VariableRow&) = default;
};
/// The variables that aren't 0, and the accumulator if it isn't. In decimal whatever the base in use is, so that a
/// fraction is seen.
[[nodiscard]] std::vector<VariableRow> VariableRows(const CalcStore& store);

/// What the operator asked the note to show.
enum class CalcNote { kNone, kBases, kSolver };

/// The note: a value in all three bases or the parameters of the solvers, and below it the hint that a search stopped
/// short of its tolerance.
class CalcNotes {
 public:
  /// That note in the place of another, or none when it is that one.
  void Toggle(CalcNote note) { note_ = note_ == note ? CalcNote::kNone : note; }
  /// Neither note nor hint.
  void Close();
  /// What a finished evaluation reports of its solver: a tolerance that wasn't reached brings the hint, which goes with
  /// the next report.
  void TakeReport(const SolverReport& report);
  void DropHint() { hint_.reset(); }
  /// The text as of now, a hint below the note; empty without both. value is the one that is shown in all bases.
  [[nodiscard]] Text Words(const Language& language, const CalcStore& store, double value) const;

 private:
  CalcNote note_ = CalcNote::kNone;
  std::optional<SolverReport> hint_;
};

}  // namespace pnl
