// SPDX-License-Identifier: MIT
// ExprMachine: runs a program over the store, some instructions at a time. Everything that an interrupted evaluation
// needs to go on (place, solver's loop, saved X) is in its fields. Owned by one evaluator; its program must not
// change between Begin and the end.
#pragma once

#include <cstdint>

#include "calc/expr/calc_store.h"
#include "calc/expr/program.h"
#include "calc/expr/solver_report.h"

namespace pnl {

class ExprMachine {
 public:
  explicit ExprMachine(CalcStore& store) : store_(store) {}

  ExprProgram program;

  /// To the first instruction.
  void Begin();
  /// Runs up to that many instructions; true when there is nothing left to do.
  bool Run(std::int64_t steps);
  /// Whether an evaluation has been begun and has reached its end.
  [[nodiscard]] bool IsDone() const { return done_; }
  /// Forgets an evaluation that was begun.
  void Drop() {
    ip_ = nullptr;
    done_ = false;
  }
  /// False after a domain failure.
  [[nodiscard]] bool Succeeded() const { return succeeded_; }
  /// Of the evaluation that was begun last; kNone unless the solver came to its end.
  [[nodiscard]] const SolverReport& Report() const { return report_; }

 private:
  /// Composite Simpson rule: the two ends, then the even places, then the odd ones.
  struct Integral {
    enum class Round { kFirst, kLast, kEven, kOdd };
    Round round = Round::kFirst;
    double a = 0;
    double b = 0;
    double h = 0;
    double sum = 0;
    double weight = 1;      // of the evaluation under way
    double place = 0;       // of it, in intervals from a
    std::int32_t left = 0;  // evaluations of this round after it
    std::int32_t intervals = 0;
  };
  /// Newton's method with a central difference.
  struct Zero {
    enum class Phase { kProbe, kValue, kLeft, kRight };
    Phase phase = Phase::kProbe;
    double x = 0;
    double fx = 0;
    double l = 0;
    double tolerance = 0;
    std::int32_t count = 0;
    std::int32_t most = 0;
  };

  [[nodiscard]] double& X() { return store_.Variables['X' - 'A']; }
  void SaveX();
  void Fail();

  /// What isn't an operation but kIntegralNext, or has failed. Null at the end.
  const ExprInstruction* Control(const ExprInstruction& instruction);
  // Each says where the run goes on.
  const ExprInstruction* BeginIntegral(const ExprInstruction& instruction);
  /// Adds the operand's value and sets X for the next one of the round, or of the next round.
  const ExprInstruction* NextPlace(const ExprInstruction& instruction);
  const ExprInstruction* NextRound(const ExprInstruction& instruction);
  const ExprInstruction* NextZero(const ExprInstruction& instruction);
  [[nodiscard]] const ExprInstruction* Body() const { return program.code.data() + program.bodyBegin; }
  [[nodiscard]] const ExprInstruction* AfterSolver() const { return program.code.data() + program.bodyEnd + 1; }

  CalcStore& store_;
  const ExprInstruction* ip_ = nullptr;
  bool done_ = false;
  bool succeeded_ = false;
  bool xSaved_ = false;
  double savedX_ = 0;
  Integral integral_;
  Zero zero_;
  SolverReport report_;
};

}  // namespace pnl
