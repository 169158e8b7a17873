// SPDX-License-Identifier: MIT
// Turns the typed values of an error record into text, with the tables of units and meanings. It never reads beyond the
// field of a value, even if the value's type is wrong.
#pragma once

#include "base/text.h"
#include "errors/error_words.h"
#include "facade/error_record.h"
#include "facade/kernel.h"

namespace pnl {

struct ErrorUnit {
  TextView text;  // a format without arguments: "%%" prints one percent sign
  double scale;   // the stored value is divided by this
  bool inch;
};

/// The unit with that code. A code that isn't in the table gives an empty text and scale 1.
[[nodiscard]] ErrorUnit UnitOf(std::int32_t code);
/// The number of the text that is the caption of that meaning, or 0 if it has none.
[[nodiscard]] int CaptionTextOf(std::int32_t meaning);
/// The value as " %.*f". A value too large for single precision is written as " %.*e".
[[nodiscard]] Text FormatDouble(double value, int precision);
/// The value as text. It is empty for a type that isn't printed.
[[nodiscard]] Text ComposeValue(const ErrorValue& value);
/// A line with caption, value and unit. It begins with a line feed if the parameter's meaning has a caption. It is
/// empty if the parameter is absent.
[[nodiscard]] Text ComposeParameter(const ErrorParameter& parameter, const ErrorWords& words, Kernel& kapi);

}  // namespace pnl
