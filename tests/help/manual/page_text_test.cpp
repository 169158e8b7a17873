// SPDX-License-Identifier: MIT
#include "help/manual/page_text.h"

#include <gtest/gtest.h>

#include "help/manual/search_words.h"

namespace pnl {
namespace {

std::string WordsIn(TextView text) {
  std::string result;
  for (const Text& word : SearchWordsOf(text)) result += ToUtf8(word) + " ";
  return result;
}

TEST(ReadablePage, OnlyWhatAReaderSeesCounts) {
  const ReadablePage page = TextOfPage(
      u"<html><head><title> The\n spindle </title><style>p { color: red }</style><script>var hidden;</script></head>"
      u"<body><!-- secret --><h1>Head</h1><p title=attribute>one<br>two</p><td>a</td><td>b</td>S<b>30</b>00 "
      u"&ntilde;&amp;");
  EXPECT_EQ(page.title, u"The spindle");
  EXPECT_EQ(WordsIn(page.text), "THE SPINDLE HEAD ONE TWO A B S3000 N ");
}

TEST(ReadablePage, ATitleThatIsntClosedEndsAtTheNextElement) {
  EXPECT_EQ(TextOfPage(u"<title>Short<body><p>long text").title, u"Short");
  EXPECT_EQ(TextOfPage(u"no title").title, u"");
}

TEST(ReadablePage, AnElementWithinAWordDoesNotDivideIt) {
  for (const char16_t* name :
       {u"a",   u"b",     u"big",  u"code", u"em",     u"font",   u"i",  u"kbd", u"s",   u"samp",
        u"sub", u"small", u"span", u"sup",  u"strong", u"strike", u"tt", u"u",   u"var", u"wbr"}) {
    const Text tag = Text(u"<") + name + u">";
    EXPECT_EQ(WordsIn(TextOfPage(u"G" + tag + u"01</" + Text(name) + u">X").text), "G01X ") << ToUtf8(name);
  }
  for (const char16_t* name : {u"p", u"br", u"div", u"td", u"li", u"h1", u"img", u"unknown"}) {
    EXPECT_EQ(WordsIn(TextOfPage(Text(u"G<") + name + u">01").text), "G 01 ") << ToUtf8(name);
  }
}

TEST(ReadablePage, ATitleIsOnOneLineWhateverItsWhiteSpace) {
  EXPECT_EQ(TextOfPage(u"<title>\u00A0a\t\r\n b&nbsp;c \u00A1</title>").title, u"a b c \u00A1");
}

TEST(ReadablePage, ALongTitleIsCut) {
  EXPECT_EQ(TextOfPage(u"<title>" + Text(100'000, u'a') + u"</title>").title.size(), 1'000u);
}

TEST(ReadablePage, ScriptsThatArentClosedHideTheRest) {
  EXPECT_EQ(WordsIn(TextOfPage(u"<p>seen<script>hidden<p>hidden").text), "SEEN ");
}

TEST(SearchWords, CaseAndAccentsPlayNoPart) {
  struct Row {
    const char16_t* text;
    const char* words;
  };
  const Row rows[] = {
      {u"Máquina", "MAQUINA "},
      {u"MÁQUINA", "MAQUINA "},
      {u"ma\u0301quina", "MAQUINA "},
      {u"año Ñandú pingüino", "ANO NANDU PINGUINO "},
      {u"Ångström œuvre çà", "ANGSTROM ŒUVRE CA "},
      {u"Øre Łódź đak", "ORE LODZ DAK "},
      {u"ΆΈΏ άέώ", "ΑΕΩ ΑΕΩ "},
      {u"Ёлка й", "ЕЛКА И "},
      {u"Straße", "STRAßE "},  // it has no capital of one letter
  };
  for (const Row& row : rows) EXPECT_EQ(WordsIn(row.text), row.words);
}

TEST(SearchWords, LettersAndDigitsMakeWords) {
  struct Row {
    const char16_t* text;
    const char* words;
  };
  const Row rows[] = {
      {u"", ""},
      {u" .,;!? ", ""},
      {u"G01 X-10.5 (OPT0130)", "G01 X 10 5 OPT0130 "},
      {u"V.G.FULL_STATUS", "V G FULL_STATUS "},
      {u"a\u00A0b\u2013c«d»", "A B C D "},
      {u"3×4÷2", "3 4 2 "},
      {u"40 µm 1º 2ª", "40 ΜM 1º 2ª "},
      {u"日本語 G01", "日 本 語 G01 "},
      {u"한글", "한 글 "},
      {u"x\uFFFDy", "X Y "},
  };
  for (const Row& row : rows) EXPECT_EQ(WordsIn(row.text), row.words);
}

TEST(SearchWords, EachRangeOfCharactersHasItsEnds) {
  struct Row {
    std::size_t words;  // of this character between two letters
    std::vector<char16_t> characters;
  };
  const Row rows[] = {
      {1,
       {u'0', u'9',   u'A',   u'Z',   u'a',   u'z',   u'_',   0xAA,   0xB5,   0xBA,   0xC0,   0xD6,   0xD8,   0xF6,
        0xF8, 0x02FF, 0x0300, 0x036F, 0x0370, 0x1FFF, 0x2C00, 0x2FFF, 0xA000, 0xABFF, 0xFB00, 0xFEFF, 0xFF10, 0xFFFC}},
      {2, {u'/', u':', u'@', u'[', u'`', u'{',   0x7F,   0x80,   0xA9,   0xAB,   0xB4,   0xB6,
           0xB9, 0xBB, 0xBF, 0xD7, 0xF7, 0x2000, 0x2BFF, 0x3000, 0x303F, 0xFF00, 0xFF0F, 0xFFFD}},
      {3, {0x3040, 0x9FFF, 0xAC00, 0xFAFF}},
  };
  for (const Row& row : rows) {
    for (const char16_t c : row.characters) {
      EXPECT_EQ(SearchWordsOf(Text(u"x") + c + u"y").size(), row.words) << std::hex << static_cast<int>(c);
    }
  }
}

TEST(SearchWords, OnlyAMarkThatCombinesFoldsToNothing) {
  for (const char16_t c : {u'\u0300', u'\u036F'}) EXPECT_EQ(FoldForSearch(c), 0) << static_cast<int>(c);
  for (const char16_t c : {u'\u02FF', u'\u0370'}) EXPECT_NE(FoldForSearch(c), 0) << static_cast<int>(c);
  EXPECT_EQ(FoldForSearch(u'a'), u'A');
  EXPECT_EQ(FoldForSearch(u'z'), u'Z');
  for (const char16_t c : {u'`', u'{', u'_', u'9'}) EXPECT_EQ(FoldForSearch(c), c);
}

TEST(SearchWords, ALongWordIsCut) { EXPECT_EQ(SearchWordsOf(Text(1'000, u'a')), std::vector<Text>{Text(64, u'A')}); }

}  // namespace
}  // namespace pnl
