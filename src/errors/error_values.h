// SPDX-License-Identifier: MIT
// The typed values of an error record as text: the tables of value types, units and meanings, and what is made of them.
// Reads no more of a value than its field holds, whatever its type claims.
#pragma once

#include "base/text.h"
#include "errors/error_words.h"
#include "facade/error_record.h"
#include "facade/kernel.h"

namespace pnl {

struct ErrorUnit {
  TextView text;  // a format without arguments: "%%" prints one percent sign
  double scale;   // what the stored value is divided by
  bool inch;
};

/// An empty text and scale 1 for a code that isn't in the table.
[[nodiscard]] ErrorUnit UnitOf(std::int32_t code);
/// The number of the caption's text, 0 for a meaning that has none.
[[nodiscard]] int CaptionTextOf(std::int32_t meaning);
/// " %.*f", or " %.*e" for what a single-precision number can't hold.
[[nodiscard]] Text FormatDouble(double value, int precision);
/// Empty for types that print nothing.
[[nodiscard]] Text ComposeValue(const ErrorValue& value);
/// A line with caption, value and unit, beginning with its line feed; empty for an absent parameter.
[[nodiscard]] Text ComposeParameter(const ErrorParameter& parameter, const ErrorWords& words, Kernel& kapi);

}  // namespace pnl
