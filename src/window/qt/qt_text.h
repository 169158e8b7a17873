// SPDX-License-Identifier: MIT
// Text between the library and Qt: the same encoding on both sides, so nothing is lost.
#pragma once

#include <QColor>
#include <QString>

#include "base/text.h"

namespace pnl {

[[nodiscard]] inline QString ToQString(TextView text) {
  return QString(reinterpret_cast<const QChar*>(text.data()), static_cast<qsizetype>(text.size()));
}

[[nodiscard]] inline Text FromQString(const QString& text) { return text.toStdU16String(); }

/// A colour 0x00BBGGRR for painting.
[[nodiscard]] inline QColor ToQColor(std::uint32_t color) {
  return {static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
          static_cast<int>((color >> 16) & 0xFF)};
}

}  // namespace pnl
