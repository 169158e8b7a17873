// SPDX-License-Identifier: MIT
#include "calc/expr/evaluator.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

TEST(Evaluator, ASequenceYieldsItsLastElement) {
  CScaner scanner;
  CParser parser;
  CalcStore store;
  CEvaluator evaluator(scanner, parser, store);
  const char16_t* error = nullptr;
  ASSERT_EQ(1, evaluator.Compile(u"A=1;B=2;A+B", error));
  double value = 0;
  ASSERT_EQ(1, evaluator.Evaluate(value));
  EXPECT_EQ(3, value);
  EXPECT_EQ(3, store.Acc);
}

}  // namespace
}  // namespace pnl
