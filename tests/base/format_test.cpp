// SPDX-License-Identifier: MIT
#include "base/format.h"

#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <locale>
#include <random>
#include <string>

namespace pnl {
namespace {

template <typename... Args>
std::string Printed(const std::string& format, Args... args) {
  static std::array<char, 4096> buffer;
  const int length = std::snprintf(buffer.data(), buffer.size(), format.c_str(), args...);
  return std::string(buffer.data(), static_cast<std::size_t>(length));
}

template <typename... Args>
void ExpectAsPrintf(const std::string& format, Args... args) {
  EXPECT_EQ(ToUtf8(Format(FromUtf8(format), args...)), Printed(format, args...)) << format;
}

TEST(Format, IntegersPrintAsInC) {
  const char* const formats[] = {"%d",    "%i",    "%5d",    "%-5d|",   "%05d", "%+d",   "% d",    "%+5d",  "%+05d",
                                 "%.3d",  "%8.3d", "%08.3d", "%-8.3d|", "%.0d", "%.d",   "%+.0d",  "%u",    "%x",
                                 "%X",    "%o",    "%#x",    "%#X",     "%#o",  "%#08x", "%#8x",   "%#.4x", "%#.0o",
                                 "%#.0x", "%08X",  "%hd",    "%hhd",    "%hu",  "%hhx",  "%-#6o|", "%'d"};
  const int values[] = {
      0, 1, -1, 7, 42, 255, -128, 65535, 70000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
  for (const char* format : formats) {
    for (const int value : values) ExpectAsPrintf(format, value);
  }
}

TEST(Format, LongIntegersPrintAsInC) {
  const char* const formats[] = {"%ld", "%lld", "%lu",   "%llu",    "%lx",   "%#llX",
                                 "%lo", "%+ld", "%25ld", "%-25ld|", "%.22ld"};
  const long values[] = {0, -1, 1L << 40, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()};
  for (const char* format : formats) {
    for (const long value : values) ExpectAsPrintf(format, value);
  }
  ExpectAsPrintf("%zu %jd %td", sizeof(int), 5L, -5L);
}

TEST(Format, RealsPrintAsInC) {
  const char* const formats[] = {
      "%f",       "%F",      "%e",    "%E",    "%g",      "%G",    "%.0f",  "%#.0f",  "%.3f", "%10.3f",
      "%-10.3f|", "%010.3f", "%+f",   "% f",   "%+.2e",   "%.0e",  "%#.0e", "%#g",    "%.3g", "%#.3g",
      "%.0g",     "%#.0g",   "%.17g", "%.20g", "%20.10g", "%020g", "%.40f", "%.340f",
  };
  const double values[] = {0.0,
                           -0.0,
                           1.0,
                           -1.0,
                           0.5,
                           1.5,
                           2.5,
                           0.1,
                           123456.0,
                           1234567.0,
                           0.0001,
                           0.00001,
                           9.9995,
                           99995.0,
                           1e15,
                           1e100,
                           1e-100,
                           5e-324,
                           std::numeric_limits<double>::max(),
                           std::numeric_limits<double>::infinity(),
                           -std::numeric_limits<double>::infinity(),
                           std::numeric_limits<double>::quiet_NaN()};
  for (const char* format : formats) {
    for (const double value : values) ExpectAsPrintf(format, value);
  }
  EXPECT_EQ(Format(u"%Lf", 1.5), u"1.500000");
}

TEST(Format, ARealThatRoundsUpToTheNextPowerOfTenKeepsItsZeros) {
  // Not compared with snprintf: some C libraries print "1.e+06" here, against the standard.
  EXPECT_EQ(Format(u"%#g", 999999.5), u"1.00000e+06");
  EXPECT_EQ(Format(u"%g", 999999.5), u"1e+06");
  EXPECT_EQ(Format(u"%g", 999999.4), u"999999");
}

TEST(Format, TextsAndLettersPrintAsInC) {
  const char* const formats[] = {"%s", "%10s|", "%-10s|", "%.2s|", "%10.2s|", "%.0s|", "%.s|", "%1s"};
  const char* const values[] = {"", "a", "G0 X10", "0123456789ABCDEF"};
  for (const char* format : formats) {
    for (const char* value : values) {
      EXPECT_EQ(ToUtf8(Format(FromUtf8(format), FromUtf8(value))), Printed(format, value)) << format;
    }
  }
  EXPECT_EQ(Format(u"[%c][%3c][%-3c]", u'a', u'b', u'c'), u"[a][  b][c  ]");
  EXPECT_EQ(Format(u"%c", 0x20AC), u"€");
}

TEST(Format, StarsTakeWidthAndPrecisionFromTheArguments) {
  ExpectAsPrintf("%*d|", 6, 42);
  ExpectAsPrintf("%*d|", -6, 42);
  ExpectAsPrintf("%-*d|", 6, 42);
  ExpectAsPrintf("%.*f|", 2, 3.14159);
  ExpectAsPrintf("%.*f|", -2, 3.14159);
  ExpectAsPrintf("%*.*f|", 9, 1, 3.14159);
  ExpectAsPrintf("%0*.*d|", 9, 3, 5);
  EXPECT_EQ(Format(u"%*.*s|", 5, 2, u"abcdef"), u"   ab|");
}

TEST(Format, EverySpellingOfATextConversionPrintsIt) {
  for (const TextView format : {u"%s", u"%S", u"%ls", u"%hs", u"%ws", u"%lS", u"%hS"}) {
    EXPECT_EQ(Format(format, u"año"), u"año");
  }
  for (const TextView format : {u"%c", u"%C", u"%lc", u"%hc", u"%wc"}) EXPECT_EQ(Format(format, u'ñ'), u"ñ");
}

TEST(Format, EverySpellingOfAWideIntegerPrintsIt) {
  const std::int64_t value = -1234567890123;
  for (const TextView format : {u"%ld", u"%lld", u"%I64d", u"%Id", u"%qd", u"%jd", u"%zd", u"%td"}) {
    EXPECT_EQ(Format(format, value), u"-1234567890123");
  }
  EXPECT_EQ(Format(u"%I64u", std::uint64_t{18446744073709551615u}), u"18446744073709551615");
  EXPECT_EQ(Format(u"%I64x", -1ll), u"ffffffffffffffff");
  EXPECT_EQ(Format(u"%I32d", value), u"-1912276171");
  EXPECT_EQ(Format(u"%d", value), u"-1912276171");
}

struct HostileRow {
  TextView format;
  std::initializer_list<FormatArg> args;
  TextView result;
};

TEST(Format, AFormatThatDoesntFitItsArgumentsReadsNothingThatIsntThere) {
  const HostileRow rows[] = {
      {u"%s%s%s", {u"a"}, u"a"},
      {u"%d", {}, u""},
      {u"[%5d]", {}, u"[]"},
      {u"%*d", {}, u""},
      {u"%*d", {5}, u""},
      {u"%.*s|", {u"x", u"abc"}, u"|"},  // a text is no precision: it counts as 0
      {u"%n", {}, u""},
      {u"%n%d", {1, 2}, u"2"},
      {u"%p %s", {1, u"b"}, u" b"},
      {u"%hn%lln%5n|", {1, 2, 3}, u"|"},
      {u"%", {1}, u""},
      {u"100%", {}, u"100"},
      {u"%-+ #05.3l", {1}, u""},
      {u"%.", {1}, u""},
      {u"%y%d", {7}, u"7"},
      {u"%1$d", {7}, u"d"},
      {u"%%", {1}, u"%"},
      {u"%5%|", {}, u"%|"},
      {u"%d", {u"text"}, u""},
      {u"%x", {u"text"}, u""},
      {u"%f", {u"text"}, u""},
      {u"%c|", {u"text"}, u"|"},
      {u"%d", {3.99}, u"3"},
      {u"%d", {-3.99}, u"-3"},
      {u"%d", {std::numeric_limits<double>::quiet_NaN()}, u"0"},
      {u"%I64d", {std::numeric_limits<double>::infinity()}, u"-9223372036854775808"},
      {u"%d", {u'A'}, u"65"},
      {u"%.1f", {3}, u"3.0"},
      {u"%.1f", {u'A'}, u"65.0"},
      {u"%c", {65}, u"A"},
      {u"%c", {65.9}, u"A"},
      {u"%c", {0x10041}, u"A"},
      {u"%5s|", {42}, u"   42|"},
      {u"%s", {-1.5}, u"-1.5"},
      {u"%s", {u'x'}, u"x"},
      {u"%s|", {static_cast<const char16_t*>(nullptr)}, u"|"},
      {u"%d %d", {1, 2, 3}, u"1 2"},
  };
  for (const HostileRow& row : rows) EXPECT_EQ(FormatList(row.format, row.args), row.result) << ToUtf8(row.format);
}

TEST(Format, TextsMayHoldNulsAndPercentSigns) {
  EXPECT_EQ(Format(u"%s", u"%d%n%s"), u"%d%n%s");
  const Text nul(u"a\0b", 3);
  EXPECT_EQ(Format(u"[%s]", nul), Text(u"[a\0b]", 5));
  EXPECT_EQ(Format(TextView(u"\0%d\0", 4), 1), Text(u"\0001\0", 3));
  EXPECT_EQ(Format(u"%c", 0).size(), 1u);
}

TEST(Format, WidthAndPrecisionAreCapped) {
  EXPECT_EQ(Format(u"%999999999999999999999d", 1).size(), 4096u);
  EXPECT_EQ(Format(u"%.999999999999999999999d", 1).size(), 4096u);
  EXPECT_EQ(Format(u"%*d", std::numeric_limits<int>::min(), 1).size(), 4096u);
  EXPECT_EQ(Format(u"%*s", std::numeric_limits<std::int64_t>::max(), u"").size(), 4096u);
  EXPECT_EQ(Format(u"%.99999f", std::numeric_limits<double>::max()).size(), 309u + 1 + 4096);
  EXPECT_EQ(Format(u"%.4096e", 1.0).size(), 4096u + 6);
  EXPECT_EQ(Format(u"%.4096g", 5e-324).find(u"4.94"), 0u);
}

/// One random conversion whose meaning C defines for the kind of value.
std::string RandomConversion(std::mt19937& random, const std::string& letters, const std::string& flags,
                             const std::string& size) {
  std::string format = "<%";
  for (const char flag : flags) {
    if (random() % 3 == 0) format += flag;
  }
  if (random() % 2 == 0) format += std::to_string(1 + random() % 30);
  if (random() % 2 == 0) {
    format += '.';
    if (random() % 5 != 0) format += std::to_string(random() % 30);
  }
  return format + size + letters[random() % letters.size()] + ">";
}

TEST(Format, RandomConversionsPrintAsInC) {
  std::mt19937_64 values(3);
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    const std::uint64_t bits = values() >> (values() % 64);
    double real = 0;
    std::memcpy(&real, &bits, sizeof real);
    if (round % 2 != 0) real = static_cast<double>(static_cast<std::int64_t>(bits)) / 1000.0;
    ExpectAsPrintf(RandomConversion(random, "di", "-+ 0", ""), static_cast<int>(bits));
    ExpectAsPrintf(RandomConversion(random, "xXo", "-#0", ""), static_cast<unsigned>(bits));
    ExpectAsPrintf(RandomConversion(random, "u", "-0", "l"), static_cast<unsigned long>(bits));
    ExpectAsPrintf(RandomConversion(random, "d", "-+ 0", "l"), static_cast<long>(bits));
    ExpectAsPrintf(RandomConversion(random, "eEfFgG", "-+ #0", ""), real);
    if (HasFailure()) return;
  }
}

TEST(Format, RandomFormatsOverRandomArgumentsEnd) {
  std::mt19937 random(9);
  const Text letters = u"%%%%%dsxfgcnp*.0123456789-+# lhI64SLw$qza\0";
  for (int round = 0; round < 20000; ++round) {
    Text format(random() % 20, u' ');
    for (char16_t& c : format) c = letters[random() % letters.size()];
    const Text text(random() % 5, u'%');
    const Text result = Format(format, static_cast<int>(random()), text, 1e9 * random(), u'c', -5, 5);
    ASSERT_LT(result.size(), 100000u);
  }
}

/// Numbers of this locale have a comma and groups.
struct CommaPunctuation : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(Format, NumbersHaveAPointInACommaLocale) {
  const std::string oldC = std::setlocale(LC_ALL, nullptr);
  const std::locale old = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
  // Where the machine has it; the line above stands in for the C++ side where it hasn't.
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(Format(u"%.2f %g %e %s %d", 1234.5, 0.25, 1.5, 2.5, 1234567), u"1234.50 0.25 1.500000e+00 2.5 1234567");
  std::locale::global(old);
  std::setlocale(LC_ALL, oldC.c_str());
}

}  // namespace
}  // namespace pnl
