// SPDX-License-Identifier: MIT
// The parameters of one request, read by name and type. The first thing that is wrong is kept as the error to answer
// with; a reader then gives a harmless value, so that a method reads everything first, looks at Problem and only then
// acts. Names that nobody reads are ignored.
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
  /// prefix stands before every name in an error, for objects inside parameters: "xplr.".
  explicit Params(QJsonObject object, QString prefix = {}) : object_(std::move(object)), prefix_(std::move(prefix)) {}

  /// Present, null included.
  [[nodiscard]] bool Has(const QString& name) const { return object_.contains(name); }
  [[nodiscard]] bool IsNull(const QString& name) const { return object_.value(name).isNull(); }
  [[nodiscard]] QJsonValue Raw(const QString& name) const { return object_.value(name); }

  /// Every reader below: a parameter that is absent has the fallback, or is an error where there is none.
  [[nodiscard]] qint64 Integer(const QString& name, qint64 least, qint64 most, std::optional<qint64> fallback = {});
  [[nodiscard]] std::int32_t Int(const QString& name, std::optional<std::int32_t> fallback = {});
  [[nodiscard]] bool Bool(const QString& name, std::optional<bool> fallback = {});
  [[nodiscard]] QString Text(const QString& name, const std::optional<QString>& fallback = {});
  [[nodiscard]] QString Choice(const QString& name, const QStringList& words,
                               const std::optional<QString>& fallback = {});
  [[nodiscard]] QJsonArray List(const QString& name, const std::optional<QJsonArray>& fallback = {});
  [[nodiscard]] QJsonObject Object(const QString& name);
  /// A file or folder name of this machine: not empty, without NUL.
  [[nodiscard]] QString HostFile(const QString& name);
  /// Integers from least to most.
  [[nodiscard]] QList<int> Integers(const QString& name, int least, int most);
  [[nodiscard]] QStringList Texts(const QString& name, const std::optional<QStringList>& fallback = {});

  /// Notes what is wrong with a parameter, unless something was wrong before it.
  void Fail(const QString& name, const QString& text);
  /// Takes over what is wrong with an object inside.
  void Adopt(const Params& inner);
  [[nodiscard]] const std::optional<RpcError>& Problem() const { return problem_; }

 private:
  /// Has the parameter a value to read? Notes it as missing when it must be there.
  [[nodiscard]] bool Present(const QString& name, bool optional);

  QJsonObject object_;
  QString prefix_;
  std::optional<RpcError> problem_;
};

/// The integer in a JSON number, when it is one.
[[nodiscard]] std::optional<qint64> WholeNumber(const QJsonValue& value);

}  // namespace panel
