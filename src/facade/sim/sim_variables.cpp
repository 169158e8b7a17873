// SPDX-License-Identifier: MIT
#include "facade/sim/sim_variables.h"

#include <algorithm>

#include "facade/sim/sim_values.h"

namespace pnl::sim {

VariableInfo SimVariables::Bind(TextView name) {
  VariableInfo info;
  const Entry* entry = Find(name);
  if (entry == nullptr) return info;
  info.identifier = entry->identifier;
  info.externalId = entry->identifier;
  info.integerDigits = entry->type == rig::VariableType::kText ? 0 : 8;
  info.decimals = entry->type == rig::VariableType::kDouble ? 4 : 0;
  return info;
}

int SimVariables::ReadInt(std::int32_t identifier, std::int32_t& value) {
  const Entry* entry = nullptr;
  if (const int code = Readable(identifier, &entry)) return code;
  const auto read = AsInt32(entry->value);
  if (!read) return variable_code::kNoValue;
  value = *read;
  return variable_code::kDone;
}

int SimVariables::ReadDouble(std::int32_t identifier, double& value) {
  const Entry* entry = nullptr;
  if (const int code = Readable(identifier, &entry)) return code;
  const auto read = AsDouble(entry->value);
  if (!read) return variable_code::kNoValue;
  value = *read;
  return variable_code::kDone;
}

int SimVariables::ReadTxt(std::int32_t identifier, Text& value) {
  const Entry* entry = nullptr;
  if (const int code = Readable(identifier, &entry)) return code;
  auto read = AsText(entry->value);
  if (!read) return variable_code::kNoValue;
  value = *std::move(read);
  return variable_code::kDone;
}

int SimVariables::WriteInt(std::int32_t identifier, std::int32_t value, int /*flag*/) {
  return Write(identifier, Recorded(value));
}

int SimVariables::WriteDouble(std::int32_t identifier, double value) { return Write(identifier, value); }

int SimVariables::WriteTxt(std::int32_t identifier, TextView value) { return Write(identifier, Recorded(value)); }

int SimVariables::UpdateCache(std::int32_t identifier) {
  const Entry* entry = nullptr;
  return Readable(identifier, &entry);
}

int SimVariables::OpenReport(std::int32_t identifier, WindowHandle window) {
  Entry* entry = ById(identifier);
  if (entry == nullptr || !entry->defined) return variable_code::kUnknown;
  if (!windows_.IsAlive(window)) return variable_code::kDeadWindow;
  const auto listener = std::find_if(entry->listeners.begin(), entry->listeners.end(),
                                     [window](const Listener& other) { return other.window == window; });
  if (listener == entry->listeners.end()) {
    entry->listeners.push_back({window, 1});
  } else {
    ++listener->opened;
  }
  return variable_code::kDone;
}

// This works for a variable that is no longer defined and for a dead window, so that every open report can be closed.
int SimVariables::CloseReport(std::int32_t identifier, WindowHandle window) {
  Entry* entry = ById(identifier);
  if (entry == nullptr) return variable_code::kUnknown;
  const auto listener = std::find_if(entry->listeners.begin(), entry->listeners.end(),
                                     [window](const Listener& other) { return other.window == window; });
  if (listener == entry->listeners.end()) return variable_code::kNoReport;
  if (--listener->opened == 0) entry->listeners.erase(listener);
  return variable_code::kDone;
}

int SimVariables::GeneraReport(std::int32_t identifier, WindowHandle window) {
  Entry* entry = ById(identifier);
  if (entry == nullptr || !entry->defined) return variable_code::kUnknown;
  if (!windows_.IsAlive(window)) return variable_code::kDeadWindow;
  Post(*entry, window);
  return variable_code::kDone;
}

void SimVariables::Define(TextView name, rig::VariableType type, const rig::Value& value, bool readable,
                          bool writable) {
  Entry& entry = Intern(name);
  entry.defined = true;
  entry.type = type;
  entry.value = ConvertTo(type, value).value_or(ZeroOf(type));
  entry.readable = readable;
  entry.writable = writable;
}

bool SimVariables::Undefine(TextView name) {
  Entry* entry = Find(name);
  if (entry == nullptr) return false;
  entry->defined = false;
  entry->value = {};
  return true;
}

bool SimVariables::Set(TextView name, const rig::Value& value) {
  Entry* entry = Find(name);
  if (entry == nullptr) return false;
  auto converted = ConvertTo(entry->type, value);
  if (!converted) return false;
  entry->value = *std::move(converted);
  Changed(*entry);
  return true;
}

bool SimVariables::Report(TextView name) {
  Entry* entry = Find(name);
  if (entry == nullptr) return false;
  Changed(*entry);
  return true;
}

std::optional<rig::Value> SimVariables::Get(TextView name) const {
  const Entry* entry = Find(name);
  if (entry == nullptr) return std::nullopt;
  return entry->value;
}

int SimVariables::Watch(TextView name, std::function<void()> changed) {
  Entry& entry = Intern(name);
  entry.watchers.push_back({++lastWatch_, std::make_shared<const std::function<void()>>(std::move(changed))});
  return lastWatch_;
}

void SimVariables::Unwatch(int watch) {
  for (Entry& entry : entries_) {
    std::erase_if(entry.watchers, [watch](const Watcher& watcher) { return watcher.number == watch; });
  }
}

std::vector<WindowHandle> SimVariables::Reports(TextView name) const {
  std::vector<WindowHandle> windows;
  const auto place = places_.find(name);
  if (place == places_.end()) return windows;
  for (const Listener& listener : entries_[place->second].listeners) {
    if (windows_.IsAlive(listener.window)) windows.push_back(listener.window);
  }
  return windows;
}

std::size_t SimVariables::OpenReports() const {
  std::size_t count = 0;
  for (const Entry& entry : entries_) {
    for (const Listener& listener : entry.listeners) count += static_cast<std::size_t>(listener.opened);
  }
  return count;
}

const SimVariables::Entry* SimVariables::Find(TextView name) const {
  const auto place = places_.find(name);
  if (place == places_.end() || !entries_[place->second].defined) return nullptr;
  return &entries_[place->second];
}

SimVariables::Entry* SimVariables::Find(TextView name) {
  const auto place = places_.find(name);
  if (place == places_.end() || !entries_[place->second].defined) return nullptr;
  return &entries_[place->second];
}

// Identifiers count from 1, so that the arguments of a report are never both zero.
SimVariables::Entry* SimVariables::ById(std::int32_t identifier) {
  if (identifier < 1 || static_cast<std::size_t>(identifier) > entries_.size()) return nullptr;
  return &entries_[static_cast<std::size_t>(identifier) - 1];
}

SimVariables::Entry& SimVariables::Intern(TextView name) {
  const auto [place, added] = places_.try_emplace(Text(name), entries_.size());
  if (added) {
    entries_.emplace_back();
    entries_.back().name = Text(name);
    entries_.back().identifier = static_cast<std::int32_t>(entries_.size());
  }
  return entries_[place->second];
}

int SimVariables::Readable(std::int32_t identifier, const Entry** entry) {
  *entry = ById(identifier);
  if (*entry == nullptr || !(*entry)->defined) return variable_code::kUnknown;
  return (*entry)->readable ? variable_code::kDone : variable_code::kNotAllowed;
}

int SimVariables::Write(std::int32_t identifier, const rig::Value& value) {
  Entry* entry = ById(identifier);
  if (entry == nullptr) return variable_code::kUnknown;
  const auto converted = entry->defined ? ConvertTo(entry->type, value) : std::nullopt;
  int code = variable_code::kDone;
  if (!entry->defined) {
    code = variable_code::kUnknown;
  } else if (!entry->writable) {
    code = variable_code::kNotAllowed;
  } else if (!converted) {
    code = variable_code::kNoValue;
  }
  recorder_.Write(entry->name, value, code == variable_code::kDone);
  if (code != variable_code::kDone) return code;
  const bool changed = !SameValue(entry->value, *converted);
  entry->value = *converted;
  // Only a change is reported, not the writing of an equal value.
  if (changed) PostReports(*entry);
  CallWatchers(*entry);
  if (written_) written_(entry->name);
  return code;
}

void SimVariables::Changed(Entry& entry) {
  PostReports(entry);
  CallWatchers(entry);
}

void SimVariables::PostReports(Entry& entry) {
  std::erase_if(entry.listeners, [this](const Listener& listener) { return !windows_.IsAlive(listener.window); });
  for (const Listener& listener : entry.listeners) Post(entry, listener.window);
}

void SimVariables::CallWatchers(Entry& entry) {
  // A watcher may end watches, including its own, so each one is looked up again before it is called.
  const std::vector<Watcher> watchers = entry.watchers;
  for (const Watcher& watcher : watchers) {
    const bool still = std::any_of(entry.watchers.begin(), entry.watchers.end(),
                                   [&watcher](const Watcher& other) { return other.number == watcher.number; });
    if (still && *watcher.changed) (*watcher.changed)();
  }
}

void SimVariables::Post(const Entry& entry, WindowHandle window) {
  windows_.Post(window, {PNL_MSG_VARIABLE_REPORT, entry.identifier, 0});
}

}  // namespace pnl::sim
