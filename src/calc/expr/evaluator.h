// SPDX-License-Identifier: MIT
// CEvaluator: compiles one text into one tree and evaluates it over the calculator's store, all at once or in pieces of
// bounded length, so that whoever waits for a long one can stay awake. It formats nothing: a failure is a place in the
// text or a status. Lives as long as one preview or one confirmed evaluation; only the store survives it.
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
  /// Scanner and parser are borrowed, and so is the store.
  CEvaluator(CScaner& scanner, CParser& parser, CalcStore& store = SharedCalcStore());
  ~CEvaluator();
  CEvaluator(const CEvaluator&) = delete;
  CEvaluator& operator=(const CEvaluator&) = delete;

  /// 1 on success; 0 on failure, with errorPointer at the failing place in text: the offending character, the first
  /// token that no rule takes, or the terminator for more than one solver. A text of more than 255 units is refused
  /// with the place at unit 255. The text must be terminated; it isn't kept.
  int Compile(const char16_t* text, const char16_t*& errorPointer);
  /// 1 with the value, which is then in ACC too; 0 on a domain failure, which leaves result and ACC alone, or without a
  /// compiled tree. Assignments made before a failure stay.
  int Evaluate(double& result);

  enum class Progress { kRunning, kEnded };
  /// The same in pieces: Begin, then Advance until it says kEnded, then Finish, which answers as Evaluate does. Each
  /// step is short and bounded; the store changes as the steps go on. An evaluation that is dropped on its way leaves
  /// the store as it is at that step, X not restored.
  void Begin();
  Progress Advance(std::int64_t steps);
  int Finish(double& result);

  /// Appends the canonical text of the tree.
  void DescribeTree(Text& text) const;
  /// Copies variables and accumulator to, and from, the store's backup.
  void SaveVariables();
  void RestoreVariables();
  /// 0 for anything that isn't a letter A to Z in either case, else 1.
  int SetVariable(char16_t letter, double value);
  int GetVariable(char16_t letter, double& value) const;
  /// What the solver came to in the evaluation that was finished last.
  [[nodiscard]] SolverReport Solver() const;

  /// Angle unit of the evaluation: set between Compile and Evaluate.
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
