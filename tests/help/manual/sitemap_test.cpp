// SPDX-License-Identifier: MIT
#include "help/manual/sitemap.h"

#include <gtest/gtest.h>

#include <string>

#include "unpacked_manual.h"

namespace pnl {
namespace {

using test::SitemapLine;

std::string ItemsOf(const std::string& markup) {
  std::string result;
  for (const SitemapItem& item : ReadSitemap(FromUtf8(markup))) {
    result += std::to_string(item.depth) + " " + ToUtf8(item.name);
    for (const auto& [title, reference] : item.topics) result += " [" + ToUtf8(title) + "=" + ToUtf8(reference) + "]";
    result += "\n";
  }
  return result;
}

TEST(Sitemap, ListsInListsBecomeDepths) {
  EXPECT_EQ(ItemsOf("<UL>" + SitemapLine("A", "a.htm") + "<UL>" + SitemapLine("B", "b.htm") + "<UL>" +
                    SitemapLine("C", "") + "</UL></UL>" + SitemapLine("D", "d.htm") + "</UL>"),
            "0 A [A=a.htm]\n"
            "1 B [B=b.htm]\n"
            "2 C\n"
            "0 D [D=d.htm]\n");
}

TEST(Sitemap, AWordOfAnIndexLeadsToEachOfItsTopics) {
  EXPECT_EQ(ItemsOf("<UL><OBJECT type=text/sitemap><param name=Name value=word><param name=Name value=One>"
                    "<param name=Local value=1.htm><param name=Name value=Two><param name=Local value=2.htm></OBJECT>"),
            "0 word [One=1.htm] [Two=2.htm]\n");
}

TEST(Sitemap, ATopicWithoutATitleHasThatOfTheOneBefore) {
  EXPECT_EQ(ItemsOf("<OBJECT><param name=Name value=w><param name=Local value=1.htm><param name=Local value=2.htm>"),
            "0 w [w=1.htm] [w=2.htm]\n");
}

TEST(Sitemap, TheFilesOwnPropertiesAreNoItem) {
  EXPECT_EQ(ItemsOf("<OBJECT type='text/site properties'><param name=Name value=x></OBJECT>" + SitemapLine("A", "a")),
            "0 A [A=a]\n");
}

TEST(Sitemap, NamesOfParametersHaveNoCase) {
  EXPECT_EQ(ItemsOf("<object type=TEXT/SITEMAP><PARAM NAME=NAME VALUE=' a '><param name=local value=x></object>"),
            "0 a [a=x]\n");
}

TEST(Sitemap, WhatIsntClosedCounts) {
  struct Row {
    const char* markup;
    const char* items;
  };
  const Row rows[] = {
      {"<UL><OBJECT><param name=Name value=A>", "0 A\n"},
      {"<UL><OBJECT><param name=Name value=A><OBJECT><param name=Name value=B>", "0 A\n0 B\n"},
      {"<UL><OBJECT><param name=Name value=A><UL><OBJECT><param name=Name value=B>", "0 A\n1 B\n"},
      {"<UL><OBJECT><param name=Name value=A><UL><OBJECT><param name=Name value=B></UL></UL>", "0 A\n1 B\n"},
      {"</UL></UL><UL><OBJECT><param name=Name value=A></UL></UL></UL><UL><OBJECT><param name=Name value=B>",
       "0 A\n0 B\n"},
      {"<OBJECT></OBJECT><OBJECT><param name=Merge value=small.hhc></OBJECT>", ""},
      {"<param name=Name value=A>", ""},
      {"<OBJECT><param name=Name value=A><param name=Local value=''><param name=Local value=' '></OBJECT>", "0 A\n"},
      {"<param name=Name value=A><param name=Local value=a><OBJECT><param name=Name value=B></OBJECT>"
       "<param name=Name value=C><param name=Local value=c><OBJECT><param name=Name value=D></OBJECT>",
       "0 B\n0 D\n"},
      {"", ""},
  };
  for (const Row& row : rows) EXPECT_EQ(ItemsOf(row.markup), row.items) << row.markup;
}

TEST(Sitemap, ADepthNeverLeaps) {
  EXPECT_EQ(ItemsOf("<UL><UL><UL><UL>" + SitemapLine("A", "") + "<UL><UL><UL>" + SitemapLine("B", "")), "0 A\n1 B\n");
}

TEST(Sitemap, EndlessNestingIsCut) {
  std::string markup;
  for (int i = 0; i < 10'000; ++i) markup += "<UL>" + SitemapLine("A", "");
  const auto items = ReadSitemap(FromUtf8(markup));
  ASSERT_EQ(items.size(), 10'000u);
  for (std::size_t i = 0; i < items.size(); ++i) {
    ASSERT_EQ(items[i].depth, std::min(static_cast<int>(i), 32)) << i;
  }
}

TEST(Sitemap, AHundredThousandObjectsAreCut) {
  std::string markup = "<UL>";
  for (int i = 0; i < 100'000; ++i) markup += "<OBJECT><param name=Name value=" + std::to_string(i) + "></OBJECT>";
  const auto items = ReadSitemap(FromUtf8(markup));
  ASSERT_EQ(items.size(), 50'000u);
  EXPECT_EQ(items.back().name, FromUtf8(std::to_string(kMostSitemapItems - 1)));
}

TEST(Sitemap, TheTopicsOfAWordAndLongTextsAreCut) {
  std::string markup = "<OBJECT><param name=Name value=w>";
  for (int i = 0; i < 1'000; ++i) markup += "<param name=Local value=x.htm>";
  markup += "</OBJECT><OBJECT><param name=Name value=" + std::string(5'000, 'a') + ">";
  const auto items = ReadSitemap(FromUtf8(markup));
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[0].topics.size(), 200u);
  EXPECT_EQ(items[1].name.size(), 1'000u);
}

}  // namespace
}  // namespace pnl
