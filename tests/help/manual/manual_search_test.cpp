// SPDX-License-Identifier: MIT
#include "help/manual/manual_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "support/stepped_worker.h"
#include "unpacked_manual.h"

namespace pnl {
namespace {

using test::SitemapLine;
using test::UnpackedManual;

bool Never() { return false; }

std::shared_ptr<const SearchIndex> IndexOf(const UnpackedManual& files) {
  return SearchIndex::Build(*files.Load(), Never);
}

std::string Found(const SearchIndex& index, TextView query) {
  std::string result;
  for (const SearchRow& row : index.Find(query)) result += ToUtf8(row.page) + " ";
  return result;
}

class ManualSearchTest : public testing::Test {
 protected:
  ManualSearchTest() {
    files_.Add("a.htm", "<title>Máquina</title><p>El husillo gira. Nivel de aceite.");
    files_.Add("b.htm", "<meta charset=utf-8><p>La máquina parada, husillo frío.");
    files_.Add("c.htm", "<p>maquinaria; HUSILLOS");
    files_.Add("d.htm", "<p>G01 X10 <script>husillo</script>");
    files_.Add("p.png", "husillo");
    files_.Add("toc.hhc", SitemapLine("Paro", "b.htm"));
    files_.listing.codePage = 65001;
  }
  UnpackedManual files_;
};

TEST_F(ManualSearchTest, EveryWordMustBeThereAndTheLastOneMayBeAStart) {
  const auto index = IndexOf(files_);
  struct Row {
    const char16_t* query;
    const char* pages;
  };
  // The page of the contents comes first.
  const Row rows[] = {
      {u"husillo", "b.htm a.htm c.htm "},
      {u"husillos", "c.htm "},
      {u"husillo maquina", "b.htm a.htm "},
      {u"maquina husillo", "b.htm a.htm "},
      {u"maqui husillo", ""},
      {u"husillo maqui", "b.htm a.htm "},
      {u"MÁQUINA", "b.htm a.htm c.htm "},
      {u"frio husillo", "b.htm "},
      {u"FRÍO, Husillo!", "b.htm "},
      {u"g", "a.htm d.htm "},
      {u"g01", "d.htm "},
      {u"g01 nivel", ""},
      {u"x1", "d.htm "},
      {u"husilloso", ""},
      {u"zzz", ""},
      {u"aaa", ""},
      {u"", ""},
      {u" .,", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(Found(*index, row.query), row.pages) << ToUtf8(row.query);
}

TEST_F(ManualSearchTest, ARowHasThePagesTitleElseThatOfTheContentsElseItsName) {
  const auto index = IndexOf(files_);
  const auto rows = index->Find(u"husillo");
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].title, u"Paro");
  EXPECT_EQ(rows[1].title, u"Máquina");
  EXPECT_EQ(rows[2].title, u"c.htm");
}

TEST_F(ManualSearchTest, APageThatIsLostIsntFoundAndDoesNoHarm) {
  files_.AddLost("lost.htm");
  const auto index = IndexOf(files_);
  EXPECT_EQ(index->PageCount(), 5u);
  EXPECT_EQ(Found(*index, u"g01"), "d.htm ");
}

TEST_F(ManualSearchTest, ALongQueryIsCut) {
  Text query;
  for (int i = 0; i < 1'000'000; ++i) query += u"husillo ";
  EXPECT_EQ(Found(*IndexOf(files_), query), "b.htm a.htm ");
}

TEST_F(ManualSearchTest, AnIndexThatNobodyWaitsForIsGivenUp) {
  int asked = 0;
  EXPECT_EQ(SearchIndex::Build(*files_.Load(), [&asked] { return ++asked == 3; }), nullptr);
  EXPECT_EQ(asked, 3);
}

using Words = std::vector<std::string>;

/// Words of one to three letters out of three.
Words RandomWords(std::mt19937& random) {
  Words words(20);
  for (std::string& word : words) {
    for (unsigned letters = 1 + random() % 3; letters > 0; --letters)
      word.push_back(static_cast<char>('A' + random() % 3));
  }
  return words;
}

bool HasAll(const Words& page, const Words& query) {
  for (const std::string& word : query) {
    const bool isLast = &word == &query.back();
    const bool isThere = std::any_of(page.begin(), page.end(), [&](const std::string& other) {
      return isLast ? other.starts_with(word) : other == word;
    });
    if (!isThere) return false;
  }
  return true;
}

std::string Joined(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += word + " ";
  return text;
}

TEST(ManualSearch, AgreesWithAPlainScanOfAllPages) {
  std::mt19937 random(1);
  UnpackedManual files;
  std::vector<Words> pages;
  for (int i = 0; i < 60; ++i) {
    pages.push_back(RandomWords(random));
    files.Add("p" + std::to_string(100 + i) + ".htm", Joined(pages.back()));
  }
  const auto index = IndexOf(files);
  for (int i = 0; i < 300; ++i) {
    Words query = RandomWords(random);
    query.resize(1 + random() % 3);
    std::string expected;
    for (std::size_t page = 0; page < pages.size(); ++page) {
      if (HasAll(pages[page], query)) expected += "p" + std::to_string(100 + page) + ".htm ";
    }
    EXPECT_EQ(Found(*index, FromUtf8(Joined(query))), expected) << Joined(query);
  }
}

TEST_F(ManualSearchTest, AnswersNothingBeforeItIsReady) {
  test::SteppedWorker worker;
  ManualSearch search(worker);
  int ready = 0;
  EXPECT_TRUE(search.Begin(files_.Load(), [&ready] { ++ready; }));
  EXPECT_FALSE(search.IsReady());
  EXPECT_TRUE(search.Find(u"husillo").empty());
  worker.RunAll();
  EXPECT_EQ(ready, 1);
  EXPECT_TRUE(search.IsReady());
  EXPECT_EQ(search.Find(u"husillo").size(), 3u);
}

TEST_F(ManualSearchTest, AnotherManualTakesThePlaceOfTheOneBefore) {
  test::SteppedWorker worker;
  ManualSearch search(worker);
  int first = 0;
  int second = 0;
  UnpackedManual other;
  other.Add("z.htm", "husillo");
  EXPECT_TRUE(search.Begin(files_.Load(), [&first] { ++first; }));
  EXPECT_TRUE(search.Begin(other.Load(), [&second] { ++second; }));
  worker.RunAll();
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
  EXPECT_EQ(search.Find(u"husillo").size(), 1u);
}

TEST_F(ManualSearchTest, WhatWasReadyIsGoneWithItsManual) {
  test::SteppedWorker worker;
  ManualSearch search(worker);
  EXPECT_TRUE(search.Begin(files_.Load(), nullptr)) << "nobody has to wait for it";
  worker.RunAll();
  ASSERT_TRUE(search.IsReady());
  EXPECT_TRUE(search.Begin(files_.Load(), nullptr));
  EXPECT_FALSE(search.IsReady()) << "pages of the manual before would be found";
  worker.RunAll();
  ASSERT_TRUE(search.IsReady());
  search.Drop();
  EXPECT_FALSE(search.IsReady());
  EXPECT_TRUE(search.Find(u"husillo").empty());
}

TEST_F(ManualSearchTest, ADroppedOrDestroyedSearchIsntCalled) {
  test::SteppedWorker worker;
  int ready = 0;
  ManualSearch search(worker);
  EXPECT_TRUE(search.Begin(files_.Load(), [&ready] { ++ready; }));
  search.Drop();
  {
    ManualSearch shortLived(worker);
    EXPECT_TRUE(shortLived.Begin(files_.Load(), [&ready] { ++ready; }));
  }
  worker.RunAll();
  EXPECT_EQ(ready, 0);
  EXPECT_FALSE(search.IsReady());
}

TEST_F(ManualSearchTest, WithoutAThreadOrAManualItSaysSo) {
  test::SteppedWorker worker;
  ManualSearch search(worker);
  EXPECT_FALSE(search.Begin(nullptr, [] {}));
  worker.refuses = true;
  EXPECT_FALSE(search.Begin(files_.Load(), [] {}));
}

}  // namespace
}  // namespace pnl
