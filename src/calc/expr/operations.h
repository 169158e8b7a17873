// SPDX-License-Identifier: MIT
// What each operation of a program does. Included by what runs programs (machine.cpp) and by what does operations on
// constants beforehand (flatten.cpp), so that both give the same doubles.
#pragma once

#include <array>
#include <cmath>
#include <limits>

#include "base/numbers.h"
#include "calc/expr/power.h"
#include "calc/expr/program.h"

namespace pnl {

inline constexpr double kMmPerInch = 25.4;
inline constexpr double kInchPerMm = 0.03937007874015748;

inline constexpr int kFiniteFactorials = 171;  // 0! to 170!

inline constexpr std::array<double, kFiniteFactorials> kFactorials = [] {
  std::array<double, kFiniteFactorials> table{};
  double product = 1.0;
  for (int n = 0; n < kFiniteFactorials; ++n) {
    if (n >= 2) product *= n;
    table[static_cast<std::size_t>(n)] = product;
  }
  return table;
}();

inline bool Factorial(double value, double& result) {
  const std::int32_t n = TruncateToInt32(value);
  if (n < 0) return false;
  result = n < kFiniteFactorials ? kFactorials[static_cast<std::size_t>(n)] : std::numeric_limits<double>::infinity();
  return true;
}

/// Does one operation; false, with nothing stored, on a domain failure. A NaN fails nowhere but in "!".
[[gnu::always_inline]] inline bool Apply(const ExprInstruction& i) {
  double* const to = i.to;
  switch (i.op) {
    case ExprOp::kCopy:
      *to = *i.a;
      return true;
    case ExprOp::kAdd:
      *to = *i.a + *i.b;
      return true;
    case ExprOp::kSubtract:
      *to = *i.a - *i.b;
      return true;
    case ExprOp::kMultiply:
      *to = *i.a * *i.b;
      return true;
    case ExprOp::kDivide:
      if (*i.b == 0) return false;
      *to = *i.a / *i.b;
      return true;
    case ExprOp::kDivisor:
      return *i.b != 0;
    case ExprOp::kPercent:
      *to = *i.a * *i.b / 100;
      return true;
    case ExprOp::kPower:
      return Power(*i.a, *i.b, *to);
    case ExprOp::kSquare:
      *to = Square(*i.a);
      return true;
    case ExprOp::kFactorial:
      return Factorial(*i.a, *to);
    case ExprOp::kNegate:
      *to = -*i.a;
      return true;
    case ExprOp::kOr:
      *to = TruncateToLowWord(*i.a) | TruncateToLowWord(*i.b);
      return true;
    case ExprOp::kXor:
      *to = TruncateToLowWord(*i.a) ^ TruncateToLowWord(*i.b);
      return true;
    case ExprOp::kAnd:
      *to = TruncateToLowWord(*i.a) & TruncateToLowWord(*i.b);
      return true;
    case ExprOp::kNot:
      *to = ~TruncateToLowWord(*i.a);
      return true;
    case ExprOp::kAbs:
      *to = std::fabs(*i.a);
      return true;
    case ExprOp::kSqrt:
      if (*i.a < 0) return false;
      *to = std::sqrt(*i.a);
      return true;
    case ExprOp::kLog:
      if (*i.a <= 0) return false;
      *to = std::log10(*i.a);
      return true;
    case ExprOp::kInvLog:
      *to = std::pow(10.0, *i.a);
      return true;
    case ExprOp::kLn:
      if (*i.a <= 0) return false;
      *to = std::log(*i.a);
      return true;
    case ExprOp::kInvLn:
      *to = std::exp(*i.a);
      return true;
    case ExprOp::kSin:
      *to = std::sin(*i.a);
      return true;
    case ExprOp::kCos:
      *to = std::cos(*i.a);
      return true;
    case ExprOp::kTan:
      *to = std::tan(*i.a);
      return true;
    case ExprOp::kInvSin:
      if (std::fabs(*i.a) > 1) return false;
      *to = std::asin(*i.a);
      return true;
    case ExprOp::kInvCos:
      if (std::fabs(*i.a) > 1) return false;
      *to = std::acos(*i.a);
      return true;
    case ExprOp::kInvTan:
      *to = std::atan(*i.a);
      return true;
    case ExprOp::kSinScaled:
      *to = std::sin(*i.a / *i.b);
      return true;
    case ExprOp::kCosScaled:
      *to = std::cos(*i.a / *i.b);
      return true;
    case ExprOp::kTanScaled:
      *to = std::tan(*i.a / *i.b);
      return true;
    case ExprOp::kInvSinScaled:
      if (std::fabs(*i.a) > 1) return false;
      *to = std::asin(*i.a) * *i.b;
      return true;
    case ExprOp::kInvCosScaled:
      if (std::fabs(*i.a) > 1) return false;
      *to = std::acos(*i.a) * *i.b;
      return true;
    case ExprOp::kInvTanScaled:
      *to = std::atan(*i.a) * *i.b;
      return true;
    case ExprOp::kSh:
      *to = std::sinh(*i.a);
      return true;
    case ExprOp::kCh:
      *to = std::cosh(*i.a);
      return true;
    case ExprOp::kTh:
      *to = std::tanh(*i.a);
      return true;
    case ExprOp::kInvSh:
      *to = std::log(*i.a + std::sqrt(*i.a * *i.a + 1));
      return true;
    case ExprOp::kInvCh:
      if (*i.a < 1) return false;
      *to = std::log(*i.a + std::sqrt(*i.a * *i.a - 1));
      return true;
    case ExprOp::kInvTh:
      // Exactly 1 and -1 are let through and give infinities.
      if (std::fabs(*i.a) > 1) return false;
      *to = 0.5 * std::log((1 + *i.a) / (1 - *i.a));
      return true;
    case ExprOp::kMmToI:
      *to = *i.a / kMmPerInch;
      return true;
    case ExprOp::kIToMm:
      *to = *i.a * kMmPerInch;
      return true;
    case ExprOp::kInt:
      *to = TruncateToInt32(*i.a);
      return true;
    default:
      return true;
  }
}

}  // namespace pnl
