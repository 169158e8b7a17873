// SPDX-License-Identifier: MIT
// UTF-16 text: conversions from and to UTF-8, and the comparisons that settings, file names and language texts need.
// Formatting is in base/format.h, reading files in base/files.h.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/text_type.h"

namespace pnl {

/// Converts a text to UTF-8. A lone surrogate becomes U+FFFD.
[[nodiscard]] std::string ToUtf8(TextView text);
/// Converts UTF-8 to a text. Each byte that isn't part of a valid sequence becomes U+FFFD.
[[nodiscard]] Text FromUtf8(std::string_view bytes);
/// True when the bytes are well-formed UTF-8 (no overlong forms, no surrogates).
[[nodiscard]] bool IsUtf8(std::string_view bytes);
/// Converts a file's bytes to a text. A byte order mark (UTF-8, UTF-16 little or big endian) decides the encoding and
/// is dropped. Without one the bytes are UTF-8 if they are well-formed, else Latin-1, so that no byte is lost.
[[nodiscard]] Text DecodeFile(std::string_view bytes);

/// The capital by Unicode's simple mapping for Latin, Greek and Cyrillic letters. Returns other characters as they are.
[[nodiscard]] char16_t ToUpper(char16_t c);
[[nodiscard]] Text ToUpper(TextView text);
/// Compares without regard to case. Returns a number less than, equal to or greater than 0.
[[nodiscard]] int CompareNoCase(TextView a, TextView b);
[[nodiscard]] bool EqualNoCase(TextView a, TextView b);
/// The text without white space (blank, tab, CR, LF) at both ends.
[[nodiscard]] TextView Trim(TextView text);

/// The text in a record's field: up to its terminator or the end of the field, whichever comes first.
template <std::size_t N>
[[nodiscard]] Text FieldText(const char16_t (&field)[N]) {
  const TextView all(field, N);
  return Text(all.substr(0, all.find(u'\0')));
}
/// Copies a text into a record's field: cut to what fits, terminated, the rest filled with zeros.
template <std::size_t N>
void SetField(char16_t (&field)[N], TextView text) {
  const TextView cut = text.substr(0, N - 1);
  for (std::size_t i = 0; i < N; ++i) field[i] = i < cut.size() ? cut[i] : u'\0';
}

}  // namespace pnl
