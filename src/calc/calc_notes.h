// SPDX-License-Identifier: MIT
// What the note beside the window says: a value in all three bases, the parameters of the solvers, and the hint that a
// search stopped short of its tolerance. It follows the line and the variables; it changes nothing and shows nothing.
#pragma once

#include <optional>

#include "base/text.h"
#include "calc/expr/calc_store.h"
#include "calc/expr/solver_report.h"

namespace pnl {

class Language;

/// What the operator asked the note to show.
enum class CalcNote { kNone, kBases, kSolver };

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
