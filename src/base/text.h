// SPDX-License-Identifier: MIT
// UTF-16 text: its conversions from and to UTF-8, and the comparisons that
// settings, file names and language texts need. Not a formatter (base/format.h) and not a file reader.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text_type.h"

namespace pnl {

/// UTF-8 of a text. A lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(TextView text);
/// Text of UTF-8. Each byte that is no part of a valid sequence becomes U+FFFD.
[[nodiscard]] Text FromUtf8(std::string_view bytes);
/// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
[[nodiscard]] bool IsUtf8(std::string_view bytes);
/// Text of a file's bytes: a byte order mark decides (UTF-8, UTF-16 little or big endian) and is dropped; else UTF-8
/// if the bytes are well-formed, else Latin-1, so that no byte is lost.
[[nodiscard]] Text DecodeFile(std::string_view bytes);

/// Upper and lower case by Unicode's simple mapping for Latin, Greek and Cyrillic; other letters stay.
[[nodiscard]] char16_t ToUpper(char16_t c);
[[nodiscard]] Text ToUpper(TextView text);
/// Less than, equal or greater than 0, letters compared without regard to case.
[[nodiscard]] int CompareNoCase(TextView a, TextView b);
[[nodiscard]] bool EqualNoCase(TextView a, TextView b);
/// Without white space (blank, tab, CR, LF) at both ends.
[[nodiscard]] TextView Trim(TextView text);

/// The text in a record's field: up to its terminator or the end of the field, whichever comes first.
template <std::size_t N>
[[nodiscard]] Text FieldText(const char16_t (&field)[N]) {
  const TextView all(field, N);
  return Text(all.substr(0, all.find(u'\0')));
}
/// Puts a text into a record's field, cut to what fits, terminated, the rest filled with zeros.
template <std::size_t N>
void SetField(char16_t (&field)[N], TextView text) {
  const TextView cut = text.substr(0, N - 1);
  for (std::size_t i = 0; i < N; ++i) field[i] = i < cut.size() ? cut[i] : u'\0';
}

}  // namespace pnl
