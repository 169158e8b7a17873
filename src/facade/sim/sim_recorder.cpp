// SPDX-License-Identifier: MIT
#include "facade/sim/sim_recorder.h"

namespace pnl::sim {

void SimRecorder::Cnc(std::string_view name, const Args& args, const rig::Value& result) const {
  if (sink_ != nullptr) sink_->Cnc(name, args, result);
}

void SimRecorder::Write(TextView name, const rig::Value& value, bool ok) const {
  if (sink_ != nullptr) sink_->Write(name, value, ok);
}

rig::Value Recorded(std::int32_t value) { return std::int64_t{value}; }

rig::Value Recorded(TextView value) { return Text(value); }

rig::Value Recorded(const ErrorRecord& record) {
  const auto number = record.Get<std::int32_t>(error_field::kNumber.offset);
  const auto source = record.Get<std::int32_t>(error_field::kSource.offset);
  return std::vector<rig::Field>{{"number", Recorded(number)}, {"source", Recorded(source)}};
}

rig::Value Recorded(const ToolData& data) {
  return std::vector<rig::Field>{{"family", Recorded(data.family)},
                                 {"subfamily", Recorded(data.subfamily)},
                                 {"diameter", Recorded(data.diameter)},
                                 {"teeth", Recorded(data.teeth)}};
}

rig::Value Recorded(const std::vector<std::int32_t>& numbers) {
  std::vector<rig::Field> fields;
  fields.reserve(numbers.size());
  for (const std::int32_t number : numbers) fields.push_back({std::to_string(fields.size()), Recorded(number)});
  return fields;
}

}  // namespace pnl::sim
