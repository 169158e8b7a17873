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

TEST(SearchWords, ALongWordIsCut) {
  EXPECT_EQ(SearchWordsOf(Text(1'000, u'a')), std::vector<Text>{Text(kLongestSearchWord, u'A')});
}

}  // namespace
}  // namespace pnl
