// SPDX-License-Identifier: MIT
// Passes what the tools ask of the simulated CNC on to whoever listens, at the moment it happens. Keeps nothing itself.
// An argument that a call fills stands in the record with what it holds afterwards, as nothing if it was left alone.
#pragma once

#include <pnltools/rig.h>

#include <string_view>
#include <vector>

#include "base/text.h"
#include "facade/error_record.h"
#include "facade/tables.h"

namespace pnl::sim {

class SimRecorder {
 public:
  using Args = std::vector<rig::Value>;

  /// Null ends it.
  void SetSink(rig::EventSink* sink) { sink_ = sink; }
  void Cnc(std::string_view name, const Args& args, const rig::Value& result) const;
  void Write(TextView name, const rig::Value& value, bool ok) const;

 private:
  rig::EventSink* sink_ = nullptr;
};

/// How arguments and results look in the record.
[[nodiscard]] rig::Value Recorded(std::int32_t value);
[[nodiscard]] rig::Value Recorded(TextView value);
[[nodiscard]] rig::Value Recorded(const ErrorRecord& record);  // number and source
[[nodiscard]] rig::Value Recorded(const ToolData& data);
[[nodiscard]] rig::Value Recorded(const std::vector<std::int32_t>& numbers);  // "0": first, "1": second, …

}  // namespace pnl::sim
