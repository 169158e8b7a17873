// SPDX-License-Identifier: MIT
// Reports what the tools ask of the simulated CNC to a sink, at the moment it happens. Keeps nothing itself. An
// argument that a call fills is recorded with its value after the call, or as nothing if the call left it alone.
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

  /// Sets the sink; null for none.
  void SetSink(rig::EventSink* sink) { sink_ = sink; }
  void Cnc(std::string_view name, const Args& args, const rig::Value& result) const;
  void Write(TextView name, const rig::Value& value, bool ok) const;

 private:
  rig::EventSink* sink_ = nullptr;
};

/// Arguments and results in the form in which they are recorded.
[[nodiscard]] rig::Value Recorded(std::int32_t value);
[[nodiscard]] rig::Value Recorded(TextView value);
[[nodiscard]] rig::Value Recorded(const ErrorRecord& record);  // number and source
[[nodiscard]] rig::Value Recorded(const ToolData& data);
[[nodiscard]] rig::Value Recorded(const std::vector<std::int32_t>& numbers);  // "0": first, "1": second, …

}  // namespace pnl::sim
