// SPDX-License-Identifier: MIT
#include "base/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>

namespace pnl {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int32_t kLowest32 = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kLowest64 = std::numeric_limits<std::int64_t>::min();

TEST(Numbers, TruncationTo32BitsHasOneAnswerForEveryDouble) {
  const struct {
    double value;
    std::int32_t result;
  } rows[] = {
      {0.0, 0},
      {-0.9, 0},
      {0.9, 0},
      {1.9, 1},
      {-1.9, -1},
      {2147483647.0, 2147483647},
      {2147483647.9, 2147483647},
      {2147483648.0, kLowest32},
      {-2147483648.0, kLowest32},
      {-2147483648.9, kLowest32},
      {-2147483649.0, kLowest32},
      {1e300, kLowest32},
      {kInfinity, kLowest32},
      {-kInfinity, kLowest32},
      {kNan, kLowest32},
      {5e-324, 0},
  };
  for (const auto& row : rows) EXPECT_EQ(TruncateToInt32(row.value), row.result) << row.value;
}

TEST(Numbers, TruncationTo64BitsHasOneAnswerForEveryDouble) {
  const struct {
    double value;
    std::int64_t result;
    std::uint32_t lowWord;
  } rows[] = {
      {1.9, 1, 1},
      {-1.9, -1, 0xFFFFFFFF},
      {4294967296.5, 4294967296, 0},
      {4294967295.5, 4294967295, 0xFFFFFFFF},
      {-4294967295.5, -4294967295, 1},
      {0x1p62, 1ll << 62, 0},
      {0x1.fffffffffffffp62, 9223372036854774784, 0xFFFFFC00},
      {0x1p63, kLowest64, 0},
      {-0x1p63, kLowest64, 0},
      {-0x1.0000000000001p63, kLowest64, 0},
      {kInfinity, kLowest64, 0},
      {-kInfinity, kLowest64, 0},
      {kNan, kLowest64, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(TruncateToInt64(row.value), row.result) << row.value;
    EXPECT_EQ(TruncateToLowWord(row.value), row.lowWord) << row.value;
  }
}

struct IntRow {
  TextView text;
  std::int32_t prefix;
  std::optional<std::int32_t> whole;
};

TEST(Numbers, IntegersAreReadFromTheStartOfAText) {
  const IntRow rows[] = {
      {u"", 0, {}},
      {u"0", 0, 0},
      {u"17", 17, 17},
      {u"  \t\r\n\v\f-17  ", -17, -17},
      {u"+5", 5, 5},
      {u"+-5", 0, {}},
      {u"- 5", 0, {}},
      {u"-", 0, {}},
      {u"12abc", 12, {}},
      {u"12 34", 12, {}},
      {u"abc", 0, {}},
      {u"007", 7, 7},
      {u"0x10", 0, {}},
      {u"1.9", 1, {}},
      {u"2147483647", 2147483647, 2147483647},
      {u"2147483648", 2147483647, {}},
      {u"-2147483648", kLowest32, kLowest32},
      {u"-2147483649", kLowest32, {}},
      {u"99999999999999999999999999999", 2147483647, {}},
      {u"21474836470", 2147483647, {}},
      {u"-99999999999999999999999999999", kLowest32, {}},
      {u"\uFF11", 0, {}},  // a full-width digit is none
      {TextView(u"5\0", 2), 5, {}},
      {TextView(u"1234", 2), 12, 12},  // the digits behind the text belong to another one
  };
  for (const IntRow& row : rows) {
    EXPECT_EQ(ParseIntPrefix(row.text), row.prefix) << ToUtf8(row.text);
    EXPECT_EQ(ParseInt(row.text), row.whole) << ToUtf8(row.text);
  }
}

const char* const kDoubles[] = {
    "",
    "0",
    "-0",
    "1",
    "+1.5",
    "-1.5",
    " \t\n1e3 ",
    ".5",
    "5.",
    ".",
    "-.",
    "e5",
    "1e",
    "1e+",
    "1e+2",
    "1E-2",
    "1.5.5",
    "1,5",
    "+-1",
    "-+1",
    "--1",
    "0x10",
    "0x1.8p1",
    "0X.8",
    "0x",
    "0xg",
    "0x.",
    "0x-1",
    "0x+1",
    "-0x10",
    "inf",
    "-INF",
    "+inf",
    "infinity",
    "infinit",
    "nan",
    "-nan",
    "nan(12)",
    "nan(",
    "0xinf",
    "1e308",
    "1e309",
    "-1e309",
    "1e-323",
    "1e-400",
    "-1e-400",
    "1e99999999999999999999",
    "1e-99999999999999999999",
    "0e99999",
    "0.0000000000000000000000000001e9999",
    "100000000000000000000000000e-9999",
    "0x1p99999",
    "0x1p-99999",
    "0x.0001p-2000",
    "123456789012345678901234567890",
    "4.9406564584124654e-324",
    "1.7976931348623157e308",
    "1.7976931348623159e308",
    "3abc",
    "abc",
};

TEST(Numbers, RealsAreReadAsTheCLibraryReadsThem) {
  for (const char* text : kDoubles) {
    char* end = nullptr;
    const double expected = std::strtod(text, &end);
    const bool none = end == text;
    while (*end == ' ' || *end == '\n') ++end;
    const Text wide = FromUtf8(text);
    const double prefix = ParseDoublePrefix(wide);
    const auto whole = ParseDouble(wide);
    EXPECT_EQ(whole.has_value(), !none && *end == '\0') << text;
    if (std::isnan(expected)) {
      EXPECT_TRUE(std::isnan(prefix)) << text;
    } else {
      EXPECT_EQ(prefix, expected) << text;
      EXPECT_EQ(std::signbit(prefix), std::signbit(expected)) << text;
    }
  }
}

TEST(Numbers, RandomTextsReadAsTheCLibraryReadsThem) {
  std::mt19937 random(11);
  const std::string letters = "00123459..eE+-xXpPaf in";
  for (int round = 0; round < 50000; ++round) {
    std::string text(random() % 12, ' ');
    for (char& c : text) c = letters[random() % letters.size()];
    const double expected = std::strtod(text.c_str(), nullptr);
    const double actual = ParseDoublePrefix(FromUtf8(text));
    if (!std::isnan(expected)) {
      ASSERT_EQ(actual, expected) << text;
    }
  }
}

TEST(Numbers, ANumberBeyondTheDoublesIsInfiniteOrZeroByItsFirstDigitAndItsExponent) {
  const Text zeros(500, u'0');
  const struct {
    Text text;
    double value;
  } rows[] = {
      {u"1." + zeros + u"e-400", 0.0},  // the digits after the point don't make it larger
      {zeros + u"1e400", kInfinity},    // nor do the zeros before the first digit make it smaller
      {u"." + zeros + u"1e100", 0.0},       {u"1" + zeros + u"e-900", 0.0},
      {u"1" + zeros + u"e-100", kInfinity}, {u"0x1" + zeros + u"p-900", kInfinity},
  };
  for (const auto& row : rows) EXPECT_EQ(ParseDoublePrefix(row.text), row.value) << ToUtf8(row.text);
}

TEST(Numbers, ALetterOfAnotherAlphabetEndsANumberWhateverItsCode) {
  // The low byte of these letters is that of a digit.
  EXPECT_EQ(ParseDoublePrefix(u"1\u0135"), 1.0);
  EXPECT_EQ(ParseDouble(u"1\u0135"), std::nullopt);
}

TEST(Numbers, AMillionDigitsAreReadAtOnce) {
  const Text digits(1'000'000, u'9');
  EXPECT_EQ(ParseIntPrefix(digits), 2147483647);
  EXPECT_EQ(ParseDoublePrefix(digits), kInfinity);
  EXPECT_EQ(ParseDoublePrefix(u"0." + Text(1'000'000, u'0') + u"1"), 0.0);
}

}  // namespace
}  // namespace pnl
