// SPDX-License-Identifier: MIT
// The CNC's variables for the command line's tests: a table that fails as told, reports, and writes every change that
// was asked of it into the log.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "facade/variables.h"
#include "support/fake_window_system.h"

namespace pnl::test {

using Log = std::vector<std::string>;

class FakeVariables final : public Variables {
 public:
  struct Entry {
    std::int32_t value = 0;
    double real = 0;
    Text text;
    bool readable = true;
    bool writable = true;
    std::set<WindowHandle> reports;
  };

  FakeVariables(Log& log, FakeWindowSystem& windows) : log_(log), windows_(windows) {}

  Entry& Define(const std::string& name, std::int32_t value = 0) {
    Entry& entry = entries_[name];
    entry.value = value;
    return entry;
  }
  void Undefine(const std::string& name) { entries_.erase(name); }
  [[nodiscard]] Entry& At(const std::string& name) { return entries_.at(name); }
  /// As the control does: sets, and posts a report to whoever has one open.
  void Set(const std::string& name, std::int32_t value) {
    Entry& entry = entries_.at(name);
    entry.value = value;
    for (const WindowHandle window : entry.reports) windows_.Post(window, {kMsgVariableReport, Id(name), 0});
  }
  [[nodiscard]] std::int32_t Id(const std::string& name) {
    const auto [at, added] = ids_.try_emplace(name, static_cast<std::int32_t>(ids_.size()) + 100);
    if (added) names_[at->second] = name;
    return at->second;
  }
  [[nodiscard]] std::size_t OpenReports() const {
    std::size_t count = 0;
    for (const auto& [name, entry] : entries_) count += entry.reports.size();
    return count;
  }

  VariableInfo Bind(TextView name) override {
    VariableInfo info;
    const std::string key = ToUtf8(name);
    if (entries_.count(key) != 0) info.identifier = Id(key);
    return info;
  }
  int ReadInt(std::int32_t id, std::int32_t& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->value;
    return 0;
  }
  int WriteInt(std::int32_t id, std::int32_t value, int flag) override {
    Entry* entry = Find(id);
    const bool ok = entry != nullptr && entry->writable;
    if (ok) entry->value = value;
    log_.push_back("write " + names_[id] + "=" + std::to_string(value) + (flag == 1 ? " flag 1" : "") +
                   (ok ? "" : " failed"));
    return ok ? 0 : 1;
  }
  int ReadDouble(std::int32_t id, double& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->real;
    return 0;
  }
  int WriteDouble(std::int32_t, double) override { return 1; }
  int ReadTxt(std::int32_t id, Text& value) override {
    const Entry* entry = Find(id);
    if (entry == nullptr || !entry->readable) return 1;
    value = entry->text;
    return 0;
  }
  int WriteTxt(std::int32_t id, TextView value) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->text = Text(value);
    log_.push_back("write " + names_[id] + "=" + ToUtf8(value));
    return 0;
  }
  int UpdateCache(std::int32_t) override { return 0; }
  int OpenReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->reports.insert(window);
    log_.push_back("open report " + names_[id]);
    return 0;
  }
  int CloseReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    if (entry != nullptr) entry->reports.erase(window);
    log_.push_back("close report " + names_[id]);
    return 0;
  }
  int GeneraReport(std::int32_t, WindowHandle) override { return 0; }

 private:
  Entry* Find(std::int32_t id) {
    const auto name = names_.find(id);
    if (name == names_.end()) return nullptr;
    const auto entry = entries_.find(name->second);
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  Log& log_;
  FakeWindowSystem& windows_;
  std::map<std::string, Entry> entries_;
  std::map<std::string, std::int32_t> ids_;
  std::map<std::int32_t, std::string> names_;
};

}  // namespace pnl::test
