// SPDX-License-Identifier: MIT
// The encodings of text files: which ones are read, how one is recognised, and decoding piece by piece for readers that
// don't have the whole file in memory. base/text.h converts whole texts and is built on this.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "base/text_type.h"

namespace pnl {

enum class Encoding { kUtf8, kUtf16Little, kUtf16Big, kLatin1 };

struct EncodingMark {
  Encoding encoding = Encoding::kUtf8;
  std::size_t length = 0;  // bytes of the mark
};

/// The byte order mark with which the bytes begin; nothing when there is none.
[[nodiscard]] std::optional<EncodingMark> MarkOf(std::string_view bytes);
/// How many bytes at the start form whole, well-formed UTF-8 sequences.
[[nodiscard]] std::size_t ValidUtf8Prefix(std::string_view bytes);
/// Appends the text of the bytes to text and returns how many bytes were used. Unless last is set, more bytes are to
/// follow, and up to three at the end may be left for the next call. If last is set, all bytes are used, and a sequence
/// that is cut off becomes U+FFFD.
std::size_t Decode(Encoding encoding, std::string_view bytes, bool last, Text& text);

}  // namespace pnl
