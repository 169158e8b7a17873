// SPDX-License-Identifier: MIT
// The simulated CNC as the mill sees it, without the CNC: variables in a map, every Set recorded in order, errors in a
// list, a manual clock. And a bench that drives a mill over it.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/format.h"
#include "facade/mill/machine.h"

namespace pnl::test {

class FakeMachineEnvironment : public sim::MachineEnvironment {
 public:
  struct Report {
    Text name;
    rig::Value value;
  };

  void Define(TextView name, rig::VariableType type, const rig::Value& value) override {
    variables[Text(name)] = value;
    types[Text(name)] = type;
  }
  void Set(TextView name, const rig::Value& value) override {
    variables[Text(name)] = value;
    reports.push_back({Text(name), value});
    if (onSet) onSet(name);
  }
  std::int32_t GetInt(TextView name) const override {
    const auto found = variables.find(Text(name));
    if (found == variables.end()) return 0;
    const auto* number = std::get_if<std::int64_t>(&found->second);
    return number != nullptr ? static_cast<std::int32_t>(*number) : 0;
  }
  void SetTool(std::int32_t number, std::int32_t type, const ToolData& data) override { tools[number] = {type, data}; }
  void PushError(const ErrorRecord& record) override { errors.push_back(record); }
  void SetErrorText(std::string_view function, std::int32_t number, TextView text, TextView helpRef) override {
    if (function == "error_to_txt") errorTexts[number] = Text(text);
    tableTexts[{std::string(function), number}] = {Text(text), Text(helpRef)};
  }
  void SetPlcMessage(std::int32_t type, std::int32_t id, TextView message, TextView info) override {
    plcMessages[{type, id}] = {Text(message), Text(info)};
  }
  Timers& Clock() override { return clock; }

  double GetDouble(TextView name) const { return std::get<double>(variables.at(Text(name))); }
  /// The values set so far of one variable, in order, as "0x200 0x100"; then forgets all reports.
  std::string Take(TextView name) {
    std::string values;
    for (const Report& report : reports) {
      if (report.name != name) continue;
      const auto* number = std::get_if<std::int64_t>(&report.value);
      if (number == nullptr) continue;
      values += (values.empty() ? "" : " ") + ToUtf8(Format(u"0x%03X", static_cast<unsigned>(*number)));
    }
    reports.clear();
    return values;
  }

  std::map<Text, rig::Value> variables;
  std::map<Text, rig::VariableType> types;
  std::map<std::int32_t, std::pair<std::int32_t, ToolData>> tools;  // type and facts by number
  std::vector<Report> reports;
  std::vector<ErrorRecord> errors;
  std::map<std::int32_t, Text> errorTexts;  // those of error_to_txt
  /// Text and help reference by function and number.
  std::map<std::pair<std::string, std::int32_t>, std::pair<Text, Text>> tableTexts;
  /// Text and reference by type and identifier.
  std::map<std::pair<std::int32_t, std::int32_t>, std::pair<Text, Text>> plcMessages;
  std::function<void(TextView)> onSet;
  ManualTimers clock;
};

/// A mill in MDI.
class MachineBench {
 public:
  explicit MachineBench(std::string_view name = "demo") : machine(sim::MakeMachine(name, environment)) {
    machine->SetMdi(1, 1);
    environment.reports.clear();
  }

  int Send(TextView block) { return machine->MDILine(block); }
  /// As the command line does: takes the interlock, and gives it back when the block is refused.
  int SendWithInterlock(TextView block) {
    if (machine->CogerPlcFree(1) == 0) return -1;
    const int result = machine->MDILine(block);
    if (result != 0) machine->LiberarPlcFree(1);
    return result;
  }
  /// Sends a block that must be accepted and waits until no timer runs.
  void Do(TextView block) {
    Send(block);
    while (environment.clock.Running() != 0) environment.clock.Advance(1000);
  }
  void Wait(std::int64_t milliseconds) { environment.clock.Advance(milliseconds); }
  int Status() const { return environment.GetInt(u"[1].G.FULLSTATUS"); }
  std::string Statuses() { return environment.Take(u"[1].G.FULLSTATUS"); }
  double At(std::size_t axis) const { return machine->State().axes.at(axis).machine; }
  /// How long a block takes that runs without a halt, to the millisecond.
  std::int64_t Duration(TextView block) {
    const std::int64_t start = environment.clock.Now();
    Send(block);
    while (Status() == 0x200) environment.clock.Advance(1);
    return environment.clock.Now() - start;
  }

  FakeMachineEnvironment environment;
  std::unique_ptr<sim::Machine> machine;
};

}  // namespace pnl::test
