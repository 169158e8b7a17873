// SPDX-License-Identifier: MIT
#include "help/manual/manual_names.h"

#include <gtest/gtest.h>

#include <string>

namespace pnl {
namespace {

TEST(ManualNames, AnObjectsNameBecomesAFilesName) {
  struct Row {
    std::string object;
    const char16_t* name;
  };
  const Row rows[] = {
      {"/a.htm", u"a.htm"},    {"/Sub/B.HTM", u"Sub/B.HTM"},       {"/\xC3\xB1.htm", u"ñ.htm"},
      {"/\xF1.htm", u"ñ.htm"}, {"/a b%20c.htm", u"a b%20c.htm"},   {"/..a/b..", u"..a/b.."},
      {"/...", u"..."},        {"/_#_README_#_", u"_#_README_#_"},
  };
  for (const Row& row : rows) EXPECT_EQ(NameOfObject(row.object), Text(row.name)) << row.object;
}

TEST(ManualNames, ANameThatCouldLeadElsewhereIsRefused) {
  const std::string rows[] = {"",
                              "a.htm",
                              "/",
                              "//a.htm",
                              "/a//b",
                              "/a/",
                              "/..",
                              "/../a",
                              "/a/../b",
                              "/a/..",
                              "/.",
                              "/./a",
                              "/a/.",
                              "/a\\b",
                              "\\a",
                              "/..\\a",
                              "/C:\\a",
                              "C:\\a.htm",
                              "/C:/a",
                              "/a:b",
                              "::DataSpace/a",
                              "/a\nb",
                              "/a\tb",
                              std::string("/a\0b", 4),
                              "/a\x7F",
                              "/a\x1F",
                              "/" + std::string(256, 'a'),
                              "/\xC2\x80/../a"};
  for (const std::string& row : rows) EXPECT_EQ(NameOfObject(row), std::nullopt) << row;
}

TEST(ManualNames, NamesHaveALimitOfLengthAndDepth) {
  std::string folders;
  for (std::size_t i = 1; i < 16; ++i) folders += "/a";
  EXPECT_TRUE(NameOfObject(folders + "/b").has_value());
  EXPECT_FALSE(NameOfObject(folders + "/a/b").has_value());
  EXPECT_TRUE(NameOfObject("/" + std::string(255, 'a')).has_value());
  const std::string part = "/" + std::string(249, 'a');
  EXPECT_TRUE(NameOfObject(part + part).has_value());
  EXPECT_TRUE(NameOfObject(part + part + "a").has_value()) << "five hundred";
  EXPECT_FALSE(NameOfObject(part + part + "aa").has_value());
  EXPECT_FALSE(NameOfObject(part + part + "/abc").has_value());
  // A letter beyond ASCII takes two bytes of what a file system allows.
  std::string wide = "/";
  for (int i = 0; i < 130; ++i) wide += "\xC3\xB1";
  EXPECT_FALSE(NameOfObject(wide).has_value());
}

struct ReferenceRow {
  const char16_t* from;
  const char16_t* reference;
  const char* meant;  // "name#anchor", or "-"
};

std::string Meant(TextView from, TextView reference) {
  const auto resolved = ResolveManualReference(from, reference);
  return resolved ? ToUtf8(resolved->name) + "#" + ToUtf8(resolved->anchor) : "-";
}

TEST(ManualNames, AReferenceMeansAPlaceOfTheManual) {
  const ReferenceRow rows[] = {
      {u"", u"a.htm", "a.htm#"},
      {u"", u" a.htm ", "a.htm#"},
      {u"", u"sub\\a.htm", "sub/a.htm#"},
      {u"", u"/sub/a.htm#b", "sub/a.htm#b"},
      {u"", u".\\a.htm", "a.htm#"},
      {u"sub/x.htm", u"a.htm", "sub/a.htm#"},
      {u"sub/x.htm", u"../a.htm#c", "a.htm#c"},
      {u"sub/x.htm", u"/a.htm", "a.htm#"},
      {u"sub/x.htm", u"#c", "sub/x.htm#c"},
      {u"sub/x.htm", u"?q#c", "sub/x.htm#c"},
      {u"sub/x.htm", u"#b:c", "sub/x.htm#b:c"},
      {u"sub/x.htm", u"?b:c#d", "sub/x.htm#d"},
      {u"a/b/x.htm", u"./../c//d.htm", "a/c/d.htm#"},
      {u"", u"a%20b%C3%B1.htm#%41", "a bñ.htm#A"},
      {u"", u"%F1.htm", "ñ.htm#"},
      {u"", u"50%.htm", "50%.htm#"},
      {u"", u"%5a%4F%39%30%6A%6f%61", "ZO90joa#"},
      {u"", u"a%41", "aA#"},
      {u"", u"%4g%@1%4`.htm", "%4g%@1%4`.htm#"},
      {u"", u"%G1%1", "%G1%1#"},
      {u"", u"%4", "%4#"},
      {u"", u"a.htm?x=1#b", "a.htm#b"},
      {u"", u"ms-its:other.chm::/a.htm#b", "a.htm#b"},
      {u"", u"mk:@MSITStore:C:\\help\\other.CHM::/sub/a.htm", "sub/a.htm#"},
      {u"sub/x.htm", u"its:other.chm::a.htm", "sub/a.htm#"},
      {u"", u"a.htm#b:c::d", "a.htm#b:c::d"},
      {u"", u"a.htm#", "a.htm#"},
  };
  for (const ReferenceRow& row : rows) EXPECT_EQ(Meant(row.from, row.reference), row.meant) << ToUtf8(row.reference);
}

TEST(ManualNames, AReferenceThatLeavesTheManualMeansNothing) {
  const char16_t* const rows[] = {u"",
                                  u"  ",
                                  u"http://x/a.htm",
                                  u"file:///a",
                                  u"javascript:x()",
                                  u"data:,x",
                                  u"mailto:a@b",
                                  u"//server/a",
                                  u"\\\\server\\a",
                                  u"C:\\a.htm",
                                  u"..",
                                  u"../a.htm",
                                  u"a/../../b",
                                  u"%2e%2e/a",
                                  u"/..",
                                  u"a%00b.htm",
                                  u"a%0Ab",
                                  u".",
                                  u"a/..",
                                  u"x%3Ay/a",
                                  u"its:other.chm::http://x/",
                                  u"other::/../a"};
  for (const char16_t* row : rows) EXPECT_EQ(Meant(u"", row), "-") << ToUtf8(row);
  EXPECT_EQ(Meant(u"sub/a.htm", u"../../b"), "-");
}

TEST(ManualNames, TheManualThatAReferenceNamesIsFound) {
  struct Row {
    const char16_t* reference;
    const char16_t* manual;
  };
  for (const Row& row :
       {Row{u"its:oper.chm::/a.htm", u"oper.chm"}, Row{u" ms-its:Oper.CHM::a.htm#b", u"Oper.CHM"},
        Row{u"mk:@MSITStore:C:\\help\\oper.chm::/a.htm", u"oper.chm"},
        Row{u"mk:@MSITStore:C:%5Chelp%5Coper.chm::/a.htm", u"oper.chm"}, Row{u"../sub/oper.chm::/a.htm", u"oper.chm"},
        Row{u"its:my%20oper.chm::/a.htm", u"my oper.chm"}, Row{u"oper.chm::/a.htm", u"oper.chm"},
        Row{u"a.htm#its:oper.chm::/b.htm", u""}, Row{u"its:oper::/a.htm", u""}, Row{u"oper.chm", u""}, Row{u"", u""}}) {
    EXPECT_EQ(ManualNamedIn(row.reference), row.manual) << ToUtf8(row.reference);
  }
}

TEST(ManualNames, EndingsHaveNoCase) {
  EXPECT_TRUE(IsPageName(u"a.HTM"));
  EXPECT_TRUE(IsPageName(u"a.html"));
  EXPECT_TRUE(IsPageName(u"a.xhtml"));
  EXPECT_FALSE(IsPageName(u"a.htmx"));
  EXPECT_FALSE(IsPageName(u"htm"));
  EXPECT_TRUE(IsStyleName(u"a.Css"));
  EXPECT_TRUE(IsSitemapName(u"a.HHC"));
  EXPECT_TRUE(IsSitemapName(u"a.hhk"));
  EXPECT_FALSE(IsSitemapName(u"a.hhp"));
}

std::string ReferencesIn(TextView name, TextView markup) {
  std::string result;
  for (const Text& reference : ReferencesOf(name, markup)) result += ToUtf8(reference) + " ";
  return result;
}

TEST(ManualNames, TheReferencesOfAPageAreFound) {
  EXPECT_EQ(
      ReferencesIn(u"a.htm",
                   u"<link href=a.css><style>@import 'b.css'; p { background: url(\"c.png\") }</style>"
                   u"<body background=d.gif><a href='e.htm#x'>href=no</a><img src=f.png lowsrc=g.png>"
                   u"<p style='background:url( h.png )'><object data=i.htm><param name=Local value=j.htm></object>"
                   u"<!-- <a href=no> --><a name=no href=' '>"),
      "a.css c.png b.css d.gif e.htm#x f.png g.png h.png i.htm j.htm ");
}

TEST(ManualNames, OnlyStylesHaveReferencesInTheirText) {
  EXPECT_EQ(ReferencesIn(u"a.htm",
                         u"url(no.png)<style>p { background: url(a.png) }</style>url(no.png) @import 'no.css';"
                         u"<p title='url(no.png)'>url(no.png)</p><img longdesc=l.htm>"),
            "a.png l.htm ");
  EXPECT_EQ(ReferencesIn(u"a.htm", u"<param name=Name value=no.htm><param name=local value=a.htm><param name=Local>"),
            "a.htm ");
  EXPECT_EQ(ReferencesIn(u"a.css", u"p { background: url(\"'a.png'\") } @import ''; @import"), "a.png ");
}

TEST(ManualNames, TheReferencesOfAStyleSheetAndOfContentsAreFound) {
  EXPECT_EQ(ReferencesIn(u"a.css", u"@import url(a.css); @import \"b.css\";\np { background: url('c.png') }"),
            "a.css c.png b.css ");
  EXPECT_EQ(ReferencesIn(u"a.hhc", u"<OBJECT><param name=Name value=no><param name=Local value=a.htm></OBJECT>"),
            "a.htm ");
}

TEST(ManualNames, MoreReferencesThanTheLimitAreCut) {
  Text page;
  Text style;
  for (std::size_t i = 0; i < kMostReferences + 10; ++i) {
    page += u"<a href=x>";
    style += u"url(x)";
  }
  EXPECT_EQ(ReferencesOf(u"a.htm", page).size(), 20'000u);
  EXPECT_EQ(ReferencesOf(u"a.css", style).size(), 20'000u);
  // The last element may have more references than are left.
  EXPECT_EQ(ReferencesOf(u"a.htm", page.substr(0, (kMostReferences - 1) * 10) + u"<img src=a lowsrc=b>").size(),
            20'000u);
  Text imports;
  for (std::size_t i = 0; i < kMostReferences + 10; ++i) imports += u"@import 'x';";
  EXPECT_EQ(ReferencesOf(u"a.css", imports).size(), 20'000u);
}

}  // namespace
}  // namespace pnl
