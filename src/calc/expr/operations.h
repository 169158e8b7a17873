// SPDX-License-Identifier: MIT
// What each operation of a program does. It is in a header, so that the machine's loop does it without a call.
#pragma once

#include <cmath>
#include <cstdint>

#include "base/numbers.h"
#include "calc/expr/factorial.h"
#include "calc/expr/program.h"

namespace pnl {

inline constexpr double kMmPerInch = 25.4;
inline constexpr double kInchPerMm = 0.03937007874015748;

/// The power for a negative a and |b| < 1, which is a root. Returns false for an even root and for b = 0.
inline bool RootOfNegative(double a, double b, double& result) {
  const double y = std::fabs(1 / b);
  const std::int32_t n = TruncateToInt32(y + 0.5);
  // Not a mistake: b = 0 fails here too, because y is infinite and its truncated value is even. So (-8)^0 isn't 1.
  if (n % 2 == 0) return false;
  result = std::fabs(n - y) < 1E-6 ? -std::pow(-a, b) : std::pow(a, b);
  return true;
}

/// The power of the language: a square is a product, and everything else is the C library's pow, with a rule for roots
/// of negative numbers. Returns false and leaves result if a negative base has an even root or the exponent 0.
[[nodiscard]] inline bool Power(double a, double b, double& result) {
  if (b == 2) {
    result = a * a;
    return true;
  }
  if (a < 0 && std::fabs(b) < 1) return RootOfNegative(a, b, result);
  result = std::pow(a, b);
  return true;
}

/// Does one operation. Returns false and stores nothing after a domain failure and for control instructions, which the
/// machine handles. A NaN fails only in "!".
[[gnu::always_inline]] inline bool Apply(const ExprInstruction& i) {
  double value = 0;
  switch (i.op) {
    case ExprOp::kCopy:
      value = *i.a;
      break;
    case ExprOp::kAdd:
      value = *i.a + *i.b;
      break;
    case ExprOp::kSubtract:
      value = *i.a - *i.b;
      break;
    case ExprOp::kMultiply:
      value = *i.a * *i.b;
      break;
    case ExprOp::kDivide:
      if (*i.b == 0) return false;
      value = *i.a / *i.b;
      break;
    case ExprOp::kDivisor:
      return *i.b != 0;
    case ExprOp::kPercent:
      value = *i.a * *i.b / 100;
      break;
    case ExprOp::kPower:
      if (!Power(*i.a, *i.b, value)) return false;
      break;
    case ExprOp::kFactorial:
      if (!Factorial(*i.a, value)) return false;
      break;
    case ExprOp::kNegate:
      value = -*i.a;
      break;
    case ExprOp::kOr:
      value = TruncateToLowWord(*i.a) | TruncateToLowWord(*i.b);
      break;
    case ExprOp::kXor:
      value = TruncateToLowWord(*i.a) ^ TruncateToLowWord(*i.b);
      break;
    case ExprOp::kAnd:
      value = TruncateToLowWord(*i.a) & TruncateToLowWord(*i.b);
      break;
    case ExprOp::kNot:
      value = ~TruncateToLowWord(*i.a);
      break;
    case ExprOp::kAbs:
      value = std::fabs(*i.a);
      break;
    case ExprOp::kSqrt:
      if (*i.a < 0) return false;
      value = std::sqrt(*i.a);
      break;
    case ExprOp::kLog:
      if (*i.a <= 0) return false;
      value = std::log10(*i.a);
      break;
    case ExprOp::kInvLog:
      value = std::pow(10.0, *i.a);
      break;
    case ExprOp::kLn:
      if (*i.a <= 0) return false;
      value = std::log(*i.a);
      break;
    case ExprOp::kInvLn:
      value = std::exp(*i.a);
      break;
    case ExprOp::kSin:
      value = std::sin(*i.a);
      break;
    case ExprOp::kCos:
      value = std::cos(*i.a);
      break;
    case ExprOp::kTan:
      value = std::tan(*i.a);
      break;
    case ExprOp::kInvSin:
      if (std::fabs(*i.a) > 1) return false;
      value = std::asin(*i.a);
      break;
    case ExprOp::kInvCos:
      if (std::fabs(*i.a) > 1) return false;
      value = std::acos(*i.a);
      break;
    case ExprOp::kInvTan:
      value = std::atan(*i.a);
      break;
    case ExprOp::kSinScaled:
      value = std::sin(*i.a / *i.b);
      break;
    case ExprOp::kCosScaled:
      value = std::cos(*i.a / *i.b);
      break;
    case ExprOp::kTanScaled:
      value = std::tan(*i.a / *i.b);
      break;
    case ExprOp::kInvSinScaled:
      if (std::fabs(*i.a) > 1) return false;
      value = std::asin(*i.a) * *i.b;
      break;
    case ExprOp::kInvCosScaled:
      if (std::fabs(*i.a) > 1) return false;
      value = std::acos(*i.a) * *i.b;
      break;
    case ExprOp::kInvTanScaled:
      value = std::atan(*i.a) * *i.b;
      break;
    case ExprOp::kSh:
      value = std::sinh(*i.a);
      break;
    case ExprOp::kCh:
      value = std::cosh(*i.a);
      break;
    case ExprOp::kTh:
      value = std::tanh(*i.a);
      break;
    case ExprOp::kInvSh:
      value = std::log(*i.a + std::sqrt(*i.a * *i.a + 1));
      break;
    case ExprOp::kInvCh:
      if (*i.a < 1) return false;
      value = std::log(*i.a + std::sqrt(*i.a * *i.a - 1));
      break;
    case ExprOp::kInvTh:
      // Not a mistake: 1 and -1 are allowed and give infinities.
      if (std::fabs(*i.a) > 1) return false;
      value = 0.5 * std::log((1 + *i.a) / (1 - *i.a));
      break;
    case ExprOp::kMmToI:
      value = *i.a / kMmPerInch;
      break;
    case ExprOp::kIToMm:
      value = *i.a * kMmPerInch;
      break;
    case ExprOp::kInt:
      value = TruncateToInt32(*i.a);
      break;
    case ExprOp::kEnd:
    case ExprOp::kIntegralBegin:
    case ExprOp::kIntegralNext:
    case ExprOp::kZeroBegin:
    case ExprOp::kZeroNext:
      return false;
    default:
      __builtin_unreachable();
  }
  *i.to = value;
  return true;
}

}  // namespace pnl
