// SPDX-License-Identifier: MIT
#include "calc/expr/evaluator.h"

#include <cmath>
#include <limits>

#include "calc/expr/machine.h"

namespace pnl {
namespace {

/// A result that is nearer to 0 than this becomes 0.
constexpr double kZeroResult = 1E-14;

int CountSolvers(const Token* head) {
  int count = 0;
  for (const Token* token = head; token != nullptr; token = token->next.get()) {
    if (token->kind == TOK_FUNCTION && (token->value.index == FUN_INTEGRAL || token->value.index == FUN_ZERO)) ++count;
  }
  return count;
}

/// The index of the variable with that letter, 0 to 25, or -1 if it isn't a letter.
int VariableIndex(char16_t letter) {
  if (letter >= u'a' && letter <= u'z') return letter - u'a';
  return letter >= u'A' && letter <= u'Z' ? letter - u'A' : -1;
}

}  // namespace

CEvaluator::CEvaluator(CScaner& scanner, CParser& parser, CalcStore& store)
    : scanner_(scanner), parser_(parser), store_(store), machine_(std::make_unique<ExprMachine>(store)) {}

CEvaluator::~CEvaluator() = default;

int CEvaluator::Compile(const char16_t* text, const char16_t*& errorPointer) {
  machine_->Drop();
  machine_->program.code.clear();
  CParser::FreeTree(tree_);
  std::unique_ptr<Token> tokens;
  errorPointer = scanner_.ScanExpression(text, tokens);
  if (errorPointer == nullptr) {
    // There is no memory. The pointer must still be in the text, because callers compute with it.
    errorPointer = text;
    return 0;
  }
  if (*errorPointer != u'\0') return 0;
  int compiled = 0;
  // If there is more than one solver, the failing place is the end of the text.
  if (CountSolvers(tokens.get()) < 2) {
    std::int32_t errorPosition = 0;
    compiled = parser_.ParseTokens(tokens.get(), errorPosition, tree_);
    if (compiled == 0) {
      errorPointer = text + errorPosition;
      CParser::FreeTree(tree_);
    }
  }
  CScaner::FreeTokens(tokens);
  return compiled;
}

int CEvaluator::Evaluate(double& result) {
  Begin();
  Advance(std::numeric_limits<std::int64_t>::max());
  return Finish(result);
}

void CEvaluator::Begin() {
  if (tree_ == nullptr) return;
  const double scale = radians ? 1.0 : DegreesPerRadian();
  if (machine_->program.code.empty() || scale != angleScale_) {
    angleScale_ = scale;
    Flatten(*tree_, store_, scale, machine_->program);
  }
  machine_->Begin();
}

CEvaluator::Progress CEvaluator::Advance(std::int64_t steps) {
  return machine_->Run(steps) ? Progress::kEnded : Progress::kRunning;
}

int CEvaluator::Finish(double& result) {
  if (!machine_->IsDone()) return 0;
  status_ = machine_->Succeeded() ? 1 : 0;
  if (status_ == 0) return 0;
  const double value = *machine_->program.result;
  result = std::fabs(value) < kZeroResult ? 0 : value;
  store_.Acc = result;
  return 1;
}

void CEvaluator::DescribeTree(Text& text) const { CParser::DescribeTree(tree_.get(), text); }

void CEvaluator::SaveVariables() {
  store_.SavedVariables = store_.Variables;
  store_.SavedAcc = store_.Acc;
}

void CEvaluator::RestoreVariables() {
  store_.Variables = store_.SavedVariables;
  store_.Acc = store_.SavedAcc;
}

int CEvaluator::SetVariable(char16_t letter, double value) {
  const int index = VariableIndex(letter);
  if (index < 0) return 0;
  store_.Variables[static_cast<std::size_t>(index)] = value;
  return 1;
}

int CEvaluator::GetVariable(char16_t letter, double& value) const {
  const int index = VariableIndex(letter);
  if (index < 0) return 0;
  value = store_.Variables[static_cast<std::size_t>(index)];
  return 1;
}

SolverReport CEvaluator::Solver() const { return machine_->Report(); }

}  // namespace pnl
