// SPDX-License-Identifier: MIT
// The power of the language.
#include "calc/expr/operations.h"

#include "calc/expr/expr_fixture.h"

namespace pnl::test {
namespace {

struct Row {
  double a;
  double b;
  std::optional<double> value;
};

void ExpectPowers(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    double value = -77;
    EXPECT_EQ(row.value.has_value(), Power(row.a, row.b, value)) << row.a << "^" << row.b;
    EXPECT_TRUE(Same(row.value.value_or(-77), value)) << row.a << "^" << row.b << " is " << value;
  }
}

TEST(Power, ABaseOfZeroOrMoreIsTheLibrarys) {
  ExpectPowers({{2, 10, 1024},
                {0, 0, 1},
                {0, 5, 0},
                {0, -1, kInfinity},
                {-0.0, 0, 1},
                {-0.0, -1, -kInfinity},
                {2, 0.5, std::pow(2, 0.5)},
                {4, -0.5, 0.5},
                {kInfinity, 0, 1},
                {kNotANumber, 0, 1},
                {kNotANumber, 0.5, kNotANumber}});
}

TEST(Power, ANegativeBaseWithALargeExponentIsTheLibrarys) {
  ExpectPowers({{-8, 2, 64},
                {-8, 3, -512},
                {-8, -1, -0.125},
                {-8, 1.5, kNotANumber},
                {-8, -2.5, kNotANumber},
                {-8, 1, -8},
                {-8, kInfinity, kInfinity},
                {-kInfinity, 3, -kInfinity}});
}

TEST(Power, AnEvenRootOfANegativeBaseFails) {
  ExpectPowers({{-8, 0.5, std::nullopt},
                {-8, -0.5, std::nullopt},
                {-8, 0.25, std::nullopt},
                {-8, 1.0 / 6, std::nullopt},
                {-1, 0.51, std::nullopt}});
}

TEST(Power, ANegativeBaseToThePowerZeroFails) {
  // Not 1, as mathematics would have it: this is intended.
  ExpectPowers({{-8, 0, std::nullopt}, {-8, -0.0, std::nullopt}, {-kInfinity, 0, std::nullopt}});
  Calc calc;
  EXPECT_EQ(std::nullopt, calc.Value(u"(-8)^0"));
}

TEST(Power, AnExponentSoSmallThatItsReciprocalDoesNotFitFails) {
  ExpectPowers({{-8, 1e-10, std::nullopt}, {-8, 1e-320, std::nullopt}});
}

TEST(Power, AnOddRootOfANegativeBaseIsNegative) {
  ExpectPowers({{-8, 1.0 / 3, -std::pow(8, 1.0 / 3)},
                {-32, 0.2, -2},
                {-8, -1.0 / 3, -std::pow(8, -1.0 / 3)},
                {-1, 1.0 / 7, -1}});
  Calc calc;
  EXPECT_NEAR(-2, *calc.Value(u"(-8)^(1/3)"), 1e-15);
}

TEST(Power, AnExponentThatIsNoReciprocalOfAnOddNumberGivesNoNumber) {
  // y is 2.5, n is 3.
  ExpectPowers({{-8, 0.4, kNotANumber}, {-8, 0.3333, kNotANumber}, {-8, 0.9, kNotANumber}});
}

TEST(Power, HowNearTheReciprocalMustBe) {
  ExpectPowers({{-8, 1 / 3.0000009, -std::pow(8, 1 / 3.0000009)}, {-8, 1 / 3.0000011, kNotANumber}});
}

TEST(Power, AnExponentThatIsNoNumberFlowsOn) { ExpectPowers({{-8, kNotANumber, kNotANumber}}); }

TEST(Power, ExamplesThroughTheLanguage) {
  Calc calc;
  EXPECT_EQ(512, calc.Value(u"2^3^2"));
  EXPECT_EQ(-4, calc.Value(u"-2^2"));
  EXPECT_EQ(0.5, calc.Value(u"2^-1"));
  EXPECT_EQ(64, calc.Value(u"2^3!"));
  EXPECT_EQ(64, calc.Value(u"(-8)^2"));
  EXPECT_EQ(kInfinity, calc.Value(u"0^-1"));
  EXPECT_EQ(std::nullopt, calc.Value(u"(-8)^0.5"));
  EXPECT_TRUE(std::isnan(*calc.Value(u"(-8)^0.4")));
}

TEST(Power, ASquareIsTheRoundedProduct) {
  ExpectPowers({{-8, 2, 64}, {0.1, 2, 0.1 * 0.1}, {-0.0, 2, 0}, {1e200, 2, kInfinity}, {kNotANumber, 2, kNotANumber}});
  Calc calc;
  EXPECT_EQ(1.1 * 1.1, calc.Value(u"1.1^2"));
  EXPECT_EQ(1.1 * 1.1, calc.Value(u"A=2;1.1^A"));
}

}  // namespace
}  // namespace pnl::test
