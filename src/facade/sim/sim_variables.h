// SPDX-License-Identifier: MIT
// The variable server of the simulated CNC: a table of names, each with a type, a value and the windows that get its
// reports. A name keeps its identifier for good, so that handles and reports stay valid when it is defined again.
#pragma once

#include <pnltools/rig.h>

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "facade/sim/sim_recorder.h"
#include "facade/variables.h"
#include "window/window.h"

namespace pnl::sim {

class SimVariables final : public Variables {
 public:
  SimVariables(WindowSystem& windows, const SimRecorder& recorder) : windows_(windows), recorder_(recorder) {}

  VariableInfo Bind(TextView name) override;
  int ReadInt(std::int32_t identifier, std::int32_t& value) override;
  int WriteInt(std::int32_t identifier, std::int32_t value, int flag) override;
  int ReadDouble(std::int32_t identifier, double& value) override;
  int WriteDouble(std::int32_t identifier, double value) override;
  int ReadTxt(std::int32_t identifier, Text& value) override;
  int WriteTxt(std::int32_t identifier, TextView value) override;
  int UpdateCache(std::int32_t identifier) override;
  /// A window that opens the same report several times must close it as often.
  int OpenReport(std::int32_t identifier, WindowHandle window) override;
  int CloseReport(std::int32_t identifier, WindowHandle window) override;
  int GeneraReport(std::int32_t identifier, WindowHandle window) override;

  /// Makes or replaces a variable without a report. A value that can't be converted to the type becomes zero.
  void Define(TextView name, rig::VariableType type, const rig::Value& value, bool readable = true,
              bool writable = true);
  bool Undefine(TextView name);
  [[nodiscard]] bool Exists(TextView name) const { return Find(name) != nullptr; }
  /// Sets the value and reports it, even if it is the same or tools can't write it. Returns false, and changes nothing,
  /// for an unknown name or a value that can't be converted to the variable's type.
  bool Set(TextView name, const rig::Value& value);
  /// Reports the present value. Returns false for an unknown name.
  bool Report(TextView name);
  [[nodiscard]] std::optional<rig::Value> Get(TextView name) const;
  int Watch(TextView name, std::function<void()> changed);
  void Unwatch(int watch);
  /// The living windows with an open report, in order of opening.
  [[nodiscard]] std::vector<WindowHandle> Reports(TextView name) const;
  /// The number of reports that were opened and not closed. Those of a dead window count until the variable's next
  /// report.
  [[nodiscard]] std::size_t OpenReports() const;
  /// Sets who is called after each successful write of a tool, even if the value didn't change.
  void OnWritten(std::function<void(TextView name)> written) { written_ = std::move(written); }

 private:
  struct Listener {
    WindowHandle window;
    int opened;
  };
  struct Watcher {
    int number;
    std::shared_ptr<const std::function<void()>> changed;
  };
  struct Entry {
    Text name;
    std::int32_t identifier = -1;
    bool defined = false;
    rig::VariableType type = rig::VariableType::kInt;
    rig::Value value;
    bool readable = true;
    bool writable = true;
    std::vector<Listener> listeners;
    std::vector<Watcher> watchers;
  };

  /// The entry of a variable that is defined, else null.
  [[nodiscard]] const Entry* Find(TextView name) const;
  [[nodiscard]] Entry* Find(TextView name);
  /// The entry with that identifier, defined or not; null when there is none.
  [[nodiscard]] Entry* ById(std::int32_t identifier);
  Entry& Intern(TextView name);
  [[nodiscard]] int Readable(std::int32_t identifier, const Entry** entry);
  int Write(std::int32_t identifier, const rig::Value& value);
  void Changed(Entry& entry);
  void PostReports(Entry& entry);
  static void CallWatchers(Entry& entry);
  void Post(const Entry& entry, WindowHandle window);

  WindowSystem& windows_;
  const SimRecorder& recorder_;
  std::deque<Entry> entries_;  // a deque, because an entry must not move: watchers may define variables while it is in
                               // use
  std::map<Text, std::size_t, std::less<>> places_;
  int lastWatch_ = 0;
  std::function<void(TextView)> written_;
};

}  // namespace pnl::sim
