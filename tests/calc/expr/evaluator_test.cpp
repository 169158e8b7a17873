// SPDX-License-Identifier: MIT
#include "calc/expr/evaluator.h"

#include <optional>

#include "calc/expr/expr_fixture.h"

namespace pnl::test {
namespace {

struct Row {
  Text text;
  std::optional<double> value;  // nothing: a domain failure
};

void ExpectValues(const std::vector<Row>& rows, bool radians = false) {
  for (const Row& row : rows) {
    Calc calc;
    calc['X'] = kNotANumber;
    calc['Y'] = kInfinity;
    calc.evaluator.radians = radians;
    const std::optional<double> value = calc.Value(row.text);
    ASSERT_EQ(row.value.has_value(), value.has_value()) << ToUtf8(row.text);
    EXPECT_TRUE(Same(row.value.value_or(0), value.value_or(0))) << ToUtf8(row.text) << " is " << value.value_or(0);
  }
}

constexpr std::nullopt_t kFails = std::nullopt;
const double kPi = 2 * std::asin(1.0);
const double kDegrees = 180 / kPi;

// Functions: a value, the edge of the failure and NaN (X), which passes every test.

TEST(Evaluator, AbsNeverFails) { ExpectValues({{u"ABS -2", 2}, {u"ABS 2", 2}, {u"ABS X", kNotANumber}}); }

TEST(Evaluator, SqrtFailsBelowZero) {
  ExpectValues({{u"SQRT 9", 3}, {u"SQRT 0", 0}, {u"SQRT -1E-300", kFails}, {u"SQRT X", kNotANumber}, {u"SQRT -0", 0}});
}

TEST(Evaluator, LogFailsAtZeroAndBelow) {
  ExpectValues({{u"LOG 1000", std::log10(1000.0)}, {u"LOG 0", kFails}, {u"LOG -1", kFails}, {u"LOG X", kNotANumber}});
}

TEST(Evaluator, InvlogNeverFails) {
  ExpectValues({{u"INVLOG 3", 1000}, {u"INVLOG -1", 0.1}, {u"INVLOG 400", kInfinity}, {u"INVLOG X", kNotANumber}});
}

TEST(Evaluator, LnFailsAtZeroAndBelow) {
  ExpectValues({{u"LN 2", std::log(2.0)}, {u"LN 0", kFails}, {u"LN -1", kFails}, {u"LN X", kNotANumber}});
}

TEST(Evaluator, InvlnNeverFails) {
  ExpectValues({{u"INVLN 1", std::exp(1.0)}, {u"INVLN 1000", kInfinity}, {u"INVLN X", kNotANumber}});
}

TEST(Evaluator, SinCosAndTanTakeDegrees) {
  ExpectValues({{u"SIN 30", std::sin(30 / kDegrees)},
                {u"COS 60", std::cos(60 / kDegrees)},
                {u"TAN 45", std::tan(45 / kDegrees)},
                {u"SIN X", kNotANumber},
                {u"COS Y", kNotANumber},
                {u"TAN X", kNotANumber}});
  Calc calc;
  EXPECT_NEAR(0.5, *calc.Value(u"SIN 30"), 1e-15);
}

TEST(Evaluator, SinCosAndTanTakeRadians) {
  ExpectValues({{u"SIN 1", std::sin(1.0)}, {u"COS 1", std::cos(1.0)}, {u"TAN 1", std::tan(1.0)}}, true);
}

TEST(Evaluator, TheInversesOfAnglesFailBeyondOne) {
  ExpectValues({{u"INVSIN 1", 90},
                {u"INVSIN 0.5", std::asin(0.5) * kDegrees},
                {u"INVCOS -1", 180},
                {u"INVTAN 1", 45},
                {u"INVSIN 1.0000001", kFails},
                {u"INVSIN -1.0000001", kFails},
                {u"INVCOS 1.0000001", kFails},
                {u"INVCOS -2", kFails},
                {u"INVTAN Y", 90},
                {u"INVSIN X", kNotANumber},
                {u"INVCOS X", kNotANumber}});
  ExpectValues({{u"INVSIN 1", std::asin(1.0)}, {u"INVCOS 0.5", std::acos(0.5)}, {u"INVTAN 1", std::atan(1.0)}}, true);
}

TEST(Evaluator, HyperbolicFunctionsTakeNoAngleUnit) {
  for (const bool radians : {false, true}) {
    ExpectValues({{u"SH 1", std::sinh(1.0)},
                  {u"CH 1", std::cosh(1.0)},
                  {u"TH 1", std::tanh(1.0)},
                  {u"INVSH 1", std::log(1 + std::sqrt(2.0))},
                  {u"INVCH 2", std::log(2 + std::sqrt(3.0))},
                  {u"INVTH 0.5", 0.5 * std::log(1.5 / 0.5)},
                  {u"SH X", kNotANumber},
                  {u"INVSH X", kNotANumber}},
                 radians);
  }
}

TEST(Evaluator, InvchFailsBelowOne) {
  ExpectValues({{u"INVCH 1", 0}, {u"INVCH 0.9999999", kFails}, {u"INVCH -2", kFails}, {u"INVCH X", kNotANumber}});
}

TEST(Evaluator, InvthLetsExactlyOneThrough) {
  ExpectValues({{u"INVTH 1", kInfinity},
                {u"INVTH -1", -kInfinity},
                {u"INVTH 1.0000001", kFails},
                {u"INVTH -1.0000001", kFails},
                {u"INVTH X", kNotANumber}});
}

TEST(Evaluator, InchesAndMillimetres) {
  ExpectValues({{u"MMTOI 25.4", 1}, {u"ITOMM 2", 50.8}, {u"MMTOI 1", 1 / 25.4}});
}

TEST(Evaluator, IntTruncatesTowardZeroInThirtyTwoBits) {
  ExpectValues({{u"INT -1.9", -1},
                {u"INT 1.9", 1},
                {u"INT 2147483647.9", 2147483647},
                {u"INT 2147483648", -2147483648.0},
                {u"INT 1E10", -2147483648.0},
                {u"INT -1E10", -2147483648.0},
                {u"INT X", -2147483648.0},
                {u"INT -0.5", 0}});
}

// Delimiters.

TEST(Evaluator, ASequenceYieldsItsLastElement) {
  ExpectValues({{u"1;2", 2}, {u"1:2", 2}, {u"A=1;B=2;A+B", 3}, {u"1/0;2", kFails}});
}

TEST(Evaluator, AnAssignmentYieldsTheVariable) {
  Calc calc;
  EXPECT_EQ(3, calc.Value(u"A=B=3"));
  EXPECT_EQ(3, calc['A']);
  EXPECT_EQ(3, calc['B']);
  EXPECT_EQ(3, calc.Value(u"(A=2)+1"));
  EXPECT_EQ(2, calc['A']);
}

TEST(Evaluator, AnAssignmentOfAFailureStoresNothing) {
  Calc calc;
  calc['A'] = 7;
  calc['B'] = 8;
  EXPECT_EQ(std::nullopt, calc.Value(u"A=1/0"));
  EXPECT_EQ(7, calc['A']);
  EXPECT_EQ(std::nullopt, calc.Value(u"B=A=SQRT -1"));
  EXPECT_EQ(7, calc['A']);
  EXPECT_EQ(8, calc['B']);
}

TEST(Evaluator, TheFourOperations) {
  ExpectValues({{u"1+2", 3},
                {u"1-2", -1},
                {u"3*4", 12},
                {u"3/4", 0.75},
                {u"-5", -5},
                {u"--3", 3},
                {u"2*-3", -6},
                {u"-2^2", -4},
                {u"0.1+0.2", 0.1 + 0.2},
                {u"1-X", kNotANumber}});
}

TEST(Evaluator, DivisionByZeroFails) {
  ExpectValues({{u"1/0", kFails},
                {u"0/0", kFails},
                {u"1/-0", kFails},
                {u"Y/0", kFails},
                {u"1/X", kNotANumber},
                {u"1/Y", 0},
                {u"1/(1-1)", kFails},
                {u"1/C", kFails},
                {u"1/1E-320", kInfinity}});
}

TEST(Evaluator, PercentIsOfTheLeftSide) {
  ExpectValues({{u"200%5", 10}, {u"7%3", 7.0 * 3 / 100}, {u"1E308%1000", kInfinity}});
}

TEST(Evaluator, FactorialsOfTruncatedNumbers) {
  double largest = 1;
  for (int n = 2; n <= 170; ++n) largest *= n;
  ExpectValues({{u"0!", 1},
                {u"1!", 1},
                {u"5!", 120},
                {u"3!!", 720},
                {u"3.99!", 6},
                {u"(-0.9)!", 1},
                {u"-3!", -6},
                {u"170!", largest},
                {u"171!", kInfinity},
                {u"2147483647!", kInfinity},
                {u"(-1)!", kFails},
                {u"2147483648!", kFails},
                {u"1E10!", kFails},
                {u"Y!", kFails},
                {u"X!", kFails}});
}

TEST(Evaluator, AHugeFactorialIsDoneAtOnce) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"C!"));
  calc['C'] = 2000000000;
  calc.evaluator.Begin();
  EXPECT_EQ(CEvaluator::Progress::kEnded, calc.evaluator.Advance(10));
}

// Order: every operator left first, but "/".

TEST(Evaluator, DivisionEvaluatesItsRightSideFirst) {
  Calc calc;
  // Right first: A becomes 2, then 10.
  EXPECT_EQ(5, calc.Value(u"(A=10)/(A=2)"));
  EXPECT_EQ(10, calc['A']);
  EXPECT_EQ(1, calc.Value(u"C/(C=6)")) << "the left side sees what the right one has assigned";
  calc['D'] = 8;
  EXPECT_EQ(2, calc.Value(u"(D=16)/D")) << "the divisor was read before";
}

TEST(Evaluator, ADivisionByZeroDoesNotEvaluateItsLeftSide) {
  Calc calc;
  EXPECT_EQ(std::nullopt, calc.Value(u"(A=1)/0"));
  EXPECT_EQ(0, calc['A']);
  EXPECT_EQ(std::nullopt, calc.Value(u"(A=1)/C"));
  EXPECT_EQ(0, calc['A']);
  EXPECT_EQ(std::nullopt, calc.Value(u"(A=1)/(B=0)"));
  EXPECT_EQ(0, calc['A']);
  calc['B'] = 2;
  EXPECT_EQ(0.5, calc.Value(u"(A=1)/B"));
  EXPECT_EQ(1, calc['A']);
}

TEST(Evaluator, EveryOtherOperatorEvaluatesItsLeftSideFirst) {
  const std::vector<std::pair<Text, double>> rows = {
      {u"(A=10)+(A=2)", 12},  {u"(A=10)-(A=2)", 8},     {u"(A=10)*(A=2)", 20},    {u"(A=10)%(A=2)", 0.2},
      {u"(A=10)^(A=2)", 100}, {u"(A=10) OR (A=2)", 10}, {u"(A=10) AND (A=3)", 2}, {u"(A=10) XOR (A=3)", 9}};
  for (const auto& [text, value] : rows) {
    Calc calc;
    EXPECT_EQ(value, calc.Value(text)) << ToUtf8(text);
    EXPECT_LT(calc['A'], 4) << ToUtf8(text);
  }
}

TEST(Evaluator, AVariableIsReadBeforeTheRightSideAssignsToIt) {
  Calc calc;
  calc['A'] = 1;
  EXPECT_EQ(6, calc.Value(u"A+(A=5)"));
  calc['A'] = 1;
  EXPECT_EQ(8, calc.Value(u"A+2*(A=3)+1*1")) << "1+6+1";
  calc['A'] = 2;
  EXPECT_EQ(32, calc.Value(u"A^(A=5)"));
  EXPECT_EQ(7, calc.Value(u"(A=3)+(B=4)"));
  EXPECT_EQ(1, calc.Value(u"(A=3)-(A=2)"));
}

TEST(Evaluator, AfterAFailureNothingIsEvaluatedOrAssigned) {
  const std::vector<Text> texts = {u"A=1;1/0;B=2",      u"(A=1)+1/0+(B=2)",   u"(A=1)*SQRT -1*(B=2)",
                                   u"A=1;SIN LN 0;B=2", u"(A=1)+(B=2)/(1/0)", u"(A=1) AND LOG 0 AND (B=2)"};
  for (const Text& text : texts) {
    Calc calc;
    calc.store.Acc = 42;
    EXPECT_EQ(std::nullopt, calc.Value(text)) << ToUtf8(text);
    EXPECT_EQ(42, calc.store.Acc);
    EXPECT_EQ(1, calc['A']) << ToUtf8(text);
    EXPECT_EQ(0, calc['B']) << ToUtf8(text);
  }
}

// Logic.

TEST(Evaluator, LogicIsOfLowWordsAndNeverNegative) {
  ExpectValues({{u"-1 AND 255", 255},
                {u"NOT 0", 4294967295.0},
                {u"NOT 4294967295", 0},
                {u"1.9 OR 0", 1},
                {u"-1.9 OR 0", 4294967295.0},
                {u"12 AND 10", 8},
                {u"12 OR 10", 14},
                {u"12 XOR 10", 6},
                {u"4294967296 OR 1", 1},
                {u"4294967297 OR 0", 1},
                {u"1E10 OR 0", 1410065408.0},
                {u"1E19 OR 0", 0},
                {u"-1E19 OR 0", 0},
                {u"Y OR 1", 1},
                {u"X OR 2", 2},
                {u"NOT X", 4294967295.0},
                {u"9.9E18 OR 0", 0}});
}

// Leaves.

TEST(Evaluator, TheNamedConstants) {
  ExpectValues({{u"PI", 2 * std::asin(1.0)}, {u"MMPERI", 25.4}, {u"IPERMM", 0.03937007874015748}, {u"ACC", 0}});
}

TEST(Evaluator, AccIsTheLastValue) {
  Calc calc;
  EXPECT_EQ(5, calc.Value(u"2+3"));
  EXPECT_EQ(5, calc.store.Acc);
  EXPECT_EQ(11, calc.Value(u"ACC*2+1"));
  EXPECT_EQ(22, calc.Value(u"ACC+(ACC)"));
  EXPECT_EQ(std::nullopt, calc.Value(u"ACC/0"));
  EXPECT_EQ(22, calc.store.Acc);
}

TEST(Evaluator, VariablesAreReadFromTheStore) {
  Calc calc;
  for (char c = 'A'; c <= 'Z'; ++c) calc[c] = c;
  for (char c = 'A'; c <= 'Z'; ++c) EXPECT_EQ(c, calc.Value(u"(" + Text(1, static_cast<char16_t>(c)) + u")"));
}

// The final result.

TEST(Evaluator, OnlyTheFinalResultIsTakenForZeroWhenTiny) {
  ExpectValues({{u"1E-15", 0},
                {u"-1E-15", 0},
                {u"9.99E-15", 0},
                {u"1E-14", 1E-14},
                {u"2E-14", 2E-14},
                {u"-2E-14", -2E-14},
                {u"1E-15*1E15", 1E-15 * 1E15},
                {u"SIN 180", 0},
                {u"-0", 0},
                {u"0*-1", 0},
                {u"X", kNotANumber},
                {u"Y", kInfinity}});
  Calc calc;
  EXPECT_EQ(0, calc.Value(u"A=1E-15"));
  EXPECT_EQ(1E-15, calc['A']) << "what is stored on the way is not the final result";
  EXPECT_EQ(0, calc.store.Acc);
}

TEST(Evaluator, AFailureLeavesTheResultAlone) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"1/0"));
  double value = 17;
  EXPECT_EQ(0, calc.evaluator.Evaluate(value));
  EXPECT_EQ(17, value);
}

TEST(Evaluator, EveryEvaluationStartsSound) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"1/C"));
  double value = 0;
  EXPECT_EQ(0, calc.evaluator.Evaluate(value));
  calc['C'] = 4;
  EXPECT_EQ(1, calc.evaluator.Evaluate(value));
  EXPECT_EQ(0.25, value);
}

TEST(Evaluator, TheAngleUnitIsThatOfTheEvaluation) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"INVSIN 1"));
  double value = 0;
  calc.evaluator.Evaluate(value);
  EXPECT_EQ(90, value);
  calc.evaluator.radians = true;
  calc.evaluator.Evaluate(value);
  EXPECT_EQ(std::asin(1.0), value);
  calc.evaluator.radians = false;
  calc.evaluator.Evaluate(value);
  EXPECT_EQ(90, value);
}

// Compile.

TEST(Evaluator, ALexicalFailureIsPlacedAtItsCharacter) {
  Calc calc;
  EXPECT_EQ(2, calc.Place(u"1+#"));
  EXPECT_EQ(1, calc.Place(u"5."));
}

TEST(Evaluator, ASyntaxFailureIsPlacedAtItsToken) {
  Calc calc;
  EXPECT_EQ(4, calc.Place(u"1 + * 2"));
  EXPECT_EQ(0, calc.Place(u""));
}

TEST(Evaluator, ARefusedTextLeavesNothingOfTheOneBeforeIt) {
  for (const Text& refused : {Text(u"#"), Text(u"1+"), Text(u"ZERO X+ZERO X"), Text(256, u'1')}) {
    Calc calc;
    ASSERT_EQ(7, calc.Value(u"7"));
    ASSERT_GE(calc.Place(refused), 0);
    double value = 4711;
    EXPECT_EQ(0, calc.evaluator.Evaluate(value)) << ToUtf8(refused);
    EXPECT_EQ(4711, value);
    Text tree;
    calc.evaluator.DescribeTree(tree);
    EXPECT_EQ(u"", tree);
  }
}

TEST(Evaluator, MoreThanOneSolverIsRefusedAtTheEnd) {
  Calc calc;
  for (const Text text : {u"INTEGRAL X+INTEGRAL X", u"ZERO X;ZERO X", u"INTEGRAL ZERO X", u"ZERO X + INTEGRAL X",
                          u"INTEGRAL X ZERO )", u"INTEGRALINTEGRALINTEGRAL"}) {
    EXPECT_EQ(static_cast<int>(text.size()), calc.Place(text)) << ToUtf8(text);
  }
  EXPECT_EQ(-1, calc.Place(u"INTEGRAL X"));
  EXPECT_EQ(-1, calc.Place(u"ZERO X+INT X"));
  EXPECT_EQ(15, calc.Place(u"INTEGRAL ZERO X#")) << "the scanner comes first";
}

TEST(Evaluator, ATextOver255UnitsIsRefusedAtUnit255) {
  Calc calc;
  EXPECT_EQ(-1, calc.Place(Text(254, u' ') + u"1"));
  EXPECT_EQ(255, calc.Place(Text(255, u' ') + u"1"));
  EXPECT_EQ(255, calc.Place(u"#" + Text(100000, u'1')));
}

TEST(Evaluator, AFailedCompilationLeavesNothingToEvaluate) {
  Calc calc;
  EXPECT_EQ(1, calc.Value(u"1"));
  for (const Text text : {u"1+", u"#", u"ZERO ZERO X"}) {
    EXPECT_NE(-1, calc.Place(text));
    double value = 9;
    EXPECT_EQ(0, calc.evaluator.Evaluate(value));
    EXPECT_EQ(9, value);
    Text described;
    calc.evaluator.DescribeTree(described);
    EXPECT_EQ(u"", described);
  }
}

TEST(Evaluator, WithoutACompiledTextThereIsNothingToEvaluate) {
  Calc calc;
  double value = 9;
  EXPECT_EQ(0, calc.evaluator.Evaluate(value));
  calc.evaluator.Begin();
  EXPECT_EQ(CEvaluator::Progress::kEnded, calc.evaluator.Advance(1));
  EXPECT_EQ(0, calc.evaluator.Finish(value));
  EXPECT_EQ(9, value);
}

TEST(Evaluator, TheTextIsNotKept) {
  Calc calc;
  {
    Text text = u"A+1";
    ASSERT_EQ(-1, calc.Place(text));
    text = u"#####";
  }
  double value = 0;
  EXPECT_EQ(1, calc.evaluator.Evaluate(value));
  EXPECT_EQ(1, value);
}

// The store.

TEST(Evaluator, APreviewPutsVariablesAndAccBack) {
  Calc calc;
  calc['A'] = 1;
  calc.store.Acc = 2;
  calc.evaluator.SaveVariables();
  EXPECT_EQ(9, calc.Value(u"A=B=9"));
  EXPECT_EQ(9, calc.store.Acc);
  calc.evaluator.RestoreVariables();
  EXPECT_EQ(1, calc['A']);
  EXPECT_EQ(0, calc['B']);
  EXPECT_EQ(2, calc.store.Acc);
}

TEST(Evaluator, VariablesGoByLettersInEitherCase) {
  Calc calc;
  double value = 7;
  EXPECT_EQ(1, calc.evaluator.SetVariable(u'a', 1));
  EXPECT_EQ(1, calc.evaluator.SetVariable(u'Z', 26));
  EXPECT_EQ(1, calc['A']);
  EXPECT_EQ(26, calc['Z']);
  EXPECT_EQ(1, calc.evaluator.GetVariable(u'A', value));
  EXPECT_EQ(1, value);
  EXPECT_EQ(1, calc.evaluator.GetVariable(u'z', value));
  EXPECT_EQ(26, value);
}

TEST(Evaluator, WhatIsNoLetterIsNoVariable) {
  Calc calc;
  for (const char16_t c : {u'@', u'[', u'`', u'{', u'1', u' ', u'\0', u'\u0131', u'\u017F', u'\u0141'}) {
    double value = 7;
    EXPECT_EQ(0, calc.evaluator.SetVariable(c, 5));
    EXPECT_EQ(0, calc.evaluator.GetVariable(c, value));
    EXPECT_EQ(7, value);
  }
  for (char c = 'A'; c <= 'Z'; ++c) EXPECT_EQ(0, calc[c]);
}

TEST(Evaluator, AllEvaluatorsShareTheProgramsStore) {
  CScaner scanner;
  CParser parser;
  CEvaluator first(scanner, parser);
  CEvaluator second(scanner, parser);
  const char16_t* error = nullptr;
  double value = 0;
  ASSERT_EQ(1, first.Compile(u"Q=77", error));
  ASSERT_EQ(1, first.Evaluate(value));
  ASSERT_EQ(1, second.GetVariable(u'q', value));
  EXPECT_EQ(77, value);
  EXPECT_EQ(77, SharedCalcStore().Acc);
  SharedCalcStore() = {};
}

}  // namespace
}  // namespace pnl::test
