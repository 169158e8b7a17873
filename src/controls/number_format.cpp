// SPDX-License-Identifier: MIT
#include "controls/number_format.h"

#include <algorithm>
#include <cmath>

#include "base/format.h"
#include "base/numbers.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kMostPaintedDecimals = 12;
constexpr double kLargestPainted = 1e15;

bool IsDigit(QChar c) { return c >= u'0' && c <= u'9'; }

/// How many digits there are from a position on.
qsizetype DigitsFrom(const QString& text, qsizetype from) {
  const auto end = std::find_if_not(text.begin() + from, text.end(), IsDigit);
  return end - (text.begin() + from);
}

}  // namespace

bool MayBeTyped(const QString& text, const NumberFormat& format) {
  qsizetype at = 0;
  if (text.startsWith(u'-') && !(format.minimum < 0)) return false;
  if (text.startsWith(u'-') || text.startsWith(u'+')) ++at;
  const qsizetype integers = DigitsFrom(text, at);
  if (format.integerDigits > 0 && integers > format.integerDigits) return false;
  at += integers;
  if (at == text.size()) return true;
  if (text[at] != u'.' || format.decimals == 0) return false;
  const qsizetype decimals = DigitsFrom(text, ++at);
  return at + decimals == text.size() && (format.decimals < 0 || decimals <= format.decimals);
}

bool IsAllowedNumber(const QString& text, const NumberFormat& format) {
  if (text.isEmpty()) return true;
  if (!MayBeTyped(text, format)) return false;
  // A sign or a point alone is no number.
  const auto value = ParseDouble(FromQString(text));
  return value && !(*value < format.minimum) && !(*value > format.maximum);
}

QString PaintedNumber(const QString& text, const NumberFormat& format) {
  if (format.decimals < 0) return text;
  const auto value = ParseDouble(FromQString(text));
  if (!value || !(std::abs(*value) < kLargestPainted)) return text;
  const QString painted = ToQString(Format(u"%.*f", std::min(format.decimals, kMostPaintedDecimals), *value));
  const bool zero = std::none_of(painted.begin(), painted.end(), [](QChar c) { return c >= u'1' && c <= u'9'; });
  return zero && painted.startsWith(u'-') ? painted.mid(1) : painted;
}

}  // namespace pnl
