// SPDX-License-Identifier: MIT
// What every key, menu command and typed character writes, with and without a selection, and where the caret goes.
#include "calc/calc_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "calc/calc_ids.h"

namespace pnl {
namespace {

constexpr TextView kLine = u"2+3*4";
constexpr TextSelection kCaret{1, 1};     // behind the 2
constexpr TextSelection kSelected{0, 3};  // 2+3

struct Row {
  int key;
  int menu;
  char16_t typed;
  TextView plain;  // at the caret in 2+3*4
  int caret;
  TextView wrapped;  // with 2+3 selected
  int wrappedCaret;
};

// clang-format off
constexpr Row kRows[] = {
    {1017,     0,    0, u"27+3*4",        2, u"7*4",             1},
    {1018,     0,    0, u"28+3*4",        2, u"8*4",             1},
    {1019,     0,    0, u"29+3*4",        2, u"9*4",             1},
    {1022,     0,    0, u"24+3*4",        2, u"4*4",             1},
    {1023,     0,    0, u"25+3*4",        2, u"5*4",             1},
    {1024,     0,    0, u"26+3*4",        2, u"6*4",             1},
    {1027,     0,    0, u"21+3*4",        2, u"1*4",             1},
    {1028,     0,    0, u"22+3*4",        2, u"2*4",             1},
    {1029,     0,    0, u"23+3*4",        2, u"3*4",             1},
    {1032,     0,    0, u"20+3*4",        2, u"0*4",             1},
    {1034,     0,    0, u"2.+3*4",        2, u".*4",             1},
    {1016,     0,    0, u"2Acc+3*4",      7, u"Acc*4",           6},
    {   0, 32803,    0, u"2PI+3*4",       3, u"PI*4",            2},
    {   0, 32804,    0, u"2MMPERI+3*4",   7, u"MMPERI*4",        6},
    {   0, 32811,    0, u"2IPERMM+3*4",   7, u"IPERMM*4",        6},
    {1035, 32805, u'+', u"2++3*4",        2, u"(2+3)+*4",        6},
    {1030, 32806, u'-', u"2-+3*4",        2, u"(2+3)-*4",        6},
    {1025, 32807, u'*', u"2*+3*4",        2, u"(2+3)**4",        6},
    {1020, 32808, u'/', u"2/+3*4",        2, u"(2+3)/*4",        6},
    {1026, 32812, u'%', u"2%+3*4",        2, u"(2+3)%*4",        6},
    {   0, 32809, u'^', u"2^+3*4",        2, u"(2+3)^*4",        6},
    {   0, 32783, u'!', u"2!+3*4",        2, u"(2+3)!*4",        6},
    {   0, 32791,    0, u"2And+3*4",      4, u"(2+3)And*4",      8},
    {   0, 32792,    0, u"2Or+3*4",       3, u"(2+3)Or*4",       7},
    {   0, 32793,    0, u"2Xor+3*4",      4, u"(2+3)Xor*4",      8},
    {1021, 32816,    0, u"2Sqrt+3*4",     5, u"Sqrt(2+3)*4",     9},
    {   0, 32784,    0, u"2Sin+3*4",      4, u"Sin(2+3)*4",      8},
    {   0, 32785,    0, u"2Cos+3*4",      4, u"Cos(2+3)*4",      8},
    {   0, 32786,    0, u"2Tan+3*4",      4, u"Tan(2+3)*4",      8},
    {   0, 32810,    0, u"2InvSin+3*4",   7, u"InvSin(2+3)*4",  11},
    {   0, 32789,    0, u"2InvCos+3*4",   7, u"InvCos(2+3)*4",  11},
    {   0, 32787,    0, u"2InvTan+3*4",   7, u"InvTan(2+3)*4",  11},
    {   0, 32794,    0, u"2Not+3*4",      4, u"Not(2+3)*4",      8},
    {   0, 32795,    0, u"2Ln+3*4",       3, u"Ln(2+3)*4",       7},
    {   0, 32796,    0, u"2Log+3*4",      4, u"Log(2+3)*4",      8},
    {   0, 32797,    0, u"2InvLn+3*4",    6, u"InvLn(2+3)*4",   10},
    {   0, 32798,    0, u"2InvLog+3*4",   7, u"InvLog(2+3)*4",  11},
    {   0, 32799,    0, u"2Integral+3*4", 9, u"Integral(2+3)*4",13},
    {   0, 32800,    0, u"2Zero+3*4",     5, u"Zero(2+3)*4",     9},
    // These carets go further than what was written.
    {   0, 32801,    0, u"2MMToI+3*4",    9, u"MMToI(2+3)*4",   13},
    {   0, 32802,    0, u"2IToMM+3*4",    9, u"IToMM(2+3)*4",   13},
    {   0, 32813,    0, u"2Int+3*4",      4, u"Int(2+3)*4",      8},
    {   0, 32814,    0, u"2Abs+3*4",      4, u"Abs(2+3)*4",      8},
    {1037,     0, u'=', u"2=+3*4",        2, u"=(2+3)*4",        6},
};
// clang-format on

class CalcKeyRowTest : public testing::TestWithParam<Row> {};

TEST_P(CalcKeyRowTest, WritesAtTheCaret) {
  const Row& row = GetParam();
  for (const int command : {row.key, row.menu}) {
    if (command == 0) continue;
    const CalcEdit edit = InsertAtCaret(kLine, kCaret, command);
    EXPECT_EQ(ToUtf8(edit.text), ToUtf8(row.plain));
    EXPECT_EQ(edit.caret, row.caret);
  }
}

TEST_P(CalcKeyRowTest, TakesTheSelectionIn) {
  const Row& row = GetParam();
  for (const int command : {row.key, row.menu}) {
    if (command == 0) continue;
    const CalcEdit edit = InsertAtCaret(kLine, kSelected, command);
    EXPECT_EQ(ToUtf8(edit.text), ToUtf8(row.wrapped));
    EXPECT_EQ(edit.caret, row.wrappedCaret);
  }
}

TEST_P(CalcKeyRowTest, IsTypedAsItsCharacter) {
  const Row& row = GetParam();
  if (row.typed == 0) return;
  const auto command = CommandOfCharacter(row.typed);
  ASSERT_TRUE(command);
  EXPECT_EQ(*command, row.key != 0 ? row.key : row.menu);
}

INSTANTIATE_TEST_SUITE_P(Table, CalcKeyRowTest, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::to_string(row.param.key + row.param.menu); });

TEST(CalcKeysTest, TheTableHasTheseRowsAndNoOther) {
  ASSERT_EQ(CalcKeyTable().size(), std::size(kRows));
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    EXPECT_EQ(CalcKeyTable()[i].key, kRows[i].key);
    EXPECT_EQ(CalcKeyTable()[i].menu, kRows[i].menu);
    EXPECT_EQ(CalcKeyTable()[i].typed, kRows[i].typed);
  }
}

TEST(CalcKeysTest, OnlyTheCharactersOfTheTableAreTaken) {
  std::set<char16_t> taken;
  for (char32_t c = 0; c <= 0xFFFF; ++c) {
    if (CommandOfCharacter(static_cast<char16_t>(c))) taken.insert(static_cast<char16_t>(c));
  }
  EXPECT_EQ(taken, (std::set<char16_t>{u'+', u'-', u'*', u'/', u'%', u'^', u'!', u'='}));
}

struct OwnRule {
  const char* name;
  TextView line;
  TextSelection selection;
  int key;
  TextView text;
  int caret;
};

class CalcOwnRuleTest : public testing::TestWithParam<OwnRule> {};

TEST_P(CalcOwnRuleTest, Holds) {
  const OwnRule& rule = GetParam();
  const CalcEdit edit = InsertAtCaret(rule.line, rule.selection, rule.key);
  EXPECT_EQ(ToUtf8(edit.text), ToUtf8(rule.text));
  EXPECT_EQ(edit.caret, rule.caret);
}

// clang-format off
constexpr OwnRule kOwnRules[] = {
    {"BackTakesTheSelectionAway",          u"2+3*4",   {1, 4}, 1013, u"24",       1},
    {"BackTakesTheCharacterOnTheLeft",     u"2+3*4",   {3, 3}, 1013, u"2+*4",     2},
    {"BackAtTheStartChangesNothing",       u"2+3*4",   {0, 0}, 1013, u"2+3*4",    0},
    {"BackOnAnEmptyLineChangesNothing",    u"",        {0, 0}, 1013, u"",         0},
    {"BackTakesALetterOfTwoUnitsWhole",    u"1\U0001D54F", {3, 3}, 1013, u"1",    1},
    {"BackTakesALoneHalfOnly",             u"1\xDD4F", {2, 2}, 1013, u"1",        1},
    {"OpenBracketAtTheCaret",              u"2+3*4",   {2, 2}, 1014, u"2+(3*4",   3},
    {"CloseBracketAtTheCaret",             u"2+3*4",   {3, 3}, 1015, u"2+3)*4",   4},
    {"OpenBracketWrapsTheSelection",       u"2+3*4",   {0, 3}, 1014, u"(2+3)*4",  5},
    {"CloseBracketWrapsTheSelectionToo",   u"2+3*4",   {0, 3}, 1015, u"(2+3)*4",  5},
    {"ReciprocalWrapsTheLine",             u"5",       {0, 0}, 1031, u"1/(5)",    5},
    {"ReciprocalTakesItsBracketsOff",      u"1/(5)",   {2, 2}, 1031, u"5",        1},
    {"ReciprocalTrims",                    u"  5 ",    {0, 0}, 1031, u"1/(5)",    5},
    {"ReciprocalTrimsBeforeItLooks",       u" 1/(5) ", {0, 0}, 1031, u"5",        1},
    {"ReciprocalDoesNotMindTheSelection",  u"2+3",     {0, 1}, 1031, u"1/(2+3)",  7},
    {"ReciprocalOfNothing",                u"",        {0, 0}, 1031, u"1/()",     4},
    {"ReciprocalOfNothingTakenBack",       u"1/()",    {0, 0}, 1031, u"",         0},
    {"ReciprocalNeedsTheBracketAtTheEnd",  u"1/(5)+1", {0, 0}, 1031, u"1/(1/(5)+1)", 11},
    {"ReciprocalNeedsBothEnds",            u"1/(",     {0, 0}, 1031, u"1/(1/()",  7},
    // Only the ends are looked at, as an operator would who takes off what he sees there.
    {"ReciprocalLooksAtTheEndsOnly",       u"1/(5)+(3)", {0, 0}, 1031, u"5)+(3",  5},
    {"SignWrapsTheLine",                   u"5",       {0, 0}, 1033, u"-(5)",     4},
    {"SignTakesItsBracketsOff",            u"-(5)",    {0, 0}, 1033, u"5",        1},
    {"SignOfAReciprocal",                  u"1/(5)",   {0, 0}, 1033, u"-(1/(5))", 8},
    {"SignOfANegativeNumber",              u"-5",      {0, 0}, 1033, u"-(-5)",    5},
    {"SignNeedsBothEnds",                  u"-(",      {0, 0}, 1033, u"-(-()",    5},
    {"AnIdThatNamesNothingPutsTheCaretAt0", u"2+3*4",  {3, 3}, 32788, u"2+3*4",   0},
    {"AnotherThatNamesNothing",            u"2+3*4",   {1, 3}, 32815, u"2+3*4",   0},
    {"NoIdNamesNothing",                   u"2+3*4",   {1, 3}, 0,    u"2+3*4",    0},
    {"ASelectionBeyondTheTextEndsWithIt",  u"2",       {5, 9}, 1017, u"27",       2},
    {"ASelectionTheWrongWayRound",         u"2+3*4",   {3, 0}, 1021, u"Sqrt(2+3)*4", 9},
    {"ASelectionBeforeTheText",            u"2",       {-3, 1}, 1035, u"(2)+",    4},
    {"AccAtTheEndGoesBeyondIt",            u"1+",      {2, 2}, 1016, u"1+Acc",    8},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Keys, CalcOwnRuleTest, testing::ValuesIn(kOwnRules),
                         [](const auto& rule) { return std::string(rule.param.name); });

TEST(CalcKeysTest, InsertionsAreTheKeysBesideTheConfirmingOneAndTheMenusRange) {
  for (const int id : {1013, 1035, 1037, 32783, 32788, 32816}) EXPECT_TRUE(IsInsertion(id)) << id;
  for (const int id : {0, 1008, 1012, 1036, 1038, 1101, 32779, 32781, 32782, 32817, 32821}) {
    EXPECT_FALSE(IsInsertion(id)) << id;
  }
}

TEST(CalcKeysTest, ANameGoesInPlainlyWithTheCaretBehindIt) {
  EXPECT_EQ(InsertPlainly(u"2+3*4", {2, 3}, u"ACC", 3), (CalcEdit{u"2+ACC*4", 5}));
}

TEST(SelectedTextTest, IsCutToTheLineWhicheverEndIsFirst) {
  EXPECT_EQ(SelectedText(u"1+23", {2, 4}), u"23");
  EXPECT_EQ(SelectedText(u"1+23", {4, 2}), u"23");
  EXPECT_EQ(SelectedText(u"1+23", {-3, 99}), u"1+23");
  EXPECT_EQ(SelectedText(u"1+23", {1, 1}), u"");
  EXPECT_EQ(SelectedText(u"", {0, 5}), u"");
}

}  // namespace
}  // namespace pnl
