// SPDX-License-Identifier: MIT
// Formatting with the meaning of printf over typed arguments. A format from a language pack may ask for anything: what
// doesn't fit its argument prints something odd, but nothing is ever read that isn't there. Always with a point as
// the decimal mark, whatever the process's locale.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <variant>

#include "base/text.h"

namespace pnl {

/// One argument of Format. Integers keep their sign and width; texts are borrowed for the call.
class FormatArg {
 public:
  FormatArg(int value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(unsigned value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(long value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(unsigned long value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(long long value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(unsigned long long value) : value_(static_cast<std::int64_t>(value)) {}
  FormatArg(double value) : value_(value) {}
  FormatArg(char16_t value) : value_(value) {}
  /// A null pointer is an empty text.
  FormatArg(const char16_t* value) : value_(value != nullptr ? TextView(value) : TextView()) {}
  FormatArg(const Text& value) : value_(TextView(value)) {}
  FormatArg(TextView value) : value_(value) {}

  [[nodiscard]] const std::variant<std::int64_t, double, char16_t, TextView>& Value() const { return value_; }

 private:
  std::variant<std::int64_t, double, char16_t, TextView> value_;
};

/// The formatted text. %d %i take 32 bits signed (as an int would), %u %x %X %o 32 bits unsigned, with l, ll, I64 the
/// 64 bits; %c %s %e %E %f %g %G %% and flags, width, precision and '*' as printf has them; %S and %ls are %s.
/// A conversion without an argument, or of an unknown letter, prints nothing for it; a wrong type is converted where
/// that makes sense (number to number, number to text) and prints nothing otherwise. Width and precision are capped
/// at 4096.
[[nodiscard]] Text FormatList(TextView format, std::initializer_list<FormatArg> args);

template <typename... Args>
[[nodiscard]] Text Format(TextView format, const Args&... args) {
  return FormatList(format, {FormatArg(args)...});
}

}  // namespace pnl
