// SPDX-License-Identifier: MIT
// Evaluations that may take long. CalcWork is one in pieces over a store of its own: nobody sees variables half-way,
// and dropping it leaves no trace. CalcRun is the one that is under way, and what for. Not a thread and not a schedule:
// whoever owns them says when the next piece runs.
#pragma once

#include <cstdint>
#include <memory>
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

/// What the running evaluation is for.
enum class CalcTask { kNone, kLinePreview, kSelectionPreview, kConfirm, kConfirmAndClose };

class CalcRun {
 public:
  [[nodiscard]] bool IsRunning() const { return work_ != nullptr; }
  [[nodiscard]] bool IsConfirming() const { return task_ == CalcTask::kConfirm || task_ == CalcTask::kConfirmAndClose; }
  /// What is being confirmed; empty while nothing is.
  [[nodiscard]] const Text& Line() const { return line_; }

  /// Makes the first pieces of a work that has begun, in the place of what ran. True when that was all of it: it then
  /// waits for Take. line is the text that it confirms, if it does.
  [[nodiscard]] bool Start(std::unique_ptr<CalcWork> work, CalcTask task, const Text& line);
  /// One more piece. True when it was the last one: the work then waits for Take. False without a work.
  [[nodiscard]] bool Continue();
  struct Ended {
    std::unique_ptr<CalcWork> work;
    CalcTask task;
    Text line;
  };
  /// The work that has ended. Nothing runs any more.
  [[nodiscard]] Ended Take();
  void Drop() { static_cast<void>(Take()); }

 private:
  std::unique_ptr<CalcWork> work_;
  CalcTask task_ = CalcTask::kNone;
  Text line_;
};

}  // namespace pnl
