// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

#include "base/numbers.h"

namespace pnl {
namespace {

using namespace std::string_literals;

std::string Wide(TextView text) {
  std::string bytes;
  for (const char16_t c : text) {
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
  }
  return bytes;
}

TEST(CuttingText, ANumberIsStoredAsItsShortestDigits) {
  const struct {
    double value;
    const char16_t* stored;
  } kRows[] = {
      {1200000000, u"1200000000"},
      {15000, u"15000"},
      {50, u"50"},
      {0.1, u"0.1"},
      {-2.5, u"-2.5"},
      {0.0, u"0"},
      {-0.0, u"0"},
      {1e22, u"10000000000000000000000"},
      {1e-7, u"0.0000001"},
      {120 / 3.28084 * 10000000, u"365759988.29568034"},
  };
  for (const auto& row : kRows) {
    const auto stored = StoredNumber(row.value);
    ASSERT_TRUE(stored);
    EXPECT_EQ(ToUtf8(*stored), ToUtf8(row.stored));
    EXPECT_EQ(ParseDouble(*stored), row.value);
  }
}

TEST(CuttingText, AnyNumberReadsBackAsTheSameWithoutExponent) {
  std::mt19937_64 random(7);
  const double limits[] = {std::numeric_limits<double>::max(),         std::numeric_limits<double>::lowest(),
                           std::numeric_limits<double>::min(),         std::numeric_limits<double>::denorm_min(),
                           -std::numeric_limits<double>::denorm_min(), -2.2250738585072011e-308};
  for (int round = 0; round < 5000; ++round) {
    const auto bits = static_cast<std::uint64_t>(random());
    double value = round < 6 ? limits[round] : 0;
    if (round >= 6) std::memcpy(&value, &bits, sizeof value);
    const auto stored = StoredNumber(value);
    ASSERT_EQ(stored.has_value(), std::isfinite(value));
    if (!stored) continue;
    EXPECT_EQ(stored->find_first_not_of(u"-.0123456789"), Text::npos) << ToUtf8(*stored);
    EXPECT_EQ(ParseDouble(*stored), value) << ToUtf8(*stored);
  }
}

TEST(CuttingText, WhatIsNoNumberIsNotStored) {
  EXPECT_FALSE(StoredNumber(std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(StoredNumber(-std::numeric_limits<double>::infinity()));
  EXPECT_FALSE(StoredNumber(std::numeric_limits<double>::quiet_NaN()));
}

TEST(CuttingText, AFileHoldsEveryTextButWhatXmlForbids) {
  const struct {
    Text text;
    bool held;
  } kRows[] = {
      {u"", true},
      {u"\"a\" < 'b' & ]]> \u00e9 \u4e2d", true},
      {u"a\tb\r\nc", true},
      {u"\U0001F600", true},
      {Text(u"a\0b", 3), false},
      {u"\u0001", false},
      {u"\u000b", false},
      {u"\u001f", false},
      {u"\u007f", true},
      {Text(1, char16_t(0xD83D)), false},
      {Text(1, char16_t(0xDE00)), false},
      {Text{char16_t(0xDE00), char16_t(0xD83D)}, false},
      {Text{char16_t(0xD83D), u'a'}, false},
      {Text(1, char16_t(0xFFFD)), true},
      {Text(1, char16_t(0xFFFE)), false},
      {Text(1, char16_t(0xFFFF)), false},
  };
  for (const auto& row : kRows) EXPECT_EQ(CanHoldCuttingText(row.text), row.held) << ToUtf8(row.text);
}

TEST(CuttingText, TwoEncodingsAreReadWithAndWithoutAMark) {
  const std::string text = "<a>\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80</a>";
  const std::string wide = Wide(FromUtf8(text));
  for (const std::string& bytes : {text, "\xEF\xBB\xBF" + text, wide, "\xFF\xFE" + wide}) {
    EXPECT_EQ(DecodeCuttingData(bytes), text);
  }
}

TEST(CuttingText, OtherBytesAreRefused) {
  const std::string wide = Wide(u"<a></a>");
  std::string big = wide;
  for (std::size_t i = 0; i + 1 < big.size(); i += 2) std::swap(big[i], big[i + 1]);
  const std::string kRows[] = {
      big,
      "\xFE\xFF" + big,
      wide.substr(0, wide.size() - 1),
      "\xFF\xFE" + wide + "x",
      Wide(Text(u"<a>") + Text(1, char16_t(0xD83D)) + u"</a>"),
      Wide(Text(u"<a>") + Text(1, char16_t(0xDE00)) + u"</a>"),
      Wide(Text(u"<a>") + Text(1, char16_t(0xFFFF)) + u"</a>"),
      Wide(Text(u"<a>") + Text(1, u'\0') + u"</a>"),
      "<a>\xE9</a>",          // Latin-1
      "<a>\xED\xA0\xBD</a>",  // half a pair
      "<a>\xC0\xBC</a>",      // overlong
      "<a></a>\xE2\x82"s,     // cut off
      "<a></a>\0<b/>"s,       // the parser would stop here
      "<a>\x01</a>",
      "0123456\x1f",
      "<a>\x0b</a>9",
      "<\0\0\0a\0\0\0"s,
  };
  for (const std::string& bytes : kRows) EXPECT_FALSE(DecodeCuttingData(bytes)) << testing::PrintToString(bytes);
}

TEST(CuttingText, AReferenceToWhatIsNoCharacterIsRefused) {
  for (const char* text : {"&#0;", "&#1;", "&#x1F;", "&#xD800;", "&#xdfff;", "&#xFFFE;", "&#65535;", "&#x110000;",
                           "&#99999999999999999999;", "&#x100000000041;", "a &amp; &#0;"}) {
    EXPECT_FALSE(DecodeCuttingData(text)) << text;
  }
  for (const char* text : {"&#65;", "&#x41;", "&#13;", "&#9;", "&#x10FFFF;", "&#;", "&#x;", "&#0", "&#0x;", "&", "&#",
                           "&lol;", "#0;", "&amp;"}) {
    EXPECT_EQ(DecodeCuttingData(text), text);
  }
}

TEST(CuttingText, AByteThatMattersIsSeenWhereverItIs) {
  for (std::size_t at = 0; at < 200; ++at) {
    std::string text(200, 'a');
    text[at] = '\x02';
    EXPECT_FALSE(DecodeCuttingData(text)) << at;
    text[at] = '\xFF';
    EXPECT_FALSE(DecodeCuttingData(text)) << at;
    text[at] = '\r';
    std::string ends = text;
    ends[at] = '\n';
    EXPECT_EQ(DecodeCuttingData(text), ends) << at;
  }
  for (std::size_t at = 0; at + 4 <= 200; ++at) {
    EXPECT_FALSE(DecodeCuttingData(std::string(200, 'a').replace(at, 4, "&#0;"))) << at;
  }
}

TEST(CuttingText, TheFirstAndTheLastCharacterOfEachLengthAreRead) {
  const Text text = u"<a>\u007f\u0080\u07ff\u0800\ud7ff\ue000\ufffd\U00010000\U00012345\U0010FFFF</a>";
  EXPECT_EQ(DecodeCuttingData(Wide(text)), ToUtf8(text));
  EXPECT_TRUE(CanHoldCuttingText(text));
}

TEST(CuttingText, WhatLiesBehindTheEndOfTheBytesIsNotRead) {
  const std::string wide = Wide(u"<a>\U0001F600");
  EXPECT_TRUE(DecodeCuttingData(wide));
  EXPECT_FALSE(DecodeCuttingData(std::string_view(wide).substr(0, wide.size() - 2)));
}

TEST(CuttingText, EveryLineEndBecomesOneLineFeed) {
  EXPECT_EQ(DecodeCuttingData("a\r\nb\rc\nd\r"), "a\nb\nc\nd\n");
  EXPECT_EQ(DecodeCuttingData("\r\r\n\r"), "\n\n\n");
  EXPECT_EQ(DecodeCuttingData(Wide(u"a\r\nb")), "a\nb");
}

}  // namespace
}  // namespace pnl
