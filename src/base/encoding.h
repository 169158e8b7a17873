// SPDX-License-Identifier: MIT
// What a file's bytes mean: the encodings that are read, how one is recognised, and decoding piece by piece, for
// readers that don't hold the whole file. Whole texts are converted by base/text.h, which stands on this.
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

/// The byte order mark that the bytes begin with; nothing when there is none.
[[nodiscard]] std::optional<EncodingMark> MarkOf(std::string_view bytes);
/// How many bytes at the start are whole, well-formed UTF-8 sequences.
[[nodiscard]] std::size_t ValidUtf8Prefix(std::string_view bytes);
/// Appends the text of the bytes and returns how many were used. More bytes are to follow unless last is set: then up
/// to three at the end may be left for the next call. With last all are used, and what is cut off becomes U+FFFD.
std::size_t Decode(Encoding encoding, std::string_view bytes, bool last, Text& text);

}  // namespace pnl
