// SPDX-License-Identifier: MIT
// ExprMachine: runs a program on the store, some instructions at a time. Its fields contain everything that it needs to
// go on later: the place in the program, the loop of the solver, and the saved X. It belongs to one evaluator. The
// program must not change between Begin and the end.
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

  /// Goes to the first instruction.
  void Begin();
  /// Runs at most that many instructions. Returns true if nothing is left to do.
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
  /// The solver's report of the last evaluation. Its kind is kNone unless the solver has reached its end.
  [[nodiscard]] const SolverReport& Report() const { return report_; }

 private:
  /// The composite Simpson rule: first the two ends, then the even places, then the odd ones.
  struct Integral {
    enum class Round { kFirst, kLast, kEven, kOdd };
    Round round = Round::kFirst;
    double a = 0;
    double b = 0;
    double h = 0;
    double sum = 0;
    double weight = 1;      // of the present evaluation
    double place = 0;       // of the present evaluation, in intervals from a
    std::int32_t left = 0;  // how many evaluations of this round follow it
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

  /// Handles a control instruction other than kIntegralNext, and an operation that has failed. Returns the next
  /// instruction, or null at the end.
  const ExprInstruction* Control(const ExprInstruction& instruction);
  // Each of these returns the next instruction.
  const ExprInstruction* BeginIntegral(const ExprInstruction& instruction);
  /// Adds the value of the operand and sets X for the next place of this round or of the next one.
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
