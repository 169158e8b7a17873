// SPDX-License-Identifier: MIT
// How a number may be typed and how it is painted: digits before and after the point, and a range. Grids and data
// fields share it. It never changes a text that is stored: painting makes another one.
#pragma once

#include <QtCore/QString>
#include <limits>

namespace pnl {

struct NumberFormat {
  int integerDigits = 0;  // most digits before the point; 0 or less means any number of them
  int decimals = -1;      // most digits after the point; less than 0 means any number of them
  double minimum = -std::numeric_limits<double>::infinity();
  double maximum = std::numeric_limits<double>::infinity();

  friend bool operator==(const NumberFormat&, const NumberFormat&) = default;
};

/// Whether the text is a number with these digits or the beginning of one: a sign, digits, a point, digits. A minus
/// needs a minimum below 0. The range isn't looked at, because 1 is the beginning of 10. An empty text is one too.
[[nodiscard]] bool MayBeTyped(const QString& text, const NumberFormat& format);

/// Whether the text is empty or a whole number with these digits, from minimum to maximum.
[[nodiscard]] bool IsAllowedNumber(const QString& text, const NumberFormat& format);

/// The text as it is painted: a number with exactly the decimals of the format, rounded. A text that is no number, or
/// one of 1e15 or more, is painted as it is. There is no minus before a zero.
[[nodiscard]] QString PaintedNumber(const QString& text, const NumberFormat& format);

}  // namespace pnl
