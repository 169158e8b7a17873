// SPDX-License-Identifier: MIT
// Converts JSON values to and from the values of the test rig: numbers, texts, records with fields.
#pragma once

#include <pnltools/rig.h>

#include <QJsonValue>
#include <QString>
#include <optional>

namespace panel {

/// Infinity and NaN become null, because JSON has neither.
[[nodiscard]] QJsonValue ToJson(const pnl::rig::Value& value);
/// Converts null, a number or a text; nothing for anything else. A whole number becomes an integer.
[[nodiscard]] std::optional<pnl::rig::Value> FromJson(const QJsonValue& value);
/// Converts to a value of that type; nothing when that isn't possible. An int has 32 bits. A whole number is also a
/// double.
[[nodiscard]] std::optional<pnl::rig::Value> FromJson(const QJsonValue& value, pnl::rig::VariableType type);

[[nodiscard]] inline std::u16string Wide(const QString& text) { return text.toStdU16String(); }
[[nodiscard]] inline QString Narrow(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline QString Narrow(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace panel
