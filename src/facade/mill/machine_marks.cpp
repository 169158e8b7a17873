// SPDX-License-Identifier: MIT
#include "facade/mill/machine_marks.h"

#include <algorithm>
#include <iterator>

#include "facade/mill/machine_block.h"

namespace pnl::sim {

namespace {

// clang-format off
constexpr WordMark kMarks[] = {
    // The codes are in the order of machine_request.
    {u'G', 0, u"PRG1000"}, {u'G', 1, u"PRG1001"}, {u'G', 2, u"PRG1002"}, {u'G', 3, u"PRG1003"}, {u'G', 4, u"PRG1004"},
    {u'G', 17, u"PRG1017"}, {u'G', 18, u"PRG1018"}, {u'G', 19, u"PRG1019"}, {u'G', 20, u"PRG1020"},
    {u'G', 21, u"PRG1021"}, {u'G', 70, u"PRG1070"}, {u'G', 71, u"PRG1071"}, {u'G', 40, u"PRG1040"},
    {u'G', 41, u"PRG1041"}, {u'G', 42, u"PRG1042"}, {u'G', 43, u"PRG1043"}, {u'G', 44, u"PRG1044"},
    {u'G', 53, u"PRG1053"}, {u'G', 54, u"PRG1054"}, {u'G', 55, u"PRG1055"}, {u'G', 56, u"PRG1056"},
    {u'G', 57, u"PRG1057"}, {u'G', 58, u"PRG1058"}, {u'G', 59, u"PRG1059"}, {u'G', 90, u"PRG1090"},
    {u'G', 91, u"PRG1091"}, {u'G', 94, u"PRG1094"}, {u'G', 95, u"PRG1095"}, {u'G', 96, u"PRG1096"},
    {u'G', 97, u"PRG1097"},
    {u'M', 0, u"PRG2000"}, {u'M', 1, u"PRG2001"}, {u'M', 2, u"PRG2002"}, {u'M', 30, u"PRG2030"},
    {u'M', 3, u"PRG2003"}, {u'M', 4, u"PRG2004"}, {u'M', 5, u"PRG2005"}, {u'M', 6, u"PRG2006"}, {u'M', 7, u"PRG2007"},
    {u'M', 8, u"PRG2008"}, {u'M', 9, u"PRG2009"},
    {u'X', kAnyNumber, u"PRG3024"}, {u'Y', kAnyNumber, u"PRG3025"}, {u'Z', kAnyNumber, u"PRG3026"},
    {u'I', kAnyNumber, u"PRG3009"}, {u'J', kAnyNumber, u"PRG3010"}, {u'K', kAnyNumber, u"PRG3011"},
    {u'R', kAnyNumber, u"PRG3018"}, {u'F', kAnyNumber, u"PRG3006"}, {u'S', kAnyNumber, u"PRG3019"},
    {u'T', kAnyNumber, u"PRG3020"}, {u'D', kAnyNumber, u"PRG3004"}, {u'P', kAnyNumber, u"PRG3016"},
    {u'N', kAnyNumber, u"PRG3014"},
};
// clang-format on

constexpr char16_t kBlockNumber = u'N';

char16_t UpperAscii(char16_t c) { return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c; }

TextView MarkOf(char16_t letter, double number) {
  const auto* row = std::find_if(std::begin(kMarks), std::end(kMarks), [&](const WordMark& candidate) {
    return candidate.letter == letter && (candidate.number == kAnyNumber || candidate.number == number);
  });
  return row == std::end(kMarks) ? TextView() : row->mark;
}

TextView FirstMark(const Block& block) {
  for (const Word& word : block.words) {
    if (const TextView mark = MarkOf(word.letter, word.value); !mark.empty()) return mark;
  }
  return {};
}

}  // namespace

std::span<const WordMark> WordMarks() { return kMarks; }

TextView MarkOfBlock(TextView block) {
  std::variant<Block, Fault> parsed = ParseBlock(block);
  TextView mistake;
  if (const Fault* fault = std::get_if<Fault>(&parsed)) {
    mistake = block.substr(fault->begin, fault->length);
    parsed = ParseBlock(block.substr(0, fault->begin));
  }
  const Block* words = std::get_if<Block>(&parsed);
  if (words == nullptr) return {};
  TextView mark = FirstMark(*words);
  if (mark.empty() && !mistake.empty()) mark = MarkOf(UpperAscii(mistake.front()), kAnyNumber);
  if (mark.empty() && words->line) mark = MarkOf(kBlockNumber, kAnyNumber);
  return mark;
}

}  // namespace pnl::sim
