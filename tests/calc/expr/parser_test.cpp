// SPDX-License-Identifier: MIT
#include "calc/expr/parser.h"

#include "calc/expr/expr_fixture.h"

namespace pnl::test {
namespace {

struct Row {
  Text text;
  std::string tree;
};

void ExpectTrees(const std::vector<Row>& rows) {
  Calc calc;
  for (const Row& row : rows) EXPECT_EQ(row.tree, calc.Tree(row.text)) << ToUtf8(row.text);
}

// One test for each level of the grammar, from the loosest binding.

TEST(Parser, ASequenceLeansLeftWithEitherSeparator) {
  ExpectTrees(
      {{u"A;B", "(A;B)"}, {u"A:B", "(A:B)"}, {u"A;B:C", "((A;B):C)"}, {u"A=1;B=2;A+B", "(((A=1);(B=2));(A+B))"}});
}

TEST(Parser, AnAssignmentLeansRightAndNeedsAVariable) {
  ExpectTrees({{u"A=3", "(A=3)"},
               {u"A=B=3", "(A=(B=3))"},
               {u"A=1+2", "(A=(1+2))"},
               {u"A", "A"},
               {u"2=3", "refused at 1"},
               {u"(A)=3", "refused at 3"},
               {u"A+B=3", "refused at 3"},
               {u"PI=3", "refused at 2"},
               {u"-A=3", "refused at 2"}});
}

TEST(Parser, OrIsLooserThanXorAndXorThanAnd) {
  // Logic has no canonical text, so the shape is looked at.
  CScaner scanner;
  CParser parser;
  std::unique_ptr<Token> tokens;
  std::unique_ptr<ExprNode> root;
  std::int32_t place = 0;
  scanner.ScanExpression(u"A OR B XOR C AND D OR E", tokens);
  ASSERT_EQ(1, parser.ParseTokens(tokens.get(), place, root));
  EXPECT_EQ(LOG_OR, root->value.index);
  EXPECT_EQ(TOK_VARIABLE, root->right->kind);
  EXPECT_EQ(LOG_OR, root->left->value.index);
  EXPECT_EQ(LOG_XOR, root->left->right->value.index);
  EXPECT_EQ(LOG_AND, root->left->right->right->value.index);
}

TEST(Parser, AndIsLooserThanPlus) {
  Calc calc;
  EXPECT_EQ(4, calc.Value(u"4 AND 3+1"));
  EXPECT_EQ(7, calc.Value(u"3 OR 4 XOR 0"));
}

TEST(Parser, SumsLeanLeft) { ExpectTrees({{u"1-2+3", "((1-2)+3)"}, {u"1+2-3", "((1+2)-3)"}}); }

TEST(Parser, ProductsLeanLeftAndBindTighterThanSums) {
  ExpectTrees({{u"1*2/3%4", "(((1*2)/3)%4)"}, {u"1+2*3", "(1+(2*3))"}, {u"1/2-3", "((1/2)-3)"}});
}

TEST(Parser, NotStandsAboveProductsAndBelowPrefixes) {
  Calc calc;
  EXPECT_EQ(4294967294.0 * 2, calc.Value(u"NOT 1*2"));
  EXPECT_EQ(2 * 4294967294.0, calc.Value(u"2*NOT 1"));
  EXPECT_EQ(1, calc.Value(u"NOT NOT 1"));
  EXPECT_EQ(0, calc.Value(u"NOT -1"));
}

TEST(Parser, APrefixDoesNotTakeALogicToken) {
  // Looks like a gap in the grammar, and is how the language is.
  ExpectTrees({{u"-NOT 1", "refused at 1"},
               {u"SIN NOT 1", "refused at 4"},
               {u"2^NOT 1", "refused at 2"},
               {u"-(NOT 1)", "(-(Error!))"},
               {u"SIN(NOT 1)", "SIN(Error!)"}});
}

TEST(Parser, AFunctionTakesOnePrefixAndNeedsNoBrackets) {
  ExpectTrees({{u"SIN 30", "SIN30"},
               {u"SIN(30)", "SIN30"},
               {u"SIN COS 0", "SINCOS0"},
               {u"SIN 30+1", "(SIN30+1)"},
               {u"SIN 2^3", "SIN(2^3)"},
               {u"SIN 3!", "SIN(3!)"},
               {u"SIN-30", "SIN(-30)"},
               {u"-SIN 30", "(-SIN30)"},
               {u"ZERO X^2-2", "(ZERO(X^2)-2)"},
               {u"ZERO(X^2-2)", "ZERO((X^2)-2)"},
               {u"SIN 2*3", "(SIN2*3)"}});
}

TEST(Parser, UnaryMinusIsLooserThanPowerAndFactorial) {
  ExpectTrees({{u"-2^2", "(-(2^2))"},
               {u"-3!", "(-(3!))"},
               {u"2^-1", "(2^(-1))"},
               {u"--3", "(-(-3))"},
               {u"2*-3", "(2*(-3))"},
               {u"1--1", "(1-(-1))"}});
}

TEST(Parser, ThereIsNoUnaryPlus) {
  ExpectTrees({{u"+5", "refused at 0"}, {u"1*+5", "refused at 2"}, {u"1++5", "refused at 2"}});
}

TEST(Parser, PowerLeansRight) {
  ExpectTrees({{u"2^3^2", "(2^(3^2))"}, {u"2^SIN 3^2", "(2^SIN(3^2))"}, {u"2^-3^2", "(2^(-(3^2)))"}});
}

TEST(Parser, FactorialBindsTightest) {
  ExpectTrees({{u"2^3!", "(2^(3!))"}, {u"3!!", "((3!)!)"}, {u"3!^2", "((3!)^2)"}, {u"(1+2)!", "((1+2)!)"}});
}

TEST(Parser, BracketsHoldAnAssignmentAndNoSequence) {
  ExpectTrees({{u"(A=2)+1", "((A=2)+1)"}, {u"((1))", "1"}, {u"(A=2;B=3)", "refused at 4"}, {u"(A:B)", "refused at 2"}});
}

TEST(Parser, APrimaryIsAVariableANumberOrAConstant) {
  ExpectTrees({{u"A", "A"}, {u"1.5", "1.5"}, {u"PI", "(Error!)"}});
}

TEST(Parser, WhatNoRuleTakesIsRefusedAtItsPlace) {
  ExpectTrees({{u"1 2", "refused at 2"},
               {u"1 PI", "refused at 2"},
               {u"PI 2", "refused at 3"},
               {u"(1)(2)", "refused at 3"},
               {u"A B", "refused at 2"},
               {u"2A", "refused at 1"},
               {u"1+", "refused at 2"},
               {u"1+ ", "refused at 3"},
               {u"()", "refused at 1"},
               {u"(1", "refused at 2"},
               {u"(1 2)", "refused at 3"},
               {u"1)", "refused at 1"},
               {u"A=1;", "refused at 4"},
               {u"A=1:", "refused at 4"},
               {u";1", "refused at 0"},
               {u"1;;2", "refused at 2"},
               {u"A=", "refused at 2"},
               {u"=", "refused at 0"},
               {u"A==1", "refused at 2"},
               {u"!", "refused at 0"},
               {u"!3", "refused at 0"},
               {u"-", "refused at 1"},
               {u"SIN", "refused at 3"},
               {u"SIN*2", "refused at 3"},
               {u"1 NOT 2", "refused at 2"},
               {u"1 AND", "refused at 5"},
               {u"NOT", "refused at 3"},
               {u"1*", "refused at 2"},
               {u"2^", "refused at 2"},
               {u"1 SIN 2", "refused at 2"},
               {u"1E", "refused at 1"},
               {u"1E+", "refused at 1"},
               {u"1E-", "refused at 1"},
               {u"2.5E+X", "refused at 3"},
               {u"B2", "refused at 1"},
               {u"S IN 30", "refused at 2"},
               {u"COSH", "COSH"},
               {u"(((", "refused at 3"}});
}

TEST(Parser, AnEmptyListIsRefusedAtItsEnd) {
  ExpectTrees({{u"", "refused at 0"}, {u" ", "refused at 1"}, {u"     ", "refused at 5"}});
}

TEST(Parser, TheTextOfATreeHasARowForEachKind) {
  ExpectTrees({{u"sin x", "SINX"},
               {u"-x", "(-X)"},
               {u"3!", "(3!)"},
               {u"1;2", "(1;2)"},
               {u"x=1%2", "(X=(1%2))"},
               {u"z", "Z"},
               {u"PI+1", "((Error!)+1)"},
               {u"ACC", "(Error!)"},
               {u"1 OR 2", "(Error!)"},
               {u"NOT 5", "(Error!)"},
               {u"1+(2 AND 3)", "(1+(Error!))"}});
  Text nothing;
  CParser::DescribeTree(nullptr, nothing);
  EXPECT_EQ(u"", nothing);
}

TEST(Parser, NumbersInTheTextOfATreeHaveSixDigits) {
  ExpectTrees({{u"0.5", "0.5"},
               {u"1000000", "1e+06"},
               {u"123456789", "1.23457e+08"},
               {u"1E-5", "1e-05"},
               {u"$FF", "255"},
               {u"1E999", "inf"}});
}

TEST(Parser, TheTextOfATreeIsAppended) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"1+2"));
  Text text = u"Value of ";
  calc.evaluator.DescribeTree(text);
  EXPECT_EQ(u"Value of (1+2)", text);
}

TEST(Parser, TheMinusSignsAreToldApartByTheRightOperand) {
  CScaner scanner;
  CParser parser;
  std::unique_ptr<Token> tokens;
  std::unique_ptr<ExprNode> root;
  std::int32_t place = 0;
  scanner.ScanExpression(u"1--1", tokens);
  ASSERT_EQ(1, parser.ParseTokens(tokens.get(), place, root));
  EXPECT_EQ(DEL_MINUS, root->value.index);
  ASSERT_NE(nullptr, root->right);
  EXPECT_EQ(DEL_MINUS, root->right->value.index);
  EXPECT_EQ(nullptr, root->right->right);
  CParser::FreeTree(root);
  EXPECT_EQ(nullptr, root);
}

TEST(Parser, TheDeepestNestingThatFitsIsParsed) {
  Calc calc;
  EXPECT_EQ("1", calc.Tree(Text(127, u'(') + u"1" + Text(127, u')')));
  EXPECT_EQ(-1, calc.Place(Text(254, u'-') + u"1"));
  EXPECT_EQ(255, calc.Place(Text(255, u'(')));
  EXPECT_EQ(255, calc.Place(Text(255, u'-')));
}

}  // namespace
}  // namespace pnl::test
