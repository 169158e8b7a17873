// SPDX-License-Identifier: MIT
// The methods for the kernel's error queue and for the tables of error texts.
#include "remote/json_values.h"
#include "remote/methods.h"

namespace panel {

namespace {

using pnl::rig::ErrorParameterSpec;
using pnl::rig::ErrorSpec;

constexpr qsizetype kRecordSize = 4048;
constexpr qsizetype kMostParameters = 5;
constexpr qsizetype kMostExtraValues = 4;

RpcResult CncErrorText(RemoteWorld& world, Params& params) {
  const QString function = params.Text("function");
  const int number = params.Int("number");
  const QString text = params.Text("text");
  const QString helpRef = params.Text("helpRef", QString());
  const bool hasHelp = params.Bool("hasHelp", false);
  if (params.Problem()) return *params.Problem();
  if (world.rig.Cnc().ErrorText(function.toStdString(), number, Wide(text), Wide(helpRef), hasHelp)) return Done();
  return BadParameter("function", "there is no such text function");
}

RpcResult CncDescription(RemoteWorld& world, Params& params) {
  const QString file = params.Text("file");
  const int number = params.Int("number");
  const QString text = params.Text("text");
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().Description(Wide(file), number, Wide(text));
  return Done();
}

std::vector<pnl::rig::Field> ReadFields(Params& params) {
  std::vector<pnl::rig::Field> fields;
  const QJsonObject object = params.Object("fields");
  for (auto field = object.begin(); field != object.end(); ++field) {
    const auto value = FromJson(field.value());
    if (!value || field.value().isNull()) {
      params.Fail("fields." + field.key(), "a number or a text is needed");
    } else {
      fields.push_back({field.key().toStdString(), *value});
    }
  }
  return fields;
}

std::vector<ErrorParameterSpec> ReadTypedValues(Params& params, const QString& name, qsizetype most) {
  std::vector<ErrorParameterSpec> values;
  const QJsonArray list = params.List(name, QJsonArray());
  if (list.size() > most) params.Fail(name, QString("at most %1 fit").arg(most));
  for (qsizetype i = 0; i < list.size(); ++i) {
    const QString place = QString("%1[%2]").arg(name).arg(i);
    if (!list[i].isObject()) params.Fail(place, "an object is needed");
    Params item(list[i].toObject(), place + ".");
    const auto value = item.Has("value") ? FromJson(item.Raw("value")) : pnl::rig::Value();
    if (!value) item.Fail("value", "a number or a text is needed");
    values.push_back({item.Int("valueType"), item.Int("unit", 0), item.Int("meaning", 0), value.value_or(0)});
    params.Adopt(item);
  }
  return values;
}

RpcResult PushRecord(RemoteWorld& world, Params& params) {
  for (const char* other : {"fields", "parameters", "extraValues"}) {
    if (params.Has(other)) params.Fail(other, "has no place beside record");
  }
  const auto decoded =
      QByteArray::fromBase64Encoding(params.Text("record").toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
  const QByteArray& bytes = decoded.decoded;
  if (!decoded || bytes.size() != kRecordSize) {
    params.Fail("record", QString("%1 bytes in base64 are needed").arg(kRecordSize));
  }
  if (params.Problem()) return *params.Problem();
  const std::string_view record(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  if (world.rig.Cnc().PushErrorRecord(record)) return Done();
  return BadParameter("record", "the kernel's queue doesn't take it");
}

RpcResult CncErrorPush(RemoteWorld& world, Params& params) {
  if (params.Has("record")) return PushRecord(world, params);
  ErrorSpec spec;
  spec.fields = ReadFields(params);
  spec.parameters = ReadTypedValues(params, "parameters", kMostParameters);
  spec.extraValues = ReadTypedValues(params, "extraValues", kMostExtraValues);
  if (params.Problem()) return *params.Problem();
  std::string problem;
  if (world.rig.Cnc().PushError(spec, problem)) return Done();
  return BadParameter("fields", QString::fromStdString(problem));
}

RpcResult CncErrorQueue(RemoteWorld& world, Params& /*params*/) {
  QJsonArray numbers;
  for (const std::int32_t number : world.rig.Cnc().ErrorQueue()) numbers.append(number);
  return QJsonValue(QJsonObject{{"numbers", numbers}});
}

RpcResult CncErrorClear(RemoteWorld& world, Params& /*params*/) {
  world.rig.Cnc().ClearErrors();
  return Done();
}

}  // namespace

void AddErrorMethods(MethodTable& table) {
  table.insert({{"cnc.errortext", CncErrorText},
                {"cnc.description", CncDescription},
                {"cnc.error.push", CncErrorPush},
                {"cnc.error.queue", CncErrorQueue},
                {"cnc.error.clear", CncErrorClear}});
}

}  // namespace panel
