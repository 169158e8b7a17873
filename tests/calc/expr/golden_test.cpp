// SPDX-License-Identifier: MIT
// The golden table: thousands of expressions with what an independent implementation of the language makes of them,
// and beside each its prefixes and the texts that lack one of its characters, which is what an operator's line looks
// like while he types.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <sstream>
#include <unordered_set>

#include "calc/expr/evaluator.h"
#include "calc/expr/golden_table.h"

namespace pnl::test {
namespace {

constexpr std::size_t kFewestCases = 1500;
constexpr std::uint64_t kPlaces = 4;
constexpr double kEightDigits = 1e-8;

/// An evaluator with all that it borrows.
struct Language {
  CalcStore store;
  CScaner scanner;
  CParser parser;
  CEvaluator evaluator{scanner, parser, store};

  /// The failing place, or -1.
  int Compile(const Text& text) {
    const char16_t* error = nullptr;
    return evaluator.Compile(text.c_str(), error) == 1 ? -1 : static_cast<int>(error - text.c_str());
  }
};

/// Of -0 and 0, and of any two values, only those are the same whose bits are; all NaN are.
bool SameValue(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) || (std::isnan(a) && std::isnan(b));
}

bool SameNumbers(const CalcStore& a, const CalcStore& b) {
  for (std::size_t i = 0; i < a.Variables.size(); ++i)
    if (!SameValue(a.Variables[i], b.Variables[i])) return false;
  return SameValue(a.Acc, b.Acc);
}

/// How many places the finite doubles lie apart; those of other signs by way of 0.
std::uint64_t PlacesBetween(double a, double b) {
  const auto size = [](double x) { return std::bit_cast<std::uint64_t>(std::fabs(x)); };
  if (std::signbit(a) != std::signbit(b)) return size(a) + size(b);
  return size(a) < size(b) ? size(b) - size(a) : size(a) - size(b);
}

bool Matches(double got, double wanted, Answer answer) {
  if (SameValue(got, wanted)) return true;
  if (answer == Answer::kExactly || !std::isfinite(got) || !std::isfinite(wanted)) return false;
  if (answer == Answer::kToEightDigits) return std::abs(got - wanted) <= kEightDigits * std::abs(wanted);
  return PlacesBetween(got, wanted) <= kPlaces;
}

std::string Shown(double value) {
  std::ostringstream out;
  out.precision(17);
  out << value << std::hexfloat << " (" << value << ')';
  return out.str();
}

/// What stands on top of every failure.
std::string Case(const Golden& golden) {
  std::ostringstream out;
  out << "expressions.txt:" << golden.line << ": " << ToUtf8(golden.expression) << (golden.radians ? " rad" : " deg");
  for (const auto& [name, value] : golden.before) out << ' ' << name << '=' << value;
  out << "\n  wanted: " << golden.wanted << "\n  got:    ";
  return out.str();
}

void CheckStore(const Golden& golden, const CalcStore& got, int answer, double result) {
  CalcStore wanted = StoreWith(golden.before);
  for (const auto& [name, value] : golden.changes) Set(wanted, name, value);
  for (std::size_t i = 0; i < wanted.Variables.size(); ++i) {
    EXPECT_TRUE(Matches(got.Variables[i], wanted.Variables[i], golden.answer))
        << Case(golden) << static_cast<char>('A' + i) << " is " << Shown(got.Variables[i]) << ", not "
        << Shown(wanted.Variables[i]);
  }
  const double acc = answer == 1 ? result : wanted.Acc;
  EXPECT_TRUE(SameValue(got.Acc, acc)) << Case(golden) << "ACC is " << Shown(got.Acc) << ", not " << Shown(acc);
}

void Check(const Golden& golden, Language& language) {
  language.store = StoreWith(golden.before);
  const int place = language.Compile(golden.expression);
  const int wantedPlace = golden.answer == Answer::kRefused ? golden.place : -1;
  EXPECT_EQ(place, wantedPlace) << Case(golden) << "at " << place;
  if (place >= 0 || wantedPlace >= 0) return;

  Text tree;
  language.evaluator.DescribeTree(tree);
  EXPECT_EQ(tree, golden.tree) << Case(golden) << ToUtf8(tree);

  constexpr double kUntouched = 4711.0;
  double result = kUntouched;
  language.evaluator.radians = golden.radians;
  const int answer = language.evaluator.Evaluate(result);
  if (golden.answer == Answer::kDomainFailure) {
    EXPECT_EQ(answer, 0) << Case(golden) << Shown(result);
    EXPECT_EQ(result, kUntouched) << Case(golden) << Shown(result);
  } else {
    EXPECT_EQ(answer, 1) << Case(golden) << "a domain failure";
    EXPECT_TRUE(Matches(result, golden.value, golden.answer)) << Case(golden) << Shown(result);
  }
  CheckStore(golden, language.store, answer, result);
}

// Values of other signs overflowed the difference of their places, so that a wrong sign aborted instead of failing.
TEST(Golden, AWrongSignIsAWrongAnswer) {
  constexpr double kLeast = 5e-324;
  EXPECT_TRUE(Matches(2 * kLeast, -2 * kLeast, Answer::kWithinPlaces));
  EXPECT_FALSE(Matches(3 * kLeast, -2 * kLeast, Answer::kWithinPlaces));
  for (const double size : {1.0, 1e300, 1e-300, std::numeric_limits<double>::max()}) {
    EXPECT_FALSE(Matches(size, -size, Answer::kWithinPlaces)) << size;
    EXPECT_FALSE(Matches(-size, size, Answer::kWithinPlaces)) << size;
    EXPECT_TRUE(Matches(-size, -size, Answer::kWithinPlaces)) << size;
  }
  EXPECT_FALSE(Matches(0.0, -0.0, Answer::kExactly));
}

TEST(Golden, TheTableIsLarge) { EXPECT_GE(GoldenTable().size(), kFewestCases); }

TEST(Golden, EveryExpressionComesOutAsTheTableSays) {
  Language language;
  for (const Golden& golden : GoldenTable()) Check(golden, language);
}

// The tolerance is for another processor's or another library's last places. A formula that was turned round shows
// here: it would move many more answers than these do.
TEST(Golden, HardlyAnyAnswerUsesItsTolerance) {
  int all = 0;
  int moved = 0;
  Language language;
  for (const Golden& golden : GoldenTable()) {
    if (golden.answer != Answer::kWithinPlaces) continue;
    language.store = StoreWith(golden.before);
    double result = 0;
    ASSERT_EQ(language.Compile(golden.expression), -1) << Case(golden);
    language.evaluator.radians = golden.radians;
    ASSERT_EQ(language.evaluator.Evaluate(result), 1) << Case(golden);
    ++all;
    if (!SameValue(result, golden.value)) ++moved;
  }
  EXPECT_LE(moved * 50, all) << moved << " of " << all << " differ in their last places";
}

TEST(Golden, InSinglePiecesEachComesOutAsInOne) {
  Language whole;
  Language pieces;
  for (const Golden& golden : GoldenTable()) {
    if (golden.answer == Answer::kRefused) continue;
    for (Language* language : {&whole, &pieces}) {
      language->store = StoreWith(golden.before);
      ASSERT_EQ(language->Compile(golden.expression), -1) << Case(golden);
      language->evaluator.radians = golden.radians;
    }
    double wanted = 0;
    double got = 0;
    const int wantedAnswer = whole.evaluator.Evaluate(wanted);
    pieces.evaluator.Begin();
    while (pieces.evaluator.Advance(1) == CEvaluator::Progress::kRunning) {
    }
    EXPECT_EQ(pieces.evaluator.Finish(got), wantedAnswer) << Case(golden);
    EXPECT_TRUE(SameValue(got, wanted)) << Case(golden) << Shown(got);
    EXPECT_TRUE(SameNumbers(pieces.store, whole.store)) << Case(golden) << "another store";
  }
}

/// Compiles and previews a text as a typed line: in pieces, given up after so many, and the store as before.
void Preview(const Text& text, const Golden& golden, Language& language) {
  constexpr int kPieces = 20;
  constexpr std::int64_t kSteps = 500;
  language.store = StoreWith(golden.before);
  const int place = language.Compile(text);
  if (place >= 0) {
    EXPECT_LE(place, static_cast<int>(text.size())) << Case(golden) << "a place outside of " << ToUtf8(text);
    return;
  }
  language.evaluator.radians = golden.radians;
  language.evaluator.SaveVariables();
  language.evaluator.Begin();
  for (int piece = 0; piece < kPieces; ++piece) {
    if (language.evaluator.Advance(kSteps) == CEvaluator::Progress::kRunning) continue;
    double result = 0;
    language.evaluator.Finish(result);
    break;
  }
  language.evaluator.RestoreVariables();
  EXPECT_TRUE(SameNumbers(language.store, StoreWith(golden.before))) << Case(golden) << "after " << ToUtf8(text);
}

TEST(Golden, EveryPrefixIsPreviewedAndLeavesTheStoreAlone) {
  Language language;
  std::unordered_set<Text> seen;
  for (const Golden& golden : GoldenTable()) {
    for (std::size_t length = 0; length <= golden.expression.size(); ++length) {
      const Text text = golden.expression.substr(0, length);
      if (seen.insert(text).second) Preview(text, golden, language);
    }
  }
  EXPECT_GE(seen.size(), kFewestCases);
}

TEST(Golden, WithoutAnyOneCharacterItIsPreviewedAndLeavesTheStoreAlone) {
  Language language;
  std::unordered_set<Text> seen;
  for (const Golden& golden : GoldenTable()) {
    for (std::size_t at = 0; at < golden.expression.size(); ++at) {
      Text text = golden.expression;
      text.erase(at, 1);
      if (seen.insert(text).second) Preview(text, golden, language);
    }
  }
  EXPECT_GE(seen.size(), kFewestCases);
}

}  // namespace
}  // namespace pnl::test
