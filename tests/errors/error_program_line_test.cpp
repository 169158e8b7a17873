// SPDX-License-Identifier: MIT
#include "errors/error_program_line.h"

#include <gtest/gtest.h>

#include "errors/error_fixture.h"

namespace pnl::test {
namespace {

class ErrorProgramLine : public ErrorFixture {
 protected:
  ProgramLines Read(std::int32_t position, std::int32_t span) {
    return ReadProgramLines({u"C:\\P\\A.NC", position, span}, ProgramCaptionsOf(words), disc);
  }
  std::string& Program() { return disc.disc["C:\\P\\A.NC"]; }
  std::int32_t LinesTo(std::int32_t position) {
    CStdioFileEx file(disc);
    EXPECT_TRUE(file.Open(u"C:\\P\\A.NC", CStdioFileEx::kRead));
    file.TCHAR_Seek(3, CStdioFileEx::kBegin);
    const std::int32_t lines = CountLines(position, file);
    EXPECT_EQ(file.TCHAR_Seek(0, CStdioFileEx::kCurrent), 3) << "the place must be as before";
    return lines;
  }
};

TEST_F(ErrorProgramLine, ComesFromThePlaceThatTheSourceUses) {
  RecordBuilder record;
  record.Source(1)
      .Text(error_field::kProgramPath, u"C:\\A")
      .Text(error_field::kProgramName, u"ONE.NC")
      .Int(error_field::kFilePosition, 11)
      .Word(error_field::kFileSpan, 22)
      .Text(error_field::kScriptPath, u"C:\\B\\")
      .Int(error_field::kScriptPosition, 33)
      .Word(error_field::kScriptSpan, 44);
  const ProgramPlace program = ProgramPlaceOf(record);
  EXPECT_EQ(ToUtf8(program.path), "C:\\A\\ONE.NC");
  EXPECT_EQ(program.position, 11);
  EXPECT_EQ(program.span, 22);
  const ProgramPlace script = ProgramPlaceOf(record.Source(9));
  EXPECT_EQ(ToUtf8(script.path), "C:\\B\\ONE.NC");
  EXPECT_EQ(script.position, 33);
  EXPECT_EQ(script.span, 44);
}

TEST_F(ErrorProgramLine, APathHasWhatFitsInItsFields) {
  RecordBuilder record;
  record.Source(9).Text(error_field::kScriptPath, Text(121, u'a')).Text(error_field::kProgramName, Text(63, u'b'));
  EXPECT_EQ(ProgramPlaceOf(record).path.size(), 121u + 1 + 63);
  ErrorRecord hostile = record;
  for (std::size_t at = error_field::kProgramName.offset; at < 1216; at += 2) hostile.Set(at, u'x');
  EXPECT_EQ(ProgramPlaceOf(hostile).path.size(), 122u + 1 + 64) << "fields without an end";
}

TEST_F(ErrorProgramLine, APathThatFitsStaysBehindItsCaption) {
  widths.available = 8 * 10;
  EXPECT_EQ(ToUtf8(ComposePathLine(u"C:\\AB\\C.NC", words, widths)), "\nT237  C:\\AB\\C.NC");
}

TEST_F(ErrorProgramLine, APathThatIsTooWideLosesItsMiddleAndItsCaption) {
  widths.available = 8 * 24;
  const Text path = u"C:\\USERS\\PRG\\SOMETHING\\LONGER\\PART.NC";
  // 37 units of 8: 9 a unit at most, 104 too many, so 12 go at least; "C:\USERS\" is kept, and names go whole.
  EXPECT_EQ(ToUtf8(ComposePathLine(path, words, widths)), "C:\\USERS\\..\\PART.NC");
}

struct ShortenCase {
  const char16_t* path;
  int width;
  int available;
  const char* expected;
};

TEST_F(ErrorProgramLine, ShorteningKeepsHeadAndFileNameWhereItCan) {
  const ShortenCase cases[] = {
      {u"C:\\USERS\\PRG\\SOMETHING\\LONGER\\PART.NC", 296, 192, "C:\\USERS\\..\\PART.NC"},
      {u"C:\\USERS\\PRG\\SOMETHING\\LONGER\\PART.NC", 296, 290, "C:\\USERS\\..\\SOMETHING\\LONGER\\PART.NC"},
      {u"C:\\A\\B.NC", 72, 71, "C:\\A\\..NC"},
      {u"C:\\A\\B.NC", 72, 0, "C:\\A.."},
      {u"NOBACKSLASH", 88, 40, "N..ASH"},
      {u"\\", 8, 0, "\\.."},
      {u"C:\\\\\\\\\\X", 64, 8, "C:\\\\.."},
      {u"", 8, 0, ""},
  };
  for (const ShortenCase& row : cases) {
    EXPECT_EQ(ToUtf8(ShortenPath(row.path, row.width, row.available)), row.expected) << ToUtf8(row.path);
  }
}

TEST_F(ErrorProgramLine, ShorteningHoldsForAnyPathAndWidth) {
  for (std::size_t length = 0; length < 40; ++length) {
    for (std::size_t slash = 0; slash <= length; slash += 3) {
      Text path(length, u'a');
      if (slash < length) path[slash] = u'\\';
      for (const int width : {0, 1, 8, 100, 100000}) {
        for (const int available : {-5, 0, 50, 99999}) {
          const Text shortened = ShortenPath(path, width, available);
          EXPECT_LE(shortened.size(), 2 * path.size() + 2);
        }
      }
    }
  }
}

TEST_F(ErrorProgramLine, CountsLinesAsTheirLengthAndOne) {
  Program() = "AB\r\nCDE\r\nF\r\n";
  EXPECT_EQ(LinesTo(-1), 0);
  EXPECT_EQ(LinesTo(0), 1);
  EXPECT_EQ(LinesTo(1), 2);
  EXPECT_EQ(LinesTo(4), 2);
  EXPECT_EQ(LinesTo(5), 3);
  EXPECT_EQ(LinesTo(9), 3);
  EXPECT_EQ(LinesTo(12), 4);
  EXPECT_EQ(LinesTo(13), -1) << "the file ends before it";
}

// Each line counts one unit more than it has, its line feed included: right for CR LF, one too many for LF alone.
TEST_F(ErrorProgramLine, CountsALineFeedAloneAsTwoUnits) {
  Program() = "AB\nCDE\nF\n";
  EXPECT_EQ(LinesTo(4), 2);
  EXPECT_EQ(LinesTo(5), 3);
}

// With its line feed a line of 510 units fills the buffer exactly, and is a line all the same.
TEST_F(ErrorProgramLine, ALineThatFillsTheBufferWithItsEndIsALine) {
  Program() = std::string(510, 'x') + "\r\n" + "second\r\n";
  EXPECT_EQ(LinesTo(512), 2);
  EXPECT_EQ(LinesTo(513), 3);
  Program() = std::string(511, 'x') + "\r\n" + "second\r\n";
  EXPECT_EQ(LinesTo(512), 1) << "511 units leave no room for the end";
  EXPECT_EQ(LinesTo(513), 2);
}

TEST_F(ErrorProgramLine, APieceThatFillsTheBufferIsNoLine) {
  Program() = std::string(511, 'x') + std::string(511, 'y') + "z\r\nend\r\n";
  EXPECT_EQ(LinesTo(512), 1) << "the first piece counts 512 units and no line";
  EXPECT_EQ(LinesTo(1024), 1);
  EXPECT_EQ(LinesTo(1025), 2);
}

TEST_F(ErrorProgramLine, ShowsTheLineWithTheUnitMarked) {
  Program() = "G0 X1\r\nG1 X2 F0\r\nM30\r\n";
  const ProgramLines lines = Read(7, 12);
  EXPECT_EQ(ToUtf8(lines.lineNumber), "\nT240 2");
  EXPECT_EQ(ToUtf8(lines.lineText), "\nT210 G1 X2 <F>0");
}

/// The bytes of a text in UTF-16.
std::string Utf16(TextView text, bool big) {
  std::string bytes;
  for (const char16_t unit : text) {
    const char low = static_cast<char>(unit & 0xFF);
    const char high = static_cast<char>(unit >> 8);
    bytes += big ? high : low;
    bytes += big ? low : high;
  }
  return bytes;
}

struct EncodingCase {
  const char* name;
  std::string mark;
  std::string (*encode)(TextView);
};

// The place was sought in characters of the text, so each accent before it showed a later one, and UTF-16 none at all.
TEST_F(ErrorProgramLine, APositionIsAByteOfTheFileWhateverItsEncoding) {
  const EncodingCase cases[] = {
      {"UTF-8", "", [](TextView text) { return ToUtf8(text); }},
      {"UTF-8 with a mark", "\xEF\xBB\xBF", [](TextView text) { return ToUtf8(text); }},
      {"Latin-1", "",
       [](TextView text) {
         std::string bytes;
         for (const char16_t unit : text) bytes += static_cast<char>(unit);
         return bytes;
       }},
      {"UTF-16 little", "\xFF\xFE", [](TextView text) { return Utf16(text, false); }},
      {"UTF-16 big", "\xFE\xFF", [](TextView text) { return Utf16(text, true); }},
  };
  const Text before = u"; Ca\u00F1\u00F3n, \u00E1rea, \u00BA\r\n; \u00F1\u00F1\u00F1\u00F1\r\n";
  const Text line = u"G1 \u00D1=X2 F0";
  for (const EncodingCase& row : cases) {
    const std::string head = row.mark + row.encode(before);
    Program() = head + row.encode(line + u"\r\nM30\r\n");
    const auto position = static_cast<std::int32_t>(head.size());
    EXPECT_EQ(ToUtf8(Read(position, 16).lineText), ToUtf8(u"\nT210 G1 \u00D1=X2 <F>0")) << row.name;
    EXPECT_EQ(ToUtf8(Read(position, 6).lineText), ToUtf8(u"\nT210 G1 <\u00D1>=X2 F0")) << row.name;
    EXPECT_EQ(ToUtf8(Read(position, 24).lineText), ToUtf8(u"\nT210 G1 \u00D1=X2 F0<>")) << row.name;
  }
}

TEST_F(ErrorProgramLine, APositionInsideACharacterShowsItWhole) {
  Program() = "\xC3\x91=X2\r\n";
  EXPECT_EQ(ToUtf8(Read(1, 0).lineText), ToUtf8(u"\nT210 <\u00D1>=X2"));
  Program() = "\xFF\xFE" + Utf16(u"AB\r\n", false);
  EXPECT_EQ(ToUtf8(Read(5, 0).lineText), "\nT210 <B>");
  EXPECT_EQ(ToUtf8(Read(1, 0).lineText), "\nT210 <A>B") << "within the mark";
}

TEST_F(ErrorProgramLine, AFarMarkIsCountedInCharactersOfTheLine) {
  Text line;
  for (int i = 0; i < 800; ++i) line += static_cast<char16_t>(i % 2 == 0 ? u'\u00F1' : u'a' + i % 26);
  Program() = "; \xC3\xB1\r\n" + ToUtf8(line) + "\r\n";
  const Text shown = line.substr(596, 4) + u"<" + line.substr(600, 1) + u">" + line.substr(601);
  EXPECT_EQ(ToUtf8(Read(6, 1200).lineText), ToUtf8(u"\nT210 ... " + shown));
}

// The count is of characters and one for each line, so that it is true of a file whose lines end in CR LF.
TEST_F(ErrorProgramLine, TheCountedLineIsTheTrueOneWhereLinesEndInCrLf) {
  std::vector<std::int32_t> starts;
  for (int i = 0; i < 500; ++i) {
    starts.push_back(static_cast<std::int32_t>(Program().size()));
    Program() += std::string(static_cast<std::size_t>(i % 40), 'X') + "\r\n";
  }
  for (std::size_t i = 0; i < starts.size(); ++i) EXPECT_EQ(LinesTo(starts[i]), static_cast<std::int32_t>(i) + 1);
}

TEST_F(ErrorProgramLine, ACharacterOfTwoUnitsIsMarkedWhole) {
  EXPECT_EQ(ToUtf8(MarkLine(u"A\U0001F600B", 1)), ToUtf8(u"A<\U0001F600>B"));
  EXPECT_EQ(ToUtf8(MarkLine(u"A\U0001F600B", 2)), ToUtf8(u"A<\U0001F600>B"));
  EXPECT_EQ(ToUtf8(MarkLine(u"A\U0001F600B", 3)), ToUtf8(u"A\U0001F600<B>"));
  // The first and the last of them, at both ends of what their units can be.
  for (const char16_t* pair : {u"\U00010000", u"\U0010FFFF"}) {
    EXPECT_EQ(ToUtf8(MarkLine(Text(u"A") + pair, 2)), ToUtf8(Text(u"A<") + pair + u">"));
  }
}

// A piece of the line fills the buffer with no room left for its end.
TEST_F(ErrorProgramLine, ALineOfAsManyUnitsAsTheBufferHoldsIsShownWhole) {
  for (const std::size_t length : {510u, 511u, 512u}) {
    const std::string line = std::string(length - 1, 'x') + "z";
    Program() = line + "\r\nnext\r\n";
    const std::string shown = length <= 511 ? line.substr(1) : line.substr(1, 510);
    EXPECT_EQ(ToUtf8(Read(0, 0).lineText), "\nT210 <x>" + shown) << length;
  }
}

TEST_F(ErrorProgramLine, AMarkAtTheEndOfALineStandsThere) {
  Program() = "G0 X1\r\nG1 X2\r\n";
  EXPECT_EQ(ToUtf8(Read(0, 10).lineText), "\nT210 G0 X1<>");
  EXPECT_EQ(ToUtf8(Read(0, 12).lineText), "\nT210 G0 X1<>");
  EXPECT_EQ(ToUtf8(Read(0, 1000).lineText), "\nT210 G0 X1<>");
  EXPECT_EQ(ToUtf8(Read(0, 8).lineText), "\nT210 G0 X<1>");
}

TEST_F(ErrorProgramLine, ALastLineWithoutAnEndKeepsItsLastCharacter) {
  Program() = "G0 X1\r\nG1 X2";
  EXPECT_EQ(ToUtf8(Read(7, 0).lineText), "\nT210 <G>1 X2");
  EXPECT_EQ(ToUtf8(Read(7, 10).lineText), "\nT210 G1 X2<>");
}

TEST_F(ErrorProgramLine, AFarMarkStandsFourUnitsIntoTheTextRead) {
  std::string line;
  for (int i = 0; i < 800; ++i) line += static_cast<char>('a' + i % 26);
  Program() = line + "\r\n";
  const std::string text = ToUtf8(Read(0, 1200).lineText);
  const std::string shown = line.substr(596, 4) + "<" + line.substr(600, 1) + ">" + line.substr(601);
  EXPECT_EQ(text, "\nT210 ... " + shown);
  EXPECT_EQ(ToUtf8(Read(0, 1018).lineText).find("..."), std::string::npos) << "509 units are near enough";
  EXPECT_NE(ToUtf8(Read(0, 1020).lineText).find("..."), std::string::npos);
}

TEST_F(ErrorProgramLine, AFarMarkBeyondTheFileLeavesTheLineOut) {
  Program() = "G0 X1\r\n";
  EXPECT_EQ(ToUtf8(Read(0, 1200).lineText), "");
  EXPECT_EQ(ToUtf8(Read(0, 1200).lineNumber), "\nT240 1");
}

TEST_F(ErrorProgramLine, APositionOutsideTheFileLeavesTheLineOut) {
  Program() = "G0 X1\r\n";
  EXPECT_EQ(ToUtf8(Read(-3, 0).lineText), "");
  EXPECT_EQ(ToUtf8(Read(-3, 0).lineNumber), "\nT240 0");
  EXPECT_EQ(ToUtf8(Read(100, 0).lineText), "");
  EXPECT_EQ(ToUtf8(Read(100, 0).lineNumber), "\nT240 -1");
}

TEST_F(ErrorProgramLine, AFileThatIsNotThereLeavesBothLinesOut) {
  const ProgramLines lines = Read(0, 0);
  EXPECT_TRUE(lines.lineNumber.empty());
  EXPECT_TRUE(lines.lineText.empty());
}

TEST_F(ErrorProgramLine, AReadingThatIsCancelledEndsAtOnce) {
  Program() = "G0 X1\r\nG1 X2\r\n";
  const std::atomic<bool> cancelled = true;
  const ProgramLines lines = ReadProgramLines({u"C:\\P\\A.NC", 7, 0}, ProgramCaptionsOf(words), disc, &cancelled);
  EXPECT_TRUE(lines.lineText.empty());
}

TEST_F(ErrorProgramLine, AMarkIsCappedByTheLine) {
  EXPECT_EQ(ToUtf8(MarkLine(u"ABC", 0)), "<A>BC");
  EXPECT_EQ(ToUtf8(MarkLine(u"ABC", 2)), "AB<C>");
  EXPECT_EQ(ToUtf8(MarkLine(u"ABC", 3)), "ABC<>");
  EXPECT_EQ(ToUtf8(MarkLine(u"ABC", 300)), "ABC<>");
  EXPECT_EQ(ToUtf8(MarkLine(u"", 0)), "<>");
}

}  // namespace
}  // namespace pnl::test
