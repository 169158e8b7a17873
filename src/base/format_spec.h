// SPDX-License-Identifier: MIT
// One parsed conversion of a format: the part from a percent sign to its letter. Reads no argument: it only notes a
// star, whose value base/format fills in.
#pragma once

#include "base/text.h"

namespace pnl {

struct FormatSpec {
  enum class Kind {
    kUnknown,  // prints nothing and takes no argument
    kSwallow,  // %n and %p: prints nothing, but takes an argument as printf does
    kPercent,
    kSigned,
    kUnsigned,
    kReal,
    kLetter,
    kText,
  };
  enum class Size { kByte, kShort, kInt, kLong };
  static constexpr int kNone = -1;    // no precision given
  static constexpr int kMost = 4096;  // limit of width and precision

  Kind kind = Kind::kUnknown;
  Size size = Size::kInt;
  char16_t conversion = 0;
  bool left = false;       // -
  bool plus = false;       // +
  bool blank = false;      // blank in place of a plus sign
  bool alternate = false;  // #
  bool zeros = false;      // 0
  bool widthFromArgument = false;
  bool precisionFromArgument = false;
  int width = 0;
  int precision = kNone;
};

/// Parses one conversion and removes it from the front of rest, which begins after the percent sign. A conversion that
/// the format's end cuts off is of unknown kind.
[[nodiscard]] FormatSpec TakeFormatSpec(TextView& rest);

}  // namespace pnl
