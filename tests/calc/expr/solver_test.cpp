// SPDX-License-Identifier: MIT
#include "calc/expr/expr_fixture.h"
#include "calc/expr/tree_walk.h"

namespace pnl::test {
namespace {

Calc& Bounds(Calc& calc, double a, double b, double n) {
  calc['A'] = a;
  calc['B'] = b;
  calc['N'] = n;
  return calc;
}

TEST(Integral, SimpsonIsExactForACubic) {
  Calc calc;
  Bounds(calc, 0, 2, 1);
  EXPECT_EQ(4, calc.Value(u"INTEGRAL X^3"));
  EXPECT_EQ(2, calc.evaluator.Solver().steps);
  EXPECT_EQ(SolverReport::Kind::kIntegral, calc.evaluator.Solver().kind);
}

TEST(Integral, NCountsPanelsOfTwoIntervals) {
  const std::vector<std::pair<double, std::int32_t>> rows = {{1, 2},
                                                             {2, 4},
                                                             {7.9, 14},
                                                             {0, 100},
                                                             {-3, 100},
                                                             {249999, 499998},
                                                             {250000, 500000},
                                                             {1e6, 500000},
                                                             {1073741823, 500000},
                                                             {kNotANumber, 100},
                                                             {1e30, 100},
                                                             {4294967297, 2},
                                                             {4294967296, 100}};
  for (const auto& [n, intervals] : rows) {
    Calc calc;
    Bounds(calc, 0, 1, n);
    EXPECT_NEAR(1, *calc.Value(u"INTEGRAL 1"), 1e-9);
    EXPECT_EQ(intervals, calc.evaluator.Solver().steps) << n;
  }
}

TEST(Integral, TwiceNWrapsInThirtyTwoBits) {
  Calc calc;
  Bounds(calc, 0, 1, 1073741824);  // twice that is the lowest integer
  calc.Value(u"INTEGRAL 1");
  EXPECT_EQ(100, calc.evaluator.Solver().steps);
  Bounds(calc, 0, 1, 2147483653);  // twice that is 10
  calc.Value(u"INTEGRAL 1");
  EXPECT_EQ(10, calc.evaluator.Solver().steps);
}

TEST(Integral, XIsTheFreeVariableAndComesBack) {
  Calc calc;
  Bounds(calc, 0, 1, 3)['X'] = 17;
  EXPECT_NEAR(0.5, *calc.Value(u"INTEGRAL X"), 1e-15);
  EXPECT_EQ(17, calc['X']);
}

TEST(Integral, EqualBoundsEvaluateNothing) {
  Calc calc;
  Bounds(calc, 2, 2, 3)['X'] = 17;
  EXPECT_EQ(0, calc.Value(u"INTEGRAL(C=X/0)"));
  EXPECT_EQ(17, calc['X']);
  EXPECT_EQ(0, calc['C']);
  EXPECT_EQ(0, calc.evaluator.Solver().steps);
}

TEST(Integral, ItsOperandIsNotEvaluatedWithTheCurrentX) {
  Calc calc;
  Bounds(calc, 1, 2, 3)['X'] = 0;
  EXPECT_NEAR(std::log(2.0), *calc.Value(u"INTEGRAL(1/X)"), 1e-4);
}

TEST(Integral, TheOrderIsEndsThenEvenThenOddPlaces) {
  // C collects the places: each is appended as one more digit.
  Calc calc;
  Bounds(calc, 0, 6, 3);
  ASSERT_TRUE(calc.Value(u"INTEGRAL(C=C*10+X)").has_value());
  EXPECT_EQ(624135, calc['C']);
}

TEST(Integral, BoundsAndCountAreThoseAtTheStart) {
  Calc calc;
  Bounds(calc, 0, 1, 2);
  EXPECT_NEAR(0.5, *calc.Value(u"INTEGRAL(X+0*(A=7)+0*(B=9)+0*(N=1))"), 1e-15);
  EXPECT_EQ(7, calc['A']);
  EXPECT_EQ(4, calc.evaluator.Solver().steps);
}

TEST(Integral, TheBoundsMayBeAssignedInTheSameText) {
  Calc calc;
  EXPECT_EQ(9, calc.Value(u"A=0;B=3;N=1;INTEGRAL X^2"));
}

TEST(Integral, AnOperandThatAssignsXIsSetRightEachTime) {
  Calc calc;
  Bounds(calc, 0, 1, 2)['X'] = 5;
  EXPECT_NEAR(1.5, *calc.Value(u"INTEGRAL(X=X+1)"), 1e-15);
  EXPECT_EQ(5, calc['X']);
}

TEST(Integral, AFailureInItsOperandPutsXBack) {
  Calc calc;
  Bounds(calc, 0, 4, 2)['X'] = 5;
  EXPECT_EQ(std::nullopt, calc.Value(u"C=INTEGRAL(D=1+SQRT(3-X))+(F=1)"));
  EXPECT_EQ(5, calc['X']);
  EXPECT_EQ(0, calc['C']);
  EXPECT_NE(0, calc['D']) << "what was assigned before the failure stays";
  EXPECT_EQ(0, calc['F']);
  EXPECT_EQ(SolverReport::Kind::kNone, calc.evaluator.Solver().kind);
}

TEST(Integral, ItMayStandAnywhere) {
  const std::vector<std::pair<Text, double>> rows = {
      {u"C=INTEGRAL X;C*2", 4}, {u"1/INTEGRAL X", 0.5}, {u"X+INTEGRAL X", 7},       {u"INTEGRAL X+X", 7},
      {u"(INTEGRAL X)!", 2},    {u"-INTEGRAL X", -2},   {u"SQRT(INTEGRAL X+2)", 2}, {u"(C=3)/(INTEGRAL X)", 1.5},
      {u"(INTEGRAL X)/D", 0.5}, {u"INTEGRAL X/D", 0.5}};
  for (const auto& [text, value] : rows) {
    Calc calc;
    Bounds(calc, 0, 2, 1)['X'] = 5;
    calc['D'] = 4;
    EXPECT_EQ(value, calc.Value(text)) << ToUtf8(text);
    EXPECT_EQ(5, calc['X']);
  }
}

TEST(Integral, AZeroDivisorComesBeforeALongIntegral) {
  Calc calc;
  Bounds(calc, 0, 1, 1e6);
  ASSERT_EQ(-1, calc.Place(u"(INTEGRAL X)/C"));
  calc.evaluator.Begin();
  EXPECT_EQ(CEvaluator::Progress::kEnded, calc.evaluator.Advance(20));
  double value = 0;
  EXPECT_EQ(0, calc.evaluator.Finish(value));
}

TEST(Integral, ValuesThatAreNoNumbersPass) {
  Calc calc;
  Bounds(calc, 0, kInfinity, 1);
  EXPECT_EQ(kInfinity, calc.Value(u"INTEGRAL X"));
  EXPECT_TRUE(std::isnan(*calc.Value(u"INTEGRAL(X-X)")));
  Bounds(calc, kNotANumber, 1, 1);
  EXPECT_TRUE(std::isnan(*calc.Value(u"INTEGRAL 1")));
}

TEST(Zero, NewtonFindsTheRootOfTwo) {
  Calc calc;
  Bounds(calc, 1, 0, 50)['E'] = 1e-12;
  EXPECT_NEAR(std::sqrt(2.0), *calc.Value(u"ZERO(X^2-2)"), 1e-9);
  const SolverReport report = calc.evaluator.Solver();
  EXPECT_EQ(SolverReport::Kind::kZero, report.kind);
  EXPECT_TRUE(report.reachedTolerance);
  EXPECT_LE(std::fabs(report.residual), 1e-12);
  EXPECT_GT(report.steps, 2);
  EXPECT_LT(report.steps, 10);
}

TEST(Zero, TheGrammarHoldsOverWhatSeemsMeant) {
  Calc calc;
  Bounds(calc, 1, 0, 50)['E'] = 1e-6;
  EXPECT_LT(*calc.Value(u"ZERO X^2-2"), -1.9) << "(ZERO X^2)-2";
}

TEST(Zero, AStartWithinTheToleranceIsTheValue) {
  Calc calc;
  Bounds(calc, 3, 0, 50)['E'] = -5;
  EXPECT_EQ(3, calc.Value(u"ZERO X"));
  EXPECT_EQ(0, calc.evaluator.Solver().steps);
  EXPECT_EQ(3, calc.evaluator.Solver().residual);
}

TEST(Zero, AnExactRootReachesATolerance0) {
  Calc calc;
  EXPECT_EQ(0, calc.Value(u"A=0;E=0;ZERO X"));
  const SolverReport report = calc.evaluator.Solver();
  EXPECT_EQ(SolverReport::Kind::kZero, report.kind);
  EXPECT_EQ(0, report.residual);
  EXPECT_TRUE(report.reachedTolerance);
}

TEST(Zero, TheCapIsNAsItIs) {
  const std::vector<std::pair<double, std::int32_t>> rows = {
      {1, 1},         {7.9, 7},     {0, 100},    {-2, 100},          {49999, 49999},
      {50000, 50000}, {1e6, 50000}, {1e30, 100}, {kNotANumber, 100}, {4294967299, 3}};
  for (const auto& [n, cap] : rows) {
    Calc calc;
    Bounds(calc, 0.5, 0, n);
    ASSERT_TRUE(calc.Value(u"ZERO(X^2+1)").has_value());
    EXPECT_EQ(cap, calc.evaluator.Solver().steps) << n;
    EXPECT_FALSE(calc.evaluator.Solver().reachedTolerance);
  }
}

TEST(Zero, ATargetThatIsNotReachedIsNoFailure) {
  Calc calc;
  Bounds(calc, 0.5, 0, 1);
  const std::optional<double> value = calc.Value(u"ZERO(X^2+1)");
  ASSERT_TRUE(value.has_value());
  EXPECT_NEAR(0.5 - 1.25, *value, 1e-6);
}

TEST(Zero, XComesBack) {
  Calc calc;
  Bounds(calc, 1, 0, 20)['X'] = 17;
  calc['E'] = 1e-9;
  EXPECT_NEAR(4, *calc.Value(u"ZERO(X-4)"), 1e-6);
  EXPECT_EQ(17, calc['X']);
}

TEST(Zero, ItsOperandIsEvaluatedOnceWithTheCurrentX) {
  Calc calc;
  Bounds(calc, 1, 0, 20)['X'] = 0;
  calc['E'] = 1;
  EXPECT_EQ(std::nullopt, calc.Value(u"ZERO(1/X)")) << "fails at X = 0, though the search starts at 1";
  calc['X'] = 9;
  calc['E'] = 100;
  EXPECT_EQ(1, calc.Value(u"ZERO(C=C*10+X)"));
  EXPECT_EQ(91, calc['C']) << "first with X, then at the start";
}

TEST(Zero, TheFirstEvaluationComesBeforeTheParametersAreRead) {
  Calc calc;
  Bounds(calc, 100, 0, 1)['X'] = 3;
  EXPECT_NEAR(3, *calc.Value(u"ZERO(0*(A=3)+0*(E=1))"), 0) << "starts at what the operand assigned to A";
}

TEST(Zero, AFailureOnTheWayPutsXBack) {
  Calc calc;
  Bounds(calc, 4, 0, 20)['X'] = 9;
  EXPECT_EQ(std::nullopt, calc.Value(u"C=ZERO(SQRT X+1)"));
  EXPECT_EQ(9, calc['X']);
  EXPECT_EQ(0, calc['C']);
  EXPECT_EQ(SolverReport::Kind::kNone, calc.evaluator.Solver().kind);
}

TEST(Zero, AnOperandThatIsNoNumberEndsTheSearch) {
  Calc calc;
  Bounds(calc, 2, 0, 20)['Y'] = kNotANumber;
  EXPECT_EQ(2, calc.Value(u"ZERO(X+Y)"));
  EXPECT_EQ(0, calc.evaluator.Solver().steps);
  EXPECT_FALSE(calc.evaluator.Solver().reachedTolerance);
  EXPECT_TRUE(std::isnan(calc.evaluator.Solver().residual));
}

TEST(Zero, AFlatOperandRunsAway) {
  Calc calc;
  Bounds(calc, 2, 0, 1);
  EXPECT_EQ(kInfinity, calc.Value(u"ZERO 1"));
}

TEST(Solver, ThereIsNoReportWithoutOne) {
  Calc calc;
  calc.Value(u"1+1");
  EXPECT_EQ(SolverReport::Kind::kNone, calc.evaluator.Solver().kind);
  Bounds(calc, 1, 1, 1);
  calc.Value(u"INTEGRAL X");
  EXPECT_EQ(SolverReport::Kind::kIntegral, calc.evaluator.Solver().kind);
  calc.Value(u"1+1");
  EXPECT_EQ(SolverReport::Kind::kNone, calc.evaluator.Solver().kind);
}

// In pieces.

TEST(Pieces, ALongIntegralGoesOnWhereItStopped) {
  Calc whole;
  Bounds(whole, 0, 3, 2000);
  const std::optional<double> expected = whole.Value(u"INTEGRAL(X^2*SIN X)");
  Calc calc;
  Bounds(calc, 0, 3, 2000);
  ASSERT_EQ(-1, calc.Place(u"INTEGRAL(X^2*SIN X)"));
  calc.evaluator.Begin();
  int pieces = 0;
  while (calc.evaluator.Advance(997) == CEvaluator::Progress::kRunning) ++pieces;
  double value = 0;
  ASSERT_EQ(1, calc.evaluator.Finish(value));
  EXPECT_TRUE(Same(*expected, value));
  EXPECT_GT(pieces, 10);
}

TEST(Pieces, NoStepsDoNothing) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"A=1"));
  calc.evaluator.Begin();
  EXPECT_EQ(CEvaluator::Progress::kRunning, calc.evaluator.Advance(0));
  EXPECT_EQ(CEvaluator::Progress::kRunning, calc.evaluator.Advance(-5));
  EXPECT_EQ(0, calc['A']);
}

TEST(Pieces, ADroppedEvaluationLeavesTheStoreAsItIs) {
  Calc calc;
  Bounds(calc, 0, 3, 1e6)['X'] = 17;
  calc.evaluator.SaveVariables();
  ASSERT_EQ(-1, calc.Place(u"C=1;INTEGRAL X"));
  calc.evaluator.Begin();
  EXPECT_EQ(CEvaluator::Progress::kRunning, calc.evaluator.Advance(1000));
  EXPECT_EQ(1, calc['C']);
  EXPECT_NE(17, calc['X']);
  double value = 9;
  EXPECT_EQ(0, calc.evaluator.Finish(value)) << "not at its end yet";
  EXPECT_EQ(9, value);
  calc.evaluator.RestoreVariables();
  EXPECT_EQ(17, calc['X']);
  EXPECT_EQ(2, calc.Value(u"1+1"));
  EXPECT_EQ(17, calc['X']) << "the next one knows nothing of it";
}

TEST(Pieces, BeginStartsOver) {
  Calc calc;
  ASSERT_EQ(-1, calc.Place(u"A=A+1"));
  calc.evaluator.Begin();
  while (calc.evaluator.Advance(1) == CEvaluator::Progress::kRunning) {
  }
  EXPECT_EQ(CEvaluator::Progress::kEnded, calc.evaluator.Advance(1));
  calc.evaluator.Begin();
  while (calc.evaluator.Advance(1) == CEvaluator::Progress::kRunning) {
  }
  double value = 0;
  EXPECT_EQ(1, calc.evaluator.Finish(value));
  EXPECT_EQ(2, value);
}

TEST(Pieces, ASearchThatNeverEndsIsStillCutShort) {
  Calc calc;
  Bounds(calc, 0.5, 0, 50000);
  ASSERT_EQ(-1, calc.Place(u"ZERO(X^2+1)"));
  calc.evaluator.Begin();
  for (int i = 0; i < 100; ++i) ASSERT_EQ(CEvaluator::Progress::kRunning, calc.evaluator.Advance(100));
}

}  // namespace
}  // namespace pnl::test
