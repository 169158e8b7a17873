// SPDX-License-Identifier: MIT
#include "help/manual/markup.h"

#include <gtest/gtest.h>

#include <string>

namespace pnl {
namespace {

/// The pieces in one line: "<A HREF=x>", "</A>", and text in quotes.
std::string PiecesOf(TextView markup) {
  std::string result;
  MarkupReader reader(markup);
  while (const auto piece = reader.Next()) {
    switch (piece->kind) {
      case MarkupPiece::Kind::kText:
        result += "'" + ToUtf8(piece->text) + "'";
        break;
      case MarkupPiece::Kind::kEnd:
        result += "</" + ToUtf8(piece->text) + ">";
        EXPECT_TRUE(piece->attributes.empty()) << "an end has none";
        break;
      case MarkupPiece::Kind::kStart:
        result += "<" + ToUtf8(piece->text);
        for (const auto& [name, value] : piece->attributes) result += " " + ToUtf8(name) + "=" + ToUtf8(value);
        result += ">";
        break;
    }
  }
  return result;
}

struct Row {
  const char16_t* markup;
  const char* pieces;
};

TEST(Markup, PiecesComeAsTheyAreWritten) {
  const Row rows[] = {
      {u"", ""},
      {u"</a href=x>", "</A>"},
      {u"plain", "'plain'"},
      {u"<p>a</P>", "<P>'a'</P>"},
      {u"<a href=\"x.htm#y\" title='Z'>t</a>", "<A HREF=x.htm#y TITLE=Z>'t'</A>"},
      {u"<a href = x.htm >t", "<A HREF=x.htm>'t'"},
      {u"<a href=/x/y.htm>", "<A HREF=/x/y.htm>"},
      {u"<br/><hr noshade>", "<BR><HR NOSHADE=>"},
      {u"<a href='x&amp;y'>&amp;</a>", "<A HREF=x&y>'&amp;'</A>"},
      {u"a<!-- <b> -->c", "'a''c'"},
      {u"<!DOCTYPE html><p>", "<P>"},
      {u"<?xml version='1'?><p>", "<P>"},
      {u"1 < 2 & 3<4", "'1 < 2 & 3<4'"},
      {u"a</ b>c", "'a</ b>c'"},
      {u"<a\nhref\n=\n'x'\n>", "<A HREF=x>"},
      {u"</p class='x'>", "</P>"},
      {u"<a\vhref=x\fb=y\tc=z\rd>", "<A HREF=x B=y C=z D=>"},
      {u"<z><Z></z></Z>", "<Z><Z></Z></Z>"},
      {u"<@><[></`><{>", "'<@><[></`><{>'"},
      {u"<!-->a<!>b<?>c", "'a''b''c'"},
      {u"a<!b>c", "'a''c'"},
  };
  for (const Row& row : rows) EXPECT_EQ(PiecesOf(row.markup), row.pieces) << ToUtf8(row.markup);
}

TEST(Markup, BrokenMarkupCountsAsFarAsItGoes) {
  const Row rows[] = {
      {u"text<", "'text<'"},
      {u"text<b", "'text'"},
      {u"<a href=\"never closed>text</a>", ""},
      {u"a<!-- never closed <b>", "'a'"},
      {u"a<!never closed", "'a'"},
      {u"<a =x>t", "<A =X=>'t'"},
      {u"<a ==>t", "<A ==>'t'"},
      {u"<a b=>t", "<A B=>'t'"},
      {u"<a b='c'd='e'>", "<A B=c D=e>"},
      {u"<a/b/c>", "<A B= C=>"},
      {u"<a <b>", "<A <B=>"},
  };
  for (const Row& row : rows) EXPECT_EQ(PiecesOf(row.markup), row.pieces) << ToUtf8(row.markup);
}

TEST(Markup, TheContentOfScriptsAndStyleSheetsIsOneText) {
  EXPECT_EQ(PiecesOf(u"<script>if (a<b) x='<p>';</script>y"), "<SCRIPT>'if (a<b) x='<p>';'</SCRIPT>'y'");
  EXPECT_EQ(PiecesOf(u"<STYLE>p > b {}</Style >"), "<STYLE>'p > b {}'</STYLE>");
  EXPECT_EQ(PiecesOf(u"<style>a<b{}</style>"), "<STYLE>'a<b{}'</STYLE>");
  EXPECT_EQ(PiecesOf(u"<style></style>x"), "<STYLE></STYLE>'x'");
  EXPECT_EQ(PiecesOf(u"<script>a</</script>y"), "<SCRIPT>'a</'</SCRIPT>'y'");
  EXPECT_EQ(PiecesOf(u"<script>never closed <p>"), "<SCRIPT>'never closed <p>'");
}

TEST(Markup, FurtherAttributesThanTheLimitAreSkipped) {
  Text markup = u"<a";
  for (int i = 0; i < 1000; ++i) markup += u" b=c";
  markup += u">x";
  MarkupReader reader(markup);
  EXPECT_EQ(reader.Next()->attributes.size(), 64u);
  EXPECT_EQ(reader.Next()->text, u"x");
}

TEST(Markup, TheFirstAttributeOfANameCounts) {
  MarkupReader reader(u"<a href=1 HREF=2>");
  const auto piece = reader.Next();
  EXPECT_EQ(piece->Attribute(u"HREF"), TextView(u"1"));
  EXPECT_FALSE(piece->Attribute(u"SRC").has_value());
}

/// Each of these takes very long if the time grows with the square of the length.
TEST(Markup, AHundredThousandBrokenPiecesTakeNoLongerThanTheirLength) {
  for (const char16_t* piece : {u"<", u"<a ", u"<!--", u"<a href='", u"</", u"&", u"&#", u"<script>", u"<a b=\"<"}) {
    Text markup;
    for (int i = 0; i < 100'000; ++i) markup += piece;
    MarkupReader reader(markup);
    std::size_t length = 0;
    while (const auto read = reader.Next()) length += ReplaceReferences(read->text).size();
    EXPECT_LE(length, markup.size()) << ToUtf8(piece);
  }
}

struct Reference {
  TextView written;
  TextView meant;
};

TEST(Markup, CharacterReferencesAreReplaced) {
  const Reference rows[] = {
      {u"a &amp; b", u"a & b"},
      {u"&lt;&gt;&quot;&apos;", u"<>\"'"},
      {u"&nbsp;&iexcl;&ntilde;&Ntilde;&yuml;", u"\u00A0¡ñÑÿ"},
      {u"&#241;&#xF1;&#XF1;", u"ñññ"},
      {u"&#8364;&euro;&#128;", u"€€€"},
      {u"&#129;", u"\u0081"},
      {u"&#127;&#159;&#160;", u"\u007FŸ\u00A0"},
      {u"&#65535;&#65536;", u"\uFFFF\U00010000"},
      {TextView(u"&#651").substr(0, 4), u"A"},
      {u"&#x1F600;", u"\U0001F600"},
      {u"&#0;&#xD800;&#1114112;&#99999999999999;", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {u"&#65 &#65x", u"A Ax"},
      {u"&middot;&deg;&plusmn;&Oslash;&rarr;", u"·°±Ø→"},
      {u"&amp;lt;", u"&lt;"},
  };
  for (const Reference& row : rows) EXPECT_EQ(ReplaceReferences(row.written), row.meant) << ToUtf8(row.written);
}

TEST(Markup, WhatIsNoReferenceStays) {
  for (const char16_t* text :
       {u"&", u"a&", u"&;", u"&#;", u"&#x;", u"&#xg;", u"&unknown;", u"&amp", u"&AMP;", u"x&y=1;", u"&verylongname;"}) {
    EXPECT_EQ(ReplaceReferences(text), text);
  }
}

}  // namespace
}  // namespace pnl
