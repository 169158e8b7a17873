// SPDX-License-Identifier: MIT
// A tool table and a server of variables for the tests of the machining calculator: both answer what a test has set and
// note each call. A variable has one type, and a read or write of another type fails.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/format.h"
#include "facade/tables.h"
#include "facade/variables.h"

namespace pnl::test {

class NotedTools final : public ToolTables {
 public:
  std::map<std::int32_t, ToolData> tools;
  std::map<std::int32_t, std::vector<std::int32_t>> lists;  // by type
  std::vector<std::string>* log = nullptr;

  ZCPlcMsgTable* Connect() override { return nullptr; }
  std::vector<std::int32_t> TAPI_Tools_GetList(std::int32_t type) override { return lists[type]; }
  int TAPI_Tools_GetToolData(std::int32_t number, ToolData& data) override {
    if (log != nullptr) log->push_back("tool " + std::to_string(number));
    const auto found = tools.find(number);
    if (found == tools.end()) return 0;
    data = found->second;
    return 1;
  }
};

class NotedVariables final : public Variables {
 public:
  using Value = std::variant<std::int32_t, double, Text>;
  std::map<std::string, Value> values;
  std::set<std::string> unreadable;
  std::set<std::string> unwritable;
  std::vector<std::string> log;

  VariableInfo Bind(TextView name) override {
    VariableInfo info;
    const std::string key = ToUtf8(name);
    if (values.count(key) == 0) {
      log.push_back("unknown " + key);
      return info;
    }
    names_.push_back(key);
    info.identifier = static_cast<std::int32_t>(names_.size()) - 1;
    return info;
  }
  int ReadInt(std::int32_t id, std::int32_t& value) override { return Read(id, "int ", value); }
  int ReadDouble(std::int32_t id, double& value) override { return Read(id, "double ", value); }
  int ReadTxt(std::int32_t id, Text& value) override { return Read(id, "text ", value); }
  int WriteInt(std::int32_t id, std::int32_t value, int flag) override {
    return flag == 0 ? Write(id, "int ", value, std::to_string(value)) : 1;
  }
  int WriteDouble(std::int32_t id, double value) override {
    return Write(id, "double ", value, ToUtf8(Format(u"%g", value)));
  }
  int WriteTxt(std::int32_t id, TextView value) override { return Write(id, "text ", Text(value), ToUtf8(value)); }
  int UpdateCache(std::int32_t id) override { return fresh_.insert(id), 0; }
  int OpenReport(std::int32_t, WindowHandle) override { return 1; }
  int CloseReport(std::int32_t, WindowHandle) override { return 1; }
  int GeneraReport(std::int32_t, WindowHandle) override { return 1; }

 private:
  template <typename T>
  int Read(std::int32_t id, const char* kind, T& value) {
    const std::string& name = names_.at(static_cast<std::size_t>(id));
    const bool fresh = fresh_.erase(id) == 1;
    log.push_back((fresh ? "read " : "read old ") + (kind + name));
    const T* held = std::get_if<T>(&values.at(name));
    if (held == nullptr || unreadable.count(name) != 0) return 1;
    value = *held;
    return 0;
  }
  template <typename T>
  int Write(std::int32_t id, const char* kind, const T& value, const std::string& shown) {
    const std::string& name = names_.at(static_cast<std::size_t>(id));
    log.push_back("write " + (kind + name) + "=" + shown);
    T* held = std::get_if<T>(&values.at(name));
    if (held == nullptr || unwritable.count(name) != 0) return 1;
    *held = value;
    return 0;
  }

  std::vector<std::string> names_;
  std::set<std::int32_t> fresh_;
};

}  // namespace pnl::test
