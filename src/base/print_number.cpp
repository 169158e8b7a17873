// SPDX-License-Identifier: MIT
#include "base/print_number.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string>

namespace pnl {
namespace {

/// The parts of a number, before Join pads them to the width.
struct Parts {
  std::string sign;  // sign or "0x"
  std::string digits;
  bool mayFill = true;  // whether Join may pad with zeros when the flag asks for it
};

Text Join(const Parts& parts, const FormatSpec& spec) {
  const auto width = static_cast<std::size_t>(spec.width);
  const std::size_t length = parts.sign.size() + parts.digits.size();
  const std::size_t missing = width > length ? width - length : 0;
  const bool zeros = spec.zeros && !spec.left && parts.mayFill;
  Text text;
  if (!spec.left && !zeros) text.append(missing, u' ');
  text.append(parts.sign.begin(), parts.sign.end());
  if (zeros) text.append(missing, u'0');
  text.append(parts.digits.begin(), parts.digits.end());
  if (spec.left) text.append(missing, u' ');
  return text;
}

std::string SignOf(bool minus, const FormatSpec& spec) {
  if (minus) return "-";
  if (spec.plus) return "+";
  return spec.blank ? " " : "";
}

std::string Digits(std::uint64_t value, int base, int precision) {
  std::array<char, 64> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, base);
  std::string digits(buffer.data(), result.ptr);
  // With precision 0, printf shows no digit for zero.
  if (precision == 0 && value == 0) digits.clear();
  const auto least = static_cast<std::size_t>(std::max(precision, 0));
  if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
  return digits;
}

bool IsCapital(const FormatSpec& spec) { return spec.conversion >= u'A' && spec.conversion <= u'Z'; }

/// A number has no character after the small letters.
void MakeCapital(std::string& letters) {
  for (char& c : letters) c = c >= 'a' ? static_cast<char>(c - 0x20) : c;
}

std::string ToChars(double value, std::chars_format format, int precision) {
  // The longest double has 309 digits before the point.
  std::string buffer(static_cast<std::size_t>(precision) + 330, '\0');
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format, precision);
  buffer.resize(static_cast<std::size_t>(result.ptr - buffer.data()));
  return buffer;
}

int ExponentOf(const std::string& scientific) {
  const char* first = scientific.data() + scientific.find('e') + 1;
  const char* end = scientific.data() + scientific.size();
  int exponent = 0;
  std::from_chars(*first == '+' ? first + 1 : first, end, exponent);
  return exponent;
}

void DropTrailingZeros(std::string& number) {
  const std::size_t point = number.find('.');
  if (point == std::string::npos) return;
  const std::size_t end = std::min(number.find('e'), number.size());
  std::size_t keep = end;
  while (number[keep - 1] == '0') --keep;
  if (keep - 1 == point) --keep;
  number.erase(keep, end - keep);
}

void ForcePoint(std::string& number) {
  if (number.find('.') == std::string::npos) number.insert(std::min(number.find('e'), number.size()), 1, '.');
}

std::string General(double value, int precision, bool keepZeros) {
  const int digits = std::max(precision, 1);
  std::string number = ToChars(value, std::chars_format::scientific, digits - 1);
  const int exponent = ExponentOf(number);
  if (exponent >= -4 && exponent < digits) number = ToChars(value, std::chars_format::fixed, digits - 1 - exponent);
  if (!keepZeros) DropTrailingZeros(number);
  return number;
}

std::string Finite(double value, const FormatSpec& spec) {
  const int precision = spec.precision < 0 ? 6 : spec.precision;
  std::string number;
  switch (spec.conversion) {
    case u'e':
    case u'E':
      number = ToChars(value, std::chars_format::scientific, precision);
      break;
    case u'f':
    case u'F':
      number = ToChars(value, std::chars_format::fixed, precision);
      break;
    default:
      number = General(value, precision, spec.alternate);
      break;
  }
  if (spec.alternate) ForcePoint(number);
  return number;
}

}  // namespace

Text PrintSigned(std::int64_t value, const FormatSpec& spec) {
  const auto bits = static_cast<std::uint64_t>(value);
  return Join({SignOf(value < 0, spec), Digits(value < 0 ? 0 - bits : bits, 10, spec.precision), spec.precision < 0},
              spec);
}

Text PrintUnsigned(std::uint64_t value, const FormatSpec& spec) {
  const bool hex = spec.conversion == u'x' || spec.conversion == u'X';
  const bool octal = spec.conversion == u'o';
  Parts parts{"", Digits(value, hex ? 16 : octal ? 8 : 10, spec.precision), spec.precision < 0};
  if (hex && spec.alternate && value != 0) parts.sign = "0x";
  if (octal && spec.alternate && (parts.digits.empty() || parts.digits[0] != '0')) parts.digits.insert(0, 1, '0');
  if (IsCapital(spec)) {
    MakeCapital(parts.sign);
    MakeCapital(parts.digits);
  }
  return Join(parts, spec);
}

Text PrintReal(double value, const FormatSpec& spec) {
  Parts parts{SignOf(std::signbit(value), spec), "", std::isfinite(value)};
  if (std::isfinite(value)) {
    parts.digits = Finite(std::fabs(value), spec);
  } else {
    parts.digits = std::isnan(value) ? "nan" : "inf";
  }
  if (IsCapital(spec)) MakeCapital(parts.digits);
  return Join(parts, spec);
}

}  // namespace pnl
