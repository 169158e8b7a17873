// SPDX-License-Identifier: MIT
#include "explorer/xplr_preview.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "explorer/xplr_rig.h"

namespace pnl::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<Text>;

struct LinesCase {
  const char* why;
  std::string bytes;
  Lines lines;
};

TEST(XplrPreviewLines, TheBeginningIsReadAsThePanelReadsTextFiles) {
  const LinesCase rows[] = {
      {"empty", "", {}},
      {"line ends of all systems", "a\nb\r\nc\rd", {u"a", u"b", u"c", u"d"}},
      {"an end at the end makes no line", "a\n", {u"a"}},
      {"empty lines count", "\n\r\n\ra", {u"", u"", u"", u"a"}},
      {"UTF-8", "\xC3\xA9\n", {u"\u00E9"}},
      {"UTF-8 with its mark", "\xEF\xBB\xBFG0\n", {u"G0"}},
      {"UTF-16, which has zero bytes", std::string("\xFF\xFEG\0000\0", 6), {u"G0"}},
      {"UTF-16 the other way round", std::string("\xFE\xFF\0G\0000", 6), {u"G0"}},
      {"Latin-1", "\xE9t\xE9\n", {u"\u00E9t\u00E9"}},
      {"no text", std::string("G0\n\0G1", 6), {}},
      {"tabs lead to columns of eight", "a\tb\tc", {u"a       b       c"}},
      {"control characters are left out",
       "a\x1B[1m\x7F"
       "b\x01",
       {u"a[1mb"}},
      {"a blank line of blanks", "  \n", {u"  "}},
  };
  for (const LinesCase& row : rows) EXPECT_TRUE(FirstLines(row.bytes, true) == row.lines) << row.why;
}

TEST(XplrPreviewLines, TwelveLinesAreShown) {
  std::string bytes;
  for (int i = 1; i <= 20; ++i) bytes += "N" + std::to_string(i) + "\n";
  const Lines lines = FirstLines(bytes, true);
  ASSERT_EQ(lines.size(), 12u);
  EXPECT_TRUE(lines.front() == u"N1");
  EXPECT_TRUE(lines.back() == u"N12");
}

TEST(XplrPreviewLines, ACharacterThatIsCutAtTheEndDoesNotMakeTheTextLatin1) {
  for (const std::string tail : {"\xC3", "\xE2\x82", "\xF0\x9F\x98", "\xF0"}) {
    EXPECT_TRUE(FirstLines("\xC3\xA9" + tail, false) == Lines{u"\u00E9"}) << tail.size();
  }
  EXPECT_TRUE(FirstLines("\xC3\xA9\xC3\xA9", false) == Lines{u"\u00E9\u00E9"}) << "nothing is cut";
  EXPECT_TRUE(FirstLines("\xC3\xA9\xC3", true) == Lines{u"\u00C3\u00A9\u00C3"}) << "the whole file isn't UTF-8";
  EXPECT_TRUE(FirstLines("\xC3", false).empty());
}

TEST(XplrPreviewLines, ALineWithoutEndIsCut) {
  const Lines lines = FirstLines(std::string(4096, 'x'), false);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].size(), 200u);
}

TEST(XplrPreviewLines, OnlyACharacterThatIsReallyCutIsLeftOut) {
  const struct {
    const char* bytes;
    TextView line;
  } rows[] = {
      {"\xC3\xA9 a", u"\u00E9 a"},
      {"\xE2\x82\xAC", u"\u20AC"},
      {"\xF0\x9F\x98\x80", u"\U0001F600"},
      {"a\xC2\x80", u"a\u0080"},
      {"\xE2\x82\xAC\xE2", u"\u20AC"},
      {"\xE2\x82\xAC\xF0\x9F", u"\u20AC"},
      {"\xC3\xA9\x7F", u"\u00E9"},
      // No character is so long, so nothing is cut: the text isn't UTF-8.
      {"\xC3\xA9\xE2\x82\x82\x82\x82", u"\u00C3\u00A9\u00E2\u0082\u0082\u0082\u0082"},
  };
  for (const auto& row : rows) {
    const Lines lines = FirstLines(row.bytes, false);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(ToUtf8(lines[0]), ToUtf8(row.line));
  }
}

TEST(XplrPreviewLines, ALineOfTheGreatestLengthIsWhole) {
  for (const std::size_t length : {199u, 200u, 201u}) {
    const Lines lines = FirstLines(std::string(length, 'x') + "\nG1", true);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].size(), std::min<std::size_t>(length, 200));
    EXPECT_TRUE(lines[1] == u"G1");
  }
}

class XplrPreviewTest : public testing::Test {
 protected:
  XplrPreviewTest() {
    Disc().bytes[u"C:\\CNC\\A.NC"] = "G0 X1\nM30\n";
    Disc().bytes[u"C:\\CNC\\B.NC"] = "G1\n";
    ground_.Take();
  }
  FakeDisc& Disc() { return *ground_.places.disc; }
  static XplrRow File(TextView name, std::int32_t length = 1) {
    XplrRow row;
    row.name = name;
    row.flags = item_flag::kSelectable;
    row.length = length;
    return row;
  }
  void Select(const XplrRow& row) { preview_.OnSelected(u"C:\\CNC", &row); }

  XplrGround<SteppedWorker> ground_;
  XplrPreview preview_{ground_.places, ground_.jobs, ground_.access};
};

TEST_F(XplrPreviewTest, TheLinesComeFromAnotherThread) {
  preview_.SetThere(true);
  EXPECT_THAT(ground_.Take(), ElementsAre("view preview  0"));
  Select(File(u"A.NC"));
  EXPECT_THAT(ground_.Take(), IsEmpty());
  ground_.worker.RunAll();
  EXPECT_TRUE((ground_.view.preview == XplrPreviewFace{true, u"A.NC", {u"G0 X1", u"M30"}}));
  EXPECT_THAT(Disc().asked, ElementsAre(u"read C:\\CNC\\A.NC"));
}

TEST_F(XplrPreviewTest, WithoutRoomNothingIsRead) {
  Select(File(u"A.NC"));
  ground_.worker.RunAll();
  EXPECT_THAT(Disc().asked, IsEmpty());
  preview_.SetThere(true);
  ground_.worker.RunAll();
  EXPECT_TRUE(ground_.view.preview.name == u"A.NC") << "read when there is room";
  preview_.SetThere(false);
  EXPECT_TRUE(ground_.view.preview == XplrPreviewFace{});
}

TEST_F(XplrPreviewTest, WhatComesForAnEarlierSelectionIsDropped) {
  preview_.SetThere(true);
  Select(File(u"A.NC"));
  Select(File(u"B.NC"));
  ground_.Take();
  ground_.worker.RunAll();
  EXPECT_THAT(ground_.Take(), ElementsAre("view preview B.NC 1"));
  Select(File(u"A.NC"));
  EXPECT_THAT(ground_.Take(), ElementsAre("view preview  0")) << "another file's lines don't stay";
  preview_.OnSelected(u"C:\\CNC", nullptr);
  ground_.worker.RunAll();
  EXPECT_THAT(ground_.Take(), IsEmpty());
}

TEST_F(XplrPreviewTest, TheSameFileIsReadAgainOnlyWhenItHasChanged) {
  preview_.SetThere(true);
  Select(File(u"A.NC"));
  ground_.worker.RunAll();
  ground_.Take();
  Select(File(u"A.NC"));
  EXPECT_EQ(ground_.worker.Waits(), 0u);
  EXPECT_THAT(ground_.Take(), IsEmpty());
  Select(File(u"A.NC", 2));
  EXPECT_EQ(ground_.worker.Waits(), 1u);
}

TEST_F(XplrPreviewTest, FoldersAndFilesThatAreNoTextShowNothing) {
  preview_.SetThere(true);
  Disc().bytes[u"C:\\CNC\\X.BIN"] = std::string("\0\1", 2);
  ground_.Take();
  XplrRow folder = File(u"SUB");
  folder.flags = item_flag::kFolder;
  Select(folder);
  EXPECT_EQ(ground_.worker.Waits(), 0u);
  for (const TextView name : {u"X.BIN", u"GONE.NC"}) {
    Select(File(name));
    ground_.worker.RunAll();
  }
  EXPECT_THAT(ground_.Take(), IsEmpty());
}

TEST_F(XplrPreviewTest, AtMost4096BytesAreRead) {
  preview_.SetThere(true);
  Disc().bytes[u"C:\\CNC\\LONG.NC"] = std::string(4095, '\n') + "\xC3\xA9";
  Select(File(u"LONG.NC"));
  ground_.worker.RunAll();
  EXPECT_EQ(ground_.view.preview.lines.size(), 12u);
}

TEST_F(XplrPreviewTest, WhatIsReadUpToTheLastByteMayGoOn) {
  preview_.SetThere(true);
  Disc().bytes[u"C:\\CNC\\LONG.NC"] = "\xC3\xA9\n" + std::string(4092, '\n') + "\xC3\xA9";
  Select(File(u"LONG.NC"));
  ground_.worker.RunAll();
  ASSERT_FALSE(ground_.view.preview.lines.empty());
  EXPECT_TRUE(ground_.view.preview.lines[0] == u"\u00E9") << "the last character is cut, not wrong";
}

TEST_F(XplrPreviewTest, WithoutAWorkerItShowsNothing) {
  ground_.worker.refuses = true;
  preview_.SetThere(true);
  Select(File(u"A.NC"));
  EXPECT_TRUE(ground_.view.preview.lines.empty());
}

}  // namespace
}  // namespace pnl::test
