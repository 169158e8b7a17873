// SPDX-License-Identifier: MIT
#include "zmc/store/cutting_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace pnl {
namespace {

constexpr bool IsHigh(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
constexpr bool IsLow(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

/// What XML 1.0 calls a character.
constexpr bool IsXmlCharacter(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c < 0xD800 || (c >= 0xE000 && c < 0xFFFE) || (c >= 0x10000 && c <= 0x10FFFF);
}

/// What occurs in a text, so that most files need one pass over their bytes and no other.
struct Occurrences {
  unsigned char forbidden = 0;  // control characters; each member is 0 or not
  unsigned char returns = 0;
  unsigned char references = 0;
  unsigned char beyondAscii = 0;
};

/// Has no branch, so that the compiler makes vector code of a loop around it.
void Note(char c, Occurrences& seen) {
  const auto byte = static_cast<unsigned char>(c);
  const bool isReturn = byte == '\r';
  seen.forbidden |= static_cast<unsigned char>((byte < 0x20) & (byte != '\t') & (byte != '\n') & !isReturn);
  seen.returns |= static_cast<unsigned char>(isReturn);
  seen.references |= static_cast<unsigned char>(byte == '&');
  seen.beyondAscii |= static_cast<unsigned char>(byte & 0x80);
}

Occurrences Look(std::string_view bytes) {
  constexpr std::size_t kBlock = 64;
  Occurrences seen;
  for (; bytes.size() >= kBlock; bytes.remove_prefix(kBlock)) {
    for (std::size_t i = 0; i < kBlock; ++i) Note(bytes[i], seen);
  }
  for (const char c : bytes) Note(c, seen);
  return seen;
}

/// Makes one LF of CR LF and of a lone CR, of which the text has at least one.
void NormalizeLineEnds(std::string& text) {
  std::size_t to = text.find('\r');
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

/// Writes a character beyond ASCII in UTF-8 and returns the place after it.
char* Put(char32_t c, char* to) {
  const auto tail = [&](int shift) { *to++ = static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
  if (c < 0x800) {
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

/// Bytes that aren't UTF-16 stay as they are.
std::optional<std::string> ToUtf8Bytes(std::string_view bytes) {
  if (bytes.substr(0, 2) == "\xFF\xFE") return FromUtf16(bytes.substr(2));
  // A document begins with "<" or white space, whose second byte is 0 in no other encoding that is read.
  if (bytes.size() >= 2 && bytes[0] != '\0' && bytes[1] == '\0') return FromUtf16(bytes);
  if (bytes.substr(0, 3) == "\xEF\xBB\xBF") bytes.remove_prefix(3);
  return std::string(bytes);
}

}  // namespace

std::optional<std::string> DecodeCuttingData(std::string_view bytes) {
  auto text = ToUtf8Bytes(bytes);
  if (!text) return std::nullopt;
  const Occurrences seen = Look(*text);
  if (seen.forbidden != 0 || (seen.beyondAscii != 0 && !IsUtf8(*text))) return std::nullopt;
  if (seen.references != 0 && HasForbiddenReferences(*text)) return std::nullopt;
  if (seen.returns != 0) NormalizeLineEnds(*text);
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
