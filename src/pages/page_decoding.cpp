// SPDX-License-Identifier: MIT
#include "pages/page_decoding.h"

#include <array>

#include "pages/page_limits.h"

namespace pnl {
namespace {

/// The characters of Windows-1252 from 0x80 to 0x9F. A byte without a character keeps its number.
constexpr std::array<char16_t, 32> kWindows1252 = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

/// Takes the bytes of a sequence that the limit has cut off the end.
std::string_view WithoutHalfSequence(std::string_view bytes) {
  std::size_t back = 0;
  while (back < 3 && back < bytes.size() && (bytes[bytes.size() - 1 - back] & 0xC0) == 0x80) ++back;
  if (back < bytes.size() && (bytes[bytes.size() - 1 - back] & 0xC0) == 0xC0) ++back;
  return bytes.substr(0, bytes.size() - back);
}

}  // namespace

Text DecodePage(std::string_view bytes) {
  const bool cut = bytes.size() > page_limit::kBytes;
  bytes = bytes.substr(0, page_limit::kBytes);
  if (cut && IsUtf8(WithoutHalfSequence(bytes))) bytes = WithoutHalfSequence(bytes);
  Text text = DecodeFile(bytes);
  const bool marked = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
  if (!marked && !IsUtf8(bytes)) {
    for (char16_t& c : text) c = c >= 0x80 && c < 0xA0 ? kWindows1252[c - 0x80u] : c;
  }
  return text;
}

}  // namespace pnl
