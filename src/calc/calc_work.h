// SPDX-License-Identifier: MIT
// Evaluations that may take long. CalcWork is one evaluation in pieces, on a store of its own: nobody sees unfinished
// variables, and a dropped evaluation changes nothing. CalcRun has the running evaluation and its purpose. They use no
// thread and no timer: their owner decides when the next piece runs.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "base/text.h"
#include "calc/expr/evaluator.h"

namespace pnl {

class CalcWork {
 public:
  /// Copies the store. The evaluation works on the copy.
  explicit CalcWork(const CalcStore& store);
  CalcWork(const CalcWork&) = delete;
  CalcWork& operator=(const CalcWork&) = delete;

  /// Compiles the text. Returns the failing place in it, or nothing if it compiles.
  [[nodiscard]] std::optional<std::size_t> Compile(const Text& text);
  void Begin(bool radians);
  /// Computes at most that many steps. Returns true if the evaluation has ended.
  [[nodiscard]] bool Advance(std::int64_t steps);
  /// The value of an evaluation that has ended, or nothing after a domain failure.
  [[nodiscard]] std::optional<double> Finish();
  /// The expression as a fully bracketed text.
  [[nodiscard]] Text Description() const;
  [[nodiscard]] SolverReport Solver() const { return evaluator_.Solver(); }
  /// Copies the variables that the evaluation has changed into the store. The others stay as they are there.
  void StoreTo(CalcStore& store) const;

 private:
  CalcStore before_;
  CalcStore own_;
  CScaner scanner_;
  CParser parser_;
  CEvaluator evaluator_;
};

/// The purpose of the running evaluation.
enum class CalcTask { kNone, kLinePreview, kSelectionPreview, kConfirm, kConfirmAndClose };

class CalcRun {
 public:
  [[nodiscard]] bool IsRunning() const { return work_ != nullptr; }
  [[nodiscard]] bool IsConfirming() const { return task_ == CalcTask::kConfirm || task_ == CalcTask::kConfirmAndClose; }
  /// The line that is being confirmed. It is empty if none is.
  [[nodiscard]] const Text& Line() const { return line_; }

  /// Replaces the running evaluation with this one and computes its first steps. Begin must have been called. line is
  /// the text that is confirmed, or empty. Returns true if the evaluation has ended; then Take returns it.
  [[nodiscard]] bool Start(std::unique_ptr<CalcWork> work, CalcTask task, const Text& line);
  /// Computes one more piece. Returns true if the evaluation has ended with it; then Take returns it. Returns false if
  /// none is running.
  [[nodiscard]] bool Continue();
  struct Ended {
    std::unique_ptr<CalcWork> work;
    CalcTask task;
    Text line;
  };
  /// Returns the evaluation. After that none is running.
  [[nodiscard]] Ended Take();
  void Drop() { static_cast<void>(Take()); }

 private:
  std::unique_ptr<CalcWork> work_;
  CalcTask task_ = CalcTask::kNone;
  Text line_;
};

}  // namespace pnl
