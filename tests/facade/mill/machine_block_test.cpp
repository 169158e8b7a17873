// SPDX-License-Identifier: MIT
#include "facade/mill/machine_block.h"

#include <random>

namespace pnl::sim {
namespace {

struct GoodRow {
  TextView text;
  TextView printed;
};
const GoodRow kGoodRows[] = {
    {u"", u""},
    {u" \t ", u""},
    {u"G1 X100 F1000", u"G1 X100 F1000"},
    {u"g01x-10.5y+.25z5.", u"G1 X-10.5 Y0.25 Z5"},
    {u"X 10\tY\t-3", u"X10 Y-3"},
    {u"G0X1\r\n", u"G0 X1"},
    {u"N10 G1", u"N10 G1"},
    {u"n0012", u"N12"},
    {u"N0 G1", u"N0 G1"},
    {u"N99999999", u"N99999999"},
    {u"/G1", u"/ G1"},
    {u"G1 X10/4 Y-9/3/2", u"G1 X2.5 Y-1.5"},
    {u" / N5 G1", u"/ N5 G1"},
    {u"G1 (to the left) X1 ; and more (", u"G1 X1"},
    {u"(a;b)G1", u"G1"},
    {u";G999 §", u""},
    {u"()", u""},
    {u"(a(b) G1", u"G1"},
    {u"Q1 A2 G1.5", u"Q1 A2 G1.5"},
    {u"X-0", u"X-0"},
    {u"X123456789.123", u"X123456789.1"},
    {u"X1000000000 Y-1000000000", u"X1000000000 Y-1000000000"},
};

TEST(MachineBlock, WordsAreLetterAndNumber) {
  for (const GoodRow& row : kGoodRows) {
    const auto parsed = ParseBlock(row.text);
    const Block* block = std::get_if<Block>(&parsed);
    ASSERT_NE(block, nullptr) << ToUtf8(row.text);
    EXPECT_EQ(ToUtf8(Print(*block)), ToUtf8(row.printed)) << ToUtf8(row.text);
  }
}

TEST(MachineBlock, AWordKnowsItsPlaceAndItsTextWithoutBlanks) {
  const auto parsed = ParseBlock(u"N1 (c) g1 x 10.50;z");
  const Block& block = std::get<Block>(parsed);
  ASSERT_EQ(block.words.size(), 2U);
  EXPECT_EQ(block.line, 1);
  EXPECT_EQ(block.words[1].letter, u'X');
  EXPECT_EQ(block.words[1].value, 10.5);
  EXPECT_EQ(block.words[1].text, u"X10.50");
  EXPECT_EQ(block.words[1].begin, 10U);
  EXPECT_EQ(block.words[1].length, 7U);
}

struct BadRow {
  TextView text;
  FaultCode code;
  TextView word;
  std::size_t begin;
  std::size_t length;
};
const Text kHuge = u"X" + Text(400, u'9');
const BadRow kBadRows[] = {
    {u"%", FaultCode::kUnknownCharacter, u"%", 0, 1},
    {u"G1 X10 = 5", FaultCode::kUnknownCharacter, u"=", 7, 1},
    {u"G1 10", FaultCode::kUnknownCharacter, u"1", 3, 1},
    {u"X1 5", FaultCode::kUnknownCharacter, u"5", 3, 1},
    {u"G1 )", FaultCode::kUnknownCharacter, u")", 3, 1},
    {u"G1 Ñ5", FaultCode::kUnknownCharacter, u"Ñ", 3, 1},
    {u"G1 \xE000", FaultCode::kUnknownCharacter, u"\xE000", 3, 1},
    {u"G1 😀", FaultCode::kUnknownCharacter, u"😀", 3, 2},
    {u"G1 \x0007", FaultCode::kUnknownCharacter, u"0x07", 3, 1},
    {TextView(u"G1\0X2", 5), FaultCode::kUnknownCharacter, u"0x00", 2, 1},
    {u"G1 \x007F", FaultCode::kUnknownCharacter, u"0x7F", 3, 1},
    {u"G1 /", FaultCode::kUnknownCharacter, u"/", 3, 1},
    {u"N5 /", FaultCode::kUnknownCharacter, u"/", 3, 1},
    {u"//", FaultCode::kUnknownCharacter, u"/", 1, 1},
    {u"G", FaultCode::kNumberMissing, u"G", 0, 1},
    {u"G1 x", FaultCode::kNumberMissing, u"X", 3, 1},
    {u"G1 XY10", FaultCode::kNumberMissing, u"X", 3, 1},
    {u"G1 X (10)", FaultCode::kNumberMissing, u"X", 3, 1},
    {u"hello", FaultCode::kNumberMissing, u"H", 0, 1},
    {u"X1.2.3", FaultCode::kBadNumber, u"X1.2.3", 0, 6},
    {u"G1 X10/0", FaultCode::kDivisionByZero, u"X10/0", 3, 5},
    {u"X6/2/-0", FaultCode::kDivisionByZero, u"X6/2/-0", 0, 7},
    {u"X6/.", FaultCode::kBadNumber, u"X6/.", 0, 4},
    {u"X6/", FaultCode::kUnknownCharacter, u"/", 2, 1},
    {u"X/6", FaultCode::kNumberMissing, u"X", 0, 1},
    {u"G1 x--5 Y1", FaultCode::kBadNumber, u"X--5", 3, 4},
    {u"G1 X5-", FaultCode::kBadNumber, u"X5-", 3, 3},
    {u"X -.", FaultCode::kBadNumber, u"X-.", 0, 4},
    {u"X.", FaultCode::kBadNumber, u"X.", 0, 2},
    {u"X+", FaultCode::kBadNumber, u"X+", 0, 2},
    {u"X..5", FaultCode::kBadNumber, u"X..5", 0, 4},
    {kHuge, FaultCode::kBadValue, kHuge, 0, 401},
    {u"G1 X1000000000.5", FaultCode::kBadValue, u"X1000000000.5", 3, 13},
    {u"X-1000000001", FaultCode::kBadValue, u"X-1000000001", 0, 12},
    {u"G1 (to the left", FaultCode::kCommentOpen, u"(to the left", 3, 12},
    {u"N1 N2", FaultCode::kWordTwice, u"N2", 3, 2},
    {u"G1 N2", FaultCode::kUnusedWord, u"N2", 3, 2},
    {u"N1.5 G1", FaultCode::kBadValue, u"N1.5", 0, 4},
    {u"N-1", FaultCode::kBadValue, u"N-1", 0, 3},
    {u"N100000000", FaultCode::kBadValue, u"N100000000", 0, 10},
};

TEST(MachineBlock, AFaultNamesTheWordAndItsPlace) {
  for (const BadRow& row : kBadRows) {
    const auto parsed = ParseBlock(row.text);
    const Fault* fault = std::get_if<Fault>(&parsed);
    ASSERT_NE(fault, nullptr) << ToUtf8(row.text);
    EXPECT_EQ(fault->code, row.code) << ToUtf8(row.text);
    EXPECT_EQ(ToUtf8(fault->word), ToUtf8(row.word)) << ToUtf8(row.text);
    EXPECT_EQ(fault->begin, row.begin) << ToUtf8(row.text);
    EXPECT_EQ(fault->length, row.length) << ToUtf8(row.text);
  }
}

TEST(MachineBlock, ALoneSurrogateIsNamedByItsNumber) {
  const Text lone(1, char16_t{0xD83D});
  const auto parsed = ParseBlock(lone);
  EXPECT_EQ(std::get<Fault>(parsed).word, u"0xD83D");
  EXPECT_EQ(std::get<Fault>(parsed).length, 1U);
}

TEST(MachineBlock, AnyTextIsParsedOrAnsweredWithAFaultInsideIt) {
  std::mt19937 random(7);
  const TextView alphabet = u"GXYFN01259.+-/(); \t\0%=ñ\xD83D";
  for (int round = 0; round < 5000; ++round) {
    Text text;
    const std::size_t length = random() % 24;
    for (std::size_t i = 0; i < length; ++i) text += alphabet[random() % alphabet.size()];
    const auto parsed = ParseBlock(text);
    if (const Fault* fault = std::get_if<Fault>(&parsed)) {
      ASSERT_GT(fault->length, 0U);
      ASSERT_LE(fault->begin + fault->length, text.size());
    }
  }
}

}  // namespace
}  // namespace pnl::sim
