// SPDX-License-Identifier: MIT
// The text of a file of cutting data before it is parsed and of a number before it is written. It decides which bytes
// may be a document at all: the parser would skip or change some that XML forbids, and a later update would lose them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/text.h"

namespace pnl {

/// Converts a file's bytes to UTF-8 without a byte order mark; a line end is one LF, as XML prescribes. Reads UTF-8 and
/// UTF-16 little endian, with a mark or without. Returns nothing for other encodings and for characters that XML
/// forbids, also when they are written as references ("&#0;").
[[nodiscard]] std::optional<std::string> DecodeCuttingData(std::string_view bytes);

/// The shortest decimal text, without an exponent, that reads back as the same number: 1200000000, 0.1. Returns nothing
/// for infinities and NaN.
[[nodiscard]] std::optional<Text> StoredNumber(double value);

/// True when a file can contain the text: no control characters but tab and line ends, no half of a surrogate pair, no
/// U+FFFE or U+FFFF. An update with another text is refused.
[[nodiscard]] bool CanHoldCuttingText(TextView text);

}  // namespace pnl
