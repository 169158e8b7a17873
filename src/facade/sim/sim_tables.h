// SPDX-License-Identifier: MIT
// The tool table, the table of PLC messages and the password box of the simulated CNC. A script or a machine fills
// them. Every call of a tool is recorded.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "facade/sim/sim_answers.h"
#include "facade/sim/sim_recorder.h"
#include "facade/tables.h"

namespace pnl::sim {

class SimPlcMessages final : public ZCPlcMsgTable {
 public:
  SimPlcMessages(const SimRecorder& recorder, SimAnswers& answers) : recorder_(recorder), answers_(answers) {}

  /// Adds a message, or replaces the one with that type and identifier.
  void Set(std::int32_t type, std::int32_t id, TextView message, TextView info);
  /// Returns null when the answer 0 is set. The calls below work from now until Disconnect.
  ZCPlcMsgTable* Connect();

  ZCMsg* CreateMsg() override;
  bool ReadMsg(ZCMsg& message) override;
  void DeleteMsg(ZCMsg* message) override;
  void Disconnect() override;

 private:
  struct Entry {
    Text message;
    Text info;
  };
  const SimRecorder& recorder_;
  SimAnswers& answers_;
  bool connected_ = false;
  std::map<std::pair<std::int32_t, std::int32_t>, Entry> entries_;
  std::vector<std::unique_ptr<ZCMsg>> created_;
};

class SimTables final : public ToolTables, public Passwords {
 public:
  SimTables(const SimRecorder& recorder, SimAnswers& answers)
      : recorder_(recorder), answers_(answers), messages_(recorder, answers) {}

  [[nodiscard]] SimPlcMessages& Messages() { return messages_; }
  /// Adds a tool, or replaces the one with that number.
  void SetTool(std::int32_t number, std::int32_t type, const ToolData& data) { tools_[number] = {type, data}; }

  /// Sets who is asked for a password instead of the preset answers; an empty function for them.
  void SetPasswordAsker(std::function<bool(std::int32_t type)> ask) { askPassword_ = std::move(ask); }

  ZCPlcMsgTable* Connect() override { return messages_.Connect(); }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t type) override;
  int TAPI_Tools_GetToolData(std::int32_t number, ToolData& data) override;
  int PSW_ConfirmarAcceso(int type, int second, int third) override;

 private:
  struct Tool {
    std::int32_t type = 0;
    ToolData data;
  };
  const SimRecorder& recorder_;
  SimAnswers& answers_;
  SimPlcMessages messages_;
  std::map<std::int32_t, Tool> tools_;
  std::function<bool(std::int32_t type)> askPassword_;
};

}  // namespace pnl::sim
