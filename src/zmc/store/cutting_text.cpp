// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace pnl {
namespace {

constexpr bool IsHigh(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool IsLow(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

/// What XML 1.0 calls a character.
constexpr bool IsXmlCharacter(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c < 0xD800 || (c >= 0xE000 && c < 0xFFFE) || (c >= 0x10000 && c <= 0x10FFFF);
}

bool HasForbiddenControls(std::string_view bytes) {
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  constexpr std::uint64_t kHighs = 0x8080808080808080;
  const auto isForbidden = [](char c) {
    return static_cast<unsigned char>(c) < 0x20 && !IsXmlCharacter(static_cast<unsigned char>(c));
  };
  std::size_t at = 0;
  for (; at + 8 <= bytes.size(); at += 8) {
    std::uint64_t word;
    std::memcpy(&word, bytes.data() + at, 8);
    // A byte below 0x20 borrows into its highest bit. That a byte beside one may do so too costs only a closer look.
    if (((word - kOnes * 0x20) & ~word & kHighs) == 0) continue;
    for (std::size_t i = at; i < at + 8; ++i) {
      if (isForbidden(bytes[i])) return true;
    }
  }
  for (; at < bytes.size(); ++at) {
    if (isForbidden(bytes[at])) return true;
  }
  return false;
}

/// Makes one LF of CR LF and of a lone CR.
void NormalizeLineEnds(std::string& text) {
  std::size_t to = text.find('\r');
  if (to == std::string::npos) return;
  for (std::size_t from = to; from < text.size(); ++from) {
    if (text[from] == '\r') {
      text[to++] = '\n';
      if (from + 1 < text.size() && text[from + 1] == '\n') ++from;
    } else {
      text[to++] = text[from];
    }
  }
  text.resize(to);
}

/// True for a text that begins as "#38;" or "#x26;" does and whose number is no character. What isn't such a reference
/// is plain text.
bool IsForbiddenReference(std::string_view text) {
  const bool hex = text.substr(0, 2) == "#x";
  if (!hex && text.substr(0, 1) != "#") return false;
  char32_t code = 0;
  std::size_t at = hex ? 2 : 1;
  const std::size_t first = at;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    char32_t digit = 16;
    if (c >= '0' && c <= '9') digit = static_cast<char32_t>(c - '0');
    if (hex && c >= 'a' && c <= 'f') digit = static_cast<char32_t>(c - 'a' + 10);
    if (hex && c >= 'A' && c <= 'F') digit = static_cast<char32_t>(c - 'A' + 10);
    if (digit == 16) break;
    if (code <= 0x10FFFF) code = code * (hex ? 16 : 10) + digit;
  }
  return at > first && at < text.size() && text[at] == ';' && !IsXmlCharacter(code);
}

bool HasForbiddenReferences(std::string_view text) {
  for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&', at + 1)) {
    if (IsForbiddenReference(text.substr(at + 1))) return true;
  }
  return false;
}

/// Writes a character of UTF-8 and returns the place after it.
char* Put(char32_t c, char* to) {
  const auto tail = [&](int shift) { *to++ = static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x80) {
    *to++ = static_cast<char>(c);
  } else if (c < 0x800) {
    *to++ = static_cast<char>(0xC0 | (c >> 6));
    tail(0);
  } else if (c < 0x10000) {
    *to++ = static_cast<char>(0xE0 | (c >> 12));
    tail(6);
    tail(0);
  } else {
    *to++ = static_cast<char>(0xF0 | (c >> 18));
    tail(12);
    tail(6);
    tail(0);
  }
  return to;
}

/// Nothing for half a unit at the end or half a pair. UTF-16 files are as large as others, so this is one quick pass.
std::optional<std::string> FromUtf16(std::string_view bytes) {
  if (bytes.size() % 2 != 0) return std::nullopt;
  const std::size_t units = bytes.size() / 2;
  const auto unit = [&](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[2 * i]) | static_cast<unsigned char>(bytes[2 * i + 1])
                                                                                << 8);
  };
  std::string text(3 * units, '\0');
  char* to = text.data();
  for (std::size_t i = 0; i < units; ++i) {
    char32_t c = unit(i);
    if (c < 0x80) {
      *to++ = static_cast<char>(c);
      continue;
    }
    if (IsHigh(c) && i + 1 < units && IsLow(unit(i + 1))) {
      c = 0x10000 + ((c - 0xD800) << 10) + (unit(i + 1) - 0xDC00);
      ++i;
    }
    if (!IsXmlCharacter(c)) return std::nullopt;
    to = Put(c, to);
  }
  text.resize(static_cast<std::size_t>(to - text.data()));
  return text;
}

std::optional<std::string> ToCheckedUtf8(std::string_view bytes) {
  if (bytes.substr(0, 2) == "\xFF\xFE") return FromUtf16(bytes.substr(2));
  // A document begins with "<" or white space, whose second byte is 0 in no other encoding that is read.
  if (bytes.size() >= 2 && bytes[0] != '\0' && bytes[1] == '\0') return FromUtf16(bytes);
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
  if (!IsUtf8(bytes)) return std::nullopt;
  return std::string(bytes);
}

}  // namespace

std::optional<std::string> DecodeCuttingData(std::string_view bytes) {
  auto text = ToCheckedUtf8(bytes);
  if (!text || HasForbiddenControls(*text) || HasForbiddenReferences(*text)) return std::nullopt;
  NormalizeLineEnds(*text);
  return text;
}

std::optional<Text> StoredNumber(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  if (value == 0) return Text(u"0");  // never "-0"
  // The longest: a sign, "0.", 323 zeros and 17 digits.
  std::array<char, 400> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed);
  return Text(digits.data(), end.ptr);
}

bool CanHoldCuttingText(TextView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1])) {
      ++i;
    } else if (!IsXmlCharacter(text[i])) {
      return false;
    }
  }
  return true;
}

}  // namespace pnl
