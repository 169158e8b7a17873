// SPDX-License-Identifier: MIT
// One evaluation that may take long, in pieces, over a store of its own: nobody sees variables half-way, and dropping
// it leaves no trace. Not a thread and not a schedule: whoever owns it says when the next piece runs.
#pragma once

#include <cstdint>
#include <optional>

#include "base/text.h"
#include "calc/expr/evaluator.h"

namespace pnl {

class CalcWork {
 public:
  /// Works on a copy of the store as it is now.
  explicit CalcWork(const CalcStore& store);
  CalcWork(const CalcWork&) = delete;
  CalcWork& operator=(const CalcWork&) = delete;

  /// The failing place in the text; nothing when it compiled.
  [[nodiscard]] std::optional<std::size_t> Compile(const Text& text);
  void Begin(bool radians);
  /// At most so many steps; true once the evaluation has ended.
  [[nodiscard]] bool Advance(std::int64_t steps);
  /// After the end: the value; nothing after a domain failure.
  [[nodiscard]] std::optional<double> Finish();
  /// The tree in words.
  [[nodiscard]] Text Description() const;
  [[nodiscard]] SolverReport Solver() const { return evaluator_.Solver(); }
  /// Brings what the evaluation changed into the store; what it left alone stays as it is there.
  void StoreTo(CalcStore& store) const;

 private:
  CalcStore before_;
  CalcStore own_;
  CScaner scanner_;
  CParser parser_;
  CEvaluator evaluator_;
};

}  // namespace pnl
