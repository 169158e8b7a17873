// SPDX-License-Identifier: MIT
#include "remote/params.h"

#include <utility>

namespace panel {

std::optional<qint64> WholeNumber(const QJsonValue& value) {
  // toInteger returns its default for every value that isn't whole, so two calls with two defaults differ then.
  const qint64 number = value.toInteger(0);
  if (number != value.toInteger(1)) return std::nullopt;
  return number;
}

bool Params::Present(const QString& name, bool optional) {
  if (object_.contains(name)) return true;
  if (!optional) Fail(name, "missing");
  return false;
}

qint64 Params::Integer(const QString& name, qint64 least, qint64 most, std::optional<qint64> fallback) {
  const qint64 harmless = fallback.value_or(least);
  if (!Present(name, fallback.has_value())) return harmless;
  const auto number = WholeNumber(object_.value(name));
  if (number && *number >= least && *number <= most) return *number;
  Fail(name, QString("an integer from %1 to %2 is needed").arg(least).arg(most));
  return harmless;
}

std::int32_t Params::Int(const QString& name, std::optional<std::int32_t> fallback) {
  using Limits = std::numeric_limits<std::int32_t>;
  const std::optional<qint64> wide = fallback ? std::optional<qint64>(*fallback) : std::nullopt;
  return static_cast<std::int32_t>(Integer(name, Limits::min(), Limits::max(), wide));
}

bool Params::Bool(const QString& name, std::optional<bool> fallback) {
  if (!Present(name, fallback.has_value())) return fallback.value_or(false);
  const QJsonValue value = object_.value(name);
  if (!value.isBool()) Fail(name, "true or false is needed");
  return value.toBool();
}

QString Params::Text(const QString& name, const std::optional<QString>& fallback) {
  if (!Present(name, fallback.has_value())) return fallback.value_or(QString());
  const QJsonValue value = object_.value(name);
  if (!value.isString()) Fail(name, "a text is needed");
  return value.toString();
}

QString Params::Choice(const QString& name, const QStringList& words, const std::optional<QString>& fallback) {
  if (!Present(name, fallback.has_value())) return fallback.value_or(words.first());
  const QJsonValue value = object_.value(name);
  if (value.isString() && words.contains(value.toString())) return value.toString();
  Fail(name, "one of \"" + words.join("\", \"") + "\" is needed");
  return words.first();
}

QJsonArray Params::List(const QString& name, const std::optional<QJsonArray>& fallback) {
  if (!Present(name, fallback.has_value())) return fallback.value_or(QJsonArray());
  const QJsonValue value = object_.value(name);
  if (!value.isArray()) Fail(name, "a list is needed");
  return value.toArray();
}

QJsonObject Params::Object(const QString& name) {
  if (!Present(name, false)) return {};
  const QJsonValue value = object_.value(name);
  if (!value.isObject()) Fail(name, "an object is needed");
  return value.toObject();
}

QString Params::HostFile(const QString& name) {
  QString file = Text(name);
  if (file.isEmpty() || file.contains(QChar(u'\0'))) Fail(name, "the name of a file or folder is needed");
  return file;
}

QList<int> Params::Integers(const QString& name, int least, int most) {
  QList<int> numbers;
  for (const QJsonValue value : List(name)) {
    const auto number = WholeNumber(value);
    if (!number || *number < least || *number > most) {
      Fail(name, QString("integers from %1 to %2 are needed").arg(least).arg(most));
      return {};
    }
    numbers.append(static_cast<int>(*number));
  }
  return numbers;
}

QStringList Params::Texts(const QString& name, const std::optional<QStringList>& fallback) {
  if (!Present(name, fallback.has_value())) return fallback.value_or(QStringList());
  QStringList texts;
  for (const QJsonValue value : List(name)) {
    if (!value.isString()) Fail(name, "a list of texts is needed");
    texts.append(value.toString());
  }
  return texts;
}

void Params::Fail(const QString& name, const QString& text) {
  if (!problem_) problem_ = RpcError{rpc_code::kInvalidParams, prefix_ + name + ": " + text};
}

void Params::Adopt(const Params& inner) {
  if (!problem_) problem_ = inner.problem_;
}

}  // namespace panel
