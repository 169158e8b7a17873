// SPDX-License-Identifier: MIT
// Manuals that no compiler writes: what they say of themselves must not lead anywhere.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "extractor_rig.h"
#include "support/chm_writer.h"
#include "unpacked_manual.h"

namespace pnl {
namespace {

using test::ChmWriter;
using test::SitemapLine;
using HostileManual = test::ExtractorTest;

TEST_F(HostileManual, NamesThatLeadElsewhereAreRefusedAndCounted) {
  const std::string names[] = {
      "/../out.htm",   "/../../out.htm", "/sub/../../out.htm", "/..",
      "//etc/out.htm", "/..\\out.htm",   "/\\out.htm",         "/C:\\out.htm",
      "/C:/out.htm",   "/c:out.htm",     "/a\nb.htm",          "/a\x01.htm",
      "/a\x7F.htm",    "/./out.htm",     "/sub//out.htm",      "/" + std::string(300, 'x') + ".htm",
  };
  ChmWriter writer;
  writer.Add("/a.htm", "kept");
  for (const std::string& name : names) writer.Add(name, "hostile");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_EQ(manual_->Listing().refused, std::size(names));
  EXPECT_TRUE(manual_->IsDamaged());
}

TEST_F(HostileManual, ANameOutsideTheManualIsNoObject) {
  // These aren't ordinary objects, so nobody asks for them.
  ChmWriter writer;
  writer.Add("/a.htm", "kept").Add("C:\\out.htm", "x").Add("out.htm", "x").Add("../out.htm", "x").Add("", "x");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
}

TEST_F(HostileManual, LinksThatLeadElsewhereFindNothing) {
  ChmWriter writer;
  writer.Add("/a.htm",
             "<a href='../out.htm'><a href='..\\out.htm'><a href='%2e%2e/out.htm'><a href='/etc/passwd'>"
             "<a href='C:\\out.htm'><a href='file:///etc/passwd'><a href='its:m.chm::/../out.htm'>");
  writer.Add("/../out.htm", "x").Add("/etc", "x");
  ASSERT_EQ(Unpack(writer.SortedBytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm etc ");
}

// They are no files of this machine, so one may have the name of another as its folder.
TEST_F(HostileManual, ANameThatIsAFolderOfAnotherIsAnObjectLikeOthers) {
  ChmWriter writer;
  writer.Add("/a", "file").Add("/a/b.htm", "below").Add("/c/d.htm", "first").Add("/c", "folder");
  writer.Add("/c/d.htm/e", "below");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a a/b.htm c c/d.htm c/d.htm/e ");
  EXPECT_EQ(manual_->Listing().refused, 0u);
  EXPECT_EQ(manual_->Read(u"a"), "file");
  EXPECT_EQ(manual_->Read(u"c"), "folder");
  EXPECT_EQ(manual_->Read(u"c/d.htm"), "first");
}

TEST_F(HostileManual, TheSameNameInOtherCaseIsUnpackedOnce) {
  ChmWriter writer;
  writer.Add("/a.htm", "first").Add("/A.HTM", "second").Add("/a.htm", "third");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_EQ(manual_->Listing().objects.size(), 1u);
}

TEST_F(HostileManual, ABombOfTenGigabytesIsCut) {
  ChmWriter writer;
  writer.Add("/big000000.bin", std::string(1'000'000, 'x'));
  for (int i = 1; i < 10'000; ++i) writer.AddSame("/big" + std::to_string(100'000 + i) + ".bin");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_TRUE(manual_->Listing().overrun);
  EXPECT_LE(manual_->Listing().bytes, 400'000'000u);
  EXPECT_GE(manual_->Listing().objects.size(), 1u);
}

TEST_F(HostileManual, AnObjectThatClaimsTenGigabytesIsLeftOut) {
  ChmWriter writer;
  writer.Add("/a.htm", "kept");
  writer.AddClaim({"/b.htm", 0, 10'000'000'000})
      .AddClaim({"/c.htm", 0, ~0ull >> 1})
      .AddClaim({"/d.htm", ~0ull >> 8, 5});
  writer.AddClaim({"/e.htm", 0, 49'000'000});
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_EQ(Names(), "a.htm ");
  EXPECT_TRUE(manual_->Listing().overrun);
  EXPECT_GE(manual_->Listing().unreadable, 1u);
}

TEST_F(HostileManual, AHundredThousandObjectsAreCut) {
  ChmWriter writer;
  writer.Add("/0.htm", "x");
  for (int i = 1; i < 100'000; ++i) writer.AddSame("/" + std::to_string(i) + ".htm");
  ASSERT_EQ(Unpack(writer.Bytes()), Extraction::kDone);
  EXPECT_TRUE(manual_->Listing().overrun);
  // On a busy machine the limit of time may come first.
  EXPECT_LE(manual_->Listing().objects.size(), ManualListing::kMostObjects);
  EXPECT_GT(manual_->Listing().objects.size(), 0u);
}

TEST_F(HostileManual, ContentsThatContainThemselvesAreReadOnce) {
  ChmWriter writer;
  writer.AddSystem("T", "toc.hhc", "toc.hhc", "toc.hhc", 0x409);
  writer.Add("/toc.hhc", "<UL>" + SitemapLine("Me", "toc.hhc") +
                             "<LI><OBJECT type='text/sitemap'><param name=Name value=Again>"
                             "<param name=Merge value='manual.chm::/toc.hhc'></OBJECT></UL>");
  ASSERT_EQ(Unpack(writer.SortedBytes()), Extraction::kDone);
  ASSERT_EQ(manual_->Contents().size(), 2u);
  EXPECT_EQ(manual_->Contents()[0].place.page, u"toc.hhc");
  EXPECT_EQ(manual_->Contents()[1].place.page, u"");
  EXPECT_EQ(manual_->Index().size(), 2u);
  // It isn't a page that can be shown, yet the manual says that it begins there.
  EXPECT_EQ(manual_->Home(), u"toc.hhc");
}

TEST_F(HostileManual, AListThatGoesInCirclesEnds) {
  ChmWriter writer;
  for (int i = 0; i < 600; ++i) writer.Add("/page" + std::to_string(1000 + i) + ".htm", "x");
  std::string bytes = writer.Bytes();
  // The link from each chunk of the list to the next one is 16 bytes after the chunk's mark.
  std::size_t chunks = 0;
  for (std::size_t at = bytes.find("PMGL"); at != std::string::npos; at = bytes.find("PMGL", at + 1)) {
    bytes.replace(at + 16, 4, std::string(4, '\0'));
    ++chunks;
  }
  ASSERT_GT(chunks, 2u);
  ASSERT_EQ(Unpack(bytes), Extraction::kDone);
  EXPECT_GT(manual_->Pages().size(), 100u);
  EXPECT_TRUE(manual_->IsDamaged());
}

TEST_F(HostileManual, ACrashCostsOneObjectAndTheNextOnesAreUnpacked) {
  std::ifstream in(std::string(PNL_TESTS_FOLDER) + "/help/manual/data/small.chm", std::ios::binary);
  std::string bytes{std::istreambuf_iterator<char>(in), {}};
  // The length of a compressed block, by which the library divides.
  const std::size_t length = bytes.find(std::string("\0\x80\0\0\0\0\0\0", 8));
  ASSERT_NE(length, std::string::npos);
  ASSERT_EQ(Unpack(bytes), Extraction::kDone);
  const auto readme = manual_->Read(u"_#_README_#_");
  bytes.replace(length, 8, 8, '\0');
  ASSERT_EQ(Unpack(bytes), Extraction::kDone);
  // All that is compressed is lost; the one object that isn't comes after some of them.
  EXPECT_EQ(Names(), "_#_README_#_ ");
  EXPECT_EQ(manual_->Read(u"_#_README_#_"), readme);
  EXPECT_EQ(manual_->Listing().crashes, 7u);
  EXPECT_TRUE(manual_->IsDamaged());
  EXPECT_EQ(manual_->Title(), u"Manual de la máquina");
}

}  // namespace
}  // namespace pnl
