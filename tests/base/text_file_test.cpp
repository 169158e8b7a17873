// SPDX-License-Identifier: MIT
#include "base/text_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <random>

#include "support/failing_files.h"
#include "support/temp_folder.h"

namespace pnl {
namespace {

class TextFileTest : public testing::Test {
 protected:
  TextFileTest() { drives.Set('C', temp.Path().string()); }
  std::vector<Text> Lines(const std::string& bytes) {
    temp.Write("a.dat", bytes);
    CStdioFileEx file(files);
    EXPECT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
    std::vector<Text> lines;
    for (Text line; file.ReadString(line);) lines.push_back(line);
    Text after = u"kept";
    EXPECT_FALSE(file.ReadString(after));
    EXPECT_EQ(after, u"");
    return lines;
  }
  std::vector<Text> Buffers(const std::string& bytes, int size) {
    temp.Write("a.dat", bytes);
    CStdioFileEx file(files);
    EXPECT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
    std::vector<Text> lines;
    std::vector<char16_t> buffer(static_cast<std::size_t>(size), u'?');
    while (file.ReadString(buffer.data(), size) != nullptr) lines.emplace_back(buffer.data());
    return lines;
  }

  test::TempFolder temp;
  DriveMap drives;
  DiscFiles files{drives};
};

using Texts = std::vector<Text>;

TEST_F(TextFileTest, ALineEndsAtLfCrLfOrALoneCr) {
  const struct {
    std::string bytes;
    Texts lines;
  } rows[] = {
      {"", {}},
      {"a", {u"a"}},
      {"a\n", {u"a"}},
      {"a\r\nb\r\n", {u"a", u"b"}},
      {"a\nb", {u"a", u"b"}},
      {"a\rb\r", {u"a", u"b"}},
      {"\n\r\n\r", {u"", u"", u""}},
      {"a\n\rb", {u"a", u"", u"b"}},
      {"a\r\r\nb", {u"a", u"", u"b"}},
      {std::string("a\0b\n\0\n", 6), {Text(u"a\0b", 3), Text(1, u'\0')}},
      {"\xEF\xBB\xBF\xC3\xB1\r\n", {u"ñ"}},
      {"\xF1\n", {u"ñ"}},
      {std::string("\xFF\xFE\xF1\0\r\0\n\0b\0", 10), {u"ñ", u"b"}},
      {std::string("\xFE\xFF\0\xF1\0\n", 6), {u"ñ"}},
  };
  for (const auto& row : rows) EXPECT_EQ(Lines(row.bytes), row.lines) << row.bytes;
}

TEST_F(TextFileTest, LinesComeOutWholeAcrossThePiecesOfALargeFile) {
  std::mt19937 random(6);
  for (const char* ending : {"\n", "\r\n", "\r"}) {
    std::string bytes;
    Texts expected;
    while (bytes.size() < 400'000) {
      std::string line(random() % 4 == 0 ? 0 : random() % 30'000, 'x');
      for (std::size_t i = 0; i + 3 < line.size(); i += 3) line.replace(i, 3, "\xE2\x82\xAC");
      expected.push_back(FromUtf8(line));
      bytes += line + ending;
    }
    EXPECT_TRUE(Lines(bytes) == expected);
  }
}

TEST_F(TextFileTest, ACharacterCutByTheEndOfAPieceIsWhole) {
  constexpr std::size_t kPiece = std::size_t{1} << 16;
  for (const std::string character : {"\xC3\xB1", "\xE2\x82\xAC", "\xF0\x9F\x98\x80"}) {
    for (std::size_t before = 0; before <= character.size(); ++before) {
      const std::string text = std::string(kPiece - before, 'x') + character + "y";
      EXPECT_TRUE(Lines(text) == Texts{FromUtf8(text)}) << character << " with " << before << " bytes in front";
    }
  }
}

TEST_F(TextFileTest, OneWrongByteAtTheEndMakesALargeFileLatin1) {
  std::string bytes(200'000, 'x');
  bytes += "\xC3\xB1";
  EXPECT_EQ(Lines(bytes)[0].back(), u'ñ');
  bytes += "\xC3";
  EXPECT_EQ(Lines(bytes)[0].substr(200'000), u"Ã±Ã");
}

TEST_F(TextFileTest, ReadsWhatDecodeFileReads) {
  std::mt19937 random(8);
  const std::string letters("ab\x80\xC2\xA0\xE2\x82\xAC\xF0\x9F\x98\x80\xFF\xFE\xEF\xBB\xBF\0", 18);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(random() % 12, ' ');
    for (char& c : bytes) c = letters[random() % letters.size()];
    Text expected = DecodeFile(bytes);
    Text text;
    for (const Text& line : Lines(bytes)) text += line;
    std::erase_if(expected, [](char16_t c) { return c == u'\n' || c == u'\r'; });
    ASSERT_EQ(text, expected);
  }
}

TEST_F(TextFileTest, ABufferTakesALineWithOneLineFeed) {
  EXPECT_EQ(Buffers("ab\r\ncd\ne\rf", 100), (Texts{u"ab\n", u"cd\n", u"e\n", u"f"}));
  EXPECT_EQ(Buffers("\r\n\n", 100), (Texts{u"\n", u"\n"}));
  EXPECT_EQ(Buffers("", 100), Texts{});
}

TEST_F(TextFileTest, ABufferThatIsTooSmallTakesALineInParts) {
  EXPECT_EQ(Buffers("abcde\r\nf", 4), (Texts{u"abc", u"de\n", u"f"}));
  EXPECT_EQ(Buffers("abc\r\nd", 4), (Texts{u"abc", u"\n", u"d"}));
  EXPECT_EQ(Buffers("abc\r\nd", 5), (Texts{u"abc\n", u"d"}));
}

TEST_F(TextFileTest, ABufferForNothingTakesNothing) {
  temp.Write("a.dat", "ab");
  CStdioFileEx file(files);
  char16_t buffer[2] = {u'?', u'?'};
  EXPECT_EQ(file.ReadString(buffer, 2), nullptr);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
  EXPECT_EQ(file.ReadString(buffer, 0), nullptr);
  EXPECT_EQ(file.ReadString(buffer, -1), nullptr);
  EXPECT_EQ(buffer[0], u'?');
  EXPECT_EQ(file.ReadString(buffer, 1), buffer);
  EXPECT_EQ(buffer[0], u'\0');
  EXPECT_EQ(buffer[1], u'?');
  EXPECT_EQ(file.TCHAR_Seek(0, CStdioFileEx::kCurrent), 0);
}

TEST_F(TextFileTest, SeeksByUnitsOfTheText) {
  temp.Write("a.dat",
             "\xEF\xBB\xBF\xC3\xB1"
             "b\r\nc\xF0\x9F\x98\x80"
             "d");
  CStdioFileEx file(files);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
  const struct {
    std::int64_t offset;
    int origin;
    std::int64_t position;
    TextView rest;
  } rows[] = {
      {0, CStdioFileEx::kEnd, 8, u""},     {1, CStdioFileEx::kBegin, 1, u"b"},
      {0, CStdioFileEx::kBegin, 0, u"ñb"}, {4, CStdioFileEx::kBegin, 4, u"c\U0001F600d"},
      {-1, CStdioFileEx::kEnd, 7, u"d"},   {-8, CStdioFileEx::kEnd, 0, u"ñb"},
      {3, CStdioFileEx::kBegin, 3, u""},  // between CR and LF
  };
  for (const auto& row : rows) {
    EXPECT_EQ(file.TCHAR_Seek(row.offset, row.origin), row.position);
    Text rest;
    file.ReadString(rest);
    EXPECT_EQ(rest, row.rest);
  }
  EXPECT_EQ(file.TCHAR_Seek(1, CStdioFileEx::kBegin), 1);
  EXPECT_EQ(file.TCHAR_Seek(3, CStdioFileEx::kCurrent), 4);
  EXPECT_EQ(file.TCHAR_Seek(-2, CStdioFileEx::kCurrent), 2);
}

TEST_F(TextFileTest, ASeekOutsideTheFileStaysWhereItWas) {
  temp.Write("a.dat", "abc");
  CStdioFileEx file(files);
  EXPECT_EQ(file.TCHAR_Seek(0, CStdioFileEx::kBegin), -1);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
  ASSERT_EQ(file.TCHAR_Seek(1, CStdioFileEx::kBegin), 1);
  for (const auto& [offset, origin] : std::initializer_list<std::pair<std::int64_t, int>>{{4, 0},
                                                                                          {-1, 0},
                                                                                          {3, 1},
                                                                                          {-2, 1},
                                                                                          {1, 2},
                                                                                          {-4, 2},
                                                                                          {INT64_MAX, 1},
                                                                                          {INT64_MIN, 0},
                                                                                          {INT64_MIN, 2},
                                                                                          {0, 3},
                                                                                          {0, -1}}) {
    EXPECT_EQ(file.TCHAR_Seek(offset, origin), -1) << offset << " from " << origin;
    EXPECT_EQ(file.TCHAR_Seek(0, CStdioFileEx::kCurrent), 1);
  }
}

TEST_F(TextFileTest, WritesTextAsItIsWhenClosed) {
  temp.Write("a.dat", "old");
  CStdioFileEx file(files);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreate));
  EXPECT_TRUE(file.WriteString(u"ñ\r\n"));
  EXPECT_TRUE(file.WriteString(Text(u"a\0b\n", 4)));
  // A pair of units may come in two calls.
  EXPECT_TRUE(file.WriteString(Text(1, char16_t{0xD83D})));
  EXPECT_TRUE(file.WriteString(Text(1, char16_t{0xDE00})));
  EXPECT_EQ(temp.Read("a.dat"), "old");
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(temp.Read("a.dat"), std::string("\xC3\xB1\r\na\0b\n\xF0\x9F\x98\x80", 12));
  EXPECT_FALSE(file.WriteString(u"x"));
}

TEST_F(TextFileTest, AnEmptyWriteEmptiesTheFile) {
  temp.Write("a.dat", "old");
  CStdioFileEx file(files);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreateExclusive));
  EXPECT_TRUE(file.Close());
  EXPECT_TRUE(temp.Has("a.dat"));
  EXPECT_EQ(temp.Read("a.dat"), "");
}

TEST_F(TextFileTest, TheDestructorStoresWhatWasWritten) {
  {
    CStdioFileEx file(files);
    ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreate));
    file.WriteString(u"kept");
  }
  EXPECT_EQ(temp.Read("a.dat"), "kept");
}

TEST_F(TextFileTest, OpeningAnotherFileClosesTheFirst) {
  CStdioFileEx file(files);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreate));
  file.WriteString(u"first");
  ASSERT_TRUE(file.Open(u"C:\\b.dat", CStdioFileEx::kCreate));
  file.WriteString(u"second");
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(temp.Read("a.dat"), "first");
  EXPECT_EQ(temp.Read("b.dat"), "second");
}

TEST_F(TextFileTest, OpensOnlyInTheWaysItKnows) {
  temp.Write("a.dat", "x");
  const struct {
    unsigned flags;
    bool there;
    bool opens;
  } rows[] = {
      {0x4000, true, true},  {0x4000, false, false},  // read
      {0x8040, true, true},                           // read, binary, shared
      {0x5001, true, true},  {0x5001, false, true},   // create and write
      {0x1021, true, true},  {0x1021, false, true},  {0x0001, true, true}, {0x0001, false, false},  // write
      {0x1000, true, true},                                                                         // create
      {0x0002, true, false}, {0x5002, true, false},                                                 // read and write
      {0x7001, true, false},  // keep what is there
  };
  for (const auto& row : rows) {
    CStdioFileEx file(files);
    EXPECT_EQ(file.Open(row.there ? u"C:\\a.dat" : u"C:\\none.dat", row.flags), row.opens) << std::hex << row.flags;
    EXPECT_EQ(file.IsOpen(), row.opens);
    file.Close();
    std::filesystem::remove(temp.Path() / "none.dat");
  }
}

TEST_F(TextFileTest, WhatCantBeOpenedIsToldAtOnce) {
  temp.Write("locked.dat", "x");
  chmod((temp.Path() / "locked.dat").c_str(), 0444);
  std::filesystem::create_directory(temp.Path() / "dir");
  CStdioFileEx file(files);
  EXPECT_FALSE(file.Open(u"C:\\locked.dat", CStdioFileEx::kCreate));
  EXPECT_TRUE(file.Open(u"C:\\locked.dat", CStdioFileEx::kRead));
  EXPECT_FALSE(file.WriteString(u"x"));
  EXPECT_TRUE(file.Close());
  for (const unsigned flags : {CStdioFileEx::kRead, CStdioFileEx::kCreate}) {
    EXPECT_FALSE(file.Open(u"C:\\dir", flags));
    EXPECT_FALSE(file.Open(u"C:\\none\\a.dat", flags));
    EXPECT_FALSE(file.Open(u"D:\\a.dat", flags));
    EXPECT_FALSE(file.Open(u"", flags));
  }
  Text line;
  EXPECT_FALSE(file.ReadString(line));
  EXPECT_TRUE(file.Close());
  chmod((temp.Path() / "locked.dat").c_str(), 0);
  EXPECT_FALSE(file.Open(u"C:\\locked.dat", CStdioFileEx::kRead));
}

TEST_F(TextFileTest, AFailedCloseLeavesTheFileOnTheDisc) {
  temp.Write("a.dat", "old");
  test::FailingFiles full(files);
  CStdioFileEx file(full);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreate));
  full.SetRoom(2);
  EXPECT_TRUE(file.WriteString(u"new"));
  EXPECT_FALSE(file.Close());
  EXPECT_EQ(temp.Read("a.dat"), "old");
  EXPECT_FALSE(file.IsOpen());
  EXPECT_TRUE(file.Close());
}

TEST_F(TextFileTest, AReadThatBreaksOffEndsTheFile) {
  temp.Write("a.dat", "first\nsecond\n");
  test::FailingFiles broken(files);
  for (std::uint64_t good = 0; good < 14; ++good) {
    broken.Heal();
    broken.FailReadsAfter(u"C:\\a.dat", good);
    CStdioFileEx file(broken);
    ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
    Text all;
    for (Text line; file.ReadString(line);) all += line;
    EXPECT_TRUE(TextView(u"firstsecond").starts_with(all));
    EXPECT_TRUE(file.ReadFailed()) << good;
  }
}

TEST_F(TextFileTest, AFileReadToItsEndHasNotFailed) {
  test::FailingFiles broken(files);
  temp.Write("a.dat", "first\nsecond\n");
  CStdioFileEx file(broken);
  EXPECT_FALSE(file.ReadFailed());
  broken.FailReadsAfter(u"C:\\a.dat", 3);
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
  for (Text line; file.ReadString(line);) {
  }
  EXPECT_TRUE(file.ReadFailed());
  EXPECT_TRUE(file.Close());
  EXPECT_FALSE(file.ReadFailed()) << "of a closed file nothing is left";
  broken.Heal();
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
  for (Text line; file.ReadString(line);) EXPECT_FALSE(file.ReadFailed());
  EXPECT_FALSE(file.ReadFailed());
}

TEST_F(TextFileTest, TellsWhatKindOfFileIsOpen) {
  CStdioFileEx file(files);
  EXPECT_FALSE(file.IsFileUnicodeText());
  EXPECT_FALSE(file.IsFileModifiableByExt());
  const struct {
    std::string bytes;
    bool unicode;
  } rows[] = {{"\xF1", false}, {"\xC3\xB1", true}, {"a", true}, {"\xEF\xBB\xBF\xF1", true}, {"\xFF\xFE", true}};
  for (const auto& row : rows) {
    temp.Write("a.dat", row.bytes);
    ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
    EXPECT_EQ(file.IsFileUnicodeText(), row.unicode) << row.bytes;
    EXPECT_TRUE(file.IsFileModifiableByExt());
    EXPECT_FALSE(file.IsFileEncryptedText());
  }
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreate));
  EXPECT_TRUE(file.IsFileUnicodeText());
  EXPECT_TRUE(file.IsFileModifiableByExt());
  ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kCreateExclusive));
  EXPECT_FALSE(file.IsFileModifiableByExt());
}

TEST_F(TextFileTest, ALineOfManyMegabytesIsOneLine) {
  const std::vector<Text> lines = Lines(std::string(20'000'000, 'x'));
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_EQ(lines[0].size(), 20'000'000u);
}

TEST_F(TextFileTest, AByteIsFoundInEveryEncodingAndAWrongOneLeavesThePlace) {
  struct Row {
    std::string bytes;
    std::int64_t byte;
    TextView rest;          // "none" where there is no such byte
    std::int64_t position;  // in units of the text
  };
  const Row rows[] = {
      {"AB\xC3\xB1"
       "C",
       4, u"C", 3},
      {"AB\xC3\xB1"
       "C",
       3, u"\u00F1C", 2},
      {"AB\xC3\xB1"
       "C",
       5, u"", 4},
      {"AB\xC3\xB1"
       "C",
       6, u"none", 0},
      {"AB", -1, u"none", 0},
      {"\xEF\xBB\xBF"
       "AB",
       1, u"AB", 0},
      {"\xEF\xBB\xBF"
       "AB",
       4, u"B", 1},
      {"\xF1"
       "AB",
       2, u"B", 2},
      {std::string("\xFF\xFE"
                   "A\0B\0",
                   6),
       4, u"B", 1},
      {std::string("\xFF\xFE"
                   "A\0B\0",
                   6),
       5, u"B", 1},
      {std::string(200'000, 'x') + "\xC3\xB1z", 200'002, u"z", 200'001},
  };
  for (const Row& row : rows) {
    temp.Write("a.dat", row.bytes);
    CStdioFileEx file(files);
    ASSERT_TRUE(file.Open(u"C:\\a.dat", CStdioFileEx::kRead));
    ASSERT_EQ(file.TCHAR_Seek(1, CStdioFileEx::kBegin), 1);
    const bool there = row.rest != u"none";
    EXPECT_EQ(file.SeekByte(row.byte), there) << row.byte;
    EXPECT_EQ(file.TCHAR_Seek(0, CStdioFileEx::kCurrent), there ? row.position : 1) << row.byte;
    Text rest = u"none";
    if (there && !file.ReadString(rest)) rest.clear();
    EXPECT_EQ(rest, row.rest) << row.byte;
  }
  CStdioFileEx closed(files);
  EXPECT_FALSE(closed.SeekByte(0));
}

}  // namespace
}  // namespace pnl
