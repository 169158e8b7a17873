// SPDX-License-Identifier: MIT
// Numbers as the calculator shows them.
#include "calc/calc_format.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>

namespace pnl {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct ResultRow {
  double value;
  const char* hexadecimal;
  const char* decimal;
  const char* binary;
};

TEST(CalcFormatTest, AResultInEachBase) {
  const ResultRow rows[] = {
      {0, "$0", "0", "B0"},
      {1, "$1", "1", "B1"},
      {5, "$5", "5", "B101"},
      {255, "$FF", "255", "B11111111"},
      {3.9, "$3", "3.9", "B11"},
      {-3.9, "$FFFFFFFD", "-3.9", "B11111111111111111111111111111101"},
      {-1, "$FFFFFFFF", "-1", "B11111111111111111111111111111111"},
      {-0.5, "$0", "-0.5", "B0"},
      {4294967295.0, "$FFFFFFFF", "4294967295", "B11111111111111111111111111111111"},
      {4294967296.0, "$0", "4294967296", "B0"},
      {4294967301.0, "$5", "4294967301", "B101"},
      {2147483648.0, "$80000000", "2147483648", "B10000000000000000000000000000000"},
      {0.1, "$0", "0.1", "B0"},
      {1.0 / 3, "$0", "0.333333333333333", "B0"},
      {1e15, "$A4C68000", "1e+15", "B10100100110001101000000000000000"},
      {123456789012345.0, "$860DDF79", "123456789012345", "B10000110000011011101111101111001"},
      {1e300, "$0", "1e+300", "B0"},
      {1e-5, "$0", "1e-05", "B0"},
      {kInfinity, "$0", "inf", "B0"},
      {-kInfinity, "$0", "-inf", "B0"},
      {kNan, "$0", "nan", "B0"},
  };
  for (const ResultRow& row : rows) {
    EXPECT_EQ(ToUtf8(FormatResult(row.value, number_base::kHexadecimal)), row.hexadecimal) << row.value;
    EXPECT_EQ(ToUtf8(FormatResult(row.value, number_base::kDecimal)), row.decimal) << row.value;
    EXPECT_EQ(ToUtf8(FormatResult(row.value, number_base::kBinary)), row.binary) << row.value;
  }
}

struct ValueRow {
  double value;
  const char* text;
};

TEST(CalcFormatTest, AValueWithTheDigitsThatItsSizeLetsBeSignificant) {
  const ValueRow rows[] = {
      {2.5, "2.5"},
      {1234.5, "1234.5"},
      {0.05, "0.05"},
      {3, "3"},
      {0.99999999999999, "1"},
      {-2.5, "-2.5"},
      {0, "0"},
      {-3, "-3"},
      {0.1, "0.1"},
      {-0.05, "-0.05"},
      {0.001, "0.001"},
      {1.001, "1.001"},
      {10.05, "10.05"},
      {1.0 / 3, "0.333333333333"},
      {2.0 / 3, "0.666666666667"},
      {100.0 / 3, "33.333333333333"},
      // From 3162.3 on an integer part counts as four digits: 11 decimals, and so on.
      {3000 + 1.0 / 3, "3000.333333333333"},
      {4000 + 1.0 / 3, "4000.33333333333"},
      {123456.789, "123456.789"},
      {1234567890.125, "1234567890.125"},
      {12345678901234.5, "12345678901234.5"},
      {123456789012345.5, "123456789012345.5"},
      // From here on a fraction is less than the last digit that counts.
      {412345678901234.5, "412345678901234"},
      {1e15, "1000000000000000"},
      {1e20, "100000000000000000000"},
      {-1e15, "-1000000000000000"},
      // Fractions below 1E-10 don't count, and a negative value without a digit keeps its sign.
      {1e-10, "0"},
      {2e-10, "0.0000000002"},
      {-1e-12, "-0"},
      {-1e-10, "-0"},
      {5 + 1e-11, "5"},
      {-5 - 1e-11, "-5"},
      // Rounded up to 1: the value is printed whole.
      {0.9999999999999, "1"},
      {-0.9999999999999, "-1"},
      {7.9999999999999, "8"},
      {0.999999999999, "0.999999999999"},
      {9999.999999999999, "10000"},
      {kInfinity, "inf"},
      {-kInfinity, "-inf"},
      {kNan, "nan"},
      {std::numeric_limits<double>::denorm_min(), "0"},
  };
  for (const ValueRow& row : rows) EXPECT_EQ(ToUtf8(FormatValue(row.value)), row.text) << row.value;
}

TEST(CalcFormatTest, TheGreatestValueIsWrittenOut) {
  const Text text = FormatValue(std::numeric_limits<double>::max());
  EXPECT_EQ(text.size(), 309u);
  EXPECT_TRUE(text.starts_with(u"17976931348623157"));
}

struct DigitsRow {
  double fraction;
  int decimals;
  const char* digits;
  int place;
};

TEST(CalcFormatTest, DigitsOfAFractionComeWithoutLeadingZeros) {
  const DigitsRow rows[] = {
      {0.5, 12, "500000000000", 0},
      {0.05, 12, "50000000000", -1},
      {0.001, 12, "1000000000", -2},
      {-0.05, 12, "50000000000", -1},
      {0.99, 1, "10", 1},
      {0.9999999999999, 12, "1000000000000", 1},
      {0.96875, 1, "10", 1},
      {0.125, 2, "12", 0},
      {0.375, 2, "38", 0},
      {0.0000000002, 12, "200", -9},
      {0, 3, "", -3},
  };
  for (const DigitsRow& row : rows) {
    const FractionDigits got = DigitsOfFraction(row.fraction, row.decimals);
    EXPECT_EQ(got.digits, row.digits) << row.fraction;
    EXPECT_EQ(got.place, row.place) << row.fraction;
  }
}

TEST(CalcFormatTest, APointStaysAPointWhateverTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(ToUtf8(FormatValue(1234.5)), "1234.5");
  EXPECT_EQ(ToUtf8(FormatResult(0.5, number_base::kDecimal)), "0.5");
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace
}  // namespace pnl
