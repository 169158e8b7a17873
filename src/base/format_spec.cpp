// SPDX-License-Identifier: MIT
#include "base/format_spec.h"

#include <algorithm>

namespace pnl {
namespace {

bool TakeIf(TextView& rest, char16_t c) {
  if (rest.empty() || rest[0] != c) return false;
  rest.remove_prefix(1);
  return true;
}

bool TakeIf(TextView& rest, TextView word) {
  if (rest.substr(0, word.size()) != word) return false;
  rest.remove_prefix(word.size());
  return true;
}

void TakeFlags(TextView& rest, FormatSpec& spec) {
  for (;; rest.remove_prefix(1)) {
    switch (rest.empty() ? u'\0' : rest[0]) {
      case u'-':
        spec.left = true;
        break;
      case u'+':
        spec.plus = true;
        break;
      case u' ':
        spec.blank = true;
        break;
      case u'#':
        spec.alternate = true;
        break;
      case u'0':
        spec.zeros = true;
        break;
      case u'\'':  // Grouping has no effect in the C locale.
        break;
      default:
        return;
    }
  }
}

int TakeNumber(TextView& rest) {
  int number = 0;
  for (; !rest.empty() && rest[0] >= u'0' && rest[0] <= u'9'; rest.remove_prefix(1)) {
    number = std::min(number * 10 + (rest[0] - u'0'), FormatSpec::kMost);
  }
  return number;
}

FormatSpec::Size TakeSize(TextView& rest) {
  using Size = FormatSpec::Size;
  struct Modifier {
    TextView word;
    Size size;
  };
  // Longer words come first. "w" and "L" ask for wide letters and long doubles and change nothing here.
  static constexpr Modifier kModifiers[] = {
      {u"I64", Size::kLong}, {u"I32", Size::kInt}, {u"I", Size::kLong}, {u"hh", Size::kByte}, {u"h", Size::kShort},
      {u"ll", Size::kLong},  {u"l", Size::kLong},  {u"q", Size::kLong}, {u"j", Size::kLong},  {u"z", Size::kLong},
      {u"t", Size::kLong},   {u"L", Size::kInt},   {u"w", Size::kInt},
  };
  for (const Modifier& modifier : kModifiers) {
    if (TakeIf(rest, modifier.word)) return modifier.size;
  }
  return Size::kInt;
}

FormatSpec::Kind KindOf(char16_t conversion) {
  using Kind = FormatSpec::Kind;
  switch (conversion) {
    case u'd':
    case u'i':
      return Kind::kSigned;
    case u'u':
    case u'x':
    case u'X':
    case u'o':
      return Kind::kUnsigned;
    case u'e':
    case u'E':
    case u'f':
    case u'F':
    case u'g':
    case u'G':
      return Kind::kReal;
    case u'c':
    case u'C':
      return Kind::kLetter;
    case u's':
    case u'S':
      return Kind::kText;
    case u'n':
    case u'p':
      return Kind::kSwallow;
    case u'%':
      return Kind::kPercent;
    default:
      return Kind::kUnknown;
  }
}

}  // namespace

FormatSpec TakeFormatSpec(TextView& rest) {
  FormatSpec spec;
  TakeFlags(rest, spec);
  spec.widthFromArgument = TakeIf(rest, u'*');
  if (!spec.widthFromArgument) spec.width = TakeNumber(rest);
  if (TakeIf(rest, u'.')) {
    // A minus after the point makes the precision negative, which printf treats as no precision.
    const bool minus = TakeIf(rest, u'-');
    spec.precisionFromArgument = TakeIf(rest, u'*');
    if (!spec.precisionFromArgument) spec.precision = TakeNumber(rest);
    if (minus && !spec.precisionFromArgument) spec.precision = FormatSpec::kNone;
  }
  spec.size = TakeSize(rest);
  if (rest.empty()) return spec;
  spec.conversion = rest[0];
  spec.kind = KindOf(rest[0]);
  rest.remove_prefix(1);
  return spec;
}

}  // namespace pnl
