// SPDX-License-Identifier: MIT
#include "base/numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace pnl {
namespace {

/// White space as C defines it, which is more than Trim removes.
bool IsSpace(char16_t c) { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

TextView SkipSpace(TextView text) {
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  return text;
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

bool IsHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

/// True for "0x" followed by a hex digit. Without the digit the "0" is the whole number.
bool BeginsHexNumber(std::string_view text) {
  if (text.size() < 3 || text[0] != '0' || (text[1] != 'x' && text[1] != 'X')) return false;
  return IsHexDigit(text[2]) || (text[2] == '.' && text.size() > 3 && IsHexDigit(text[3]));
}

struct IntPrefix {
  std::int64_t value = 0;  // stops growing beyond 32 bits
  std::size_t length = 0;  // units read, white space and sign included; 0 without a digit
  bool fits = true;        // in 32 bits
};

IntPrefix ReadIntPrefix(TextView text) {
  const TextView body = SkipSpace(text);
  const std::size_t skipped = text.size() - body.size();
  const bool minus = !body.empty() && body[0] == u'-';
  std::size_t at = minus || (!body.empty() && body[0] == u'+') ? 1 : 0;
  IntPrefix result;
  if (at == body.size() || !IsDigit(body[at])) return result;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  for (; at < body.size() && IsDigit(body[at]); ++at) {
    if (result.value <= kMost) result.value = result.value * 10 + (body[at] - u'0');
  }
  if (minus) result.value = -result.value;
  result.fits = result.value >= -kMost - 1 && result.value <= kMost;
  result.value = std::clamp(result.value, -kMost - 1, kMost);
  result.length = skipped + at;
  return result;
}

/// The result of strtod for a number that fits no double: infinity if it is too large, 0 if it is too small. The place
/// of its first digit other than 0, and its exponent, decide which.
double OutOfRange(std::string_view number, bool hex) {
  std::int64_t place = 0;  // digits of the whole part from the first non-zero one on, or minus the zeros of the
                           // fraction before it
  bool point = false;
  bool counts = false;
  const std::size_t mark = number.find_first_of(hex ? "pP" : "eE");
  for (const char c : number.substr(0, mark)) {
    if (c == '.') {
      point = true;
      continue;
    }
    counts = counts || c != '0';
    if (counts && !point) ++place;
    if (!counts && point) --place;
  }
  std::int64_t exponent = 0;
  if (mark != std::string_view::npos) {
    constexpr std::int64_t kFar = 1'000'000'000'000;
    // After the letter there are only digits, with or without a sign before them. Both signs come before the digits in
    // ASCII.
    for (const char c : number.substr(mark + 1)) {
      if (c >= '0') exponent = std::min(exponent * 10 + (c - '0'), kFar);
    }
    if (number[mark + 1] == '-') exponent = -exponent;
  }
  return place * (hex ? 4 : 1) + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

struct DoublePrefix {
  double value = 0;
  std::size_t length = 0;
};

DoublePrefix ReadDoublePrefix(TextView text) {
  const TextView body = SkipSpace(text);
  const std::size_t skipped = text.size() - body.size();
  std::string ascii;
  for (const char16_t c : body) {
    // No number contains other characters, apart from the letters of "nan(...)".
    if (c <= u' ' || c >= 0x7F) break;
    ascii.push_back(static_cast<char>(c));
  }
  std::string_view rest = ascii;
  const bool minus = !rest.empty() && rest[0] == '-';
  std::size_t used = minus || (!rest.empty() && rest[0] == '+') ? 1 : 0;
  rest.remove_prefix(used);
  if (rest.empty() || rest[0] == '-') return {};

  const bool hex = BeginsHexNumber(rest);
  if (hex) {
    rest.remove_prefix(2);
    used += 2;
  }
  double value = 0;
  const auto format = hex ? std::chars_format::hex : std::chars_format::general;
  const auto result = std::from_chars(rest.data(), rest.data() + rest.size(), value, format);
  if (result.ec == std::errc::invalid_argument) return {};
  const auto length = static_cast<std::size_t>(result.ptr - rest.data());
  if (result.ec == std::errc::result_out_of_range) value = OutOfRange(rest.substr(0, length), hex);
  return {minus ? -value : value, skipped + used + length};
}

}  // namespace

std::int32_t TruncateToInt32(double value) {
  if (value > -2147483649.0 && value < 2147483648.0) return static_cast<std::int32_t>(value);
  return std::numeric_limits<std::int32_t>::min();
}

std::int64_t TruncateToInt64(double value) {
  if (value >= -0x1p63 && value < 0x1p63) return static_cast<std::int64_t>(value);
  return std::numeric_limits<std::int64_t>::min();
}

std::uint32_t TruncateToLowWord(double value) {
  return static_cast<std::uint32_t>(static_cast<std::uint64_t>(TruncateToInt64(value)));
}

std::int32_t ParseIntPrefix(TextView text) { return static_cast<std::int32_t>(ReadIntPrefix(text).value); }

std::optional<std::int32_t> ParseInt(TextView text) {
  const IntPrefix prefix = ReadIntPrefix(text);
  if (prefix.length == 0 || !prefix.fits || !SkipSpace(text.substr(prefix.length)).empty()) return std::nullopt;
  return static_cast<std::int32_t>(prefix.value);
}

double ParseDoublePrefix(TextView text) { return ReadDoublePrefix(text).value; }

std::optional<double> ParseDouble(TextView text) {
  const DoublePrefix prefix = ReadDoublePrefix(text);
  if (prefix.length == 0 || !SkipSpace(text.substr(prefix.length)).empty()) return std::nullopt;
  return prefix.value;
}

}  // namespace pnl
