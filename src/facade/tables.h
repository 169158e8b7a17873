// SPDX-License-Identifier: MIT
// The seams to the tool table, the table of PLC messages and the passwords of the panel.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"

namespace pnl {

/// One PLC message. Set type and identifier, let the table read it, then take text and file reference.
class ZCMsg {
 public:
  void SetMsgType(std::int32_t type) { type_ = type; }
  void SetIdMsg(std::int32_t id) { id_ = id; }
  [[nodiscard]] std::int32_t MsgType() const { return type_; }
  [[nodiscard]] std::int32_t IdMsg() const { return id_; }
  [[nodiscard]] const Text& GetMsg() const { return message_; }
  [[nodiscard]] const Text& GetInfo() const { return info_; }
  void Fill(Text message, Text info) {
    message_ = std::move(message);
    info_ = std::move(info);
  }

 private:
  std::int32_t type_ = 0;
  std::int32_t id_ = 0;
  Text message_;
  Text info_;
};

/// A connected PLC message table.
class ZCPlcMsgTable {
 public:
  virtual ~ZCPlcMsgTable() = default;
  /// Makes a message. The table owns it until DeleteMsg or Disconnect. Returns null when it can't be made.
  virtual ZCMsg* CreateMsg() = 0;
  /// Fills text and reference. Returns true when the message is in the table.
  virtual bool ReadMsg(ZCMsg& message) = 0;
  virtual void DeleteMsg(ZCMsg* message) = 0;
  virtual void Disconnect() = 0;
};

struct ToolData {
  std::int32_t family = 0;
  std::int32_t subfamily = 0;
  std::int32_t diameter = 0;  // 1/10000 mm
  std::int32_t teeth = 0;
};

class ToolTables {
 public:
  virtual ~ToolTables() = default;
  /// Connects the table of PLC messages. The facade owns it. Returns null when there is none.
  virtual ZCPlcMsgTable* Connect() = 0;
  /// The numbers of the tools of one type in ascending order. Type 0 means all tools.
  virtual std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t type) = 0;
  /// Fills data with the facts of a tool. Returns 0 on failure; data then stays as it was.
  virtual int TAPI_Tools_GetToolData(std::int32_t number, ToolData& data) = 0;
};

class Passwords {
 public:
  virtual ~Passwords() = default;
  /// Returns non-zero when access is granted.
  virtual int PSW_ConfirmarAcceso(int type, int second, int third) = 0;
};

}  // namespace pnl
