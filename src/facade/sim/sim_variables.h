// SPDX-License-Identifier: MIT
// The variable server of the simulated CNC: a table of names, each with a type, a value and the windows that want to
// hear of changes. A name keeps its identifier for good, so that handles and reports live through a redefinition.
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
  /// A window that opens the same report again has it until it closes it as often.
  int OpenReport(std::int32_t identifier, WindowHandle window) override;
  int CloseReport(std::int32_t identifier, WindowHandle window) override;
  int GeneraReport(std::int32_t identifier, WindowHandle window) override;

  /// A value that has no form of that type counts as zero.
  void Define(TextView name, rig::VariableType type, const rig::Value& value, bool readable = true,
              bool writable = true);
  bool Undefine(TextView name);
  [[nodiscard]] bool Exists(TextView name) const { return Find(name) != nullptr; }
  /// Sets and reports, also when equal and where tools can't write. False for an unknown name or a value that has no
  /// form of the variable's type; then nothing happens.
  bool Set(TextView name, const rig::Value& value);
  /// Reports the value as it is. False for an unknown name.
  bool Report(TextView name);
  [[nodiscard]] std::optional<rig::Value> Get(TextView name) const;
  int Watch(TextView name, std::function<void()> changed);
  void Unwatch(int watch);
  /// Live windows with a report open, in order of opening.
  [[nodiscard]] std::vector<WindowHandle> Reports(TextView name) const;
  /// All reports that were opened and not closed; those of a dead window count until a change would have reached it.
  [[nodiscard]] std::size_t OpenReports() const;
  /// Called after a tool wrote a variable, whatever the value was.
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

  /// The entry of a defined variable, else null.
  [[nodiscard]] const Entry* Find(TextView name) const;
  [[nodiscard]] Entry* Find(TextView name);
  /// The entry behind an identifier, defined or not; null for an invented one.
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
  std::deque<Entry> entries_;  // an entry never moves: watchers may define variables while it is in use
  std::map<Text, std::size_t, std::less<>> places_;
  int lastWatch_ = 0;
  std::function<void(TextView)> written_;
};

}  // namespace pnl::sim
