// SPDX-License-Identifier: MIT
// The methods for the simulated CNC: its variables, the results of its calls, its tables.
#include "remote/json_values.h"
#include "remote/methods.h"

namespace panel {

namespace {

using pnl::rig::Value;
using pnl::rig::VariableType;

/// Reads the name of something in the CNC, which mustn't be empty.
QString ReadName(Params& params, const QString& name = "name") {
  QString text = params.Text(name);
  if (text.isEmpty()) params.Fail(name, "a text that isn't empty is needed");
  return text;
}

VariableType ReadType(Params& params) {
  const QString type = params.Choice("type", {"int", "double", "text"});
  if (type == "double") return VariableType::kDouble;
  return type == "text" ? VariableType::kText : VariableType::kInt;
}

Value ReadValue(Params& params, VariableType type) {
  static const char* const kNeeded[] = {"an integer of 32 bits is needed", "a number is needed", "a text is needed"};
  if (!params.Has("value")) params.Fail("value", "missing");
  const auto value = FromJson(params.Raw("value"), type);
  if (!value) params.Fail("value", kNeeded[static_cast<int>(type)]);
  return value.value_or(Value());
}

VariableType TypeOf(const Value& value) {
  if (std::holds_alternative<double>(value)) return VariableType::kDouble;
  return std::holds_alternative<std::u16string>(value) ? VariableType::kText : VariableType::kInt;
}

RpcResult CncDefine(RemoteWorld& world, Params& params) {
  const QString name = ReadName(params);
  const VariableType type = ReadType(params);
  const Value value = ReadValue(params, type);
  const bool readable = params.Bool("readable", true);
  const bool writable = params.Bool("writable", true);
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().Define(Wide(name), type, value, readable, writable);
  return Done();
}

RpcResult CncUndefine(RemoteWorld& world, Params& params) {
  const QString name = ReadName(params);
  if (params.Problem()) return *params.Problem();
  // Undefining a missing variable is no error: the result is what the script asked for.
  world.rig.Cnc().Undefine(Wide(name));
  return Done();
}

RpcResult CncSet(RemoteWorld& world, Params& params) {
  const QString name = ReadName(params);
  if (params.Problem()) return *params.Problem();
  const auto present = world.rig.Cnc().Get(Wide(name));
  if (!present) return BadParameter("name", "there is no such variable");
  const Value value = ReadValue(params, TypeOf(*present));
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().Set(Wide(name), value);
  return Done();
}

RpcResult CncGet(RemoteWorld& world, Params& params) {
  const QString name = ReadName(params);
  if (params.Problem()) return *params.Problem();
  const auto value = world.rig.Cnc().Get(Wide(name));
  return QJsonValue(QJsonObject{{"value", value ? ToJson(*value) : QJsonValue(QJsonValue::Null)}});
}

RpcResult CncReports(RemoteWorld& world, Params& params) {
  const QString name = ReadName(params);
  if (params.Problem()) return *params.Problem();
  QJsonArray windows;
  for (const PnlWindow window : world.rig.Cnc().Reports(Wide(name))) windows.append(window);
  return QJsonValue(QJsonObject{{"windows", windows}});
}

std::vector<std::int32_t> ReadAnswers(Params& params) {
  if (params.Has("value") && params.Has("values")) params.Fail("values", "stands in the place of value");
  if (!params.Has("values")) return {params.Int("value")};
  using Limits = std::numeric_limits<int>;
  const QList<int> values = params.Integers("values", Limits::min(), Limits::max());
  if (values.isEmpty()) params.Fail("values", "at least one is needed");
  return {values.begin(), values.end()};
}

RpcResult CncReturns(RemoteWorld& world, Params& params) {
  const QString function = ReadName(params, "function");
  std::vector<std::int32_t> values = ReadAnswers(params);
  if (params.Problem()) return *params.Problem();
  if (world.rig.Cnc().Returns(function.toStdString(), std::move(values))) return Done();
  return BadParameter("function", "there is no such function whose answer can be set");
}

RpcResult CncAxis(RemoteWorld& world, Params& params) {
  const int logical = params.Int("logical");
  const QString name = params.Text("name");
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().Axis(logical, Wide(name));
  return Done();
}

RpcResult CncPlc(RemoteWorld& world, Params& params) {
  const int type = params.Int("type");
  const int id = params.Int("id");
  const QString message = params.Text("message");
  const QString info = params.Text("info", QString());
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().PlcMessage(type, id, Wide(message), Wide(info));
  return Done();
}

RpcResult CncTool(RemoteWorld& world, Params& params) {
  const int number = params.Int("number");
  const int type = params.Int("type", 0);
  const int family = params.Int("family", 0);
  const int subfamily = params.Int("subfamily", 0);
  const int diameter = params.Int("diameter", 0);
  const int teeth = params.Int("teeth", 0);
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().Tool(number, type, family, subfamily, diameter, teeth);
  return Done();
}

RpcResult CncBlockMark(RemoteWorld& world, Params& params) {
  const QString block = params.Text("block");
  const QString mark = params.Text("mark");
  if (params.Problem()) return *params.Problem();
  world.rig.Cnc().BlockMark(Wide(block), Wide(mark));
  return Done();
}

}  // namespace

void AddCncMethods(MethodTable& table) {
  table.insert({{"cnc.define", CncDefine},
                {"cnc.undefine", CncUndefine},
                {"cnc.set", CncSet},
                {"cnc.get", CncGet},
                {"cnc.reports", CncReports},
                {"cnc.returns", CncReturns},
                {"cnc.axis", CncAxis},
                {"cnc.plc", CncPlc},
                {"cnc.tool", CncTool},
                {"cnc.blockmark", CncBlockMark}});
}

}  // namespace panel
