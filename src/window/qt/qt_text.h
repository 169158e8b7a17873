// SPDX-License-Identifier: MIT
// Converts texts and colours between the library and Qt. Both sides use UTF-16, so no text is lost.
#pragma once

#include <QColor>
#include <QString>

#include "base/text.h"

namespace pnl {

[[nodiscard]] inline QString ToQString(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline Text FromQString(const QString& text) { return text.toStdU16String(); }

/// Converts a colour 0x00BBGGRR.
[[nodiscard]] inline QColor ToQColor(std::uint32_t color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
          static_cast<int>((color >> 16) & 0xFF)};
}

}  // namespace pnl
