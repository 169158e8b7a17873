// SPDX-License-Identifier: MIT
#include "facade/sim/sim_tables.h"

#include <algorithm>

namespace pnl::sim {

void SimPlcMessages::Set(std::int32_t type, std::int32_t id, TextView message, TextView info) {
  entries_[{type, id}] = {Text(message), Text(info)};
}

ZCPlcMsgTable* SimPlcMessages::Connect() {
  const std::int32_t result = answers_.Take("Connect");
  recorder_.Cnc("Connect", {}, Recorded(result));
  if (result == 0) return nullptr;
  connected_ = true;
  return this;
}

ZCMsg* SimPlcMessages::CreateMsg() {
  recorder_.Cnc("CreateMsg", {}, Recorded(connected_ ? 1 : 0));
  if (!connected_) return nullptr;
  created_.push_back(std::make_unique<ZCMsg>());
  return created_.back().get();
}

bool SimPlcMessages::ReadMsg(ZCMsg& message) {
  const auto entry = entries_.find({message.MsgType(), message.IdMsg()});
  bool found = connected_ && entry != entries_.end();
  if (const auto preset = answers_.TakePreset("ReadMsg")) found = found && *preset != 0;
  if (found) message.Fill(entry->second.message, entry->second.info);
  recorder_.Cnc("ReadMsg", {Recorded(message.MsgType()), Recorded(message.IdMsg())}, Recorded(found ? 1 : 0));
  return found;
}

void SimPlcMessages::DeleteMsg(ZCMsg* message) {
  const auto found =
      std::find_if(created_.begin(), created_.end(), [message](const auto& own) { return own.get() == message; });
  const bool known = found != created_.end();
  // A message that isn't this table's, or is deleted already, must not be read.
  recorder_.Cnc("DeleteMsg",
                known ? SimRecorder::Args{Recorded(message->MsgType()), Recorded(message->IdMsg())}
                      : SimRecorder::Args{rig::Value{}, rig::Value{}},
                Recorded(known ? 1 : 0));
  if (known) created_.erase(found);
}

void SimPlcMessages::Disconnect() {
  recorder_.Cnc("Disconnect", {}, rig::Value{});
  connected_ = false;
  created_.clear();
}

std::vector<std::int32_t> SimTables::TAPI_Tools_GetList(std::int32_t type) {
  std::vector<std::int32_t> numbers;
  for (const auto& [number, tool] : tools_) {
    if (type == 0 || tool.type == type) numbers.push_back(number);
  }
  recorder_.Cnc("TAPI_Tools_GetList", {Recorded(type)}, Recorded(numbers));
  return numbers;
}

int SimTables::TAPI_Tools_GetToolData(std::int32_t number, ToolData& data) {
  const auto tool = tools_.find(number);
  const bool known = tool != tools_.end();
  const auto preset = answers_.TakePreset("TAPI_Tools_GetToolData");
  const int result = preset ? *preset : (known ? 1 : 0);
  rig::Value filled;
  if (known && result != 0) {
    data = tool->second.data;
    filled = Recorded(data);
  }
  recorder_.Cnc("TAPI_Tools_GetToolData", {Recorded(number), filled}, Recorded(result));
  return result;
}

int SimTables::PSW_ConfirmarAcceso(int type, int second, int third) {
  // Whoever is asked may set another one meanwhile.
  const auto ask = askPassword_;
  const int result = ask ? static_cast<int>(ask(type)) : answers_.Take("PSW_ConfirmarAcceso");
  recorder_.Cnc("PSW_ConfirmarAcceso", {Recorded(type), Recorded(second), Recorded(third)}, Recorded(result));
  return result;
}

}  // namespace pnl::sim
