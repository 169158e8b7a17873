// SPDX-License-Identifier: MIT
// JSON values to and from what the test rig exchanges: values, records with fields, texts. Pure conversion, no Params
// and no widgets.
#pragma once

#include <pnltools/rig.h>

#include <QJsonValue>
#include <QString>
#include <optional>

namespace panel {

/// JSON has no infinity and no NaN: they read null.
[[nodiscard]] QJsonValue ToJson(const pnl::rig::Value& value);
/// Null, numbers and texts; nothing for the rest. A whole number is an integer.
[[nodiscard]] std::optional<pnl::rig::Value> FromJson(const QJsonValue& value);
/// A value of that type, when the JSON value can be one: int 32 bits wide, a whole number for a double too.
[[nodiscard]] std::optional<pnl::rig::Value> FromJson(const QJsonValue& value, pnl::rig::VariableType type);

[[nodiscard]] inline std::u16string Wide(const QString& text) { return text.toStdU16String(); }
[[nodiscard]] inline QString Narrow(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline QString Narrow(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace panel
