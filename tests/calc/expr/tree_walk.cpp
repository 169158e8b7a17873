// SPDX-License-Identifier: MIT
#include "calc/expr/tree_walk.h"

#include <cmath>
#include <cstdint>

#include "base/numbers.h"

namespace pnl::test {

int TreeWalk::Evaluate(const ExprNode& tree, double& result) {
  status_ = 1;
  angleScale_ = radians_ ? 1.0 : 180 / (2 * std::asin(1.0));
  double value = Node(tree);
  if (std::fabs(value) < 1E-14) value = 0;
  if (status_ == 0) return 0;
  result = value;
  store_.Acc = value;
  return 1;
}

double TreeWalk::Node(const ExprNode& node) {
  if (status_ == 0) return 0;
  switch (node.kind) {
    case TOK_FUNCTION:
      return Function(node);
    case TOK_DELIMITER:
      return Delimiter(node);
    case TOK_LOGIC:
      return Logic(node);
    case TOK_VARIABLE:
      return store_.Variables[static_cast<std::size_t>(node.value.index)];
    case TOK_NUMBER:
      return node.value.number;
    case TOK_CONSTANT:
      switch (node.value.index) {
        case CON_ACC:
          return store_.Acc;
        case CON_PI:
          return 2 * std::asin(1.0);
        case CON_MMPERI:
          return 25.4;
        default:
          return 0.03937007874015748;
      }
    default:
      return 0;
  }
}

double TreeWalk::Function(const ExprNode& node) {
  if (node.value.index == FUN_INTEGRAL) return Integral(*node.left);
  const double x = Node(*node.left);
  if (status_ == 0) return 0;
  switch (node.value.index) {
    case FUN_ABS:
      return std::fabs(x);
    case FUN_SQRT:
      return x < 0 ? Fail() : std::sqrt(x);
    case FUN_LOG:
      return x <= 0 ? Fail() : std::log10(x);
    case FUN_INVLOG:
      return std::pow(10.0, x);
    case FUN_LN:
      return x <= 0 ? Fail() : std::log(x);
    case FUN_INVLN:
      return std::exp(x);
    case FUN_SIN:
      return std::sin(x / angleScale_);
    case FUN_COS:
      return std::cos(x / angleScale_);
    case FUN_TAN:
      return std::tan(x / angleScale_);
    case FUN_INVSIN:
      return std::fabs(x) > 1 ? Fail() : std::asin(x) * angleScale_;
    case FUN_INVCOS:
      return std::fabs(x) > 1 ? Fail() : std::acos(x) * angleScale_;
    case FUN_INVTAN:
      return std::atan(x) * angleScale_;
    case FUN_SH:
      return std::sinh(x);
    case FUN_CH:
      return std::cosh(x);
    case FUN_TH:
      return std::tanh(x);
    case FUN_INVSH:
      return std::log(x + std::sqrt(x * x + 1));
    case FUN_INVCH:
      return x < 1 ? Fail() : std::log(x + std::sqrt(x * x - 1));
    case FUN_INVTH:
      return std::fabs(x) > 1 ? Fail() : 0.5 * std::log((1 + x) / (1 - x));
    case FUN_MMTOI:
      return x / 25.4;
    case FUN_ITOMM:
      return x * 25.4;
    case FUN_INT:
      return TruncateToInt32(x);
    default:
      return Zero(*node.left);
  }
}

double TreeWalk::Delimiter(const ExprNode& node) {
  if (node.value.index == DEL_DIVIDE) {
    const double divisor = Node(*node.right);
    if (divisor == 0) return Fail();
    const double dividend = Node(*node.left);
    return status_ == 0 ? 0 : dividend / divisor;
  }
  if (node.value.index == DEL_ASSIGN) {
    const double value = Node(*node.right);
    if (status_ == 0) return 0;
    double& variable = store_.Variables[static_cast<std::size_t>(node.left->value.index)];
    variable = value;
    return variable;
  }
  const double left = Node(*node.left);
  if (node.value.index == DEL_FACTORIAL) {
    if (status_ == 0) return 0;
    const std::int32_t n = TruncateToInt32(left);
    if (n < 0) return Fail();
    double product = 1.0;
    for (std::int32_t i = 2; i <= n && !std::isinf(product); ++i) product *= i;
    return product;
  }
  if (node.right == nullptr) return -left;
  const double right = Node(*node.right);
  if (status_ == 0) return 0;
  switch (node.value.index) {
    case DEL_PLUS:
      return left + right;
    case DEL_MINUS:
      return left - right;
    case DEL_TIMES:
      return left * right;
    case DEL_PERCENT:
      return left * right / 100;
    case DEL_POWER:
      return Power(left, right);
    default:
      return right;
  }
}

double TreeWalk::Logic(const ExprNode& node) {
  const auto word = [](double value) { return static_cast<std::uint32_t>(TruncateToInt64(value) & 0xFFFFFFFF); };
  const double left = Node(*node.left);
  const double right = node.value.index == LOG_NOT ? 0 : Node(*node.right);
  if (status_ == 0) return 0;
  switch (node.value.index) {
    case LOG_OR:
      return word(left) | word(right);
    case LOG_XOR:
      return word(left) ^ word(right);
    case LOG_AND:
      return word(left) & word(right);
    default:
      return ~word(left);
  }
}

double TreeWalk::Power(double a, double b) {
  if (b == 2) return a * a;
  if (a >= 0 || std::isnan(a)) return std::pow(a, b);
  if (!(std::fabs(b) < 1)) return std::pow(a, b);
  const double y = std::fabs(1 / b);
  const std::int32_t n = TruncateToInt32(y + 0.5);
  if (n % 2 == 0) return Fail();
  if (std::fabs(n - y) < 1E-6) return -std::pow(-a, b);
  return std::pow(a, b);
}

double TreeWalk::Integral(const ExprNode& operand) {
  const double a = Variable('A');
  const double b = Variable('B');
  auto m = static_cast<std::int32_t>(2U * static_cast<std::uint32_t>(TruncateToInt64(Variable('N'))));
  if (m <= 0) m = 100;
  if (m >= 500000) m = 500000;
  const double saved = Variable('X');
  const double h = (b - a) / m;
  if (h == 0) return 0;
  const auto f = [&](double x) {
    if (status_ == 0) return 0.0;
    Variable('X') = x;
    return Node(operand);
  };
  const double atA = f(a);
  double sum = atA + f(b);
  for (std::int32_t i = 1; i < m / 2; ++i) sum += 2 * f(a + 2 * i * h);
  for (std::int32_t i = 0; i < m / 2; ++i) sum += 4 * f(a + (2 * i + 1) * h);
  Variable('X') = saved;
  return status_ == 0 ? 0 : h / 3 * sum;
}

double TreeWalk::Zero(const ExprNode& operand) {
  double x = Variable('A');
  auto n = static_cast<std::int32_t>(static_cast<std::uint32_t>(TruncateToInt64(Variable('N'))));
  const double tolerance = std::fabs(Variable('E'));
  if (n <= 0) n = 100;
  if (n >= 50000) n = 50000;
  const double saved = Variable('X');
  const auto f = [&](double at) {
    if (status_ == 0) return 0.0;
    Variable('X') = at;
    return Node(operand);
  };
  double fx = f(x);
  const double h = 1E-6;
  for (std::int32_t count = 0; std::fabs(fx) > tolerance && count < n && status_ != 0; ++count) {
    const double l = f(x - h);
    const double r = f(x + h);
    const double d = (l - r) / (2.0 * h);
    x += fx / d;
    fx = f(x);
  }
  Variable('X') = saved;
  return status_ == 0 ? 0 : x;
}

}  // namespace pnl::test
