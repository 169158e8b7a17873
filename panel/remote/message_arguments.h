// SPDX-License-Identifier: MIT
// The two arguments of a message as a script gives them: integers, or objects. The panel keeps an object in memory
// while the message is on its way, and the tool gets its address. A tool trusts an address, so an argument that is one
// takes only a fitting object or 0.
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
  /// Reads the parameter (default 0) and returns the number or the address. A problem is noted in params.
  [[nodiscard]] std::intptr_t Read(Params& params, const QString& name, AddressKind kind);
  /// Frees every object; no address that Read returned may be used after this.
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

/// Reads the record in an "xplr" object; missing fields are zero. A problem is noted in params.
[[nodiscard]] XPLRDATA_ST ReadExplorerRequest(Params& params);
[[nodiscard]] QJsonObject ExplorerRequestToJson(const XPLRDATA_ST& record);

}  // namespace panel
