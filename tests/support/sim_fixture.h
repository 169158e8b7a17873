// SPDX-License-Identifier: MIT
// A fixture with a simulated CNC over fakes, and a sink that records what the tools asked of it, one line a call, in
// order: `MDILine(0,"G0 X1",0,4,0)=0`, `write E.HELPDATA="X" ok`. An argument without a value is "nothing".
#pragma once

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "base/text.h"
#include "facade/sim/simulated_cnc.h"
#include "support/fake_window_system.h"
#include "window/timers.h"

namespace pnl::test {

inline std::string Describe(const rig::Value& value) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
  if (const auto* real = std::get_if<double>(&value)) {
    std::string digits = std::to_string(*real);
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits.back() == '.' ? digits + "0" : digits;
  }
  if (const auto* text = std::get_if<std::u16string>(&value)) return '"' + ToUtf8(*text) + '"';
  if (const auto* fields = std::get_if<std::vector<rig::Field>>(&value)) {
    std::string all;
    for (const rig::Field& field : *fields) all += (all.empty() ? "" : ",") + field.name + ":" + Describe(field.value);
    return "{" + all + "}";
  }
  return "nothing";
}

class RecordingSink final : public rig::EventSink {
 public:
  void Cnc(std::string_view name, const std::vector<rig::Value>& args, const rig::Value& result) override {
    if (quiet.count(name) != 0) return;
    std::string line(name);
    line += "(";
    for (const rig::Value& arg : args) {
      if (!records && std::holds_alternative<std::vector<rig::Field>>(arg)) continue;
      line += (line.back() == '(' ? "" : ",") + Describe(arg);
    }
    lines.push_back(line + ")=" + Describe(result));
  }
  void Write(std::u16string_view name, const rig::Value& value, bool ok) override {
    lines.push_back("write " + ToUtf8(name) + "=" + Describe(value) + (ok ? " ok" : " failed"));
  }
  void MessageToHost(PnlWindow, std::uint32_t message, std::intptr_t, std::intptr_t) override {
    lines.push_back("message " + std::to_string(message));
  }
  void Box(std::u16string_view title, std::u16string_view, std::string_view, std::string_view) override {
    lines.push_back("box " + ToUtf8(title));
  }
  /// Returns the lines since the last call.
  std::vector<std::string> Take() { return std::exchange(lines, {}); }

  std::vector<std::string> lines;
  std::set<std::string, std::less<>> quiet;  // calls that aren't kept
  bool records = true;                       // false leaves them out of a call's arguments
};

/// Files without a disc: paths on drive C: map to "/disc", new folders are recorded, nothing can be read or written.
class NoFiles final : public Files {
 public:
  FileInfo Query(TextView) const override { return {}; }
  std::unique_ptr<FileReader> OpenRead(TextView, FileStatus* status) const override {
    if (status != nullptr) *status = FileStatus::kNotFound;
    return nullptr;
  }
  FileStatus CanReplace(TextView) const override { return FileStatus::kDenied; }
  FileStatus Replace(TextView, std::string_view) override { return FileStatus::kDenied; }
  FileStatus MakeFolder(TextView path) override {
    made.push_back(ToUtf8(path));
    return path == failing ? FileStatus::kDenied : FileStatus::kOk;
  }
  std::optional<std::string> HostPath(TextView path) const override {
    if (path.substr(0, 2) != u"C:") return std::nullopt;
    return "/disc" + ToUtf8(path.substr(2));
  }

  std::vector<std::string> made;
  Text failing;
};

class SimFixture : public testing::Test {
 protected:
  SimFixture() { cnc.SetSink(&sink); }

  /// Takes the reports for that window out of the queue and returns their identifiers.
  std::vector<std::intptr_t> TakeReports(WindowHandle window) {
    std::vector<std::intptr_t> reports;
    std::deque<SentMessage> rest;
    for (const SentMessage& sent : windows.posted) {
      if (sent.window == window && sent.message.number == PNL_MSG_VARIABLE_REPORT) {
        EXPECT_EQ(sent.message.second, 0);
        reports.push_back(sent.message.first);
      } else {
        rest.push_back(sent);
      }
    }
    windows.posted = rest;
    return reports;
  }
  std::string Get(TextView name) const {
    const auto value = cnc.Get(name);
    return value ? Describe(*value) : "absent";
  }
  void DefineInt(TextView name, std::int64_t value, bool readable = true, bool writable = true) {
    cnc.Define(name, rig::VariableType::kInt, value, readable, writable);
  }

  FakeWindowSystem windows;
  ManualTimers timers;
  NoFiles files;
  DriveMap drives;
  RecordingSink sink;
  sim::SimulatedCnc cnc{windows, timers, files, drives};
};

}  // namespace pnl::test
