// SPDX-License-Identifier: MIT
// A tree flattened for the machine: a straight list of instructions whose operands are addresses (variables of the
// store, constants and intermediate values of the program), so that an operator costs one instruction and a leaf none.
// At most one solver, whose operand is a range of the same list. Made by Flatten, run by ExprMachine.
//
// What goes beyond that, and how many times as long bench_calc takes without it (formula, integral, long integral):
// - Angles in radians are not multiplied by a factor of 1: 1.12, 1.09, 1.14.
// - A divisor is looked at beforehand only where the left side has effects: 1.29, 1.09, 1.21.
// - The four operations are done in the machine's loop and not by a call: 1.22, 1.31, 1.31.
// - So is the step to an integral's next place: 1.14 for the integral.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/text.h"
#include "calc/expr/calc_store.h"
#include "calc/expr/parser.h"

namespace pnl {

/// The order is that of kExprOps in program_text.cpp.
enum class ExprOp : std::uint8_t {
  // Control: the machine's own.
  kEnd,
  kIntegralBegin,
  kIntegralNext,
  kZeroBegin,
  kZeroNext,
  // Operations: to = a op b, or to = op a.
  kCopy,
  kAdd,
  kSubtract,
  kMultiply,
  kDivide,
  kDivisor,  // fails when b is 0, ahead of a left side that must then not be evaluated
  kPercent,
  kPower,
  kFactorial,
  kNegate,
  kOr,
  kXor,
  kAnd,
  kNot,
  kAbs,
  kSqrt,
  kLog,
  kInvLog,
  kLn,
  kInvLn,
  kSin,
  kCos,
  kTan,
  kInvSin,
  kInvCos,
  kInvTan,
  kSinScaled,  // these six: b is the angle scale
  kCosScaled,
  kTanScaled,
  kInvSinScaled,
  kInvCosScaled,
  kInvTanScaled,
  kSh,
  kCh,
  kTh,
  kInvSh,
  kInvCh,
  kInvTh,
  kMmToI,
  kIToMm,
  kInt,
};

struct ExprInstruction {
  ExprOp op = ExprOp::kEnd;
  double* to = nullptr;
  const double* a = nullptr;
  const double* b = nullptr;
};

/// Addresses point into the program itself, so it stays where it is.
struct ExprProgram {
  // One token of text gives one value at most.
  static constexpr std::size_t kMostValues = 256;

  ExprProgram() = default;
  ExprProgram(const ExprProgram&) = delete;
  ExprProgram& operator=(const ExprProgram&) = delete;

  std::vector<ExprInstruction> code;  // ends with kEnd; empty before it is made
  const double* result = nullptr;
  std::size_t constantCount = 0;
  std::size_t bodyBegin = 0;  // the solver's operand, up to its kIntegralNext or kZeroNext
  std::size_t bodyEnd = 0;
  std::array<double, kMostValues> constants;
  std::array<double, kMostValues> temporaries;
};

/// 180/pi, with pi as the language has it.
[[nodiscard]] double DegreesPerRadian();

/// Makes the program of a tree for one angle unit: angleScale is 1 for radians. The tree is one of a text that Compile
/// takes.
void Flatten(const ExprNode& tree, CalcStore& store, double angleScale, ExprProgram& program);

/// Appends one line an instruction; for people and tests.
void DescribeProgram(const ExprProgram& program, const CalcStore& store, Text& text);

}  // namespace pnl
