// SPDX-License-Identifier: MIT
// Which addresses of a page are read, and from where. Nothing leaves the document's folder or the machine.
#include "pages/page_source.h"

#include <gtest/gtest.h>

#include "pages/folder_pages.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

struct AddressRow {
  TextView page;
  TextView reference;
  PageRefusal refusal;
  TextView resolved;
  TextView anchor;
};

constexpr auto kGood = PageRefusal::kNone;
constexpr auto kBad = PageRefusal::kBadAddress;
constexpr auto kForeign = PageRefusal::kForeign;
constexpr auto kOutside = PageRefusal::kOutside;

const AddressRow kAddresses[] = {
    {u"", u"a.htm", kGood, u"a.htm", u""},
    {u"b.htm", u"a.htm", kGood, u"a.htm", u""},
    {u"sub/b.htm", u"a.htm", kGood, u"sub/a.htm", u""},
    {u"sub/b.htm", u"../a.htm", kGood, u"a.htm", u""},
    {u"sub/deep/b.htm", u"../x/./a.htm#top", kGood, u"sub/x/a.htm", u"top"},
    {u"sub/b.htm", u"#part", kGood, u"sub/b.htm", u"part"},
    {u"a.htm", u"#b%09c", kGood, u"a.htm", u"b\tc"},
    {u"sub/b.htm", u"#", kGood, u"sub/b.htm", u""},
    {u"", u" a.htm\n", kGood, u"a.htm", u""},
    {u"", u"a//b.htm", kGood, u"a/b.htm", u""},
    {u"", u"a.htm?print=1#end", kGood, u"a.htm", u"end"},
    {u"", u"a%20b.htm#c%20d", kGood, u"a b.htm", u"c d"},
    {u"", u"%C3%A1.htm", kGood, u"\u00E1.htm", u""},
    {u"", u"%E1.htm", kGood, u"\u00E1.htm", u""},  // Latin-1
    {u"", u"%41%5A%5a%61%7a%39.htm", kGood, u"AZZaz9.htm", u""},
    {u"", u"%c3%aF.htm", kGood, u"\u00EF.htm", u""},
    {u"", u"a.htm?", kGood, u"a.htm", u""},
    {u"", u"a%20", kGood, u"a ", u""},
    {u"", u"50%25%23.htm", kGood, u"50%#.htm", u""},
    {u"", u"...htm", kGood, u"...htm", u""},
    {u"", u"..a/b.htm", kGood, u"..a/b.htm", u""},
    // Out of the folder.
    {u"", u"../a.htm", kOutside, u"", u""},
    {u"sub/b.htm", u"../../a.htm", kOutside, u"", u""},
    {u"", u"x/../../a.htm", kOutside, u"", u""},
    {u"../b.htm", u"a.htm", kOutside, u"", u""},  // a page that nobody could have shown
    {u"", u"%2e%2e/a.htm", kOutside, u"", u""},
    {u"", u"%2E./a.htm", kOutside, u"", u""},
    {u"", u"..%2fa.htm", kOutside, u"", u""},
    {u"", u"/a.htm", kOutside, u"", u""},
    {u"", u"%2fetc/passwd", kOutside, u"", u""},
    {u"", u"C:/a.htm", kOutside, u"", u""},
    {u"", u"c:a.htm", kOutside, u"", u""},
    {u"", u"z:a.htm", kOutside, u"", u""},
    {u"", u"Z:a.htm", kOutside, u"", u""},
    {u"", u"%43:a.htm", kBad, u"", u""},  // no letter before it is decoded
    {u"", u"C%3A/a.htm", kOutside, u"", u""},
    // Another place than a folder.
    {u"", u"http://example.com/a.png", kForeign, u"", u""},
    {u"", u"HTTPS://example.com", kForeign, u"", u""},
    {u"", u"ftp://example.com", kForeign, u"", u""},
    {u"", u"file:///etc/passwd", kForeign, u"", u""},
    {u"", u"file:a.htm", kForeign, u"", u""},
    {u"", u"data:image/png;base64,AAAA", kForeign, u"", u""},
    {u"", u"javascript:alert(1)", kForeign, u"", u""},
    {u"", u" JavaScript:alert(1)", kForeign, u"", u""},
    {u"", u"javascript%3Aalert(1)", kForeign, u"", u""},
    {u"", u"mailto:a@b.c", kForeign, u"", u""},
    {u"", u"z09+-.:a", kForeign, u"", u""},
    {u"", u"Az:a", kForeign, u"", u""},
    {u"", u"qrc:/a.png", kForeign, u"", u""},
    {u"", u"ms-its:other.chm::/a.htm", kForeign, u"", u""},
    {u"", u"//example.com/a.png", kForeign, u"", u""},
    {u"", u"%2f/example.com/a.png", kForeign, u"", u""},
    // No address.
    {u"a.htm", u"", kBad, u"", u""},
    {u"", u"#part", kBad, u"", u""},
    {u"", u".", kBad, u"", u""},
    {u"", u"x/..", kBad, u"", u""},
    {u"", u"..\\a.htm", kBad, u"", u""},
    {u"", u"%5c%5cserver%5cshare%5ca.htm", kBad, u"", u""},
    {u"", u"a%00.htm", kBad, u"", u""},
    {u"", u"a\tb.htm", kBad, u"", u""},
    {u"", u"java\nscript:alert(1)", kBad, u"", u""},
    {u"", u"a%2.htm", kBad, u"", u""},
    {u"", u"a%", kBad, u"", u""},
    {u"", u"a%zz", kBad, u"", u""},
    {u"", u"a%g0", kBad, u"", u""},
    {u"", u"a%0G", kBad, u"", u""},
    {u"", u"a%:0", kBad, u"", u""},
    {u"", u"9:a.htm", kBad, u"", u""},
    {u"", u"a_b:c", kBad, u"", u""},
    {u"", u"a%1F.htm", kBad, u"", u""},
    {u"", u"a.htm#%g0", kBad, u"", u""},
    {u"", u"sub/a.htm:stream", kBad, u"", u""},
    {u"", u":a.htm", kBad, u"", u""},
};

TEST(PageSource, EveryAddressIsResolvedOrRefusedForItsReason) {
  for (const AddressRow& row : kAddresses) {
    SCOPED_TRACE(ToUtf8(row.page) + " -> " + ToUtf8(row.reference));
    const PageAddress address = ResolvePageAddress(row.page, row.reference);
    EXPECT_EQ(address.refusal, row.refusal);
    EXPECT_EQ(ToUtf8(address.page), ToUtf8(row.resolved));
    EXPECT_EQ(ToUtf8(address.anchor), ToUtf8(row.anchor));
  }
}

TEST(PageSource, AVeryLongReferenceIsRefusedButALongDataAddressStaysForeign) {
  EXPECT_EQ(ResolvePageAddress(u"", Text(4096, u'a')).refusal, kGood);
  EXPECT_EQ(ResolvePageAddress(u"", Text(4097, u'a')).refusal, kBad);
  EXPECT_EQ(ResolvePageAddress(u"", u"data:" + Text(100'000, u'A')).refusal, kForeign);
}

TEST(PageSource, ANameIsMadeAReferenceThatResolvesToItself) {
  for (const TextView name :
       {u"a.htm", u"50% off.htm", u"a#b.htm", u"what?.htm", u"\u00E1 b.htm", u" a.htm", u"a ", u" "}) {
    EXPECT_EQ(ToUtf8(ResolvePageAddress(u"", PageReference(name)).page), ToUtf8(name));
  }
}

class FolderPagesTest : public testing::Test {
 protected:
  FolderPagesTest() {
    files_.disc["C:\\DOC\\a.htm"] = "page";
    files_.disc["C:\\DOC\\img\\b.png"] = "picture";
    files_.disc["C:\\secret.txt"] = "secret";
  }
  MemoryFiles files_;
  FolderPages pages_{files_, u"C:\\DOC"};
};

TEST_F(FolderPagesTest, APageOfTheFolderIsReadWithoutRegardToCase) {
  EXPECT_EQ(pages_.Read(u"a.htm").bytes, "page");
  EXPECT_EQ(pages_.Read(u"A.HTM").bytes, "page");
  EXPECT_EQ(pages_.Read(u"IMG/b.PNG").bytes, "picture");
  EXPECT_EQ(pages_.Refused(PageRefusal::kNone), 3u);
}

TEST_F(FolderPagesTest, EachFailureHasItsReason) {
  files_.unreadable.insert("C:\\DOC\\a.htm");
  files_.disc["C:\\DOC\\huge.htm"] = std::string(PageSource::kMostBytes + 1, 'x');
  EXPECT_EQ(pages_.Read(u"none.htm").refusal, PageRefusal::kNotFound);
  EXPECT_EQ(pages_.Read(u"img").refusal, PageRefusal::kNotFound) << "a folder";
  EXPECT_EQ(pages_.Read(u"a.htm").refusal, PageRefusal::kUnreadable);
  EXPECT_EQ(pages_.Read(u"huge.htm").refusal, PageRefusal::kTooLarge);
  files_.away.insert("C:\\DOC");
  EXPECT_EQ(pages_.Read(u"img/b.png").refusal, PageRefusal::kUnreadable) << "a stick that was pulled";
  EXPECT_EQ(pages_.Refused(PageRefusal::kNotFound), 2u);
  EXPECT_EQ(pages_.Refused(PageRefusal::kUnreadable), 2u);
  EXPECT_EQ(pages_.Refused(PageRefusal::kTooLarge), 1u);
}

TEST_F(FolderPagesTest, APageOfTheLargestSizeIsRead) {
  files_.disc["C:\\DOC\\large.htm"] = std::string(PageSource::kMostBytes, 'x');
  EXPECT_EQ(pages_.Read(u"large.htm").bytes.size(), PageSource::kMostBytes);
}

// Whoever calls Read with a text that nobody resolved gets no further than with a reference.
TEST_F(FolderPagesTest, AReadOutsideTheFolderIsRefusedToo) {
  EXPECT_EQ(pages_.Read(u"../secret.txt").refusal, kOutside);
  EXPECT_EQ(pages_.Read(u"img/../../secret.txt").refusal, kOutside);
  EXPECT_EQ(pages_.Read(u"..\\secret.txt").refusal, kBad);
  EXPECT_EQ(pages_.Read(u"C:\\secret.txt").refusal, kBad);
  EXPECT_EQ(pages_.Read(u"C:/secret.txt").refusal, kOutside);
  EXPECT_EQ(pages_.Read(u"").refusal, kOutside);
}

TEST_F(FolderPagesTest, ARefusedReferenceIsCounted) {
  EXPECT_EQ(pages_.Resolve(u"a.htm", u"http://example.com/x.png").refusal, kForeign);
  EXPECT_EQ(pages_.Resolve(u"a.htm", u"../secret.txt").refusal, kOutside);
  EXPECT_EQ(pages_.Resolve(u"a.htm", u"img/b.png").refusal, kGood);
  EXPECT_EQ(pages_.Refused(kForeign), 1u);
  EXPECT_EQ(pages_.Refused(kOutside), 1u);
  EXPECT_EQ(pages_.Refused(kBad), 0u);
}

TEST_F(FolderPagesTest, TheFolderMayBeADrivesRoot) {
  FolderPages root(files_, u"C:");
  EXPECT_EQ(root.Read(u"secret.txt").bytes, "secret");
}

}  // namespace
}  // namespace pnl::test
