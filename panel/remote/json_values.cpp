// SPDX-License-Identifier: MIT
#include "remote/json_values.h"

#include <QJsonObject>
#include <cmath>
#include <limits>

#include "remote/params.h"

namespace panel {

using pnl::rig::Field;
using pnl::rig::Value;
using pnl::rig::VariableType;

QJsonValue ToJson(const Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return static_cast<qint64>(*number);
  if (const auto* real = std::get_if<double>(&value)) return std::isfinite(*real) ? QJsonValue(*real) : QJsonValue();
  if (const auto* text = std::get_if<std::u16string>(&value)) return Narrow(*text);
  if (const auto* record = std::get_if<std::vector<Field>>(&value)) {
    QJsonObject object;
    for (const Field& field : *record) object.insert(Narrow(field.name), ToJson(field.value));
    return object;
  }
  return QJsonValue::Null;
}

std::optional<Value> FromJson(const QJsonValue& value) {
  if (value.isNull()) return Value();
  if (value.isString()) return Value(Wide(value.toString()));
  if (!value.isDouble()) return std::nullopt;
  if (const auto whole = WholeNumber(value)) return Value(static_cast<std::int64_t>(*whole));
  return Value(value.toDouble());
}

std::optional<Value> FromJson(const QJsonValue& value, VariableType type) {
  if (type == VariableType::kText) {
    return value.isString() ? std::optional<Value>(Wide(value.toString())) : std::nullopt;
  }
  if (!value.isDouble()) return std::nullopt;
  if (type == VariableType::kDouble) return Value(value.toDouble());
  using Limits = std::numeric_limits<std::int32_t>;
  const auto whole = WholeNumber(value);
  if (!whole || *whole < Limits::min() || *whole > Limits::max()) return std::nullopt;
  return Value(static_cast<std::int64_t>(*whole));
}

}  // namespace panel
