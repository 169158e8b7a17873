// SPDX-License-Identifier: MIT
// CEvaluator: compiles one text into a tree and evaluates it on the calculator's store, at once or in pieces of limited
// length, so that the caller can handle events meanwhile. It formats nothing: a failure is a place in the text or a
// status. An object serves one preview or one confirmed expression. Only the store outlives it.
#pragma once

#include <cstdint>
#include <memory>

#include "base/text.h"
#include "calc/expr/calc_store.h"
#include "calc/expr/parser.h"
#include "calc/expr/scaner.h"
#include "calc/expr/solver_report.h"

namespace pnl {

class ExprMachine;

/// The longest text that Compile takes, in UTF-16 units.
inline constexpr std::size_t kLongestExpression = 255;

class CEvaluator {
 public:
  /// Scanner, parser and store must outlive the object.
  CEvaluator(CScaner& scanner, CParser& parser, CalcStore& store = SharedCalcStore());
  ~CEvaluator();
  CEvaluator(const CEvaluator&) = delete;
  CEvaluator& operator=(const CEvaluator&) = delete;

  /// Compiles the text and returns 1. Returns 0 if that fails; then errorPointer is the failing place in the text: the
  /// wrong character, the first token that no rule accepts, or the terminator if there is more than one solver. A text
  /// of more than 255 units fails at unit 255. The text must have a terminator and isn't kept.
  int Compile(const char16_t* text, const char16_t*& errorPointer);
  /// Evaluates the tree and returns 1 with the value, which is then in ACC too. Returns 0 without a compiled tree or
  /// after a domain failure; then result and ACC stay as they are. Assignments before the failure stay.
  int Evaluate(double& result);

  enum class Progress { kRunning, kEnded };
  /// The same in pieces: Begin, then Advance until it returns kEnded, then Finish, which returns what Evaluate returns.
  /// Each step is short. The store changes during the steps. If an evaluation is dropped before its end, the store
  /// stays as it is then, and a solver's X isn't restored.
  void Begin();
  Progress Advance(std::int64_t steps);
  int Finish(double& result);

  /// Appends the canonical text of the tree.
  void DescribeTree(Text& text) const;
  /// Copies variables and accumulator to the store's backup, or back from it.
  void SaveVariables();
  void RestoreVariables();
  /// Sets or reads the variable with that letter, a to z or A to Z, and returns 1. Returns 0 for any other character.
  int SetVariable(char16_t letter, double value);
  int GetVariable(char16_t letter, double& value) const;
  /// The solver's report of the last evaluation.
  [[nodiscard]] SolverReport Solver() const;

  /// The angle unit of the evaluation. To be set between Compile and Evaluate.
  bool radians = false;

 private:
  std::int32_t status_ = 1;
  CScaner& scanner_;
  CParser& parser_;
  CalcStore& store_;
  std::unique_ptr<ExprNode> tree_;
  double angleScale_ = 1.0;
  std::unique_ptr<ExprMachine> machine_;
};

}  // namespace pnl
