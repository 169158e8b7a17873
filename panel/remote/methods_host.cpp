// SPDX-License-Identifier: MIT
// The methods for the host's callback table, for tools and their messages, and for the explorer request in E.XPLRDATA.
#include <QWidget>
#include <numeric>

#include "remote/json_values.h"
#include "remote/methods.h"

namespace panel {

namespace {

constexpr char16_t kRequestVariable[] = u"E.XPLRDATA";
constexpr int kMayOpenSlot = 0;
constexpr int kShowErrorSlot = 13;

std::optional<int> SlotNumber(const QJsonValue& slot) {
  const auto number = WholeNumber(slot);
  if (number && *number >= 0 && *number < kSlotCount) return static_cast<int>(*number);
  for (int i = 0; slot.isString() && i < kSlotCount; ++i) {
    if (slot.toString() == kSlotNames[static_cast<std::size_t>(i)]) return i;
  }
  return std::nullopt;
}

std::vector<int> OfferedSlots(Params& params) {
  std::vector<int> all(kSlotCount);
  std::iota(all.begin(), all.end(), 0);
  const QJsonValue offered = params.Raw("offered");
  if (offered == QJsonValue("all") || !params.Has("offered")) return all;
  if (offered == QJsonValue("none")) return {};
  std::vector<int> chosen;
  if (!offered.isArray()) params.Fail("offered", "\"all\", \"none\" or a list of slots is needed");
  for (const QJsonValue slot : offered.toArray()) {
    if (const auto number = SlotNumber(slot)) {
      chosen.push_back(*number);
    } else {
      params.Fail("offered", QString("slots are numbers from 0 to %1 or names").arg(kSlotCount - 1));
    }
  }
  return chosen;
}

RpcResult HostApi(RemoteWorld& world, Params& params) {
  const std::vector<int> slotNumbers = OfferedSlots(params);
  if (params.Problem()) return *params.Problem();
  world.session.Offer(slotNumbers);
  return Done();
}

RpcResult HostReturns(RemoteWorld& world, Params& params) {
  const int slot = (params.Has("slot") ? SlotNumber(params.Raw("slot")) : std::nullopt).value_or(-1);
  if (slot != kMayOpenSlot && slot != kShowErrorSlot) params.Fail("slot", "0 or 13 is needed");
  const int value = params.Int("value");
  if (params.Problem()) return *params.Problem();
  world.session.SetReturn(slot, value);
  return Done();
}

/// Returns the handle of a window that no longer exists.
PnlWindow DeadWindow() {
  QWidget gone;
  return PnlAttachWidget(&gone, nullptr, nullptr);
}

RpcResult ToolLoad(RemoteWorld& world, Params& params) {
  const int tool = params.Int("tool");
  const QString parent = params.Choice("parent", {"main", "none", "dead"}, "main");
  if (params.Problem()) return *params.Problem();
  PnlWindow above = world.session.ToolArea();
  if (parent == "none") above = 0;
  if (parent == "dead") above = DeadWindow();
  return QJsonValue(QJsonObject{{"window", world.session.LoadTool(tool, above)}});
}

struct ScriptMessage {
  PnlWindow window = 0;
  std::uint32_t number = 0;
  std::intptr_t first = 0;
  std::intptr_t second = 0;
};

ScriptMessage ReadMessage(RemoteWorld& world, Params& params) {
  ScriptMessage message;
  message.window = params.Int("window");
  if (params.Raw("message").isString()) {
    const auto number = MessageNumber(params.Text("message"));
    if (!number) params.Fail("message", "no message is registered by that name");
    message.number = number.value_or(0);
  } else {
    message.number = static_cast<std::uint32_t>(params.Integer("message", 0, 0xFFFFFFFF));
  }
  const qint64 first = WholeNumber(params.Raw("first")).value_or(0);
  const AddressArguments addresses = AddressesOf(message.number, first);
  message.first = world.arguments.Read(params, "first", addresses.first);
  message.second = world.arguments.Read(params, "second", addresses.second);
  return message;
}

RpcResult ToolSend(RemoteWorld& world, Params& params) {
  const ScriptMessage m = ReadMessage(world, params);
  if (params.Problem()) return *params.Problem();
  const qint64 result = PnlSendMessage(m.window, m.number, m.first, m.second);
  return QJsonValue(QJsonObject{{"result", result}});
}

RpcResult ToolPost(RemoteWorld& world, Params& params) {
  const ScriptMessage m = ReadMessage(world, params);
  if (params.Problem()) return *params.Problem();
  PnlPostMessage(m.window, m.number, m.first, m.second);
  return Done();
}

RpcResult ToolDestroy(RemoteWorld& world, Params& params) {
  const int window = params.Int("window");
  if (params.Problem()) return *params.Problem();
  world.session.DestroyTool(window);
  return Done();
}

RpcResult WindowAlive(RemoteWorld& /*world*/, Params& params) {
  const int window = params.Int("window");
  if (params.Problem()) return *params.Problem();
  return QJsonValue(QJsonObject{{"alive", PnlIsAlive(window) != 0}});
}

RpcResult ProgramText(RemoteWorld& world, Params& /*params*/) {
  return QJsonValue(QJsonObject{{"text", world.face.ProgramText()}});
}

/// Sets the variable and notifies its listeners. Defines the variable when it is missing.
void SetRequestVariable(RemoteWorld& world, std::int32_t number) {
  const pnl::rig::Value value{static_cast<std::int64_t>(number)};
  if (world.rig.Cnc().Set(kRequestVariable, value)) return;
  world.rig.Cnc().Define(kRequestVariable, pnl::rig::VariableType::kInt, value, true, true);
}

RpcResult XplrPublish(RemoteWorld& world, Params& params) {
  if (!params.Has("record")) return BadParameter("record", "missing");
  if (params.IsNull("record")) {
    world.request.Withdraw();
    if (world.rig.Cnc().Get(kRequestVariable)) SetRequestVariable(world, 0);
    return Done();
  }
  Params fields(params.Object("record"), "record.");
  const XPLRDATA_ST record = ReadExplorerRequest(fields);
  params.Adopt(fields);
  if (params.Problem()) return *params.Problem();
  SetRequestVariable(world, world.request.Publish(record));
  return Done();
}

RpcResult XplrRecord(RemoteWorld& world, Params& /*params*/) {
  const auto value = world.rig.Cnc().Get(kRequestVariable);
  const auto* number = value ? std::get_if<std::int64_t>(&*value) : nullptr;
  const void* record = number != nullptr ? PnlResolveRecord(static_cast<std::int32_t>(*number)) : nullptr;
  if (record == nullptr) return QJsonValue(QJsonValue::Null);
  return QJsonValue(ExplorerRequestToJson(*static_cast<const XPLRDATA_ST*>(record)));
}

}  // namespace

std::int32_t PublishedRequest::Publish(const XPLRDATA_ST& record) {
  Withdraw();
  record_ = record;
  number_ = PnlPublishRecord(&record_);
  return number_;
}

// Withdrawing a number that isn't in use does nothing.
void PublishedRequest::Withdraw() { PnlWithdrawRecord(number_); }

void AddHostMethods(MethodTable& table) {
  table.insert({{"host.api", HostApi},
                {"host.returns", HostReturns},
                {"tool.load", ToolLoad},
                {"tool.send", ToolSend},
                {"tool.post", ToolPost},
                {"tool.destroy", ToolDestroy},
                {"window.alive", WindowAlive},
                {"program.text", ProgramText},
                {"xplr.publish", XplrPublish},
                {"xplr.record", XplrRecord}});
}

}  // namespace panel
