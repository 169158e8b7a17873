// SPDX-License-Identifier: MIT
#include "facade/mill/machine_marks.h"

#include <set>

#include "facade/mill/machine_fakes.h"
#include "facade/mill/machine_request.h"

namespace pnl::sim {
namespace {

std::string MarkOf(TextView block) { return ToUtf8(MarkOfBlock(block)); }

bool Understands(const Text& word) {
  const auto block = ParseBlock(word);
  return std::holds_alternative<Block>(block) && std::holds_alternative<Request>(ReadRequest(std::get<Block>(block)));
}

TEST(MachineMarks, EveryWordThatTheMachineUnderstandsHasAMarkAndNoOther) {
  for (const char16_t letter : {u'G', u'M'}) {
    for (int number = 0; number < 1000; ++number) {
      const Text word = Format(u"%c%d", letter, number);
      EXPECT_EQ(!MarkOfBlock(word).empty(), Understands(word)) << ToUtf8(word);
    }
  }
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    if (letter == u'G' || letter == u'M') continue;
    const Text word = Format(u"%c1", letter);
    EXPECT_EQ(!MarkOfBlock(word).empty(), Understands(word)) << ToUtf8(word);
  }
}

TEST(MachineMarks, AMarkIsTheManualsLettersAndTheWord) {
  std::set<Text> marks;
  for (const WordMark& row : WordMarks()) {
    const int group = row.letter == u'G' ? 1000 : row.letter == u'M' ? 2000 : 3000;
    const int number = row.number == kAnyNumber ? row.letter - u'A' + 1 : row.number;
    EXPECT_EQ(Text(row.mark), Format(u"PRG%d", group + number));
    EXPECT_TRUE(marks.insert(Text(row.mark)).second) << ToUtf8(row.mark);
  }
}

TEST(MachineMarks, ABlockHasTheMarkOfItsFirstWord) {
  const struct {
    TextView block;
    const char* mark;
  } rows[] = {
      {u"G1 X100 F500", "PRG1001"},
      {u"X100 G1", "PRG3024"},
      {u"g01x100", "PRG1001"},
      {u"G70", "PRG1070"},
      {u"G20", "PRG1020"},
      {u"M2", "PRG2002"},
      {u"M30", "PRG2030"},
      {u"S2000 M3", "PRG3019"},
      {u"/ (first) F500", "PRG3006"},
      // Words that the machine doesn't understand are passed over.
      {u"G81 Z-5", "PRG3026"},
      {u"G1.5 M99 T4", "PRG3020"},
      {u"A5 B6 D1", "PRG3004"},
      {u"G81", ""},
      // The block number counts only when it is alone.
      {u"N10", "PRG3014"},
      {u"N10 G0", "PRG1000"},
      {u"N10 (comment)", "PRG3014"},
      {u"", ""},
      {u"   ", ""},
      {u"(comment)", ""},
      {u"; G1", ""},
      {u"/", ""},
  };
  for (const auto& row : rows) EXPECT_EQ(MarkOf(row.block), row.mark) << ToUtf8(row.block);
}

TEST(MachineMarks, ABlockThatIsStillBeingTypedHasTheMarkOfItsFirstReadableWord) {
  const struct {
    TextView block;
    const char* mark;
  } rows[] = {
      {u"G1 X", "PRG1001"},
      {u"M3 $", "PRG2003"},
      {u"F100 (open", "PRG3006"},
      {u"X", "PRG3024"},
      {u"x", "PRG3024"},
      {u"Y1.2.3 G1", "PRG3025"},
      {u"Z5/0", "PRG3026"},
      {u"N10 X", "PRG3024"},
      {u"N10 $", "PRG3014"},
      {u"N", "PRG3014"},
      {u"G", ""},
      {u"G-1", ""},
      {u"$ G1", ""},
      {u"(open G1", ""},
      {u"A G1", ""},
      {u"N5 N6", "PRG3014"},
      {u"R99999999999 G2", "PRG3018"},
  };
  for (const auto& row : rows) EXPECT_EQ(MarkOf(row.block), row.mark) << ToUtf8(row.block);
}

TEST(MachineMarks, TheMachineAnswersWithThem) {
  const test::MachineBench bench;
  EXPECT_EQ(bench.machine->MarkOfBlock(u"G2 X10 R5"), u"PRG1002");
  EXPECT_EQ(bench.machine->MarkOfBlock(u"G77"), u"");
}

}  // namespace
}  // namespace pnl::sim
