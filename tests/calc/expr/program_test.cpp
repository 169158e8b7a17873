// SPDX-License-Identifier: MIT
#include "calc/expr/program.h"

#include "calc/expr/expr_fixture.h"

namespace pnl::test {
namespace {

std::string Program(const Text& text, bool radians = true) {
  CScaner scanner;
  CParser parser;
  CalcStore store;
  std::unique_ptr<Token> tokens;
  std::unique_ptr<ExprNode> tree;
  std::int32_t place = 0;
  scanner.ScanExpression(text.c_str(), tokens);
  if (tokens == nullptr || parser.ParseTokens(tokens.get(), place, tree) == 0) return "refused";
  ExprProgram program;
  Flatten(*tree, store, radians ? 1.0 : DegreesPerRadian(), program);
  Text described;
  DescribeProgram(program, store, described);
  return ToUtf8(described);
}

TEST(Program, ALeafCostsNothing) {
  EXPECT_EQ("end\nvalue A\n", Program(u"A"));
  EXPECT_EQ("end\nvalue ACC\n", Program(u"ACC"));
  EXPECT_EQ("end\nvalue 1.5\n", Program(u"1.5"));
}

TEST(Program, AnOperatorCostsOneInstruction) {
  EXPECT_EQ("t0 = add A B\nend\nvalue t0\n", Program(u"A+B"));
  EXPECT_EQ("t0 = sqrt A\nend\nvalue t0\n", Program(u"SQRT A"));
  EXPECT_EQ("A = copy B\nend\nvalue A\n", Program(u"A=B"));
}

TEST(Program, AChainGoesOverIntermediateValues) {
  EXPECT_EQ("t0 = multiply A B\nt0 = add t0 C\nend\nvalue t0\n", Program(u"A*B+C"));
  EXPECT_EQ("t0 = multiply A B\nt0 = subtract C t0\nend\nvalue t0\n", Program(u"C-A*B"));
  EXPECT_EQ("t0 = multiply A B\nt1 = multiply C D\nt0 = subtract t0 t1\nend\nvalue t0\n", Program(u"A*B-C*D"));
}

TEST(Program, AConstantIsAnOperandLikeAnyOther) {
  EXPECT_EQ("t0 = multiply 2 3\nt0 = add 1 t0\nend\nvalue t0\n", Program(u"1+2*3"));
  EXPECT_EQ("t0 = divide 1 0\nend\nvalue t0\n", Program(u"1/0"));
  EXPECT_EQ("t0 = negate 1\nt0 = sqrt t0\nend\nvalue t0\n", Program(u"SQRT -1"));
}

TEST(Program, AnglesAreScaledInDegreesOnly) {
  EXPECT_EQ("t0 = sin A\nend\nvalue t0\n", Program(u"SIN A"));
  EXPECT_EQ("t0 = sin scaled A 57.295779513082323\nend\nvalue t0\n", Program(u"SIN A", false));
}

TEST(Program, AVariableIsCopiedWhenItMayChange) {
  EXPECT_EQ("t0 = copy A\nA = copy 5\nt0 = add t0 A\nend\nvalue t0\n", Program(u"A+(A=5)"));
}

TEST(Program, ADivisorIsLookedAtBeforeALeftSideThatAssigns) {
  EXPECT_EQ("t0 = copy B\ndivisor t0\nA = copy 1\nt0 = divide A t0\nend\nvalue t0\n", Program(u"(A=1)/B"));
}

TEST(Program, SolversEncloseTheirOperand) {
  EXPECT_EQ("t0 = integral begin\nt1 = power X 2\nt0 = integral next t1\nend\nvalue t0\n", Program(u"INTEGRAL X^2"));
  EXPECT_EQ("t0 = zero begin\nt1 = sin X\nt0 = zero next t1\nt0 = negate t0\nend\nvalue t0\n", Program(u"-ZERO SIN X"));
}

TEST(Program, OperandsAreNamedWhereverTheVariablesLie) {
  for (const bool behind : {false, true}) {
    struct {
      CalcStore before;
      ExprProgram program;
      CalcStore behind;
    } memory;
    CalcStore& store = behind ? memory.behind : memory.before;
    CScaner scanner;
    CParser parser;
    std::unique_ptr<Token> tokens;
    std::unique_ptr<ExprNode> tree;
    std::int32_t place = 0;
    scanner.ScanExpression(u"A*2+Z", tokens);
    ASSERT_EQ(1, parser.ParseTokens(tokens.get(), place, tree));
    Flatten(*tree, store, 1.0, memory.program);
    Text described;
    DescribeProgram(memory.program, store, described);
    EXPECT_EQ(ToUtf8(described), "t0 = multiply A 2\nt0 = add t0 Z\nend\nvalue t0\n");
  }
}

TEST(Program, EveryTextThatFitsHasRoomForItsValues) {
  const auto repeated = [](const Text& begin, const Text& piece, std::size_t size) {
    Text text = begin;
    while (text.size() + piece.size() <= size) text += piece;
    return text;
  };
  const std::vector<Text> texts = {repeated(u"2", u"/2", 255),
                                   repeated(u"A", u"/2", 255),
                                   repeated(u"A", u"/--2", 255),
                                   repeated(u"A", u"-A", 255),
                                   repeated(u"1", u"+1", 255),
                                   repeated(u"", u"-", 254) + u"1",
                                   repeated(u"SIN", u"-", 254) + u"1",
                                   repeated(u"SIN", u"-", 254) + u"A",
                                   repeated(u"", u"A+(", 168) + u"A=1" + repeated(u"", u")", 56),
                                   repeated(u"", u"A/(", 168) + u"A=1" + repeated(u"", u")", 56),
                                   repeated(u"2", u"^2", 255),
                                   repeated(u"A", u"!", 255)};
  for (const Text& text : texts) {
    CScaner scanner;
    CParser parser;
    CalcStore store;
    std::unique_ptr<Token> tokens;
    std::unique_ptr<ExprNode> tree;
    std::int32_t place = 0;
    scanner.ScanExpression(text.c_str(), tokens);
    ASSERT_EQ(1, parser.ParseTokens(tokens.get(), place, tree)) << ToUtf8(text);
    ExprProgram program;
    Flatten(*tree, store, DegreesPerRadian(), program);
    EXPECT_LE(program.constantCount, ExprProgram::kMostValues) << ToUtf8(text);
    for (const ExprInstruction& instruction : program.code) {
      if (instruction.to == nullptr) continue;
      const bool temporary = instruction.to >= program.temporaries.data() &&
                             instruction.to < program.temporaries.data() + program.temporaries.size();
      EXPECT_TRUE(temporary || instruction.to == store.Variables.data()) << ToUtf8(text);
    }
  }
}

TEST(Program, EveryOperationHasAName) {
  for (const TextView function : kFunctions) {
    const std::string name = ToUtf8(function);
    std::string lower = name;
    for (char& c : lower) c = static_cast<char>(c - 'A' + 'a');
    EXPECT_NE(std::string::npos, Program(Text(function) + u" X").find("= " + lower)) << name;
  }
}

}  // namespace
}  // namespace pnl::test
