// SPDX-License-Identifier: MIT
#include "facade/mill/machine_request.h"

#include "base/format.h"

namespace pnl::sim {
namespace {

std::variant<Request, Fault> Read(TextView text) { return ReadRequest(std::get<Block>(ParseBlock(text))); }

TEST(MachineRequest, CodesStandByGroupAndWordsByLetter) {
  const struct {
    TextView text;
    TextView printed;
  } rows[] = {
      {u"X10 F1000 G90 G01", u"G01 G90 X10 F1000"},
      {u"T1 M6 G43 S5000 M3 D2 M8", u"G43 M03 M06 M08 S5000 T1 D2"},
      {u"G70", u"G20"},
      {u"G71", u"G21"},
      {u"M2", u"M30"},
      {u"G4 K1.5", u"G04 K1.5"},
      {u"G53 G0 Z0", u"G00 G53 Z0"},
      {u"", u""},
  };
  for (const auto& row : rows) {
    const auto request = Read(row.text);
    ASSERT_TRUE(std::holds_alternative<Request>(request)) << ToUtf8(row.text);
    EXPECT_EQ(ToUtf8(Print(std::get<Request>(request))), ToUtf8(row.printed));
  }
}

TEST(MachineRequest, TwoCodesOfOneGroupAreRefusedWhateverTheirOrder) {
  const std::vector<std::vector<TextView>> groups = {
      {u"G0", u"G1", u"G2", u"G3"},
      {u"G4"},
      {u"G17", u"G18", u"G19"},
      {u"G20", u"G21", u"G70", u"G71"},
      {u"G40", u"G41", u"G42"},
      {u"G43", u"G44"},
      {u"G53"},
      {u"G54", u"G55", u"G56", u"G57", u"G58", u"G59"},
      {u"G90", u"G91"},
      {u"G94", u"G95"},
      {u"G96", u"G97"},
      {u"M0", u"M1", u"M2", u"M30"},
      {u"M3", u"M4", u"M5"},
      {u"M6"},
      {u"M7", u"M8", u"M9"},
  };
  ASSERT_EQ(groups.size(), kGroupCount);
  for (std::size_t a = 0; a < groups.size(); ++a) {
    for (std::size_t b = 0; b < groups.size(); ++b) {
      for (const TextView first : groups[a]) {
        for (const TextView second : groups[b]) {
          const auto request = Read(Text(first) + u" " + Text(second));
          const Fault* fault = std::get_if<Fault>(&request);
          ASSERT_EQ(fault != nullptr, a == b) << ToUtf8(first) << " " << ToUtf8(second);
          if (fault == nullptr) continue;
          EXPECT_EQ(fault->code, FaultCode::kSameGroup);
          EXPECT_EQ(fault->word, second);
          EXPECT_EQ(fault->begin, first.size() + 1);
        }
      }
    }
  }
}

TEST(MachineRequest, AWordThatCannotJoinTheOthersIsAtFault) {
  const struct {
    TextView text;
    FaultCode code;
    TextView word;
  } rows[] = {
      {u"G999", FaultCode::kUnknownG, u"G999"},       {u"G1.5", FaultCode::kUnknownG, u"G1.5"},
      {u"G-1", FaultCode::kUnknownG, u"G-1"},         {u"G5", FaultCode::kUnknownG, u"G5"},
      {u"G92 X0", FaultCode::kUnknownG, u"G92"},      {u"g1 m10", FaultCode::kUnknownM, u"M10"},
      {u"M99", FaultCode::kUnknownM, u"M99"},         {u"G1 A5", FaultCode::kUnknownWord, u"A5"},
      {u"H1 G999", FaultCode::kUnknownWord, u"H1"},   {u"X1 Y2 X3", FaultCode::kWordTwice, u"X3"},
      {u"F100 F100", FaultCode::kWordTwice, u"F100"}, {u"T1 T2 M6", FaultCode::kWordTwice, u"T2"},
  };
  for (const auto& row : rows) {
    const auto request = Read(row.text);
    ASSERT_TRUE(std::holds_alternative<Fault>(request)) << ToUtf8(row.text);
    EXPECT_EQ(std::get<Fault>(request).code, row.code) << ToUtf8(row.text);
    EXPECT_EQ(std::get<Fault>(request).word, row.word);
  }
}

TEST(MachineRequest, TheFirstOfSomeLettersIsTheOneThatStandsFirst) {
  const auto request = Read(u"G1 Y2 X1 F5");
  EXPECT_EQ(std::get<Request>(request).First(u"XYZ")->text, u"Y2");
  EXPECT_EQ(std::get<Request>(request).First(u"IJK"), nullptr);
}

TEST(MachineRequest, EveryLetterIsAWordACodeOrUnknown) {
  const TextView words = u"XYZIJKRFSTDPGM";
  for (char16_t letter = u'A'; letter <= u'Z'; ++letter) {
    if (letter == u'N') continue;
    const bool known = words.find(letter) != TextView::npos;
    EXPECT_EQ(std::holds_alternative<Request>(Read(Format(u"%c1", letter))), known) << static_cast<char>(letter);
  }
}

}  // namespace
}  // namespace pnl::sim
