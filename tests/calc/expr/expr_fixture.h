// SPDX-License-Identifier: MIT
// What the tests of the calculator's language share: an evaluator over a store of its own, texts of lists and trees,
// and comparison of doubles bit for bit.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

#include "base/text.h"
#include "calc/expr/evaluator.h"

namespace pnl::test {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();
inline constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

/// The same double; one NaN is as good as another.
inline bool Same(double a, double b) {
  return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// The tokens of a text, one after another with blanks, or "fails at n".
inline std::string Tokens(const Text& text) {
  CScaner scanner;
  std::unique_ptr<Token> head;
  const char16_t* end = scanner.ScanExpression(text.c_str(), head);
  if (head == nullptr) return "fails at " + std::to_string(end - text.c_str());
  EXPECT_EQ(text.c_str() + text.size(), end);
  Text described;
  DescribeTokens(head.get(), described);
  std::string result = ToUtf8(described);
  for (char& c : result) c = c == '\n' ? ',' : c;
  if (!result.empty()) result.pop_back();
  return result;
}

struct Calc {
  CalcStore store;
  CScaner scanner;
  CParser parser;
  CEvaluator evaluator{scanner, parser, store};

  double& operator[](char letter) { return store.Variables[static_cast<std::size_t>(letter - 'A')]; }

  /// -1 when the text compiles, else the failing place.
  int Place(const Text& text) {
    const char16_t* error = nullptr;
    if (evaluator.Compile(text.c_str(), error) == 1) {
      EXPECT_EQ(text.c_str() + text.size(), error);
      return -1;
    }
    return static_cast<int>(error - text.c_str());
  }
  /// The tree's canonical text, or "refused at n".
  std::string Tree(const Text& text) {
    const int place = Place(text);
    if (place >= 0) return "refused at " + std::to_string(place);
    Text described;
    evaluator.DescribeTree(described);
    return ToUtf8(described);
  }
  /// The value, or nothing on a domain failure. A text that doesn't compile fails the test.
  std::optional<double> Value(const Text& text) {
    EXPECT_EQ(-1, Place(text)) << ToUtf8(text);
    double value = 0;
    if (evaluator.Evaluate(value) == 0) return std::nullopt;
    return value;
  }
};

}  // namespace pnl::test
