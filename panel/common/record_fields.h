// SPDX-License-Identifier: MIT
// The text fields of records that the panel and the tools exchange.
#pragma once

#include <QString>
#include <algorithm>
#include <cstddef>
#include <iterator>

namespace panel {

/// The text in a record's field, up to the terminator or to the end of the field.
template <std::size_t N>
QString FromField(const char16_t (&field)[N]) {
  const auto* end = std::find(std::begin(field), std::end(field), u'\0');
  return QString::fromUtf16(field, end - std::begin(field));
}

/// Writes a text with its terminator; a text that is too long for the field leaves it empty.
template <std::size_t N>
void PutIntoField(const QString& text, char16_t (&field)[N]) {
  std::fill(std::begin(field), std::end(field), u'\0');
  if (text.size() < static_cast<qsizetype>(N)) std::copy_n(text.utf16(), text.size(), std::begin(field));
}

}  // namespace panel
