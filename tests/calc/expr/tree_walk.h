// SPDX-License-Identifier: MIT
// A second evaluator, for comparison alone: it walks the tree as the language is described, node by node, with nothing
// prepared and nothing cut short. Slow where a solver's operand fails, for its loops go on over zeros.
#pragma once

#include "calc/expr/calc_store.h"
#include "calc/expr/parser.h"

namespace pnl::test {

class TreeWalk {
 public:
  TreeWalk(CalcStore& store, bool radians) : store_(store), radians_(radians) {}

  int Evaluate(const ExprNode& tree, double& result);

 private:
  double Node(const ExprNode& node);
  double Function(const ExprNode& node);
  double Delimiter(const ExprNode& node);
  double Logic(const ExprNode& node);
  double Power(double a, double b);
  double Integral(const ExprNode& operand);
  double Zero(const ExprNode& operand);
  double Fail() {
    status_ = 0;
    return 0;
  }
  double& Variable(char letter) { return store_.Variables[static_cast<std::size_t>(letter - 'A')]; }

  CalcStore& store_;
  bool radians_;
  int status_ = 1;
  double angleScale_ = 1;
};

}  // namespace pnl::test
