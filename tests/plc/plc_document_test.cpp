// SPDX-License-Identifier: MIT
#include "plc/plc_document.h"

#include <gmock/gmock.h>

#include "support/fake_utilities.h"
#include "support/memory_files.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;

struct ReferenceRow {
  TextView reference;
  const char* path;
  const char* anchor;
  const char* extension;
  std::int32_t number;
  DocumentKind kind;
};

constexpr auto kText = DocumentKind::kText;
constexpr auto kPage = DocumentKind::kPage;
constexpr auto kVideo = DocumentKind::kVideo;
constexpr auto kPicture = DocumentKind::kPicture;

const ReferenceRow kReferences[] = {
    {u"a.txt#3", "a.txt", "3", "TXT", 3, kText},
    {u"a.txt", "a.txt", "", "TXT", -1, kPage},
    {u"a.txt#", "a.txt", "", "TXT", -1, kPage},
    {u"a.txt#part", "a.txt", "part", "TXT", -1, kPage},
    {u"a.txt# 7b", "a.txt", " 7b", "TXT", 7, kText},
    {u"a.txt#-1", "a.txt", "-1", "TXT", -1, kPage},  // the number that means none
    {u"a.txt#-2", "a.txt", "-2", "TXT", -2, kText},
    {u"a.b.txt#3", "a.b.txt", "3", "TXT", 3, kText},
    {u"a.avi", "a.avi", "", "AVI", -1, kVideo},
    {u"a.AVI#2", "a.AVI", "2", "AVI", 2, kVideo},
    {u"a.bmp", "a.bmp", "", "BMP", -1, kPicture},
    {u"a.jpg", "a.jpg", "", "JPG", -1, kPage},
    {u"a.Gif", "a.Gif", "", "GIF", -1, kPage},
    {u"a.htm#oil", "a.htm", "oil", "HTM", -1, kPage},
    {u"a.html#5", "a.html", "5", "HTML", 5, kPage},
    // Anything not found counts as text.
    {u"a.doc", "a.doc", "", "DOC", -1, kPage},
    {u"a.doc#4", "a.doc", "4", "DOC", 4, kText},
    {u"a", "a", "", "", -1, kPage},
    {u"a#4", "a", "4", "", 4, kText},
    {u"a.", "a.", "", "", -1, kPage},
    {u"C:\\x.y\\a", "C:\\x.y\\a", "", "", -1, kPage},
    {u"C:\\x.y\\a.bmp#1#2", "C:\\x.y\\a.bmp", "1#2", "BMP", 1, kPicture},
    // The extension is looked for in one text of all extensions, so its beginning is enough. What is found at another
    // place counts as text.
    {u"a.a", "a.a", "", "A", -1, kVideo},
    {u"a.b", "a.b", "", "B", -1, kPicture},
    {u"a.jp", "a.jp", "", "JP", -1, kPage},
    {u"a.h#1", "a.h", "1", "H", 1, kPage},
    {u"a.xt#1", "a.xt", "1", "XT", 1, kText},
    {u"a.m#1", "a.m", "1", "M", 1, kText},
    {u"a.t m#1", "a.t m", "1", "T M", 1, kText},
    {u"a.avi bmp", "a.avi bmp", "", "AVI BMP", -1, kVideo},
};

TEST(PlcDocument, AReferenceIsSplitAndItsKindFound) {
  for (const ReferenceRow& row : kReferences) {
    SCOPED_TRACE(ToUtf8(row.reference));
    const DocumentReference parts = SplitReference(row.reference);
    EXPECT_EQ(ToUtf8(parts.path), row.path);
    EXPECT_EQ(ToUtf8(parts.anchor), row.anchor);
    EXPECT_EQ(ToUtf8(parts.extension), row.extension);
    EXPECT_EQ(parts.number, row.number);
    EXPECT_EQ(parts.Kind(), row.kind);
  }
}

TEST(PlcDocument, TheFolderIsThePartBeforeTheFileName) {
  EXPECT_EQ(SplitReference(u"C:\\a\\b.htm#x\\y").Folder(), u"C:\\a");
  EXPECT_EQ(SplitReference(u"C:\\b.htm").Folder(), u"C:");
  EXPECT_EQ(SplitReference(u"C:/a/b.htm").Folder(), u"C:/a");
  EXPECT_EQ(SplitReference(u"b.htm").Folder(), u"");
}

class ResolveFileTest : public testing::Test {
 protected:
  std::string Resolve(TextView reference) { return ToUtf8(ResolveFile(files_, utilities_, reference)); }
  /// Counts the folders that it is asked for.
  class CountingUtilities final : public FakeUtilities {
   public:
    int folders = 0;
    Text Get7340Path(int id) override { return ++folders, FakeUtilities::Get7340Path(id); }
  };
  MemoryFiles files_;
  CountingUtilities utilities_;
};

TEST_F(ResolveFileTest, AnEmptyReferenceStaysEmptyAndIsLookedForNowhere) {
  EXPECT_EQ(Resolve(u""), "");
  EXPECT_EQ(utilities_.folders, 0);
  EXPECT_EQ(Resolve(u"a.txt"), "a.txt");
  EXPECT_EQ(utilities_.folders, 2);
}

TEST_F(ResolveFileTest, AReferenceWithAFolderStaysAsItIs) {
  // Below the first folder there would be one.
  files_.disc["C:\\P61\\a.txt"] = files_.disc["C:\\P61\\X\\a.txt"] = files_.disc["X\\X\\a.txt"] = "";
  for (const char* reference : {"C:\\X\\a.txt#1", "X\\a.txt", "X/a.txt", "C:a.txt"}) {
    EXPECT_EQ(Resolve(FromUtf8(reference)), reference);
  }
}

TEST_F(ResolveFileTest, TheFirstReadableFileOfTheTwoFoldersWins) {
  files_.disc["C:\\P15\\a.txt"] = "second";
  EXPECT_EQ(Resolve(u"a.txt#3"), "C:\\P15\\a.txt#3");
  files_.disc["C:\\P61\\a.txt"] = "first";
  EXPECT_EQ(Resolve(u"a.txt#3"), "C:\\P61\\a.txt#3");
  files_.unreadable.insert("C:\\P61\\a.txt");
  EXPECT_EQ(Resolve(u"a.txt#3"), "C:\\P15\\a.txt#3");
  files_.unreadable.insert("C:\\P15\\a.txt");
  EXPECT_EQ(Resolve(u"a.txt#3"), "a.txt#3");
}

TEST_F(ResolveFileTest, OnlyTheTextBeforeTheHashNamesAFile) {
  files_.disc["C:\\P61\\a.htm"] = "";
  EXPECT_EQ(Resolve(u"a.htm#x/y"), "C:\\P61\\a.htm#x/y") << "the slash is in the anchor";
  EXPECT_TRUE(IsReadable(files_, u"C:\\P61\\a.htm#anything"));
  EXPECT_FALSE(IsReadable(files_, u"C:\\P61\\b.htm"));
  EXPECT_FALSE(IsReadable(files_, u"C:\\P61"));
  EXPECT_FALSE(IsReadable(files_, u"#1"));
  EXPECT_FALSE(IsReadable(files_, u""));
}

TEST_F(ResolveFileTest, TheFoldersOfASearchAreKnown) {
  EXPECT_THAT(PlacesOfFile(utilities_, u"a.txt"), ElementsAre(u"C:\\P61", u"C:\\P15"));
  EXPECT_THAT(PlacesOfFile(utilities_, u"C:\\X\\a.txt#1"), ElementsAre(u"C:\\X"));
  EXPECT_THAT(PlacesOfFile(utilities_, u"a.txt#x/y"), ElementsAre(u"C:\\P61", u"C:\\P15"));
  EXPECT_THAT(PlacesOfFile(utilities_, u"C:a.txt#1"), ElementsAre(u"C:a.txt"))
      << "no folder can be told from the drive";
}

}  // namespace
}  // namespace pnl::test
