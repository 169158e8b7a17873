// SPDX-License-Identifier: MIT
#include "calc/expr/machine.h"

#include <cmath>

#include "calc/expr/operations.h"

namespace pnl {
namespace {

constexpr std::int32_t kDefaultSteps = 100;
constexpr std::int32_t kMostIntervals = 500000;
constexpr std::int32_t kMostIterations = 50000;
constexpr double kZeroStep = 1E-6;

std::int32_t Clamped(std::int32_t count, std::int32_t most) {
  if (count <= 0) return kDefaultSteps;
  return count >= most ? most : count;
}

}  // namespace

void ExprMachine::Begin() {
  ip_ = program.code.data();
  done_ = false;
  succeeded_ = true;
  xSaved_ = false;
  report_ = {};
}

inline const ExprInstruction* ExprMachine::NextPlace(const ExprInstruction& instruction) {
  Integral& s = integral_;
  s.sum += s.weight * *instruction.a;
  if (s.left == 0) return NextRound(instruction);
  --s.left;
  s.place += 2;
  X() = s.a + s.place * s.h;
  return Body();
}

bool ExprMachine::Run(std::int64_t steps) {
  if (done_ || ip_ == nullptr) return true;
  const ExprInstruction* ip = ip_;
  for (; steps > 0; --steps) {
    if (Apply(*ip)) [[likely]] {
      ++ip;
      continue;
    }
    // This control instruction can run a million times, so it is done without a call. Control handles the others.
    ip = ip->op == ExprOp::kIntegralNext ? NextPlace(*ip) : Control(*ip);
    if (ip == nullptr) {
      done_ = true;
      return true;
    }
  }
  ip_ = ip;
  return false;
}

const ExprInstruction* ExprMachine::Control(const ExprInstruction& instruction) {
  switch (instruction.op) {
    case ExprOp::kEnd:
      return nullptr;
    case ExprOp::kIntegralBegin:
      return BeginIntegral(instruction);
    case ExprOp::kZeroBegin:
      // The operand is evaluated once with the present X, and its value is ignored. But it may fail or assign.
      zero_.phase = Zero::Phase::kProbe;
      return Body();
    case ExprOp::kZeroNext:
      return NextZero(instruction);
    default:
      Fail();
      return nullptr;
  }
}

void ExprMachine::SaveX() {
  savedX_ = X();
  xSaved_ = true;
}

void ExprMachine::Fail() {
  if (xSaved_) X() = savedX_;
  succeeded_ = false;
}

const ExprInstruction* ExprMachine::BeginIntegral(const ExprInstruction& instruction) {
  Integral& s = integral_;
  s.a = store_.Variables['A' - 'A'];
  s.b = store_.Variables['B' - 'A'];
  const auto twice = static_cast<std::int32_t>(2 * TruncateToLowWord(store_.Variables['N' - 'A']));
  s.intervals = Clamped(twice, kMostIntervals);
  s.h = (s.b - s.a) / s.intervals;
  if (s.h == 0) {
    *instruction.to = 0;
    report_.kind = SolverReport::Kind::kIntegral;
    return AfterSolver();
  }
  SaveX();
  s.sum = -0.0;  // so that the sum is exactly the first addend, even if that is -0
  s.round = Integral::Round::kFirst;
  s.weight = 1;
  s.left = 0;
  X() = s.a;
  return Body();
}

const ExprInstruction* ExprMachine::NextRound(const ExprInstruction& instruction) {
  using Round = Integral::Round;
  Integral& s = integral_;
  if (s.round == Round::kFirst) {
    s.round = Round::kLast;
    X() = s.b;
    return Body();
  }
  if (s.round == Round::kOdd) {
    *instruction.to = s.h / 3 * s.sum;
    X() = savedX_;
    xSaved_ = false;
    report_.kind = SolverReport::Kind::kIntegral;
    report_.steps = s.intervals;
    return AfterSolver();
  }
  // With two intervals there is no even place between the ends.
  s.round = s.round == Round::kLast && s.intervals > 2 ? Round::kEven : Round::kOdd;
  const bool even = s.round == Round::kEven;
  s.weight = even ? 2 : 4;
  s.place = even ? 2 : 1;
  s.left = s.intervals / 2 - (even ? 2 : 1);
  X() = s.a + s.place * s.h;
  return Body();
}

const ExprInstruction* ExprMachine::NextZero(const ExprInstruction& instruction) {
  Zero& s = zero_;
  switch (s.phase) {
    case Zero::Phase::kProbe:
      s.x = store_.Variables['A' - 'A'];
      s.most = Clamped(static_cast<std::int32_t>(TruncateToLowWord(store_.Variables['N' - 'A'])), kMostIterations);
      s.tolerance = std::fabs(store_.Variables['E' - 'A']);
      s.count = 0;
      SaveX();
      X() = s.x;
      s.phase = Zero::Phase::kValue;
      return Body();
    case Zero::Phase::kValue:
      s.fx = *instruction.a;
      if (!(std::fabs(s.fx) > s.tolerance && s.count < s.most)) break;
      X() = s.x - kZeroStep;
      s.phase = Zero::Phase::kLeft;
      return Body();
    case Zero::Phase::kLeft:
      s.l = *instruction.a;
      X() = s.x + kZeroStep;
      s.phase = Zero::Phase::kRight;
      return Body();
    case Zero::Phase::kRight:
      // The difference is the slope with the opposite sign, so the step is added.
      s.x += s.fx / ((s.l - *instruction.a) / (2.0 * kZeroStep));
      X() = s.x;
      ++s.count;
      s.phase = Zero::Phase::kValue;
      return Body();
  }
  X() = savedX_;
  xSaved_ = false;
  *instruction.to = s.x;
  report_ = {SolverReport::Kind::kZero, s.count, std::fabs(s.fx) <= s.tolerance, s.fx};
  return AfterSolver();
}

}  // namespace pnl
