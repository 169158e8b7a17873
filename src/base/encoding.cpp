// SPDX-License-Identifier: MIT
#include "base/encoding.h"

#include <cstdint>
#include <cstring>

namespace pnl {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr std::size_t kLongestSequence = 4;

std::size_t AsciiPrefix(std::string_view bytes) {
  std::size_t at = 0;
  std::uint64_t word = 0;
  for (; at + sizeof word <= bytes.size(); at += sizeof word) {
    std::memcpy(&word, bytes.data() + at, sizeof word);
    if ((word & 0x8080808080808080u) != 0) break;
  }
  while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80) ++at;
  return at;
}

struct Sequence {
  char32_t code = 0;
  std::size_t length = 0;  // 0: the first byte begins no well-formed sequence
};

/// The sequence at the start of the bytes, the first of which isn't ASCII.
Sequence SequenceAt(std::string_view bytes) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const unsigned first = byte(0);
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || bytes.size() < length) return {};
  char32_t code = first & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0u) != 0x80u) return {};
    code = (code << 6) | (byte(i) & 0x3Fu);
  }
  const bool overlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (overlong || surrogate || code > 0x10FFFF) return {};
  return {code, length};
}

void Append(char32_t code, Text& text) {
  if (code < 0x10000) {
    text.push_back(static_cast<char16_t>(code));
  } else {
    text.push_back(static_cast<char16_t>(0xD7C0 + (code >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (code & 0x3FF)));
  }
}

void AppendBytes(std::string_view bytes, Text& text) {
  const std::size_t old = text.size();
  text.resize(old + bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) text[old + i] = static_cast<unsigned char>(bytes[i]);
}

std::size_t DecodeUtf8(std::string_view bytes, bool last, Text& text) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    const std::size_t ascii = AsciiPrefix(bytes.substr(at));
    AppendBytes(bytes.substr(at, ascii), text);
    at += ascii;
    // The end of this piece may cut a sequence off.
    if (at == bytes.size() || (!last && bytes.size() - at < kLongestSequence)) break;
    const Sequence sequence = SequenceAt(bytes.substr(at, kLongestSequence));
    if (sequence.length == 0) {
      text.push_back(kReplacement);
      ++at;
    } else {
      Append(sequence.code, text);
      at += sequence.length;
    }
  }
  return at;
}

std::size_t DecodeUtf16(bool big, std::string_view bytes, bool last, Text& text) {
  const std::size_t units = bytes.size() / 2;
  const std::size_t old = text.size();
  text.resize(old + units);
  for (std::size_t i = 0; i < units; ++i) {
    const unsigned low = static_cast<unsigned char>(bytes[2 * i + (big ? 1 : 0)]);
    const unsigned high = static_cast<unsigned char>(bytes[2 * i + (big ? 0 : 1)]);
    text[old + i] = static_cast<char16_t>(high << 8 | low);
  }
  if (last && bytes.size() % 2 != 0) text.push_back(kReplacement);
  return last ? bytes.size() : 2 * units;
}

}  // namespace

std::optional<EncodingMark> MarkOf(std::string_view bytes) {
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") return EncodingMark{Encoding::kUtf8, 3};
  if (bytes.substr(0, 2) == "\xFF\xFE") return EncodingMark{Encoding::kUtf16Little, 2};
  if (bytes.substr(0, 2) == "\xFE\xFF") return EncodingMark{Encoding::kUtf16Big, 2};
  return std::nullopt;
}

std::size_t ValidUtf8Prefix(std::string_view bytes) {
  std::size_t at = 0;
  for (;;) {
    at += AsciiPrefix(bytes.substr(at));
    if (at == bytes.size()) break;
    const std::size_t length = SequenceAt(bytes.substr(at, kLongestSequence)).length;
    if (length == 0) break;
    at += length;
  }
  return at;
}

std::size_t Decode(Encoding encoding, std::string_view bytes, bool last, Text& text) {
  switch (encoding) {
    case Encoding::kUtf8:
      return DecodeUtf8(bytes, last, text);
    case Encoding::kUtf16Little:
    case Encoding::kUtf16Big:
      return DecodeUtf16(encoding == Encoding::kUtf16Big, bytes, last, text);
    case Encoding::kLatin1:
      AppendBytes(bytes, text);
      break;
  }
  return bytes.size();
}

}  // namespace pnl
