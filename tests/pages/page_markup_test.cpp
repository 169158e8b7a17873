// SPDX-License-Identifier: MIT
// What of a page's markup reaches the browser. The limits are those beyond which the browser takes minutes or
// gigabytes.
#include "pages/page_markup.h"

#include <gtest/gtest.h>

#include "pages/page_attributes.h"
#include "pages/page_decoding.h"
#include "pages/page_limits.h"
#include "pages/page_words.h"

namespace pnl::test {
namespace {

std::string Clean(TextView markup) { return ToUtf8(CleanMarkup(markup).markup); }

Text Repeat(TextView part, std::size_t times) {
  Text all;
  for (std::size_t i = 0; i < times; ++i) all += part;
  return all;
}

std::size_t CountOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

struct MarkupRow {
  TextView markup;
  const char* clean;
};

const MarkupRow kMarkup[] = {
    {u"plain &amp; simple", "plain &amp; simple"},
    {u"<p>a</p>", "<p>a</p>"},
    {u"<P Align=center>a</P>", "<p align=\"center\">a</p>"},
    {u"a<br/>b<br>c", "a<br>b<br>c"},
    {u"1 < 2 <3", "1 &lt; 2 &lt;3"},
    {u"<", "&lt;"},
    {u"a</>b", "ab"},
    {u"<!DOCTYPE html><!-- <p> --><?xml?>a", "a"},
    {u"a<!-- open <p>", "a"},
    {u"<unknown><b>a</b></unknown>", "<b>a</b>"},
    {u"<zzz><b>a</b></ZZZ><A HREF=z>b</A>", "<b>a</b><a href=\"z\">b</a>"},
    {u"a<!>b<?>c</ b>d<p/>e", "abcd<p>e</p>"},
    // What is open is closed, and nothing else.
    {u"<b><i>a", "<b><i>a</i></b>"},
    {u"<b><i>a</b>c</i>", "<b><i>a</i></b>c"},
    {u"a</b></p>", "a"},
    // Tags that end others.
    {u"<p>a<p>b", "<p>a</p><p>b</p>"},
    {u"<p>a<h1>b</h1>", "<p>a</p><h1>b</h1>"},
    {u"<p>a<b>b</b><br>c</p>", "<p>a<b>b</b><br>c</p>"},
    {u"<ul><li>a<li>b<ul><li>c</ul><li>d</ul>", "<ul><li>a</li><li>b<ul><li>c</li></ul></li><li>d</li></ul>"},
    {u"<ul><li>a</ul>b<li>c", "<ul><li>a</li></ul>b<li>c</li>"},
    {u"<ul><li><p>a<p>b<li>c</ul>", "<ul><li><p>a</p><p>b</p></li><li>c</li></ul>"},
    {u"<p>a<ul><li>b</ul><p>c<table></table>", "<p>a</p><ul><li>b</li></ul><p>c</p><table></table>"},
    {u"<ul><li><table><tr><td>a<li>b</table>", "<ul><li><table><tr><td>a<li>b</li></td></tr></table></li></ul>"},
    {u"<p><table><tr><td>a<p>b</table>", "<p></p><table><tr><td>a<p>b</p></td></tr></table>"},
    {u"<p><li>a<p>b", "<p><li>a<p>b</p></li></p>"},
    {u"<dl><dt>a<dd>b<dt>c</dl>", "<dl><dt>a</dt><dd>b</dd><dt>c</dt></dl>"},
    {u"<table><tr><td>a<td>b<tr><th>c</table>", "<table><tr><td>a</td><td>b</td></tr><tr><th>c</th></tr></table>"},
    {u"<table><tr><td><b>a<td>b</table>", "<table><tr><td><b>a</b></td><td>b</td></tr></table>"},
    {u"<table><thead><tr><td>a<tbody><tr><td>b</table>",
     "<table><thead><tr><td>a</td></tr></thead><tbody><tr><td>b</td></tr></tbody></table>"},
    {u"<table><tr><td><table><tr><td>a</td></tr></table></td><td>b</td></tr></table>",
     "<table><tr><td><table><tr><td>a</td></tr></table></td><td>b</td></tr></table>"},
    {u"<table><tr><td>a<tfoot><tr><td>b</table>",
     "<table><tr><td>a</td></tr><tfoot><tr><td>b</td></tr></tfoot></table>"},
    {u"<table><tr><td>a<table><tr><td>b</table><td>c</table>",
     "<table><tr><td>a<table><tr><td>b</td></tr></table></td><td>c</td></tr></table>"},
    {u"<table><tr><td></b></p>a</td></tr></table>", "<table><tr><td>a</td></tr></table>"},
    {u"<td>a</td><tr>b", "ab"},
    // Nothing runs, and nothing is embedded.
    {u"a<script>alert('<p>')</script>b", "ab"},
    {u"a<SCRIPT src=x.js></Script >b", "ab"},
    {u"a<script>never closed", "a"},
    {u"<object data=x><param></object><iframe src=x></iframe><svg><script/></svg>a", "a"},
    {u"<p onclick=\"x()\" onload=x>a</p>", "<p>a</p>"},
    {u"<title>Name</title>a", "a"},
    // Attributes.
    {u"<a href='b.htm#c' target=_blank>x</a>", "<a href=\"b.htm#c\">x</a>"},
    {u"<a\thref=b.htm\rname=n\fid=i\ntitle=t>x</a>", "<a href=\"b.htm\" name=\"n\" id=\"i\" title=\"t\">x</a>"},
    {u"<a href=b.htm/title=t =id=i / >x</a>", "<a href=\"b.htm/title=t\" id=\"i\">x</a>"},
    {u"<a title>x</a><a title=>y</a>", "<a title=\"\">x</a><a title=\"\">y</a>"},
    {u"<font size=-99>a</font><font size=+>b</font><font size=7>c</font>",
     "<font size=\"-50\">a</font><font size=\"+0\">b</font><font size=\"7\">c</font>"},
    {u"<td><table border=50 cellspacing=1><tr><td colspan=-1 rowspan=x><td colspan=2>",
     "<table border=\"50\" cellspacing=\"1\"><tr><td colspan=\"1\" rowspan=\"1\"></td><td "
     "colspan=\"2\"></td></tr></table>"},
    {u"<a href = \"b c.htm\" >x</a>", "<a href=\"b c.htm\">x</a>"},
    {u"<a name=n><img src=a.png alt='say \"hi\"'>", "<a name=\"n\"><img src=\"picture:a.png\" alt=\"say 'hi'\"></a>"},
    {u"<img src=a.png width=99999999 height=50%>", "<img src=\"picture:a.png\" width=\"2000\" height=\"50%\">"},
    {u"<img src='picture:a.png'><img src=' picture: a '>",
     "<img src=\"picture:a.png\"><img src=\"picture:picture: a\">"},
    {u"<table border=9999 cellpadding=51><tr><td colspan=0 rowspan=1000000>",
     "<table border=\"50\" cellpadding=\"50\"><tr><td colspan=\"1\" rowspan=\"100\"></td></tr></table>"},
    {u"<font size=+9999 color=#808080>a</font>", "<font size=\"+50\" color=\"#808080\">a</font>"},
    {u"<p style=\"font-size:99999pt;color:#123456;margin:2001px 7px\">a</p>",
     "<p style=\"font-size:2000pt;color:#123456;margin:2000px 7px\">a</p>"},
    {u"<a href=\"never closed>a", ""},
    {u"<b", ""},
    // Styles.
    {u"<style>p{width:123456px} @import url(x.css); b<i</style>a",
     "<style type=\"text/css\">p{width:2000px}  import url(x.css); b i</style>a"},
    {u"<link rel=stylesheet href=a.css>", "<link rel=\"stylesheet\" href=\"a.css\" type=\"text/css\"></link>"},
    {u"<link type=text/css href=a.css></link>", "<link type=\"text/css\" href=\"a.css\"></link>"},
};

TEST(PageMarkup, OnlyKnownTagsAndAttributesPass) {
  for (const MarkupRow& row : kMarkup) EXPECT_EQ(Clean(row.markup), row.clean) << ToUtf8(row.markup);
}

// Beyond these the browser takes minutes or gigabytes; below them an honest page must lose nothing.
TEST(PageMarkup, TheLimitsAreThese) {
  EXPECT_EQ(page_limit::kBytes, 1'000'000u);
  EXPECT_EQ(page_limit::kWord, 1'000u);
  EXPECT_EQ(page_limit::kTags, 10'000u);
  EXPECT_EQ(page_limit::kDepth, 100u);
  EXPECT_EQ(page_limit::kTables, 3u);
  EXPECT_EQ(page_limit::kLists, 12u);
  EXPECT_EQ(page_limit::kPictures, 1'000u);
  EXPECT_EQ(page_limit::kStyle, 16'000u);
  EXPECT_EQ(page_limit::kRules, 500u);
}

TEST(PageMarkup, AValueHasFourThousandCharactersAtMostWhateverItsKind) {
  const Text most(4'096, u'x');
  for (const ValueKind kind : {ValueKind::kText, ValueKind::kAddress, ValueKind::kCss}) {
    EXPECT_EQ(CleanValue(kind, most), most);
    EXPECT_EQ(CleanValue(kind, most + u"y"), most);
  }
  EXPECT_EQ(CleanValue(ValueKind::kPicture, most + u"y"), u"picture:" + most);
  EXPECT_EQ(CleanValue(ValueKind::kPicture, u"picture:" + most), u"picture:" + most) << "what is clean stays whole";
  EXPECT_EQ(CleanValue(ValueKind::kText, u"picture:a"), u"picture:a") << "only a picture's address has that beginning";
}

struct NumberRow {
  TextView css;
  const char* limited;
};

TEST(PageMarkup, OnlyTheNumbersOfAStyleAreLimited) {
  for (const NumberRow& row : {NumberRow{u"1999px 2000px 2001px 09999", "1999px 2000px 2000px 2000"},
                               NumberRow{u"z9000 Z9000 a9000 A9000 _9000", "z9000 Z9000 a9000 A9000 _9000"},
                               NumberRow{u"#999999 #abc9000def-9000", "#999999 #abc9000def-2000"},
                               NumberRow{u"9000a9000 3.99999", "2000a9000 3.2000"},
                               NumberRow{u"{9000 [9000 `9000 @9000 /9000 :9000", "{2000 [2000 `2000 @2000 /2000 :2000"},
                               NumberRow{u"\u00E19000 a\u00E19000", "\u00E12000 a\u00E12000"}}) {
    EXPECT_EQ(ToUtf8(CleanValue(ValueKind::kCss, row.css)), row.limited);
  }
}

TEST(PageMarkup, CleanMarkupStaysAsItIs) {
  for (const MarkupRow& row : kMarkup) {
    const Text once = CleanMarkup(row.markup).markup;
    EXPECT_EQ(ToUtf8(CleanMarkup(once).markup), ToUtf8(once)) << ToUtf8(row.markup);
  }
}

TEST(PageMarkup, TablesInTablesEndAtTheLimit) {
  const std::string clean = Clean(Repeat(u"<table><tr><td>", 1000) + u"inside");
  EXPECT_EQ(CountOf(clean, "<table>"), page_limit::kTables);
  EXPECT_EQ(CountOf(clean, "</table>"), page_limit::kTables);
  EXPECT_EQ(CountOf(clean, "inside"), 1u);
}

TEST(PageMarkup, NestingEndsAtTheLimit) {
  EXPECT_EQ(CountOf(Clean(Repeat(u"<b>", 100'000)), "<b>"), page_limit::kDepth);
  EXPECT_EQ(CountOf(Clean(Repeat(u"<ul><li>", 1000)), "<ul>"), page_limit::kLists);
  EXPECT_EQ(CountOf(Clean(Repeat(u"<b>", 100) + u"</b><i>x"), "<i>"), 1u) << "a place that is free again";
  EXPECT_EQ(CountOf(Clean(Repeat(u"<b>", 100) + u"<i>x"), "<i>"), 0u);
  EXPECT_EQ(CountOf(Clean(u"<ul><li>" + Repeat(u"<table></table>", 9)), "<table>"), 9u) << "not in each other";
  EXPECT_EQ(CountOf(Clean(Repeat(u"<ul></ul>", 99)), "<ul>"), 99u);
}

TEST(PageMarkup, ATableHasALimitedNumberOfColumns) {
  EXPECT_EQ(CountOf(Clean(u"<table><tr>" + Repeat(u"<td>", 1000)), "<td>"), 100u);
  EXPECT_EQ(CountOf(Clean(u"<table><tr>" + Repeat(u"<td colspan=30>", 10)), "<td "), 3u);
  EXPECT_EQ(CountOf(Clean(u"<table><tr>" + Repeat(u"<td colspan=30 width=50 height=90>", 10)), "<td "), 3u);
  EXPECT_EQ(CountOf(Clean(u"<table>" + Repeat(u"<tr>" + Repeat(u"<td width=50>", 30), 9)), "<td "), 270u)
      << "a width spans nothing";
  EXPECT_EQ(CountOf(Clean(u"<table>" + Repeat(u"<tr><td><td>", 100)), "<td>"), 200u) << "each row counts alone";
  EXPECT_EQ(CountOf(Clean(u"<table>" + Repeat(u"<tr><td rowspan=3 colspan=40>", 9)), "<td "), 6u)
      << "a cell from above pushes those beside it aside";
  EXPECT_EQ(CountOf(Clean(u"<table>" + Repeat(u"<tr><td>", 100) + u"<tr>" + Repeat(u"<td>", 100)), "<td>"), 200u)
      << "a row far below is empty, too";
}

TEST(PageMarkup, APageWithTooManyTagsOrPicturesIsCut) {
  const CleanPage full = CleanMarkup(Repeat(u"<br>", page_limit::kTags));
  EXPECT_FALSE(full.cut);
  const CleanPage cut = CleanMarkup(u"<p>" + Repeat(u"<br>", page_limit::kTags) + u"rest");
  EXPECT_TRUE(cut.cut);
  EXPECT_TRUE(cut.markup.ends_with(u"</p>"));
  EXPECT_EQ(cut.markup.find(u"rest"), Text::npos);
  EXPECT_FALSE(CleanMarkup(Repeat(u"<img src=a>", page_limit::kPictures)).cut);
  EXPECT_TRUE(CleanMarkup(Repeat(u"<img src=a>", page_limit::kPictures + 1)).cut);
  EXPECT_FALSE(CleanMarkup(Repeat(u"<table><tr><td>", 10)).cut) << "what is nested too deep alone goes";
}

TEST(PageMarkup, AWordThatIsTooLongIsBrokenBetweenCharacters) {
  const Text word(page_limit::kWord, u'x');
  EXPECT_EQ(BreakLongWords(word + u" " + word), word + u" " + word);
  EXPECT_EQ(BreakLongWords(word + u"yz"), word + u" yz");
  EXPECT_EQ(BreakLongWords(word + word + word), word + u" " + word + u" " + word);
  for (const char16_t white : {u' ', u'\t', u'\n', u'\v', u'\f', u'\r'}) {
    EXPECT_EQ(BreakLongWords(word + white + word), word + white + word) << static_cast<int>(white);
  }
  EXPECT_EQ(BreakLongWords(word + u'\x08'), word + u' ' + u'\x08');
  EXPECT_EQ(BreakLongWords(word + u'\x0E'), word + u' ' + u'\x0E');
  const Text before(page_limit::kWord - 1, u'x');
  EXPECT_EQ(BreakLongWords(before + u"\U0001F527y"), before + u"\U0001F527 y");
  EXPECT_EQ(CleanMarkup(u"<p>" + word + u"y").markup, u"<p>" + word + u" y</p>");
}

// Each piece between two tags was counted alone, and a '<' that is no tag's not at all.
TEST(PageMarkup, AWordThatGoesOnAfterATagIsBrokenToo) {
  const Text half(page_limit::kWord * 6 / 10, u'x');
  for (const TextView between : {u"<b>", u"</i>", u"<!-- -->", u"<unknown>", u"<script></script>", u"<a href=x></a>",
                                 u"<link>", u"<style>p{}</style>", u"<title>y</title>"}) {
    const Text clean = CleanMarkup(half + Text(between) + half).markup;
    EXPECT_NE(clean.find(u"x x"), Text::npos) << ToUtf8(between);
  }
  for (const TextView between : {u"<p>", u"<br>", u"<hr>", u"<ul><li>", u"</div>"}) {
    EXPECT_EQ(CleanMarkup(u"<div>" + half + Text(between) + half).markup.find(u"x x"), Text::npos) << ToUtf8(between);
  }
  const Text signs = CleanMarkup(Text(3 * page_limit::kWord, u'<')).markup;
  EXPECT_EQ(CountOf(ToUtf8(signs), "&lt;"), 3 * page_limit::kWord);
  EXPECT_EQ(CountOf(ToUtf8(signs), " "), 3 * 4 - 1);
}

TEST(PageMarkup, AStyleSheetHasALimitedLengthAndNumberOfRules) {
  EXPECT_EQ(CleanStyle(Text(100'000, u'a')).size(), page_limit::kStyle);
  const std::string rules = ToUtf8(CleanStyle(Repeat(u"a{}", 1000)));
  EXPECT_EQ(CountOf(rules, "{"), page_limit::kRules);
  EXPECT_EQ(ToUtf8(CleanStyle(u"@import 'http://example.com/a.css';a1000{x:5000}")),
            " import 'http://example.com/a.css';a1000{x:2000}");
}

struct BytesRow {
  std::string bytes;
  const char* text;
};

TEST(PageDecoding, TheEncodingIsFoundWithoutTheMarkupsWord) {
  const BytesRow rows[] = {
      {"plain", "plain"},
      {"\xC3\xA1 \xE2\x82\xAC", "\u00E1 \u20AC"},
      {"\xE1\x80\x93quoted\x94 \x97 \xF1", "\u00E1\u20AC\u201Cquoted\u201D \u2014 \u00F1"},
      {"\xEF\xBB\xBF\xC3\xA1", "\u00E1"},
      {std::string("\xFF\xFE\xE1\x00\x93\x00", 6), "\u00E1\u0093"},
      {std::string("\xFE\xFF\x00\xE1\x00\x93", 6), "\u00E1\u0093"},
  };
  for (const BytesRow& row : rows) EXPECT_EQ(ToUtf8(DecodePage(row.bytes)), row.text);
}

TEST(PageDecoding, APageIsReadUpToTheLimitAndNoCharacterIsCutInHalf) {
  std::string bytes(page_limit::kBytes - 1, 'x');
  bytes += "\xC3\xA1tail";
  const Text text = DecodePage(bytes);
  EXPECT_EQ(text.size(), page_limit::kBytes - 1);
  EXPECT_EQ(text.back(), u'x');
  const std::string face = "\xF0\x9F\x94\xA7";
  for (std::size_t there = 1; there < face.size(); ++there) {
    const std::string start(1'000'000 - there, 'x');
    EXPECT_EQ(DecodePage(start + face + "tail"), Text(start.size(), u'x')) << there;
  }
  EXPECT_EQ(DecodePage(std::string(1'000'000, 'x')).size(), 1'000'000u);
  EXPECT_EQ(DecodePage(std::string(1'000'001, 'x')).size(), 1'000'000u);
  EXPECT_EQ(DecodePage(std::string(1'000'001, '\xE1')).size(), 1'000'000u) << "no character of it has two bytes";
  EXPECT_EQ(DecodePage(std::string(1'000'001, '\x80')).size(), 1'000'000u) << "the end of a character without one";
}

TEST(PageDecoding, TheThirtyTwoCharactersOfWindowsHaveTheirOwnCodes) {
  constexpr char16_t kCharacters[] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
                                      0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018,
                                      0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161,
                                      0x203A, 0x0153, 0x9D,   0x017E, 0x0178, 0xA0,   0xA1};
  std::string bytes = "\x7F";
  Text expected = u"\x7F";
  for (std::size_t i = 0; i < std::size(kCharacters); ++i) {
    bytes.push_back(static_cast<char>(0x80 + i));
    expected.push_back(kCharacters[i]);
  }
  EXPECT_EQ(DecodePage(bytes), expected);
}

}  // namespace
}  // namespace pnl::test
