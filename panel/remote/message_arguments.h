// SPDX-License-Identifier: MIT
// The two arguments of a message as a script gives them: integers, or objects that the panel keeps in memory while the
// message is on its way and whose addresses the tool gets. A tool trusts an address, so where a message carries one,
// nothing but a fitting object or 0 is let through.
#pragma once

#include <pnltools/pnltools.h>

#include <QString>
#include <deque>
#include <memory>
#include <vector>

#include "remote/message_names.h"
#include "remote/params.h"

namespace panel {

class MessageArguments {
 public:
  /// Reads the parameter (default 0); what is wrong with it stands in params.
  [[nodiscard]] std::intptr_t Read(Params& params, const QString& name, AddressKind kind);
  /// Every address that was given out is dead after this.
  void Clear();

 private:
  [[nodiscard]] const char16_t* KeepText(const QString& text);
  [[nodiscard]] std::intptr_t KeepObject(Params& params, const QString& name, AddressKind kind);
  [[nodiscard]] std::intptr_t KeepFile(Params& file);

  std::deque<std::vector<char16_t>> texts_;
  std::deque<PnlCycleStart> starts_;
  std::deque<ShowFileRecord> files_;
  std::deque<XPLRDATA_ST> requests_;
};

/// The record in an "xplr" object; absent fields are zero. What is wrong stands in params.
[[nodiscard]] XPLRDATA_ST ReadExplorerRequest(Params& params);
[[nodiscard]] QJsonObject ExplorerRequestToJson(const XPLRDATA_ST& record);

}  // namespace panel
