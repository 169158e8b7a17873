// SPDX-License-Identifier: MIT
#include "base/text.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>

#include "base/encoding.h"

namespace pnl {
namespace {

struct Utf8Row {
  const char* what;
  std::string bytes;
  bool wellFormed;
  Text text;
};

const Utf8Row kUtf8Rows[] = {
    {"nothing", "", true, u""},
    {"ASCII", "G0 X10\r\n", true, u"G0 X10\r\n"},
    {"a NUL", std::string("a\0b", 3), true, Text(u"a\0b", 3)},
    {"two bytes, lowest", "\xC2\x80", true, u"\u0080"},
    {"two bytes", "\xC3\xB1", true, u"ñ"},
    {"three bytes, lowest", "\xE0\xA0\x80", true, u"\u0800"},
    {"three bytes", "\xE2\x82\xAC", true, u"€"},
    {"below the surrogates", "\xED\x9F\xBF", true, u"\uD7FF"},
    {"above the surrogates", "\xEE\x80\x80", true, u"\uE000"},
    {"four bytes, lowest", "\xF0\x90\x80\x80", true, u"\U00010000"},
    {"four bytes, highest", "\xF4\x8F\xBF\xBF", true, u"\U0010FFFF"},
    {"a mark in the middle", "a\xEF\xBB\xBF", true, u"a\uFEFF"},
    {"overlong NUL", "\xC0\x80", false, u"\uFFFD\uFFFD"},
    {"overlong slash", "\xC1\xAF", false, u"\uFFFD\uFFFD"},
    {"overlong, three bytes", "\xE0\x9F\xBF", false, u"\uFFFD\uFFFD\uFFFD"},
    {"overlong, four bytes", "\xF0\x8F\xBF\xBF", false, u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a surrogate", "\xED\xA0\x80", false, u"\uFFFD\uFFFD\uFFFD"},
    {"beyond Unicode", "\xF4\x90\x80\x80", false, u"\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"five-byte form", "\xF8\x88\x80\x80\x80", false, u"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
    {"a lone follower", "a\x80z", false, u"a\uFFFDz"},
    {"cut off after two of three", "\xE2\x82", false, u"\uFFFD\uFFFD"},
    {"cut off, then a letter", "\xE2\x82z", false, u"\uFFFD\uFFFDz"},
    {"behind eight letters", "12345678\xFF", false, u"12345678\uFFFD"},
};

TEST(Text, EachByteOutsideAWellFormedSequenceBecomesOneReplacement) {
  for (const Utf8Row& row : kUtf8Rows) {
    EXPECT_EQ(FromUtf8(row.bytes), row.text) << row.what;
    EXPECT_EQ(IsUtf8(row.bytes), row.wellFormed) << row.what;
  }
}

TEST(Text, WellFormedBytesComeBackUnchanged) {
  for (const Utf8Row& row : kUtf8Rows) {
    if (row.wellFormed) {
      EXPECT_EQ(ToUtf8(row.text), row.bytes) << row.what;
    }
  }
}

TEST(Text, ALoneSurrogateIsWrittenAsReplacement) {
  const Text high(1, char16_t{0xD83D});
  const Text low(1, char16_t{0xDE00});
  EXPECT_EQ(ToUtf8(high), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(low + high), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(high + u"a"),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(ToUtf8(u"a" + low), "a\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(high + low), "\xF0\x9F\x98\x80");
}

struct FileRow {
  const char* what;
  std::string bytes;
  Text text;
};

const FileRow kFileRows[] = {
    {"nothing", "", u""},
    {"UTF-8 without a mark", "a\xC3\xB1", u"añ"},
    {"UTF-8 with a mark", "\xEF\xBB\xBF\xC3\xB1", u"ñ"},
    {"a mark decides even over wrong bytes", "\xEF\xBB\xBF\xF1", u"\uFFFD"},
    {"only a mark", "\xEF\xBB\xBF", u""},
    {"half a mark is Latin-1", "\xEF\xBB", u"ï»"},
    {"Latin-1", "a\xF1o", u"año"},
    {"Latin-1 keeps every byte", "\x80\xFF", u"\u0080\u00FF"},
    {"UTF-16 little endian", std::string("\xFF\xFE\xF1\0\x3D\xD8\0\xDE", 8), u"ñ\U0001F600"},
    {"UTF-16 big endian", std::string("\xFE\xFF\0\xF1", 4), u"ñ"},
    {"UTF-16 with half a unit at the end", std::string("\xFF\xFE\x61\0\x62", 5), u"a\uFFFD"},
    {"only a UTF-16 mark", "\xFF\xFE", u""},
};

TEST(Text, AMarkDecidesAFilesEncodingElseItIsUtf8ElseLatin1) {
  for (const FileRow& row : kFileRows) EXPECT_EQ(DecodeFile(row.bytes), row.text) << row.what;
}

TEST(Text, DecodingInPiecesGivesTheSameText) {
  std::mt19937 random(7);
  const std::string letters("a\n\x80\xBF\xC2\xC3\xE2\x82\xAC\xED\xA0\xF0\x9F\x98\0\xFE\xFF", 17);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes(random() % 40, ' ');
    for (char& c : bytes) c = letters[random() % letters.size()];
    for (const Encoding encoding : {Encoding::kUtf8, Encoding::kUtf16Little, Encoding::kUtf16Big, Encoding::kLatin1}) {
      Text whole;
      ASSERT_EQ(Decode(encoding, bytes, true, whole), bytes.size());
      Text pieces;
      std::string pending;
      std::size_t at = 0;
      while (at < bytes.size()) {
        const std::size_t step = std::min<std::size_t>(1 + random() % 7, bytes.size() - at);
        pending += bytes.substr(at, step);
        at += step;
        pending.erase(0, Decode(encoding, pending, false, pieces));
        ASSERT_LE(pending.size(), 3u);
      }
      Decode(encoding, pending, true, pieces);
      ASSERT_EQ(pieces, whole);
    }
  }
}

TEST(Text, CapitalsCoverLatinGreekAndCyrillic) {
  const struct {
    TextView small;
    TextView capital;
  } rows[] = {
      {u"abcxyz09_[]", u"ABCXYZ09_[]"},
      {u"áéíóúñüçß", u"ÁÉÍÓÚÑÜÇß"},  // no single letter is the capital of sharp s
      {u"÷×", u"÷×"},                // signs amid the letters
      {u"ÿµı", u"ŸΜI"},              // capitals outside their own block
      {u"āąčđőžſ", u"ĀĄČĐŐŽS"},
      {u"αβγςώ", u"ΑΒΓΣΏ"},
      {u"абвяѐё", u"АБВЯЀЁ"},
      {u"ẁỳἀ", u"ẀỲἈ"},
      {u"ａｚ", u"ＡＺ"},
      {u"あ漢", u"あ漢"},
  };
  for (const auto& row : rows) EXPECT_EQ(ToUpper(row.small), row.capital);
}

TEST(Text, CapitalsOfCapitalsAreThemselves) {
  for (unsigned c = 0; c <= 0xFFFF; ++c) {
    const char16_t once = ToUpper(static_cast<char16_t>(c));
    ASSERT_EQ(ToUpper(once), once) << c;
  }
}

TEST(Text, ComparesWithoutRegardToCase) {
  EXPECT_EQ(CompareNoCase(u"Ñandú", u"ñANDÚ"), 0);
  EXPECT_LT(CompareNoCase(u"a", u"B"), 0);
  EXPECT_GT(CompareNoCase(u"b", u"A"), 0);
  EXPECT_LT(CompareNoCase(u"ab", u"ABC"), 0);
  EXPECT_GT(CompareNoCase(u"abc", u"AB"), 0);
  EXPECT_LT(CompareNoCase(u"", u"a"), 0);
  EXPECT_LT(CompareNoCase(TextView(u"abz", 2), u"aba"), 0) << "what follows a text isn't compared";
  EXPECT_TRUE(EqualNoCase(u"YES", u"yes"));
  EXPECT_FALSE(EqualNoCase(u"YES", u"yes "));
  EXPECT_TRUE(EqualNoCase(u"", u""));
}

TEST(Text, TrimTakesWhiteSpaceOffBothEndsOnly) {
  EXPECT_EQ(Trim(u" \t\r\na b\n\r\t "), u"a b");
  EXPECT_EQ(Trim(u" \t "), u"");
  EXPECT_EQ(Trim(u""), u"");
  EXPECT_EQ(Trim(u"\u00A0a"), u"\u00A0a");
}

TEST(Text, ARecordsFieldIsReadToItsTerminatorOrItsEnd) {
  char16_t field[4] = {u'a', u'b', u'\0', u'z'};
  EXPECT_EQ(FieldText(field), u"ab");
  const char16_t full[4] = {u'a', u'b', u'c', u'd'};
  EXPECT_EQ(FieldText(full), u"abcd");
  SetField(field, u"wxyz");
  EXPECT_EQ(TextView(field, 4), TextView(u"wxy\0", 4));
  SetField(field, u"q");
  EXPECT_EQ(TextView(field, 4), TextView(u"q\0\0\0", 4));
}

TEST(Text, EachBlockOfLettersHasTheCapitalsOfUnicode) {
  // How many letters have a capital, and the sum of the products of letter and capital: computed from Unicode 14, and
  // another one for any letter that is left out or gets another capital.
  const struct {
    const char* what;
    unsigned first;
    unsigned last;
    unsigned letters;
    std::uint64_t sum;
  } rows[] = {
      {"Latin-1 and Extended-A", 0x0080, 0x017F, 95, 8081152},
      {"Latin Extended-B", 0x0180, 0x024F, 86, 33706311},
      {"phonetic letters", 0x0250, 0x036F, 37, 317914911},
      {"Greek", 0x0370, 0x03FF, 57, 51348924},
      {"Cyrillic", 0x0400, 0x052F, 148, 205777236},
      {"none", 0x0530, 0x1C7F, 0, 0},
      {"more Cyrillic and phonetic", 0x1C80, 0x1DFF, 12, 1107230623},
      {"Latin Additional", 0x1E00, 0x1EFF, 124, 7557230146},
      {"Greek with accents", 0x1F00, 0x1FFF, 97, 6224499706},
      {"Latin Extended-C and signs", 0x2000, 0x2FFF, 26, 2107170224},
      {"none", 0x3000, 0xA63F, 0, 0},
      {"Cyrillic-B, Latin-D and E", 0xA640, 0xABFF, 111, 203205751419},
      {"wide Latin", 0xAC00, 0xFFFF, 26, 111007296985},
  };
  for (const auto& row : rows) {
    unsigned letters = 0;
    std::uint64_t sum = 0;
    for (unsigned c = row.first; c <= row.last; ++c) {
      const char16_t capital = ToUpper(static_cast<char16_t>(c));
      if (capital == c) continue;
      ++letters;
      sum += std::uint64_t{capital} * c;
    }
    EXPECT_EQ(letters, row.letters) << row.what;
    EXPECT_EQ(sum, row.sum) << row.what;
  }
}

}  // namespace
}  // namespace pnl
