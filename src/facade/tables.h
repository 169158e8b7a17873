// SPDX-License-Identifier: MIT
// The tool table, the table of PLC messages and the passwords of the panel, as the tools ask them.
#pragma once

#include <cstdint>
#include <vector>

#include "base/text.h"

namespace pnl {

/// One PLC message: set type and identifier, let the table read it, then take text and file reference.
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

/// The PLC message table while it is connected.
class ZCPlcMsgTable {
 public:
  virtual ~ZCPlcMsgTable() = default;
  /// A message of the table, null when it can't be had; the table keeps it until DeleteMsg or Disconnect.
  virtual ZCMsg* CreateMsg() = 0;
  /// Fills text and reference; true when the message is in the table.
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
  /// The table, which stays the facade's; null when there is none.
  virtual ZCPlcMsgTable* Connect() = 0;
  /// The numbers of the tools of one type, in rising order; 0 for all.
  virtual std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t type) = 0;
  /// 0 on failure; data then stays as it was.
  virtual int TAPI_Tools_GetToolData(std::int32_t number, ToolData& data) = 0;
};

class Passwords {
 public:
  virtual ~Passwords() = default;
  /// Non-zero: access granted.
  virtual int PSW_ConfirmarAcceso(int type, int second, int third) = 0;
};

}  // namespace pnl
