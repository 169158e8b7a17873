// SPDX-License-Identifier: MIT
#include "calc/calc_format.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "base/format.h"
#include "base/numbers.h"

namespace pnl {

namespace {

constexpr int kFewDigits = 4;      // an integer part with fewer digits leaves room
constexpr int kMostDecimals = 12;  // for so many decimals
constexpr int kDigits = 15;        // so many digits of a double are significant

Text WithDecimals(double value, int decimals) { return Format(u"%.*f", decimals, value); }

}  // namespace

Text BinaryDigits(double value) {
  const std::uint32_t word = TruncateToLowWord(value);
  Text digits;
  for (auto bit = static_cast<int>(std::bit_width(word)); bit > 0; --bit)
    digits += (word >> (bit - 1) & 1U) != 0 ? u'1' : u'0';
  return digits.empty() ? Text(u"0") : digits;
}

Text FormatResult(double value, int base) {
  if (base == number_base::kHexadecimal) return Format(u"$%X", TruncateToLowWord(value));
  if (base == number_base::kBinary) return Format(u"B%s", BinaryDigits(value));
  return Format(u"%.15g", value);
}

FractionDigits DigitsOfFraction(double fraction, int decimals) {
  const std::string all = ToUtf8(WithDecimals(std::fabs(fraction), decimals));
  FractionDigits result;
  for (const char c : all) {
    if (c >= '0' && c <= '9') result.digits += c;
  }
  const std::size_t zeros = std::min(result.digits.find_first_not_of('0'), result.digits.size());
  result.digits.erase(0, zeros);
  // One digit is before the point.
  result.place = 1 - static_cast<int>(zeros);
  return result;
}

Text FormatValue(double value) {
  double whole = 0;
  const double fraction = std::modf(std::fabs(value), &whole);
  if (!std::isfinite(value)) return WithDecimals(value, 0);
  const int size = whole > 0 ? static_cast<int>(std::floor(std::log10(whole) + 0.5)) : 0;
  const bool few = size < kFewDigits;
  const int decimals = few ? kMostDecimals : kDigits - size;
  const double least = few ? 1E-10 : std::pow(10.0, size) * 1E-15;
  // A value without a significant digit keeps its sign: "-0".
  if (!(fraction > least)) return WithDecimals(std::copysign(whole, value), 0);

  FractionDigits kept = DigitsOfFraction(fraction, decimals);
  if (static_cast<int>(kept.digits.size()) > decimals) return WithDecimals(value, 0);
  kept.digits.erase(kept.digits.find_last_not_of('0') + 1);
  return WithDecimals(value, static_cast<int>(kept.digits.size()) + std::abs(kept.place));
}

}  // namespace pnl
