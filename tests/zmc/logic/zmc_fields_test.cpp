// SPDX-License-Identifier: MIT
#include "zmc/logic/zmc_fields.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace pnl::test {
namespace {

struct BlankRow {
  TextView text;
  bool field;
  bool cell;
};

const BlankRow kBlanks[] = {
    {u"", true, true},      {u"0", true, true},     {u" 0", true, false},         {u"0 ", false, false},
    {u"  0", false, false}, {u" ", false, false},   {u"00", false, false},        {u"0.0", false, false},
    {u"-0", false, false},  {u"\t0", false, false}, {u"0.0000000", false, false}, {u"1", false, false},
};

TEST(ZmcFields, OnlyThreeTextsAreBlankAndInACellOnlyTwo) {
  for (const BlankRow& row : kBlanks) {
    EXPECT_EQ(BlankField(row.text), row.field) << '"' << ToUtf8(row.text) << '"';
    EXPECT_EQ(BlankCell(row.text), row.cell) << '"' << ToUtf8(row.text) << '"';
  }
}

struct DecimalRow {
  TextView text;
  double value;
};

const DecimalRow kDecimals[] = {
    {u"", 0},
    {u"12.5", 12.5},
    {u" 0.05", 0.05},
    {u"\t-3", -3},
    {u"+7", 7},
    {u".5", 0.5},
    {u"5.", 5},
    {u"1e3", 1000},
    {u"1E-2", 0.01},
    {u"1e", 1},
    {u"1e+", 1},
    {u"12abc", 12},
    {u"1,5", 1},
    {u"1 2", 1},
    {u"--1", 0},
    {u"nan", 0},
    {u"NAN(1)", 0},
    {u"inf", 0},
    {u"-infinity", 0},
    {u"0x10", 0},
    {u"0X1p4", 0},
    {u"-0x10", 0},
    {u"1e-999", 0},
    {u"text", 0},
    {u"e5", 0},
    {u"٣", 0},
    {u"1\u00A0", 1},
    {u"0.0000000", 0},
    {u"763.800000", 763.8},
    {u"-", 0},
};

TEST(ZmcFields, ANumberIsReadAsADecimalAndAsNothingElse) {
  for (const DecimalRow& row : kDecimals) EXPECT_EQ(DecimalOf(row.text), row.value) << '"' << ToUtf8(row.text) << '"';
}

TEST(ZmcFields, ANumberThatIsTooLargeIsInfinite) {
  EXPECT_EQ(DecimalOf(u"1e999"), std::numeric_limits<double>::infinity());
  EXPECT_EQ(DecimalOf(u"-1e999"), -std::numeric_limits<double>::infinity());
}

TEST(ZmcFields, ACellGetsSevenDecimals) {
  EXPECT_EQ(ToUtf8(CellText(120)), "120.0000000");
  EXPECT_EQ(ToUtf8(CellText(0.00012345678)), "0.0001235");
  EXPECT_EQ(ToUtf8(CellText(0)), "0.0000000");
}

struct ResultRow {
  double value;
  std::int32_t precision;
  const char* text;
};

const ResultRow kResults[] = {
    {3819.72, 0, "3819"},
    {3819.99999, 0, "3819"},
    {-2.9, 0, "-2"},
    {3819.72, 1, "3819.720000"},
    {3819.72, -1, "3819.720000"},
    {0, 0, "0"},
    {1e10, 0, "-2147483648"},
    {std::numeric_limits<double>::quiet_NaN(), 0, "-2147483648"},
    {std::numeric_limits<double>::infinity(), 2, "inf"},
};

TEST(ZmcFields, AResultIsCutTowardsZeroOrHasSixDecimalsWhateverThePrecision) {
  for (const ResultRow& row : kResults) EXPECT_EQ(ToUtf8(ResultText(row.value, row.precision)), row.text);
}

TEST(ZmcFields, AnIndexThatABoxDoesNotHaveIsNoSelection) {
  EXPECT_EQ(SelectableIndex(0, 1), 0);
  EXPECT_EQ(SelectableIndex(1, 2), 1);
  EXPECT_EQ(SelectableIndex(1, 1), kZmcNoSelection) << "a stored cutting speed on a machine that only mills";
  EXPECT_EQ(SelectableIndex(-1, 2), kZmcNoSelection);
  EXPECT_EQ(SelectableIndex(std::numeric_limits<int>::max(), 2), kZmcNoSelection);
}

TEST(ZmcFields, AnItemIsFoundInAnyCaseAndElseItIsTheLast) {
  const std::vector<Text> items = {u"", u"Steel", u"Brass", u"STEEL"};
  EXPECT_EQ(IndexOrLast(items, u"Steel"), 1);
  EXPECT_EQ(IndexOrLast(items, u"bRASS"), 2);
  EXPECT_EQ(IndexOrLast(items, u"steel"), 1) << "the first of two";
  EXPECT_EQ(IndexOrLast(items, u"Tin"), 3);
  EXPECT_EQ(IndexOrLast(items, u""), 3) << "nothing was selected, not the item without a text";
  EXPECT_EQ(IndexOrLast({}, u"Steel"), -1);
}

TEST(ZmcFields, TheCellsOfTheComputationAreThoseOfTheGrid) {
  ZmcFields fields;
  for (int id = 0; id < kZmcCells; ++id)
    fields.Cells[static_cast<std::size_t>(id)] = Text(1, static_cast<char16_t>(u'a' + id));
  EXPECT_EQ(ToUtf8(fields.Vc() + fields.FzMin() + fields.FzMax() + fields.Fz() + fields.Ap() + fields.Ae()), "cdefil");
}

TEST(ZmcFields, ABlockCanBeAskedForWithAnyWordButM6) {
  EXPECT_FALSE(ZmcChecks{}.AnyWord());
  EXPECT_FALSE((ZmcChecks{.M6 = 1}).AnyWord());
  EXPECT_TRUE((ZmcChecks{.Comments = true}).AnyWord());
  EXPECT_TRUE((ZmcChecks{.Tool = true}).AnyWord());
  EXPECT_TRUE((ZmcChecks{.F = true}).AnyWord());
  EXPECT_TRUE((ZmcChecks{.S = true}).AnyWord());
  EXPECT_TRUE((ZmcChecks{.Dmc = true}).AnyWord());
}

}  // namespace
}  // namespace pnl::test
