// SPDX-License-Identifier: MIT
// The real manuals: what the page view gets of them, what the viewer reads and searches, and the answers for files that
// aren't manuals.
#include "help/manual_shelf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "help/manual/unpacked_manual.h"
#include "support/stepped_worker.h"
#include "support/temp_folder.h"

namespace pnl::test {
namespace {

/// Unpacks every file into the same small manual in Windows-1252.
class SmallManual final : public ManualExtractor {
 public:
  [[nodiscard]] Extraction Extract(const std::string&, const std::string& folder,
                                   const std::function<bool()>&) const override {
    if (answer != Extraction::kDone) return answer;
    const std::pair<const char*, const char*> objects[] = {
        {"Start.htm",
         "<html><head><title>Start</title></head><body>M\xE1quina <a name=\"OPT0001\">on</a></body></html>"},
        {"sub/b.htm", "<html><head><title>B\xE1sico</title></head><body>eje</body></html>"},
        {"pic.png", "\x89PNG\xE1"},
        {"toc.hhc",
         "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"Inicio\"><param name=\"Local\" "
         "value=\"Start.htm\"></object></ul>"},
    };
    UnpackedObjects unpacked;
    unpacked.listing.title = u"Operating";
    unpacked.listing.page = u"Start.htm";
    unpacked.listing.contents = u"toc.hhc";
    unpacked.listing.unreadable = damage;
    for (const auto& [name, bytes] : objects) unpacked.Add(name, bytes);
    unpacked.WriteTo(folder);
    return Extraction::kDone;
  }
  Extraction answer = Extraction::kDone;
  std::size_t damage = 0;
};

class ManualShelfTest : public testing::Test {
 protected:
  ManualShelfTest() {
    temp.Write("disc/P113/oper.chm", "manual");
    drives.Set('C', temp.Path() / "disc");
  }
  OpenedBook Open(TextView path = u"C:\\P113\\oper.chm") {
    ManualShelf shelf(worker, files, std::make_shared<const ManualCache>(temp.Path() / "cache", extractor));
    OpenedBook opened;
    opened.state = ManualState::kCancelled;
    EXPECT_TRUE(shelf.Open(path, [&](const OpenedBook& book) { opened = book; }));
    worker.RunAll();
    return opened;
  }

  TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
  SteppedWorker worker;
  std::shared_ptr<SmallManual> extractor = std::make_shared<SmallManual>();
};

TEST_F(ManualShelfTest, AManualIsOpenedAsABook) {
  const OpenedBook opened = Open();
  ASSERT_EQ(opened.state, ManualState::kWhole);
  ASSERT_NE(opened.book, nullptr);
  EXPECT_EQ(opened.book->Title(), u"Operating");
  EXPECT_EQ(opened.book->Home(), u"Start.htm");
  ASSERT_EQ(opened.book->Contents().size(), 1u);
  EXPECT_EQ(opened.book->Contents().front().title, u"Inicio");
  EXPECT_EQ(opened.book->TitleOf(u"Start.htm"), u"Inicio");
  EXPECT_EQ(opened.book->TitleOf(u"sub/b.htm"), u"");
}

TEST_F(ManualShelfTest, APageIsFoundByTheManualsRules) {
  const OpenedBook opened = Open();
  ASSERT_NE(opened.book, nullptr);
  for (const auto& [name, page] : std::vector<std::pair<Text, Text>>{{u"Start.htm", u"Start.htm"},
                                                                     {u"START.HTM", u"Start.htm"},
                                                                     {u"sub\\b.htm", u"sub/b.htm"},
                                                                     {u"/sub/B.htm", u"sub/b.htm"},
                                                                     {u"none.htm", u""},
                                                                     {u"../Start.htm", u""},
                                                                     {u"", u""}}) {
    EXPECT_EQ(opened.book->PageOf(name), page) << ToUtf8(name);
  }
}

TEST_F(ManualShelfTest, ThePageViewGetsPagesInUtf8AndEverythingElseAsItIs) {
  const OpenedBook opened = Open();
  ASSERT_NE(opened.book, nullptr);
  const auto pages = opened.book->Pages();
  const PageBytes start = pages->Read(u"Start.htm");
  EXPECT_EQ(start.refusal, PageRefusal::kNone);
  EXPECT_THAT(start.bytes, testing::HasSubstr("Máquina"));
  EXPECT_EQ(pages->Read(u"pic.png").bytes, "\x89PNG\xE1");
  EXPECT_EQ(pages->Read(u"none.htm").refusal, PageRefusal::kNotFound);
  EXPECT_EQ(pages->Resolve(u"Start.htm", u"http://example.org/").refusal, PageRefusal::kForeign);
}

TEST_F(ManualShelfTest, LinksAsManualsHaveThemLeadToPagesOfTheManual) {
  const OpenedBook opened = Open();
  ASSERT_NE(opened.book, nullptr);
  const auto pages = opened.book->Pages();
  struct Row {
    TextView from;
    TextView reference;
    TextView page;
    TextView anchor;
  };
  for (const Row& row : {
           Row{u"sub/b.htm", u"/Start.htm#OPT0001", u"Start.htm", u"OPT0001"},
           Row{u"Start.htm", u"/SUB/b.htm", u"sub/b.htm", u""},
           Row{u"Start.htm", u"sub\\b.htm#x", u"sub/b.htm", u"x"},
           Row{u"sub/b.htm", u"..\\pic.png", u"pic.png", u""},
           Row{u"Start.htm", u"its:oper.chm::/sub/b.htm#x", u"sub/b.htm", u"x"},
           Row{u"sub/b.htm", u"its:oper.chm::b.htm", u"sub/b.htm", u""},
           Row{u"Start.htm", u"ms-its:OPER.CHM::/sub/b.htm", u"sub/b.htm", u""},
           Row{u"Start.htm", u"MS-ITS:C:%5Cold%5Coper.chm::/pic.png", u"pic.png", u""},
           Row{u"Start.htm", u"mk:@MSITStore:oper.chm::/sub/b.htm", u"sub/b.htm", u""},
           // As in any document.
           Row{u"sub/b.htm", u"../Start.htm", u"Start.htm", u""},
           Row{u"sub/b.htm", u"#x", u"sub/b.htm", u"x"},
           Row{u"sub/b.htm", u"none.htm", u"sub/none.htm", u""},
       }) {
    const PageAddress address = pages->Resolve(row.from, row.reference);
    EXPECT_EQ(address.refusal, PageRefusal::kNone) << ToUtf8(row.reference);
    EXPECT_EQ(ToUtf8(address.page), ToUtf8(row.page)) << ToUtf8(row.reference);
    EXPECT_EQ(ToUtf8(address.anchor), ToUtf8(row.anchor)) << ToUtf8(row.reference);
  }
}

TEST_F(ManualShelfTest, LinksThatLeaveTheManualAreRefused) {
  const OpenedBook opened = Open();
  ASSERT_NE(opened.book, nullptr);
  const auto pages = opened.book->Pages();
  struct Row {
    TextView reference;
    PageRefusal refusal;
  };
  for (const Row& row : {
           Row{u"/none.htm", PageRefusal::kOutside},
           Row{u"/../Start.htm", PageRefusal::kOutside},
           Row{u"../Start.htm", PageRefusal::kOutside},
           Row{u"//Start.htm", PageRefusal::kForeign},
           Row{u"\\\\server\\Start.htm", PageRefusal::kBadAddress},
           Row{u"its:oper.chm::/none.htm", PageRefusal::kForeign},
           // Another manual's page of the same name.
           Row{u"its:prog.chm::/Start.htm", PageRefusal::kForeign},
           Row{u"ms-its:C:%5Coper.chm%5Cprog.chm::/Start.htm", PageRefusal::kForeign},
           Row{u"its:oper.chm::/../Start.htm", PageRefusal::kForeign},
           Row{u"its:oper.chm::http://example.org/Start.htm", PageRefusal::kForeign},
           Row{u"its:Start.htm", PageRefusal::kForeign},
           Row{u"http://example.org/Start.htm", PageRefusal::kForeign},
           Row{u"file:///Start.htm", PageRefusal::kForeign},
           Row{u"C:/Start.htm", PageRefusal::kOutside},
       }) {
    const PageAddress address = pages->Resolve(u"Start.htm", row.reference);
    EXPECT_EQ(address.refusal, row.refusal) << ToUtf8(row.reference);
    EXPECT_EQ(address.page, u"") << ToUtf8(row.reference);
  }
  EXPECT_EQ(pages->Refused(PageRefusal::kForeign), 9u);
}

TEST_F(ManualShelfTest, ABookIsSearchedBesideTheWindow) {
  const OpenedBook opened = Open();
  ASSERT_NE(opened.book, nullptr);
  bool ready = false;
  EXPECT_TRUE(opened.book->BeginSearch([&] { ready = true; }));
  EXPECT_FALSE(opened.book->CanSearch());
  EXPECT_TRUE(opened.book->Find(u"maquina").empty());
  worker.RunAll();
  EXPECT_TRUE(ready);
  const std::vector<SearchRow> found = opened.book->Find(u"maquina");
  ASSERT_EQ(found.size(), 1u);
  EXPECT_EQ(found.front().page, u"Start.htm");
}

TEST_F(ManualShelfTest, WhatIsDamagedIsABookThatSaysSo) {
  extractor->damage = 1;
  const OpenedBook opened = Open();
  EXPECT_EQ(opened.state, ManualState::kDamaged);
  EXPECT_NE(opened.book, nullptr);
}

TEST_F(ManualShelfTest, WhatCantBeOpenedIsNoBook) {
  EXPECT_EQ(Open(u"C:\\P113\\none.chm").state, ManualState::kMissing);
  for (const auto& [extraction, state] :
       std::vector<std::pair<Extraction, ManualState>>{{Extraction::kNothing, ManualState::kUnusable},
                                                       {Extraction::kOverrun, ManualState::kUnusable},
                                                       {Extraction::kNoProgram, ManualState::kNoProgram}}) {
    extractor->answer = extraction;
    const OpenedBook opened = Open();
    EXPECT_EQ(opened.state, state);
    EXPECT_EQ(opened.book, nullptr);
  }
}

TEST_F(ManualShelfTest, AnUnmappedDriveIsntStarted) {
  ManualShelf shelf(worker, files, std::make_shared<const ManualCache>(temp.Path() / "cache", extractor));
  EXPECT_FALSE(shelf.Open(u"Z:\\oper.chm", [](const OpenedBook&) { FAIL(); }));
  EXPECT_FALSE(worker.IsBusy());
}

TEST_F(ManualShelfTest, AManualOnAnUnmappedDriveTakesThePlaceOfTheOneBeforeAllTheSame) {
  ManualShelf shelf(worker, files, std::make_shared<const ManualCache>(temp.Path() / "cache", extractor));
  EXPECT_TRUE(shelf.Open(u"C:\\P113\\oper.chm", [](const OpenedBook&) { FAIL() << "nobody asks for it any more"; }));
  EXPECT_FALSE(shelf.Open(u"Z:\\oper.chm", [](const OpenedBook&) { FAIL(); }));
  worker.RunAll();
}

TEST_F(ManualShelfTest, AnAnswerThatNobodyWaitsForDoesntCome) {
  ManualShelf shelf(worker, files, std::make_shared<const ManualCache>(temp.Path() / "cache", extractor));
  EXPECT_TRUE(shelf.Open(u"C:\\P113\\oper.chm", [](const OpenedBook&) { FAIL(); }));
  shelf.Drop();
  worker.RunAll();
  int answers = 0;
  EXPECT_TRUE(shelf.Open(u"C:\\P113\\oper.chm", [](const OpenedBook&) { FAIL(); }));
  EXPECT_TRUE(shelf.Open(u"C:\\P113\\oper.chm", [&](const OpenedBook&) { ++answers; }));
  worker.RunAll();
  EXPECT_EQ(answers, 1);
}

}  // namespace
}  // namespace pnl::test
