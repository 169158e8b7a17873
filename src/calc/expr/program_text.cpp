// SPDX-License-Identifier: MIT
#include <functional>

#include "base/format.h"
#include "calc/expr/program.h"

namespace pnl {
namespace {

/// Indexed by ExprOp.
constexpr std::array kExprOps = {u"end",
                                 u"integral begin",
                                 u"integral next",
                                 u"zero begin",
                                 u"zero next",
                                 u"copy",
                                 u"add",
                                 u"subtract",
                                 u"multiply",
                                 u"divide",
                                 u"divisor",
                                 u"percent",
                                 u"power",
                                 u"factorial",
                                 u"negate",
                                 u"or",
                                 u"xor",
                                 u"and",
                                 u"not",
                                 u"abs",
                                 u"sqrt",
                                 u"log",
                                 u"invlog",
                                 u"ln",
                                 u"invln",
                                 u"sin",
                                 u"cos",
                                 u"tan",
                                 u"invsin",
                                 u"invcos",
                                 u"invtan",
                                 u"sin scaled",
                                 u"cos scaled",
                                 u"tan scaled",
                                 u"invsin scaled",
                                 u"invcos scaled",
                                 u"invtan scaled",
                                 u"sh",
                                 u"ch",
                                 u"th",
                                 u"invsh",
                                 u"invch",
                                 u"invth",
                                 u"mmtoi",
                                 u"itomm",
                                 u"int"};
static_assert(kExprOps.size() == static_cast<std::size_t>(ExprOp::kInt) + 1);

template <std::size_t N>
int IndexIn(const std::array<double, N>& values, const double* value) {
  const double* first = values.data();
  if (std::less<>()(value, first) || !std::less<>()(value, first + N)) return -1;
  return static_cast<int>(value - first);
}

/// The operand as text: a letter, ACC, a number, or t and a number for an intermediate value.
Text OperandText(const ExprProgram& program, const CalcStore& store, const double* operand) {
  if (operand == &store.Acc) return u"ACC";
  if (const int variable = IndexIn(store.Variables, operand); variable >= 0) {
    return Text(1, static_cast<char16_t>(u'A' + variable));
  }
  if (const int temporary = IndexIn(program.temporaries, operand); temporary >= 0) return Format(u"t%d", temporary);
  return Format(u"%.17g", *operand);
}

}  // namespace

void DescribeProgram(const ExprProgram& program, const CalcStore& store, Text& text) {
  for (const ExprInstruction& instruction : program.code) {
    if (instruction.to != nullptr) text += OperandText(program, store, instruction.to) + u" = ";
    text += kExprOps[static_cast<std::size_t>(instruction.op)];
    for (const double* operand : {instruction.a, instruction.b}) {
      if (operand != nullptr) text += u" " + OperandText(program, store, operand);
    }
    text += u'\n';
  }
  if (program.result != nullptr) text += u"value " + OperandText(program, store, program.result) + u'\n';
}

}  // namespace pnl
