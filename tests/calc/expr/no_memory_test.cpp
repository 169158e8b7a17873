// SPDX-License-Identifier: MIT
// What the scanner and the parser do without memory. The allocation that they ask for without exceptions is replaced
// for the whole test program; it fails only when a test says so.
#include <new>

#include "calc/expr/expr_fixture.h"

namespace {
int allocationsLeft = -1;  // no limit
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  if (allocationsLeft == 0) return nullptr;
  if (allocationsLeft > 0) --allocationsLeft;
  return ::operator new(size);
}

namespace pnl::test {
namespace {

TEST(NoMemory, TheScannerGivesNeitherListNorPlace) {
  const Text text = u"1+2";
  for (int allocations = 0; allocations < 5; ++allocations) {  // head, three tokens, End
    CScaner scanner;
    std::unique_ptr<Token> head;
    allocationsLeft = allocations;
    const char16_t* end = scanner.ScanExpression(text.c_str(), head);
    allocationsLeft = -1;
    EXPECT_EQ(nullptr, end) << allocations;
    EXPECT_EQ(nullptr, head) << allocations;
  }
}

TEST(NoMemory, TheParserRefuses) {
  const Text text = u"A=-1+2^3!;(SIN B)";
  CScaner scanner;
  std::unique_ptr<Token> head;
  scanner.ScanExpression(text.c_str(), head);
  for (int allocations = 0; allocations < 12; ++allocations) {
    CParser parser;
    std::unique_ptr<ExprNode> root;
    std::int32_t place = -1;
    allocationsLeft = allocations;
    const int parsed = parser.ParseTokens(head.get(), place, root);
    allocationsLeft = -1;
    EXPECT_EQ(0, parsed) << allocations;
    EXPECT_GE(place, 0);
    EXPECT_LE(place, static_cast<int>(text.size()));
  }
}

TEST(NoMemory, CompileRefusesWithAPlaceInTheText) {
  const Text text = u"A=-1+2^3!;(SIN B)";
  for (int allocations = 0; allocations < 20; ++allocations) {
    Calc calc;
    const char16_t* error = nullptr;
    allocationsLeft = allocations;
    const int compiled = calc.evaluator.Compile(text.c_str(), error);
    allocationsLeft = -1;
    EXPECT_EQ(0, compiled) << allocations;
    EXPECT_GE(error, text.c_str());
    EXPECT_LE(error, text.c_str() + text.size());
    double value = 0;
    EXPECT_EQ(0, calc.evaluator.Evaluate(value));
  }
}

}  // namespace
}  // namespace pnl::test
