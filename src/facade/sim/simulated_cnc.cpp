// SPDX-License-Identifier: MIT
#include "facade/sim/simulated_cnc.h"

#include "facade/sim/sim_error_spec.h"
#include "facade/sim/sim_error_summary.h"
#include "facade/sim/sim_values.h"

namespace pnl::sim {

SimulatedCnc::SimulatedCnc(WindowSystem& windows, Timers& timers, Files& files, DriveMap& drives)
    : storage_(files, drives),
      variables_(windows, recorder_),
      errors_(variables_),
      kernel_(recorder_, answers_, errors_, texts_),
      tables_(recorder_, answers_),
      utilities_(windows, recorder_, answers_, texts_, storage_),
      machineSide_(*this, timers) {
  errors_.OnChanged([this](const ErrorRecord& record, std::int64_t serial, ErrorFate fate) {
    TellErrorWatchers(record, serial, fate);
  });
  variables_.OnWritten([this](TextView name) {
    if (kernel_.Machine() != nullptr) kernel_.Machine()->OnWritten(name);
  });
}

void SimulatedCnc::Define(std::u16string_view name, rig::VariableType type, const rig::Value& value, bool readable,
                          bool writable) {
  variables_.Define(name, type, value, readable, writable);
}

bool SimulatedCnc::Undefine(std::u16string_view name) { return variables_.Undefine(name); }

bool SimulatedCnc::Set(std::u16string_view name, const rig::Value& value) { return variables_.Set(name, value); }

std::optional<rig::Value> SimulatedCnc::Get(std::u16string_view name) const { return variables_.Get(name); }

int SimulatedCnc::Watch(std::u16string_view name, std::function<void()> changed) {
  return variables_.Watch(name, std::move(changed));
}

void SimulatedCnc::Unwatch(int watch) { variables_.Unwatch(watch); }

std::vector<PnlWindow> SimulatedCnc::Reports(std::u16string_view name) const { return variables_.Reports(name); }

bool SimulatedCnc::Returns(std::string_view function, std::vector<std::int32_t> values) {
  return answers_.Set(function, std::move(values));
}

void SimulatedCnc::Axis(std::int32_t logical, std::u16string_view name) { kernel_.SetAxis(logical, name); }

bool SimulatedCnc::ErrorText(std::string_view function, std::int32_t number, std::u16string_view text,
                             std::u16string_view helpRef, bool hasHelp) {
  return texts_.Set(function, number, text, helpRef, hasHelp);
}

void SimulatedCnc::Description(std::u16string_view file, std::int32_t number, std::u16string_view text) {
  texts_.SetDescription(file, number, text);
}

bool SimulatedCnc::PushError(const rig::ErrorSpec& spec, std::string& problem) {
  const auto record = MakeErrorRecord(spec, problem);
  if (!record) return false;
  errors_.Push(*record);
  return true;
}

bool SimulatedCnc::PushErrorRecord(std::string_view bytes) {
  ErrorRecord record{};
  if (bytes.size() != sizeof record.bytes) return false;
  std::memcpy(record.bytes, bytes.data(), bytes.size());
  errors_.Push(record);
  return true;
}

std::vector<std::int32_t> SimulatedCnc::ErrorQueue() const { return errors_.Numbers(); }

void SimulatedCnc::ClearErrors() {
  errors_.Clear();
  if (kernel_.Machine() != nullptr) kernel_.Machine()->OnErrorReset();
}

std::vector<rig::CncControl::ErrorSummary> SimulatedCnc::Errors() const {
  std::vector<ErrorSummary> summaries;
  summaries.reserve(errors_.Size());
  for (const SimErrorQueue::Entry& entry : errors_.Entries()) {
    summaries.push_back(Summarize(*entry.record, entry.serial, texts_));
  }
  return summaries;
}

int SimulatedCnc::WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)> changed) {
  errorWatchers_[++lastErrorWatch_] = std::move(changed);
  return lastErrorWatch_;
}

void SimulatedCnc::UnwatchErrors(int watch) { errorWatchers_.erase(watch); }

// Without a watcher no summary is made, because thousands of errors may come at once.
void SimulatedCnc::TellErrorWatchers(const ErrorRecord& record, std::int64_t serial, ErrorFate fate) {
  if (errorWatchers_.empty()) return;
  const ErrorSummary summary = Summarize(record, serial, texts_);
  // A watcher may add and remove watchers and raise errors itself.
  const int newest = lastErrorWatch_;
  for (auto next = errorWatchers_.begin(); next != errorWatchers_.end() && next->first <= newest;) {
    const int watch = next->first;
    const ErrorWatcher changed = next->second;
    if (changed) changed(summary, fate);
    next = errorWatchers_.upper_bound(watch);
  }
}

std::optional<std::u16string> SimulatedCnc::DescriptionBehind(std::u16string_view helpRef) const {
  const std::optional<HelpReference> reference = ParseHelpReference(helpRef);
  if (!reference) return std::nullopt;
  const Text* text = texts_.FindDescription(reference->file, reference->number);
  if (text == nullptr) return std::nullopt;
  return *text;
}

void SimulatedCnc::PlcMessage(std::int32_t type, std::int32_t id, std::u16string_view message,
                              std::u16string_view info) {
  tables_.Messages().Set(type, id, message, info);
}

void SimulatedCnc::Tool(std::int32_t number, std::int32_t type, std::int32_t family, std::int32_t subfamily,
                        std::int32_t diameter, std::int32_t teeth) {
  tables_.SetTool(number, type, {family, subfamily, diameter, teeth});
}

void SimulatedCnc::BlockMark(std::u16string_view block, std::u16string_view mark) {
  utilities_.SetBlockMark(block, mark);
}

void SimulatedCnc::MachineSide::Define(TextView name, rig::VariableType type, const rig::Value& value) {
  cnc_.variables_.Define(name, type, value);
}

void SimulatedCnc::MachineSide::Set(TextView name, const rig::Value& value) { cnc_.variables_.Set(name, value); }

std::int32_t SimulatedCnc::MachineSide::GetInt(TextView name) const {
  const auto value = cnc_.variables_.Get(name);
  if (!value || !std::holds_alternative<std::int64_t>(*value)) return 0;
  return AsInt32(*value).value_or(0);
}

void SimulatedCnc::MachineSide::SetTool(std::int32_t number, std::int32_t type, const ToolData& data) {
  cnc_.tables_.SetTool(number, type, data);
}

void SimulatedCnc::MachineSide::PushError(const ErrorRecord& record) { cnc_.errors_.Push(record); }

void SimulatedCnc::MachineSide::SetErrorText(std::string_view function, std::int32_t number, TextView text,
                                             TextView helpRef) {
  // No help opens without being asked for: the error window comes first.
  cnc_.texts_.Set(function, number, text, helpRef, false);
}

void SimulatedCnc::MachineSide::SetPlcMessage(std::int32_t type, std::int32_t id, TextView message, TextView info) {
  cnc_.tables_.Messages().Set(type, id, message, info);
}

}  // namespace pnl::sim
