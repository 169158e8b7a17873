// SPDX-License-Identifier: MIT
// The parameters of one request, read by name and type. The first problem is kept as the error to reply with, and the
// reader then returns a harmless value. So a method reads everything first, looks at Problem, and only then acts. A
// name that nobody reads is ignored.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <limits>
#include <optional>

#include "remote/json_rpc.h"

namespace panel {

class Params {
 public:
  /// prefix is put before every name in an error text, for objects inside parameters: "xplr.".
  explicit Params(QJsonObject object, QString prefix = {}) : object_(std::move(object)), prefix_(std::move(prefix)) {}

  /// Whether the parameter is present. Null counts as present.
  [[nodiscard]] bool Has(const QString& name) const { return object_.contains(name); }
  [[nodiscard]] bool IsNull(const QString& name) const { return object_.value(name).isNull(); }
  [[nodiscard]] QJsonValue Raw(const QString& name) const { return object_.value(name); }

  /// For every reader below: a missing parameter gets the fallback; without a fallback it is a problem.
  [[nodiscard]] qint64 Integer(const QString& name, qint64 least, qint64 most, std::optional<qint64> fallback = {});
  [[nodiscard]] std::int32_t Int(const QString& name, std::optional<std::int32_t> fallback = {});
  [[nodiscard]] bool Bool(const QString& name, std::optional<bool> fallback = {});
  [[nodiscard]] QString Text(const QString& name, const std::optional<QString>& fallback = {});
  [[nodiscard]] QString Choice(const QString& name, const QStringList& words,
                               const std::optional<QString>& fallback = {});
  [[nodiscard]] QJsonArray List(const QString& name, const std::optional<QJsonArray>& fallback = {});
  [[nodiscard]] QJsonObject Object(const QString& name);
  /// A file or folder name of the host system: not empty, without NUL.
  [[nodiscard]] QString HostFile(const QString& name);
  /// A list of integers from least to most.
  [[nodiscard]] QList<int> Integers(const QString& name, int least, int most);
  [[nodiscard]] QStringList Texts(const QString& name, const std::optional<QStringList>& fallback = {});

  /// Notes a problem with a parameter. Only the first problem is kept.
  void Fail(const QString& name, const QString& text);
  /// Takes over the problem of an object inside the parameters.
  void Adopt(const Params& inner);
  [[nodiscard]] const std::optional<RpcError>& Problem() const { return problem_; }

 private:
  /// Whether the parameter is present. When it is missing and not optional, that is noted as the problem.
  [[nodiscard]] bool Present(const QString& name, bool optional);

  QJsonObject object_;
  QString prefix_;
  std::optional<RpcError> problem_;
};

/// Returns the integer in a JSON number; nothing for any other value.
[[nodiscard]] std::optional<qint64> WholeNumber(const QJsonValue& value);

}  // namespace panel
