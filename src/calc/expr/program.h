// SPDX-License-Identifier: MIT
// A tree flattened for the machine: a straight list of instructions whose operands are addresses (variables of the
// store, constants and intermediate values of the program), so that an operator costs one instruction and a leaf none.
// It has at most one solver, whose operand is a range of the same list. Flatten makes it, and ExprMachine runs it.
//
// These optimisations go beyond that. The numbers say how many times as long bench_calc takes without each (formula,
// integral, long integral):
// - Angles in radians are not multiplied by a factor of 1: 1.12, 1.09, 1.14.
// - A divisor is tested in advance only if the left side has effects: 1.29, 1.09, 1.21.
// - The four operations are done in the machine's loop and not by a call: 1.22, 1.31, 1.31.
// - The step to an integral's next place is done there too: 1.14 for the integral.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "base/text.h"
#include "calc/expr/calc_store.h"
#include "calc/expr/parser.h"

namespace pnl {

/// kExprOps in program_text.cpp has the same order.
enum class ExprOp : std::uint8_t {
  // Control instructions, which the machine handles itself.
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
  kDivisor,  // fails if b is 0; it comes before a left side that must not be evaluated then
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
  kSinScaled,  // for this and the next five, b is the angle scale
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

/// Its addresses point into the program itself, so it can't be copied or moved.
struct ExprProgram {
  // Each token of a text gives one value at most.
  static constexpr std::size_t kMostValues = 256;

  ExprProgram() = default;
  ExprProgram(const ExprProgram&) = delete;
  ExprProgram& operator=(const ExprProgram&) = delete;

  std::vector<ExprInstruction> code;  // ends with kEnd; empty until Flatten makes it
  const double* result = nullptr;
  std::size_t constantCount = 0;
  std::size_t bodyBegin = 0;  // the operand of the solver, up to kIntegralNext or kZeroNext
  std::size_t bodyEnd = 0;
  std::array<double, kMostValues> constants;
  std::array<double, kMostValues> temporaries;
};

/// 180/pi, with the language's value of pi.
[[nodiscard]] double DegreesPerRadian();

/// Makes the program of a tree for one angle unit. angleScale is 1 for radians. The tree must be one that
/// CEvaluator::Compile makes.
void Flatten(const ExprNode& tree, CalcStore& store, double angleScale, ExprProgram& program);

/// Appends one line for each instruction, for people and tests.
void DescribeProgram(const ExprProgram& program, const CalcStore& store, Text& text);

}  // namespace pnl
