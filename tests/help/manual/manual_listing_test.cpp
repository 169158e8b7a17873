// SPDX-License-Identifier: MIT
#include "help/manual/manual_listing.h"

#include <gtest/gtest.h>

namespace pnl {
namespace {

ManualListing Sample() {
  ManualListing listing;
  listing.title = u"Manual de la máquina";
  listing.page = u"start.htm";
  listing.contents = u"toc.hhc";
  listing.index = u"words.hhk";
  listing.language = 0x0C0A;
  listing.codePage = 1252;
  listing.bytes = 12;
  listing.refused = 1;
  listing.unreadable = 2;
  listing.crashes = 3;
  listing.overrun = true;
  listing.objects = {{u"start.htm", 5, 7}, {u"sub/una página.htm", 7, 0}};
  return listing;
}

TEST(ManualListing, IsWrittenAsItsPageInDocsSays) {
  EXPECT_EQ(WriteManualListing(Sample()),
            "pnl-chm 2\n"
            "title Manual de la máquina\n"
            "page start.htm\n"
            "contents toc.hhc\n"
            "index words.hhk\n"
            "language 3082\n"
            "codepage 1252\n"
            "files 2\n"
            "bytes 12\n"
            "refused 1\n"
            "unreadable 2\n"
            "crashes 3\n"
            "overrun 1\n"
            "object 5 7 start.htm\n"
            "object 7 0 sub/una página.htm\n"
            "end\n");
}

TEST(ManualListing, IsReadAsItWasWritten) {
  const ManualListing sample = Sample();
  const auto read = ReadManualListing(WriteManualListing(sample));
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->title, sample.title);
  EXPECT_EQ(read->page, sample.page);
  EXPECT_EQ(read->contents, sample.contents);
  EXPECT_EQ(read->index, sample.index);
  EXPECT_EQ(read->language, sample.language);
  EXPECT_EQ(read->codePage, sample.codePage);
  EXPECT_EQ(read->bytes, sample.bytes);
  EXPECT_EQ(read->refused, sample.refused);
  EXPECT_EQ(read->unreadable, sample.unreadable);
  EXPECT_EQ(read->crashes, sample.crashes);
  EXPECT_EQ(read->overrun, sample.overrun);
  EXPECT_EQ(read->objects, sample.objects);
}

TEST(ManualListing, OneThatIsCutOffAnywhereIsNone) {
  const std::string whole = WriteManualListing(Sample());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(ReadManualListing(std::string_view(whole).substr(0, size)).has_value()) << size;
  }
}

TEST(ManualListing, AnotherVersionIsNone) {
  EXPECT_FALSE(ReadManualListing("pnl-chm 1\nend\n").has_value());
  EXPECT_FALSE(ReadManualListing("pnl-chm 3\nend\n").has_value());
  EXPECT_FALSE(ReadManualListing("title x\nend\n").has_value());
  EXPECT_TRUE(ReadManualListing("pnl-chm 2\nend\n").has_value());
}

TEST(ManualListing, LinesThatMakeNoSenseAreSkipped) {
  const auto read = ReadManualListing(
      "pnl-chm 2\nunknown x\n\nblank\ntitle\npage\nlanguage 12x\ncodepage -1\nobject\nobject 5\nobject 5 0\nobject 5 0 "
      "\n"
      "object x y a.htm\nobject 5 0 ../a.htm\nobject 5 0 /etc/x\nobject 5 0 C:/x\nobject 5 0 a\\b\n"
      "object 3 99999999999999999999 b.htm\nobject 3 4 c d.htm\nobject 6  e.htm\nend\n");
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->title, u"");
  EXPECT_EQ(read->page, u"");
  EXPECT_EQ(read->language, 0u);
  EXPECT_EQ(read->codePage, 0);
  EXPECT_EQ(read->objects,
            (std::vector<ListedObject>{{u"a.htm", 0, 0}, {u"b.htm", 3, 0}, {u"c d.htm", 3, 4}, {u"e.htm", 6, 0}}));
}

TEST(ManualListing, ATextHasOneLine) {
  ManualListing listing;
  listing.title = u"a\nend\nb" + Text(5'000, u'x');
  const auto read = ReadManualListing(WriteManualListing(listing));
  ASSERT_TRUE(read.has_value());
  EXPECT_TRUE(read->title.starts_with(u"a end bx"));
  EXPECT_EQ(read->title.size(), 1'000u);
}

TEST(ManualListing, MoreObjectsThanTheLimitAreCut) {
  std::string bytes = "pnl-chm 2\n";
  for (std::size_t i = 0; i < ManualListing::kMostObjects + 5; ++i) bytes += "object 0 0 a\n";
  EXPECT_EQ(ReadManualListing(bytes + "end\n")->objects.size(), ManualListing::kMostObjects);
}

}  // namespace
}  // namespace pnl
