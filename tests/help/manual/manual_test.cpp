// SPDX-License-Identifier: MIT
#include "help/manual/manual.h"

#include <gtest/gtest.h>

#include "unpacked_manual.h"

namespace pnl {
namespace {

using test::SitemapLine;
using test::UnpackedManual;

std::string TopicsOf(const std::vector<ManualTopic>& topics) {
  std::string result;
  for (const ManualTopic& topic : topics) {
    result += std::to_string(topic.depth) + " " + ToUtf8(topic.title) + "=" + ToUtf8(topic.place.page) + "#" +
              ToUtf8(topic.place.anchor) + "\n";
  }
  return result;
}

std::string PagesOf(const Manual& manual) {
  std::string result;
  for (const Text& page : manual.Pages()) result += ToUtf8(page) + " ";
  return result;
}

TEST(Manual, AFolderWithoutAListingIsNoManual) {
  const test::TempFolder folder;
  EXPECT_EQ(Manual::Load(folder.Path()), nullptr);
  folder.Write(ManualListing::kFile, "pnl-chm 2\n");
  EXPECT_EQ(Manual::Load(folder.Path()), nullptr);
  EXPECT_EQ(Manual::Load(folder.Path() / "nothing"), nullptr);
}

TEST(Manual, ContentsAndIndexLeadToItsPages) {
  UnpackedManual files;
  files.Add("A.htm", "a").Add("sub/B.htm", "b");
  files.Add("toc.hhc", "<UL>" + SitemapLine("First", "a.HTM") + SitemapLine("Group", "") + "<UL>" +
                           SitemapLine("Second", "SUB\\b.htm#x") + SitemapLine("Gone", "gone.htm#y") + "</UL></UL>");
  files.Add("words.hhk",
            "<UL><OBJECT><param name=Name value=word><param name=Name value=T1><param name=Local value=a.htm>"
            "<param name=Name value=T2><param name=Local value=gone.htm></OBJECT><UL>" +
                SitemapLine("inner", "sub/B.htm#z") + "</UL></UL>");
  files.listing.contents = u"TOC.HHC";
  files.listing.index = u"words.hhk";
  const auto manual = files.Load();
  ASSERT_NE(manual, nullptr);
  EXPECT_EQ(TopicsOf(manual->Contents()),
            "0 First=A.htm#\n"
            "0 Group=#\n"
            "1 Second=sub/B.htm#x\n"
            "1 Gone=#\n");
  ASSERT_EQ(manual->Index().size(), 2u);
  EXPECT_EQ(manual->Index()[0].word, u"word");
  EXPECT_EQ(TopicsOf(manual->Index()[0].topics), "0 T1=A.htm#\n");
  EXPECT_EQ(manual->Index()[1].depth, 1);
  EXPECT_EQ(TopicsOf(manual->Index()[1].topics), "0 inner=sub/B.htm#z\n");
  EXPECT_FALSE(manual->IsDamaged());
}

TEST(Manual, ALineWithoutATitleShowsItsReference) {
  UnpackedManual files;
  files.Add("a.htm", "a").Add("toc.hhc", "<OBJECT><param name=Local value=a.htm></OBJECT>");
  EXPECT_EQ(TopicsOf(files.Load()->Contents()), "0 a.htm=a.htm#\n");
}

TEST(Manual, ContentsThatAreNotNamedAreFoundByTheirEnding) {
  UnpackedManual files;
  files.Add("a.htm", "a").Add("x.HHC", SitemapLine("A", "a.htm")).Add("y.hhc", SitemapLine("B", "a.htm"));
  EXPECT_EQ(TopicsOf(files.Load()->Contents()), "0 A=a.htm#\n");
  // What is named and isn't there counts as not named.
  files.listing.contents = u"gone.hhc";
  EXPECT_EQ(TopicsOf(files.Load()->Contents()), "0 A=a.htm#\n");
  files.listing.contents = u"y.hhc";
  EXPECT_EQ(TopicsOf(files.Load()->Contents()), "0 B=a.htm#\n");
}

TEST(Manual, TheHomePageIsTheDefaultElseTheFirstOfTheContentsElseTheFirst) {
  UnpackedManual files;
  files.Add("a.htm", "a").Add("b.htm", "b").Add("c.htm", "c");
  EXPECT_EQ(files.Load()->Home(), u"a.htm");
  files.Add("toc.hhc", SitemapLine("Group", "") + SitemapLine("B", "b.htm"));
  EXPECT_EQ(files.Load()->Home(), u"b.htm");
  files.listing.page = u"/C.HTM#top";
  EXPECT_EQ(files.Load()->Home(), u"c.htm");
  files.listing.page = u"gone.htm";
  EXPECT_EQ(files.Load()->Home(), u"b.htm");
}

TEST(Manual, AnEmptyManualHasNoHome) {
  const UnpackedManual files;
  const auto manual = files.Load();
  ASSERT_NE(manual, nullptr);
  EXPECT_TRUE(manual->Home().empty());
  EXPECT_TRUE(manual->Pages().empty());
  EXPECT_TRUE(manual->Title().empty());
  EXPECT_FALSE(manual->Find(u"a.htm").has_value());
}

TEST(Manual, WithoutATitleItHasTheNameOfItsHome) {
  UnpackedManual files;
  files.Add("a.htm", "a");
  EXPECT_EQ(files.Load()->Title(), u"a.htm");
  files.listing.title = u"Título";
  EXPECT_EQ(files.Load()->Title(), u"Título");
}

TEST(Manual, PagesComeInTheOrderOfTheContentsThenOfTheListing) {
  UnpackedManual files;
  files.Add("z.htm", "").Add("p.png", "").Add("a.htm", "").Add("B.HTML", "").Add("toc.hhc", "");
  EXPECT_EQ(PagesOf(*files.Load()), "z.htm a.htm B.HTML ");
  files.listing.objects.pop_back();
  files.Add("toc.hhc", SitemapLine("B", "b.html#x") + SitemapLine("P", "p.png") + SitemapLine("B", "b.html"));
  EXPECT_EQ(PagesOf(*files.Load()), "B.HTML z.htm a.htm ");
}

TEST(Manual, ThePageTitleOfTheContentsIsThatOfTheFirstLine) {
  UnpackedManual files;
  files.Add("a.htm", "").Add("b.htm", "").Add("toc.hhc", SitemapLine("One", "a.htm") + SitemapLine("Two", "a.htm#x"));
  const auto manual = files.Load();
  EXPECT_EQ(manual->ContentsTitleOf(u"A.HTM"), u"One");
  EXPECT_EQ(manual->ContentsTitleOf(u"b.htm"), u"");
  EXPECT_EQ(manual->ContentsTitleOf(u"gone.htm"), u"");
}

TEST(Manual, NamesAreFoundWithoutRegardToCase) {
  UnpackedManual files;
  files.Add("Sub/Página.htm", "x").Add("50%25.htm", "y").Add("a#b.htm", "z");
  const auto manual = files.Load();
  struct Row {
    const char16_t* name;
    const char16_t* found;
  };
  const Row rows[] = {
      {u"Sub/Página.htm", u"Sub/Página.htm"},
      {u"SUB/PÁGINA.HTM", u"Sub/Página.htm"},
      {u"sub\\página.htm", u"Sub/Página.htm"},
      {u"/Sub/P%C3%A1gina.htm", u"Sub/Página.htm"},
      {u"x/../Sub/./Página.htm", u"Sub/Página.htm"},
      {u"50%25.htm", u"50%25.htm"},
      {u"a#b.htm", u"a#b.htm"},
  };
  for (const Row& row : rows) EXPECT_EQ(manual->Find(row.name), Text(row.found)) << ToUtf8(row.name);
  for (const char16_t* name : {u"", u"Sub", u"../Sub/Página.htm", u"listing.txt", u"/", u"pagina.htm"}) {
    EXPECT_EQ(manual->Find(name), std::nullopt) << ToUtf8(name);
  }
}

TEST(Manual, AReferenceIsResolvedFromItsPage) {
  UnpackedManual files;
  files.Add("a.htm", "").Add("sub/B.htm", "").Add("sub/c.png", "");
  const auto manual = files.Load();
  EXPECT_EQ(manual->Resolve(u"sub/B.htm", u"C.PNG"), (ManualPlace{u"sub/c.png", u""}));
  EXPECT_EQ(manual->Resolve(u"sub/B.htm", u"#x"), (ManualPlace{u"sub/B.htm", u"x"}));
  EXPECT_EQ(manual->Resolve(u"sub/B.htm", u"../A.htm#y"), (ManualPlace{u"a.htm", u"y"}));
  EXPECT_EQ(manual->Resolve(u"", u"its:m.chm::/sub/b.htm#z"), (ManualPlace{u"sub/B.htm", u"z"}));
  EXPECT_EQ(manual->Resolve(u"", u"gone.htm#z"), ManualPlace());
  EXPECT_EQ(manual->Resolve(u"", u"http://a.htm/"), ManualPlace());
}

TEST(Manual, APageIsReadInTheManualsCodePage) {
  UnpackedManual files;
  files.Add("a.htm", "\xF1").Add("b.htm", "<meta charset=utf-8>\xC3\xB1").Add("toc.hhc", SitemapLine("\xF1", "a.htm"));
  files.listing.codePage = 1251;
  const auto manual = files.Load();
  EXPECT_EQ(manual->ReadText(u"A.HTM"), u"с");
  EXPECT_EQ(manual->ReadText(u"b.htm"), u"<meta charset=utf-8>ñ");
  EXPECT_EQ(manual->Read(u"a.htm"), "\xF1");
  EXPECT_EQ(manual->Contents()[0].title, u"с");
}

TEST(Manual, WhatIsTooLargeOrLostIsntRead) {
  UnpackedManual files;
  files.Add("a.htm", "12345").AddLost("b.htm").AddLost("c.htm", 3, 3).AddLost("d.htm", ~0ull, 5);
  const auto manual = files.Load();
  EXPECT_EQ(manual->Read(u"a.htm", 5), "12345");
  EXPECT_EQ(manual->Read(u"a.htm", 4), std::nullopt);
  EXPECT_EQ(manual->ReadText(u"a.htm", 4), std::nullopt);
  for (const char16_t* lost : {u"b.htm", u"c.htm", u"d.htm", u"gone.htm"}) {
    EXPECT_EQ(manual->Read(lost), std::nullopt) << ToUtf8(lost);
  }
}

TEST(Manual, ItIsCompleteWhenTheFileHasAllObjects) {
  UnpackedManual files;
  files.Add("a.htm", "12345").Add("empty.htm", "");
  EXPECT_TRUE(files.Load()->IsComplete());
  struct Row {
    std::uint64_t start;
    std::uint64_t size;
    bool complete;
  };
  for (const Row& row : {Row{0, 5, true}, Row{4, 1, true}, Row{5, 0, true}, Row{5, 1, false}, Row{6, 0, false},
                         Row{1, 5, false}, Row{~0ull, 5, false}, Row{2, ~0ull, false}}) {
    const ManualListing whole = files.listing;
    files.AddLost("b.htm", row.start, row.size);
    EXPECT_EQ(files.Load()->IsComplete(), row.complete) << row.start << " " << row.size;
    files.listing = whole;
  }
  const auto manual = files.Load();
  std::filesystem::remove(files.Folder().Path() / ManualListing::kObjectFile);
  EXPECT_FALSE(Manual::Load(files.Folder().Path())->IsComplete());
  EXPECT_EQ(Manual::Load(files.Folder().Path())->Read(u"a.htm"), std::nullopt);
  EXPECT_EQ(manual->Read(u"a.htm"), "12345") << "it was open before";
}

TEST(Manual, WithoutItsFileNoManualIsCompleteHoweverSmall) {
  UnpackedManual files;
  files.Add("a.htm", "").Add("b.htm", "");
  ASSERT_TRUE(files.Load()->IsComplete());
  const auto objects = files.Folder().Path() / ManualListing::kObjectFile;
  std::filesystem::remove(objects);
  EXPECT_FALSE(Manual::Load(files.Folder().Path())->IsComplete());
  std::filesystem::create_directory(objects);
  EXPECT_FALSE(Manual::Load(files.Folder().Path())->IsComplete()) << "a folder is no file of objects";
}

TEST(Manual, OfTwoNamesThatDifferInCaseTheFirstCounts) {
  UnpackedManual files;
  files.Add("a.htm", "first").Add("A.HTM", "second");
  const auto manual = files.Load();
  EXPECT_EQ(manual->Read(u"A.htm"), "first");
  EXPECT_EQ(PagesOf(*manual), "a.htm ");
}

TEST(Manual, EachKindOfDamageCounts) {
  UnpackedManual files;
  files.Add("a.htm", "");
  EXPECT_FALSE(files.Load()->IsDamaged());
  const ManualListing whole = files.listing;
  files.listing.refused = 1;
  EXPECT_TRUE(files.Load()->IsDamaged());
  files.listing = whole;
  files.listing.unreadable = 1;
  EXPECT_TRUE(files.Load()->IsDamaged());
  files.listing = whole;
  files.listing.crashes = 1;
  EXPECT_TRUE(files.Load()->IsDamaged());
  files.listing = whole;
  files.listing.overrun = true;
  EXPECT_TRUE(files.Load()->IsDamaged());
}

}  // namespace
}  // namespace pnl
