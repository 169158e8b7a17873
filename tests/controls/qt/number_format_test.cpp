// SPDX-License-Identifier: MIT
#include "controls/number_format.h"

#include <gtest/gtest.h>

#include "controls/entry_validator.h"

namespace pnl::test {
namespace {

constexpr NumberFormat kMetric{5, 4, -99999.9999, 99999.9999};
constexpr NumberFormat kPercent{3, 2, 0, 100};
constexpr NumberFormat kTeeth{0, 0, 0, 100};
const NumberFormat kAny{};

TEST(NumberFormatTest, TypingTakesWhatMayBecomeANumberWithTheseDigits) {
  struct Row {
    const char* text;
    NumberFormat format;
    bool typed;
    bool allowed;
  };
  const Row rows[] = {
      {"", kMetric, true, true},
      {"-", kMetric, true, false},
      {"+", kMetric, true, false},
      {".", kMetric, true, false},
      {"-.", kMetric, true, false},
      {"12345", kMetric, true, true},
      {"123456", kMetric, false, false},
      {"-12345.6789", kMetric, true, true},
      {"1.23456", kMetric, false, false},
      {"1.", kMetric, true, true},
      {".5", kMetric, true, true},
      {"+3", kMetric, true, true},
      {"1..2", kMetric, false, false},
      {"1.2.3", kMetric, false, false},
      {"1-", kMetric, false, false},
      {"--1", kMetric, false, false},
      {"1,5", kMetric, false, false},
      {" 1", kMetric, false, false},
      {"1e3", kMetric, false, false},
      {"nan", kMetric, false, false},
      {"0x1", kMetric, false, false},
      {"-1", kPercent, false, false},
      {"100", kPercent, true, true},
      {"100.00", kPercent, true, true},
      {"100.01", kPercent, true, false},
      {"999", kPercent, true, false},
      {"7", kTeeth, true, true},
      {"7.", kTeeth, false, false},
      {"101", kTeeth, true, false},
      {"0000000101", kTeeth, true, false},
      {"-123456789.123456789", kAny, true, true},
      {"x", kAny, false, false},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(MayBeTyped(row.text, row.format), row.typed) << row.text;
    EXPECT_EQ(IsAllowedNumber(row.text, row.format), row.allowed) << row.text;
  }
  EXPECT_FALSE(MayBeTyped(QStringLiteral(u"\u0661"), kAny)) << "digits of other scripts are no digits here";
}

TEST(NumberFormatTest, BothEndsOfTheRangeBelongToIt) {
  const NumberFormat format{2, 1, -1.5, 2.5};
  EXPECT_TRUE(IsAllowedNumber("-1.5", format));
  EXPECT_TRUE(IsAllowedNumber("2.5", format));
  EXPECT_FALSE(IsAllowedNumber("-1.6", format));
  EXPECT_FALSE(IsAllowedNumber("2.6", format));
}

TEST(NumberFormatTest, PaintsExactlyTheDecimalsOfTheFormat) {
  struct Row {
    const char* text;
    int decimals;
    const char* painted;
  };
  const Row rows[] = {
      {"763.800000", 4, "763.8000"},
      {"0.0000000", 4, "0.0000"},
      {"5", 2, "5.00"},
      {"0.126", 2, "0.13"},
      {"2.7", 0, "3"},
      {"-0.00001", 4, "0.0000"},
      {"-0.6", 0, "-1"},
      {"-1.25", 1, "-1.2"},
      {"", 4, ""},
      {"abc", 4, "abc"},
      {"12abc", 4, "12abc"},
      {"inf", 2, "inf"},
      {"nan", 2, "nan"},
      {"1e15", 2, "1e15"},
      {"1e14", 0, "100000000000000"},
      {"763.800000", -1, "763.800000"},
      {"1", 99, "1.000000000000"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(PaintedNumber(row.text, {5, row.decimals}).toStdString(), row.painted) << row.text;
  }
}

QValidator::State StateOf(const EntryValidator& validator, QString text) {
  int caret = 0;
  return validator.validate(text, caret);
}

TEST(EntryValidatorTest, ATextAgainstTheRulesCanOnlyBeDeletedFrom) {
  EntryValidator validator;
  validator.SetFormat(kPercent);
  validator.SetStart("12345.678");
  EXPECT_EQ(StateOf(validator, "12345.678"), QValidator::Intermediate);
  EXPECT_EQ(StateOf(validator, "1345.678"), QValidator::Intermediate);
  EXPECT_EQ(StateOf(validator, "12345.6781"), QValidator::Invalid);
  EXPECT_EQ(StateOf(validator, "54321"), QValidator::Invalid);
  EXPECT_EQ(StateOf(validator, "12.6"), QValidator::Acceptable);
  EXPECT_EQ(StateOf(validator, "678"), QValidator::Intermediate) << "out of range";
}

TEST(EntryValidatorTest, TheOwnersCheckDecidesBesideTheFormat) {
  EntryValidator validator;
  EXPECT_EQ(StateOf(validator, "a\x01"), QValidator::Acceptable);
  validator.SetCheck([](const QString& text) { return !text.contains(QChar(1)); });
  EXPECT_EQ(StateOf(validator, "a\x01"), QValidator::Invalid);
  EXPECT_EQ(StateOf(validator, "a"), QValidator::Acceptable);
  validator.SetFormat(kPercent);
  EXPECT_FALSE(validator.Accepts("a"));
}

TEST(NumberFormatTest, ARangeThatBeginsBelowZeroTakesAMinus) {
  EXPECT_TRUE(MayBeTyped("-", {3, 2, -0.5, 1}));
  EXPECT_FALSE(MayBeTyped("-", {3, 2, 0, 1}));
  EXPECT_TRUE(MayBeTyped("-", {}));
}

TEST(NumberFormatTest, FewDigitsAreAllowedUpToTheirCount) {
  EXPECT_TRUE(MayBeTyped("1", {1, 1, 0, 9}));
  EXPECT_FALSE(MayBeTyped("12", {1, 1, 0, 9}));
  EXPECT_TRUE(MayBeTyped("1.2", {1, 1, 0, 9}));
  EXPECT_FALSE(MayBeTyped("1.23", {1, 1, 0, 9}));
  EXPECT_EQ(PaintedNumber("999999999999999", {0, 0}), "999999999999999") << "one below the largest that is painted";
  EXPECT_EQ(PaintedNumber("-1000000000000000", {0, 2}), "-1000000000000000");
  EXPECT_EQ(PaintedNumber("1", {0, 12}), "1.000000000000");
  EXPECT_EQ(PaintedNumber("1", {0, 13}), "1.000000000000");
}

}  // namespace
}  // namespace pnl::test
