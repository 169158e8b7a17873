// SPDX-License-Identifier: MIT
// The language beside muParser on what both have: random trees of arithmetic, functions and variables, written for us
// with as few brackets as our grammar allows and for muParser with all of them, so that precedence and associativity
// are checked along with the values.
#include <gtest/gtest.h>
#include <muParser.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "calc/expr/evaluator.h"

namespace pnl::test {
namespace {

/// Of the grammar, as far as brackets hang on them.
enum Level { kAdditive, kMultiplicative, kPrefix, kPower, kPrimary };

struct Written {
  std::string ours;
  Level level = kPrimary;
  std::string theirs;
};

struct FunctionPair {
  const char* ours;
  const char* theirs;  // %s is the argument; "unit" is the angle scale
};

constexpr std::array<FunctionPair, 17> kPairs = {{{"ABS", "abs(%s)"},
                                                  {"SQRT", "sqrt(%s)"},
                                                  {"LOG", "log10(%s)"},
                                                  {"INVLOG", "(10^(%s))"},
                                                  {"LN", "ln(%s)"},
                                                  {"INVLN", "exp(%s)"},
                                                  {"SIN", "sin((%s)/unit)"},
                                                  {"COS", "cos((%s)/unit)"},
                                                  {"TAN", "tan((%s)/unit)"},
                                                  {"INVSIN", "(asin(%s)*unit)"},
                                                  {"INVCOS", "(acos(%s)*unit)"},
                                                  {"INVTAN", "(atan(%s)*unit)"},
                                                  {"SH", "sinh(%s)"},
                                                  {"CH", "cosh(%s)"},
                                                  {"TH", "tanh(%s)"},
                                                  {"MMTOI", "((%s)/25.4)"},
                                                  {"ITOMM", "((%s)*25.4)"}}};

/// Writes random trees. The same seed gives the same trees everywhere: no distribution of the library takes part.
class Writer {
 public:
  Writer(unsigned seed, bool withFunctions) : random_(seed), withFunctions_(withFunctions) {}

  Written Tree(int depth) {
    if (depth == 0 || Chance(15)) return Leaf();
    switch (Pick(withFunctions_ ? 10 : 6)) {
      case 0:
        return Binary(depth, "+", kAdditive);
      case 1:
        return Binary(depth, "-", kAdditive);
      case 2:
        return Binary(depth, "*", kMultiplicative);
      case 3:
        return Binary(depth, "/", kMultiplicative);
      case 4:
        return Binary(depth, "%", kMultiplicative);
      case 5:
        return Minus(depth);
      case 6:
        return Raised(depth);
      default:
        return Function(depth);
    }
  }

  double Value() {
    // Whole numbers and decimals of either sign, as an operator's variables hold them.
    const double whole = static_cast<double>(Pick(2001)) - 1000;
    return Chance(40) ? whole : whole / std::pow(10.0, 1 + Pick(6)) * (Chance(10) ? 1E6 : 1);
  }

 private:
  unsigned Pick(unsigned count) { return static_cast<unsigned>(random_()) % count; }
  bool Chance(unsigned percent) { return Pick(100) < percent; }
  std::string Gap() { return Chance(20) ? std::string(1 + Pick(2), ' ') : ""; }

  std::string Bracketed(const Written& operand, Level least) {
    if (operand.level >= least && !Chance(8)) return operand.ours;
    return "(" + Gap() + operand.ours + Gap() + ")";
  }

  Written Leaf() {
    if (Chance(45)) {
      const std::string name(1, static_cast<char>('A' + Pick(26)));
      return {Chance(30) ? std::string(1, static_cast<char>(name[0] | 0x20)) : name, kPrimary, name};
    }
    const unsigned value = Pick(Chance(50) ? 10 : 100000);
    const std::string digits = std::to_string(value);
    std::array<char, 32> text{};
    switch (Pick(6)) {
      case 0:
        return {digits, kPrimary, digits};
      case 1:
        std::snprintf(text.data(), text.size(), "$%X", value);
        return {text.data(), kPrimary, digits};
      case 2:
        return {"." + digits, kPrimary, "0." + digits};
      case 3:
        return {"PI", kPrimary, "PI"};
      case 4:
        std::snprintf(text.data(), text.size(), "%u.%uE%s%u", Pick(10), value, Chance(50) ? "-" : "+", Pick(7));
        return {text.data(), kPrimary, text.data()};
      default:
        std::snprintf(text.data(), text.size(), "%u.%u", Pick(1000), value);
        return {text.data(), kPrimary, text.data()};
    }
  }

  Written Binary(int depth, const std::string& sign, Level level) {
    const Written left = Tree(depth - 1);
    const Written right = Tree(depth - 1);
    const Level least = level == kAdditive ? kMultiplicative : kPrefix;
    const bool percent = sign == "%";  // no remainder: the product by 100
    return {Bracketed(left, level) + Gap() + sign + Gap() + Bracketed(right, least), level,
            "((" + left.theirs + ")" + (percent ? "*" : sign) + "(" + right.theirs + ")" + (percent ? "/100)" : ")")};
  }

  Written Minus(int depth) {
    const Written operand = Tree(depth - 1);
    return {"-" + Gap() + Bracketed(operand, kPrefix), kPrefix, "(-(" + operand.theirs + "))"};
  }

  /// Whole exponents, where a negative base needs no rule of ours; else a base that isn't negative.
  Written Raised(int depth) {
    static constexpr std::array<const char*, 5> kWhole = {"2", "3", "4", "-1", "-2"};
    if (Chance(70)) {
      const Written base = Tree(depth - 1);
      const std::string exponent = kWhole[Pick(kWhole.size())];
      return {Bracketed(base, kPrimary) + Gap() + "^" + Gap() + exponent, kPower,
              "((" + base.theirs + ")^(" + exponent + "))"};
    }
    const Written base = Tree(depth - 1);
    const Written exponent = Tree(depth - 1);
    return {"(ABS " + Bracketed(base, kPrefix) + ")^" + Gap() + Bracketed(exponent, kPrefix), kPower,
            "(abs(" + base.theirs + ")^(" + exponent.theirs + "))"};
  }

  Written Function(int depth) {
    const FunctionPair& pair = kPairs[Pick(kPairs.size())];
    const Written operand = Tree(depth - 1);
    std::string theirs = pair.theirs;
    theirs.replace(theirs.find("%s"), 2, operand.theirs);
    return {pair.ours + Gap() + Bracketed(operand, kPrefix), kPrefix, theirs};
  }

  std::mt19937 random_;
  bool withFunctions_;
};

std::int64_t PlacesApart(double a, double b) {
  const auto ordered = [](double x) {
    const auto bits = std::bit_cast<std::int64_t>(x);
    return bits >= 0 ? bits : -(bits & std::numeric_limits<std::int64_t>::max());
  };
  if (std::isnan(a) && std::isnan(b)) return 0;
  if (std::isnan(a) != std::isnan(b) || std::isinf(a) != std::isinf(b)) return std::numeric_limits<std::int64_t>::max();
  return std::abs(ordered(a) - ordered(b));
}

struct Comparison {
  std::int64_t mostPlaces = 0;
  bool withFunctions = false;
  int compared = 0;
  int failed = 0;  // by our rules, where muParser goes on with an infinity or NaN

  Comparison(std::int64_t places, bool functions) : mostPlaces(places), withFunctions(functions) {
    for (std::size_t i = 0; i < variables.size(); ++i)
      theirs.DefineVar(std::string(1, static_cast<char>('A' + i)), &variables[i]);
    theirs.DefineVar("unit", &unit);
    theirs.DefineConst("PI", 2 * std::asin(1.0));  // its own ends after twelve decimals
    // It would reorder what it computes.
    theirs.EnableOptimizer(false);
  }

  void Run(unsigned seed, int trees) {
    Writer writer(seed, withFunctions);
    for (int i = 0; i < trees && !testing::Test::HasFailure(); ++i) {
      const Written written = writer.Tree(1 + i % 5);
      if (written.ours.size() > kLongestExpression) continue;
      CScaner scanner;
      CParser parser;
      CEvaluator evaluator(scanner, parser, store);
      const Text text = FromUtf8(written.ours);
      const char16_t* error = nullptr;
      ASSERT_EQ(evaluator.Compile(text.c_str(), error), 1) << written.ours << "\nat " << error - text.c_str();
      theirs.SetExpr(written.theirs);
      for (int values = 0; values < 3; ++values) {
        for (std::size_t k = 0; k < variables.size(); ++k) store.Variables[k] = variables[k] = writer.Value();
        evaluator.radians = values % 2 == 0;
        Compare(written, evaluator);
      }
    }
  }

  void Compare(const Written& written, CEvaluator& evaluator) {
    constexpr double kZeroResult = 1E-14;
    unit = evaluator.radians ? 1.0 : 180 / (2 * std::asin(1.0));
    double ours = 0;
    if (evaluator.Evaluate(ours) == 0) {
      ++failed;
      return;
    }
    ++compared;
    double value = theirs.Eval();
    if (std::abs(value) < kZeroResult) value = 0;
    EXPECT_LE(PlacesApart(ours, value), mostPlaces)
        << written.ours << (evaluator.radians ? " rad" : " deg") << "\nmuParser: " << written.theirs << "\nours "
        << std::hexfloat << ours << ", muParser's " << value;
  }

  CalcStore store;
  std::array<double, kVariableCount> variables{};
  double unit = 1.0;
  mu::Parser theirs;
};

TEST(Differential, TheFourOperationsAndPercentAgreeToOnePlace) {
  Comparison comparison(1, false);
  for (unsigned seed = 1; seed <= 4; ++seed) comparison.Run(seed, 5000);
  EXPECT_GT(comparison.compared, 50000);
  EXPECT_LT(comparison.failed, comparison.compared / 20) << "divisions by 0";
}

// Both call the same C library, so they agree in every place; four are for a compiler that computes constants itself.
TEST(Differential, FunctionsAndPowersAgreeToFourPlaces) {
  Comparison comparison(4, true);
  for (unsigned seed = 11; seed <= 13; ++seed) comparison.Run(seed, 5000);
  EXPECT_GT(comparison.compared, 20000);
  EXPECT_LT(comparison.failed, comparison.compared) << "domain failures";
}

/// A double of any mantissa whose exponent is within that many binary places of 0.
double AnyDouble(std::mt19937_64& random, unsigned places) {
  const std::uint64_t bits = random();
  const std::uint64_t exponent = 1023 - places + random() % (2 * places + 1);
  return std::bit_cast<double>((bits & ~(std::uint64_t{0x7FF} << 52)) | exponent << 52);
}

// A square is the rounded product, which the library's pow may miss by the last bit.
TEST(Differential, SquaresAreProductsAndOtherWholePowersAreThoseOfTheLibrary) {
  CalcStore store;
  for (const int exponent : {2, 3, 4, 5, -1, -2, -3}) {
    CScaner scanner;
    CParser parser;
    CEvaluator evaluator(scanner, parser, store);
    const Text text = u"A^" + FromUtf8(std::to_string(exponent));
    const char16_t* error = nullptr;
    ASSERT_EQ(evaluator.Compile(text.c_str(), error), 1);
    volatile double power = exponent;  // else the compiler may know better than pow
    std::mt19937_64 random(static_cast<unsigned>(exponent + 10));
    for (int i = 0; i < 60000; ++i) {
      const unsigned places = i % 10 == 0 ? 1000 : 20;
      // Every other base is short, as a typed number or a step of a table is.
      const double any = AnyDouble(random, places);
      const double a = i % 2 == 0 ? any : std::round(any * 1000) / 1000;
      store.Variables[0] = a;
      double ours = 0;
      ASSERT_EQ(evaluator.Evaluate(ours), 1);
      double wanted = exponent == 2 ? a * a : std::pow(a, power);
      if (std::abs(wanted) < 1E-14) wanted = 0;
      ASSERT_EQ(std::bit_cast<std::uint64_t>(ours), std::bit_cast<std::uint64_t>(wanted))
          << std::hexfloat << a << " ^ " << exponent << ": " << ours << ", not " << wanted;
    }
  }
}

}  // namespace
}  // namespace pnl::test
