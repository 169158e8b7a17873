// SPDX-License-Identifier: MIT
// Formats typed arguments as printf does. A format from a language pack may contain anything: a conversion that doesn't
// fit its argument prints something odd, but never reads memory that isn't its own. The decimal mark is always a point,
// whatever the process's locale.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <variant>

#include "base/text.h"

namespace pnl {

/// One argument of Format. An integer is kept in 64 bits. A text is borrowed and must outlive the call.
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

/// Returns the formatted text. %d %i take 32 bits signed, %u %x %X %o 32 bits unsigned; with l, ll or I64 they take 64
/// bits. %c %s %e %E %f %F %g %G %%, flags, width, precision and '*' work as in printf; %S and %ls are %s, %C is %c. A
/// conversion that has no argument or an unknown letter prints nothing. An argument of another type is converted where
/// that makes sense (number to number, number to text), else it prints nothing. Width and precision are capped at 4096.
[[nodiscard]] Text FormatList(TextView format, std::initializer_list<FormatArg> args);

template <typename... Args>
[[nodiscard]] Text Format(TextView format, const Args&... args) {
  return FormatList(format, {FormatArg(args)...});
}

}  // namespace pnl
