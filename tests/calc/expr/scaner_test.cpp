// SPDX-License-Identifier: MIT
#include "calc/expr/scaner.h"

#include <clocale>

#include "calc/expr/expr_fixture.h"

namespace pnl::test {
namespace {

struct Row {
  Text text;
  std::string tokens;
};

void ExpectTokens(const std::vector<Row>& rows) {
  for (const Row& row : rows) EXPECT_EQ(row.tokens, Tokens(row.text)) << ToUtf8(row.text);
}

/// The value of a text that is one number and nothing else.
double NumberOf(const Text& text) {
  CScaner scanner;
  std::unique_ptr<Token> head;
  scanner.ScanExpression(text.c_str(), head);
  if (head == nullptr || head->next->kind != TOK_NUMBER || head->next->next->kind != TOK_END) return kNotANumber;
  return head->next->value.number;
}

TEST(Scaner, TheTokenKindsHaveTheirNumbers) {
  EXPECT_EQ(0, TOK_END);
  EXPECT_EQ(1, TOK_FUNCTION);
  EXPECT_EQ(2, TOK_DELIMITER);
  EXPECT_EQ(3, TOK_LOGIC);
  EXPECT_EQ(4, TOK_VARIABLE);
  EXPECT_EQ(5, TOK_NUMBER);
  EXPECT_EQ(6, TOK_CONSTANT);
}

void ExpectIndices(TokenKind kind, const std::vector<Text>& entries) {
  for (std::size_t i = 0; i < entries.size(); ++i) {
    CScaner scanner;
    std::unique_ptr<Token> head;
    ASSERT_NE(nullptr, scanner.ScanExpression(entries[i].c_str(), head));
    ASSERT_NE(nullptr, head) << ToUtf8(entries[i]);
    const Token& token = *head->next;
    EXPECT_EQ(kind, token.kind) << ToUtf8(entries[i]);
    EXPECT_EQ(static_cast<std::int32_t>(i), token.value.index) << ToUtf8(entries[i]);
    EXPECT_EQ(TOK_END, token.next->kind) << ToUtf8(entries[i]);
  }
}

TEST(Scaner, EveryFunctionHasItsIndex) {
  ExpectIndices(TOK_FUNCTION, {u"ABS",   u"SQRT",   u"LOG",    u"INVLOG", u"LN",       u"INVLN", u"SIN", u"COS",
                               u"TAN",   u"INVSIN", u"INVCOS", u"INVTAN", u"SH",       u"CH",    u"TH",  u"INVSH",
                               u"INVCH", u"INVTH",  u"MMTOI",  u"ITOMM",  u"INTEGRAL", u"INT",   u"ZERO"});
}

TEST(Scaner, EveryConstantHasItsIndex) { ExpectIndices(TOK_CONSTANT, {u"ACC", u"PI", u"MMPERI", u"IPERMM"}); }

TEST(Scaner, EveryLogicOperatorHasItsIndex) { ExpectIndices(TOK_LOGIC, {u"OR", u"XOR", u"AND", u"NOT"}); }

TEST(Scaner, EveryDelimiterHasItsIndex) {
  ExpectIndices(TOK_DELIMITER, {u";", u":", u"=", u"+", u"-", u"*", u"/", u"%", u"^", u"!", u"(", u")"});
}

TEST(Scaner, EveryLetterIsAVariable) {
  std::vector<Text> letters;
  for (char16_t c = u'A'; c <= u'Z'; ++c) letters.emplace_back(1, c);
  ExpectIndices(TOK_VARIABLE, letters);
}

TEST(Scaner, CaseDoesNotMatter) {
  for (const TextView entry : kFunctions) {
    Text lower(entry);
    for (char16_t& c : lower) c = static_cast<char16_t>(c - u'A' + u'a');
    EXPECT_EQ(Tokens(Text(entry)), Tokens(lower));
  }
  EXPECT_EQ(Tokens(u"A=b"), Tokens(u"a=B"));
  EXPECT_EQ(Tokens(u"1E3"), Tokens(u"1e3"));
}

TEST(Scaner, ABlankBetweenKeywordAndNumberChangesNothingButThePlace) {
  ExpectTokens({{u"sin 30", "0 FUNCTION SIN,4 NUMBER 30,6 END"}, {u"SIN30", "0 FUNCTION SIN,3 NUMBER 30,5 END"}});
}

TEST(Scaner, KeywordsArePrefixesWithoutAWordBoundary) {
  ExpectTokens({{u"SINX", "0 FUNCTION SIN,3 VARIABLE X,4 END"},
                {u"PIE", "0 CONSTANT PI,2 VARIABLE E,3 END"},
                {u"COSH", "0 FUNCTION COS,3 VARIABLE H,4 END"},
                {u"INTEGRALX", "0 FUNCTION INTEGRAL,8 VARIABLE X,9 END"},
                {u"INTX", "0 FUNCTION INT,3 VARIABLE X,4 END"},
                {u"INTEGRA", "0 FUNCTION INT,3 VARIABLE E,4 VARIABLE G,5 VARIABLE R,6 VARIABLE A,7 END"},
                {u"INVL", "0 VARIABLE I,1 VARIABLE N,2 VARIABLE V,3 VARIABLE L,4 END"},
                {u"INVLNX", "0 FUNCTION INVLN,5 VARIABLE X,6 END"},
                {u"ACCA", "0 CONSTANT ACC,3 VARIABLE A,4 END"},
                {u"ACOS", "0 VARIABLE A,1 FUNCTION COS,4 END"},
                {u"XORA", "0 LOGIC XOR,3 VARIABLE A,4 END"},
                {u"FLOG", "0 VARIABLE F,1 FUNCTION LOG,4 END"}});
}

TEST(Scaner, ATwoLetterKeywordBeatsTwoVariables) {
  ExpectTokens({{u"CH", "0 FUNCTION CH,2 END"},
                {u"SH", "0 FUNCTION SH,2 END"},
                {u"TH", "0 FUNCTION TH,2 END"},
                {u"LN", "0 FUNCTION LN,2 END"},
                {u"OR", "0 LOGIC OR,2 END"},
                {u"PI", "0 CONSTANT PI,2 END"},
                {u"HC", "0 VARIABLE H,1 VARIABLE C,2 END"}});
}

TEST(Scaner, ABlankInsideAKeywordSplitsIt) {
  ExpectTokens({{u"S IN", "0 VARIABLE S,2 VARIABLE I,3 VARIABLE N,4 END"}});
}

TEST(Scaner, ABinaryLiteralBeginsWithBAndADigit) {
  ExpectTokens({{u"B101", "0 NUMBER 5,4 END"},
                {u"b101", "0 NUMBER 5,4 END"},
                {u"B0", "0 NUMBER 0,2 END"},
                {u"B", "0 VARIABLE B,1 END"},
                {u"B2", "0 VARIABLE B,1 NUMBER 2,2 END"},
                {u"BE", "0 VARIABLE B,1 VARIABLE E,2 END"},
                {u"B12", "0 NUMBER 1,2 NUMBER 2,3 END"},
                {u"B 1", "0 VARIABLE B,2 NUMBER 1,3 END"}});
}

TEST(Scaner, OfBinaryDigitsTheFirstThirtyTwoAreKept) {
  EXPECT_EQ(4294967295.0, NumberOf(u"B" + Text(32, u'1')));
  EXPECT_EQ(4294967295.0, NumberOf(u"B" + Text(32, u'1') + u"0"));
  EXPECT_EQ(2147483648.0, NumberOf(u"B1" + Text(40, u'0')));
  EXPECT_EQ(0.0, NumberOf(u"B" + Text(32, u'0') + u"1"));
}

TEST(Scaner, HexadecimalBeginsWithADollarSign) {
  ExpectTokens({{u"$ff", "0 NUMBER 255,3 END"},
                {u"$0", "0 NUMBER 0,2 END"},
                {u"$9A", "0 NUMBER 154,3 END"},
                {u"$FG", "0 NUMBER 15,2 VARIABLE G,3 END"},
                {u"$FFFFFFFF12", "0 NUMBER 4294967295,11 END"},
                {u"$00000000F", "0 NUMBER 0,10 END"},
                {u"$", "fails at 0"},
                {u"$G", "fails at 0"},
                {u"1+$", "fails at 2"}});
}

TEST(Scaner, DecimalNumbersHaveFractionAndExponent) {
  const std::vector<std::pair<Text, double>> rows = {{u"0", 0},
                                                     {u"7", 7},
                                                     {u"007", 7},
                                                     {u"1.5", 1.5},
                                                     {u"1E3", 1000},
                                                     {u"1e3", 1000},
                                                     {u"1.5E-3", 0.0015},
                                                     {u"1E+3", 1000},
                                                     {u"1E03", 1000},
                                                     {u"2.50", 2.5},
                                                     {u"0.1", 0.1},
                                                     {u"1E308", 1e308},
                                                     {u"1E309", kInfinity},
                                                     {u"1E-400", 0},
                                                     {u"12.25E2", 1225},
                                                     {u"9007199254740993", 9007199254740992.0}};
  for (const auto& [text, value] : rows) EXPECT_TRUE(Same(value, NumberOf(text))) << ToUtf8(text);
}

TEST(Scaner, ALeadingPointIsAFraction) {
  EXPECT_EQ(0.5, NumberOf(u".5"));
  EXPECT_EQ(5, NumberOf(u".5E1"));
  EXPECT_EQ(0.05, NumberOf(u".05"));
}

TEST(Scaner, ASecondFractionBehindALeadingPointIsTakenAndIgnored) {
  ExpectTokens({{u".5.25", "0 NUMBER 0.5,5 END"},
                {u".5.25E3", "0 NUMBER 0.5,7 END"},
                {u".5.25.1", "0 NUMBER 0.5,5 NUMBER 0.10000000000000001,7 END"}});
}

TEST(Scaner, OnlyTheFirstThirtyThreeDigitsOfAPartCount) {
  EXPECT_EQ(1e32, NumberOf(u"1" + Text(39, u'0')));
  EXPECT_EQ(111111111111111111111111111111111.0, NumberOf(Text(40, u'1')));
  EXPECT_EQ(0.0, NumberOf(u"0." + Text(33, u'0') + u"1"));
  EXPECT_EQ(1e-33, NumberOf(u"0." + Text(32, u'0') + u"1"));
  EXPECT_EQ(0.0, NumberOf(u"." + Text(33, u'0') + u"1"));
  EXPECT_EQ(1.0, NumberOf(u"1E" + Text(33, u'0') + u"5"));
  EXPECT_EQ(1e5, NumberOf(u"1E" + Text(32, u'0') + u"5"));
  EXPECT_EQ(1.0, NumberOf(u"1E-" + Text(32, u'0') + u"5")) << "the sign counts as one of the 33";
  EXPECT_EQ(1e-5, NumberOf(u"1E-" + Text(31, u'0') + u"5"));
  EXPECT_EQ(1e5, NumberOf(u"1E+" + Text(32, u'0') + u"5")) << "a plus doesn't count";
}

TEST(Scaner, AnEWithoutAnExponentIsAVariable) {
  ExpectTokens({{u"1E", "0 NUMBER 1,1 VARIABLE E,2 END"},
                {u"1.5E", "0 NUMBER 1.5,3 VARIABLE E,4 END"},
                {u"1EX", "0 NUMBER 1,1 VARIABLE E,2 VARIABLE X,3 END"},
                {u"1E E", "0 NUMBER 1,1 VARIABLE E,3 VARIABLE E,4 END"}});
}

TEST(Scaner, AnExponentThatBeginsWithoutADigitLeavesTheEToTheParser) {
  for (const Text text : {u"1E+", u"1E-", u"2.5E-", u"1E+X"}) {
    CScaner scanner;
    std::unique_ptr<Token> head;
    scanner.ScanExpression(text.c_str(), head);
    ASSERT_NE(nullptr, head) << ToUtf8(text);
    EXPECT_EQ(TOK_NUMBER, head->next->kind);
    EXPECT_EQ(TOK_VARIABLE, head->next->next->kind);
    EXPECT_EQ(TOK_DELIMITER, head->next->next->next->kind);
  }
}

TEST(Scaner, WhatNoStepTakesFailsAtItsPlace) {
  ExpectTokens({{u"5.", "fails at 1"},
                {u"5.X", "fails at 1"},
                {u"1+5.", "fails at 3"},
                {u".", "fails at 0"},
                {u".E1", "fails at 0"},
                {u"..5", "fails at 0"},
                {u"1..5", "fails at 1"},
                {u"#", "fails at 0"},
                {u"A+#", "fails at 2"},
                {u"[", "fails at 0"},
                {u"1,5", "fails at 1"},
                {u"\t", "fails at 0"},
                {u"1\t", "fails at 1"},
                {u"1\n", "fails at 1"},
                {u" \r", "fails at 1"},
                {u"A&B", "fails at 1"},
                {u"\"", "fails at 0"}});
}

TEST(Scaner, LettersOutsideAsciiFailAndNeverBecomeOnesInside) {
  ExpectTokens({{u"\u0131", "fails at 0"},  // dotless i, whose upper case is I
                {u"P\u0131", "fails at 1"},
                {u"\u017F", "fails at 0"},  // long s, whose upper case is S
                {u"\u017FIN", "fails at 0"},
                {u"\u212A", "fails at 0"},  // Kelvin sign, whose lower case is k
                {u"\u00B5", "fails at 0"},
                {u"\u00DF", "fails at 0"},
                {u"A\u00E9", "fails at 1"},
                {u"1\u00A0", "fails at 1"},  // no-break space
                {u"\uFF11", "fails at 0"},   // full-width 1
                {u"\u0661", "fails at 0"},   // Arabic-Indic 1
                {u"\xD83D\xDE00", "fails at 0"},
                {u"\xDC00", "fails at 0"},
                {Text(1, char16_t{0x0141}), "fails at 0"}});  // low byte is an A
}

TEST(Scaner, AnEmptyTextAndBlanksGiveNothingButTheEnd) {
  ExpectTokens({{u"", "0 END"}, {u"   ", "3 END"}, {u"1 ", "0 NUMBER 1,2 END"}});
}

TEST(Scaner, TheListIsLinkedBothWays) {
  CScaner scanner;
  std::unique_ptr<Token> head;
  scanner.ScanExpression(u"A+1", head);
  ASSERT_NE(nullptr, head);
  EXPECT_EQ(TOK_END, head->kind);
  EXPECT_EQ(nullptr, head->prev);
  const Token* last = head.get();
  int count = 0;
  for (; last->next != nullptr; last = last->next.get(), ++count) EXPECT_EQ(last, last->next->prev);
  EXPECT_EQ(4, count);
  EXPECT_EQ(TOK_END, last->kind);
  EXPECT_EQ(3, last->position);
  CScaner::FreeTokens(head);
  EXPECT_EQ(nullptr, head);
}

TEST(Scaner, AFailureLeavesNoListOfAnEarlierText) {
  CScaner scanner;
  std::unique_ptr<Token> head;
  scanner.ScanExpression(u"1", head);
  const Text text = u"1#";
  EXPECT_EQ(text.c_str() + 1, scanner.ScanExpression(text.c_str(), head));
  EXPECT_EQ(nullptr, head);
}

TEST(Scaner, ATextOf255UnitsIsScannedAndALongerOneIsNot) {
  EXPECT_EQ("0 NUMBER 1,255 END", Tokens(u"1" + Text(254, u' ')));
  EXPECT_EQ("fails at 255", Tokens(u"1" + Text(255, u' ')));
  EXPECT_EQ("fails at 255", Tokens(u"#" + Text(400, u' ')));
  EXPECT_EQ("fails at 254", Tokens(Text(254, u'1') + u"#"));
}

TEST(Scaner, TheLocaleDoesNotMatter) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "de_DE.UTF-8");
  EXPECT_EQ(1.5, NumberOf(u"1.5"));
  EXPECT_EQ("fails at 1", Tokens(u"1,5"));
  std::setlocale(LC_ALL, before.c_str());
}

TEST(Scaner, ThePrintedListOfNothingIsEmpty) {
  Text text;
  DescribeTokens(nullptr, text);
  EXPECT_EQ(u"", text);
}

}  // namespace
}  // namespace pnl::test
