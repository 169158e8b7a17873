// SPDX-License-Identifier: MIT
#include <cmath>
#include <functional>

#include "calc/expr/operations.h"
#include "calc/expr/program.h"

namespace pnl {
namespace {

double Pi() {
  static const double pi = 2 * std::asin(1.0);
  return pi;
}

/// By the index in the function table. A solver isn't one operation.
constexpr std::array<ExprOp, kFunctions.size()> kFunctionOps = {
    ExprOp::kAbs,   ExprOp::kSqrt,  ExprOp::kLog, ExprOp::kInvLog, ExprOp::kLn,     ExprOp::kInvLn,
    ExprOp::kSin,   ExprOp::kCos,   ExprOp::kTan, ExprOp::kInvSin, ExprOp::kInvCos, ExprOp::kInvTan,
    ExprOp::kSh,    ExprOp::kCh,    ExprOp::kTh,  ExprOp::kInvSh,  ExprOp::kInvCh,  ExprOp::kInvTh,
    ExprOp::kMmToI, ExprOp::kIToMm, ExprOp::kEnd, ExprOp::kInt,    ExprOp::kEnd};
constexpr std::array<ExprOp, kLogic.size()> kLogicOps = {ExprOp::kOr, ExprOp::kXor, ExprOp::kAnd, ExprOp::kNot};
/// By the index in the delimiter table. kEnd means that a delimiter isn't one operation.
constexpr std::array<ExprOp, kDelimiters.size()> kDelimiterOps = {
    ExprOp::kEnd,    ExprOp::kEnd,     ExprOp::kEnd,   ExprOp::kAdd,       ExprOp::kSubtract, ExprOp::kMultiply,
    ExprOp::kDivide, ExprOp::kPercent, ExprOp::kPower, ExprOp::kFactorial, ExprOp::kEnd,      ExprOp::kEnd};

bool IsSolver(const ExprNode& node) {
  return node.kind == TOK_FUNCTION && (node.value.index == FUN_INTEGRAL || node.value.index == FUN_ZERO);
}

bool IsDelimiter(const ExprNode& node, std::int32_t index) {
  return node.kind == TOK_DELIMITER && node.value.index == index;
}

/// Whether evaluating the tree may change the store or take long.
bool HasEffects(const ExprNode* node) {
  if (node == nullptr) return false;
  return IsSolver(*node) || IsDelimiter(*node, DEL_ASSIGN) || HasEffects(node->left.get()) ||
         HasEffects(node->right.get());
}

class Flattener {
 public:
  Flattener(CalcStore& store, double angleScale, ExprProgram& program)
      : store_(store), angleScale_(angleScale), program_(program) {}

  /// Emits the instructions that compute the tree. Returns the address at which its value will be.
  const double* Value(const ExprNode& node) {
    switch (node.kind) {
      case TOK_FUNCTION:
        return IsSolver(node) ? Solver(node) : Function(node);
      case TOK_DELIMITER:
        return Delimiter(node);
      case TOK_LOGIC:
        return node.value.index == LOG_NOT ? Unary(ExprOp::kNot, node)
                                           : Binary(kLogicOps[static_cast<std::size_t>(node.value.index)], node);
      case TOK_VARIABLE:
        return Variable(node);
      case TOK_NUMBER:
        return Constant(node.value.number);
      case TOK_CONSTANT:
        return NamedConstant(node.value.index);
      case TOK_END:
        break;
    }
    return Constant(0);
  }

  void Emit(ExprOp op, double* to, const double* a = nullptr, const double* b = nullptr) {
    program_.code.push_back({op, to, a, b});
  }

 private:
  double* Variable(const ExprNode& node) { return &store_.Variables[static_cast<std::size_t>(node.value.index)]; }

  const double* Constant(double value) {
    double& slot = program_.constants[program_.constantCount++];
    slot = value;
    return &slot;
  }

  const double* NamedConstant(std::int32_t index) {
    switch (index) {
      case CON_ACC:
        return &store_.Acc;
      case CON_PI:
        return Constant(Pi());
      case CON_MMPERI:
        return Constant(kMmPerInch);
      default:
        return Constant(kInchPerMm);
    }
  }

  double* Temporary() { return &program_.temporaries[temporaries_++]; }

  /// The value, or a copy of it if it is a variable that later code may change.
  const double* Settled(const double* value, bool effectsFollow) {
    const double* first = store_.Variables.data();
    const bool variable = !std::less<>()(value, first) && std::less<>()(value, first + kVariableCount);
    if (!variable || !effectsFollow) return value;
    double* copy = Temporary();
    Emit(ExprOp::kCopy, copy, value);
    return copy;
  }

  const double* Operation(ExprOp op, const double* a, const double* b) {
    double* to = Temporary();
    Emit(op, to, a, b);
    return to;
  }

  const double* Unary(ExprOp op, const ExprNode& node, const double* b = nullptr) {
    const std::size_t mark = temporaries_;
    const double* a = Value(*node.left);
    temporaries_ = mark;
    return Operation(op, a, b);
  }

  const double* Binary(ExprOp op, const ExprNode& node) {
    const std::size_t mark = temporaries_;
    const double* a = Settled(Value(*node.left), HasEffects(node.right.get()));
    const double* b = Value(*node.right);
    temporaries_ = mark;
    return Operation(op, a, b);
  }

  /// Evaluates the right side first. If it is 0, the left side must not be evaluated. A left side without effects may
  /// be evaluated all the same, because nobody notices it.
  const double* Divide(const ExprNode& node) {
    const std::size_t mark = temporaries_;
    const bool effects = HasEffects(node.left.get());
    const double* b = Settled(Value(*node.right), effects);
    if (effects) Emit(ExprOp::kDivisor, nullptr, nullptr, b);
    const double* a = Value(*node.left);
    temporaries_ = mark;
    return Operation(ExprOp::kDivide, a, b);
  }

  const double* Delimiter(const ExprNode& node) {
    switch (node.value.index) {
      case DEL_SEMICOLON:
      case DEL_COLON: {
        const std::size_t mark = temporaries_;
        Value(*node.left);
        temporaries_ = mark;
        return Value(*node.right);
      }
      case DEL_ASSIGN: {
        const double* value = Value(*node.right);
        double* variable = Variable(*node.left);
        Emit(ExprOp::kCopy, variable, value);
        return variable;
      }
      case DEL_MINUS:
        return node.right == nullptr ? Unary(ExprOp::kNegate, node) : Binary(ExprOp::kSubtract, node);
      case DEL_DIVIDE:
        return Divide(node);
      case DEL_FACTORIAL:
        return Unary(ExprOp::kFactorial, node);
      default:
        return Binary(kDelimiterOps[static_cast<std::size_t>(node.value.index)], node);
    }
  }

  const double* Function(const ExprNode& node) {
    const auto index = static_cast<std::size_t>(node.value.index);
    const bool angular = index >= FUN_SIN && index <= FUN_INVTAN;
    // In radians the scale is 1, so it can be left out.
    if (!angular || angleScale_ == 1.0) return Unary(kFunctionOps[index], node);
    const auto scaled = static_cast<std::size_t>(ExprOp::kSinScaled) + index - FUN_SIN;
    if (angleScaleSlot_ == nullptr) angleScaleSlot_ = Constant(angleScale_);
    return Unary(static_cast<ExprOp>(scaled), node, angleScaleSlot_);
  }

  const double* Solver(const ExprNode& node) {
    const bool integral = node.value.index == FUN_INTEGRAL;
    double* to = Temporary();
    const std::size_t mark = temporaries_;
    Emit(integral ? ExprOp::kIntegralBegin : ExprOp::kZeroBegin, to);
    program_.bodyBegin = program_.code.size();
    const double* value = Value(*node.left);
    program_.bodyEnd = program_.code.size();
    Emit(integral ? ExprOp::kIntegralNext : ExprOp::kZeroNext, to, value);
    temporaries_ = mark;
    return to;
  }

  CalcStore& store_;
  double angleScale_;
  ExprProgram& program_;
  std::size_t temporaries_ = 0;
  const double* angleScaleSlot_ = nullptr;
};

}  // namespace

double DegreesPerRadian() { return 180 / Pi(); }

void Flatten(const ExprNode& tree, CalcStore& store, double angleScale, ExprProgram& program) {
  program.code.clear();
  program.code.reserve(32);
  program.constantCount = 0;
  Flattener flattener(store, angleScale, program);
  program.result = flattener.Value(tree);
  flattener.Emit(ExprOp::kEnd, nullptr);
}

}  // namespace pnl
