// SPDX-License-Identifier: MIT
// The CNC's variables for tests: a table that fails as told, reports every change, and notes what was asked of it. As
// strict as a real server: a read without an update of the cache before it fails the test, a window that is dead can't
// open a report, and one that isn't open can't be closed.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>

#include "facade/variables.h"
#include "support/sim_fixture.h"

namespace pnl::test {

class StrictVariables final : public Variables {
 public:
  struct Entry {
    std::int32_t value = 0;
    double real = 0;
    Text text;
    bool readable = true;
    bool writable = true;
    bool closable = true;  // false: CloseReport fails and the report stays open
    bool fresh = false;    // the cache was brought up to date since the last read
    std::set<WindowHandle> reports;
  };

  StrictVariables(RecordingSink& sink, FakeWindowSystem& windows) : sink_(sink), windows_(windows) {}

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
    Report(name, entry);
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
    const Entry* entry = Present(id);
    if (entry == nullptr) return 1;
    value = entry->value;
    return 0;
  }
  int WriteInt(std::int32_t id, std::int32_t value, int flag) override {
    Entry* entry = Find(id);
    const bool ok = entry != nullptr && entry->writable;
    const bool changed = ok && std::exchange(entry->value, value) != value;
    sink_.Write(FromUtf8(names_[id]), std::int64_t{value}, ok);
    if (flag == 1) sink_.lines.back() += " flag 1";
    // Also to the window that wrote.
    if (changed) Report(names_[id], *entry);
    return ok ? 0 : 1;
  }
  int ReadDouble(std::int32_t id, double& value) override {
    const Entry* entry = Present(id);
    if (entry == nullptr) return 1;
    value = entry->real;
    return 0;
  }
  int WriteDouble(std::int32_t, double) override { return 1; }
  int ReadTxt(std::int32_t id, Text& value) override {
    const Entry* entry = Present(id);
    if (entry == nullptr) return 1;
    value = entry->text;
    return 0;
  }
  int WriteTxt(std::int32_t id, TextView value) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->text = Text(value);
    sink_.Write(FromUtf8(names_[id]), Text(value), true);
    return 0;
  }
  int UpdateCache(std::int32_t id) override {
    Entry* entry = Find(id);
    if (entry == nullptr) return 1;
    entry->fresh = true;
    return 0;
  }
  int OpenReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    const bool ok = entry != nullptr && windows_.IsAlive(window);
    if (ok) entry->reports.insert(window);
    sink_.lines.push_back("open report " + names_[id] + (ok ? "" : " failed"));
    return ok ? 0 : 1;
  }
  int CloseReport(std::int32_t id, WindowHandle window) override {
    Entry* entry = Find(id);
    const bool ok = entry != nullptr && entry->closable && entry->reports.erase(window) == 1;
    sink_.lines.push_back("close report " + names_[id] + (ok ? "" : " failed"));
    return ok ? 0 : 1;
  }
  int GeneraReport(std::int32_t, WindowHandle) override { return 0; }

 private:
  /// The entry for one read; null when it can't be read.
  Entry* Present(std::int32_t id) {
    Entry* entry = Find(id);
    if (entry == nullptr) return nullptr;
    EXPECT_TRUE(std::exchange(entry->fresh, false)) << names_[id] << " is read from an old cache";
    return entry->readable ? entry : nullptr;
  }
  void Report(const std::string& name, const Entry& entry) {
    for (const WindowHandle window : entry.reports) windows_.Post(window, {PNL_MSG_VARIABLE_REPORT, Id(name), 0});
  }
  Entry* Find(std::int32_t id) {
    const auto name = names_.find(id);
    if (name == names_.end()) return nullptr;
    const auto entry = entries_.find(name->second);
    return entry == entries_.end() ? nullptr : &entry->second;
  }
  RecordingSink& sink_;
  FakeWindowSystem& windows_;
  std::map<std::string, Entry> entries_;
  std::map<std::string, std::int32_t> ids_;
  std::map<std::int32_t, std::string> names_;
};

}  // namespace pnl::test
