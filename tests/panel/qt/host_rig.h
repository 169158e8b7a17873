// SPDX-License-Identifier: MIT
// A rig for tests without a window, with an operator and a session on it. A test sets the state of the machine and says
// when the rig reports errors.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <map>

#include "host/operator.h"
#include "panel/qt/written_rig.h"

#include <QWidget>

namespace panel {

class WrittenMachine : public pnl::rig::MachineControl {
 public:
  explicit WrittenMachine(WrittenRig& rig) : rig_(rig) {}
  pnl::rig::MachineState State() const override { return state; }
  void OnChanged(std::function<void()> tell) override { changed = std::move(tell); }
  void FeedHold(bool on) override { rig_.Write("FeedHold", on); }
  void FeedOverride(int percent) override { rig_.Write("FeedOverride", percent); }
  void SingleBlock(bool on) override { rig_.Write("SingleBlock", on); }
  void Cancel() override { rig_.Write("Cancel"); }
  void Reset() override { rig_.Write("Reset"); }
  void Inspection(bool on) override { rig_.Write("Inspection", on); }
  void EmergencyStop(bool on) override { rig_.Write("EmergencyStop", on); }
  void SetCause(Fault fault, bool stands) override { rig_.Write("SetCause", static_cast<int>(fault), stands); }
  void Raise(Fault fault, const ProgramSpot& spot) override {
    rig_.Write("Raise", static_cast<int>(fault), WrittenRig::Text(spot.file), spot.position);
  }
  void ManualMode(bool on) override { rig_.Write("ManualMode", on); }
  std::vector<PlcMessage> PlcMessages() const override { return {{1, u"one"}, {0x10000002u, u"two"}}; }
  void RaisePlcMessage(std::uint32_t code) override { rig_.Write("RaisePlcMessage", code); }

  pnl::rig::MachineState state;
  std::function<void()> changed;

 private:
  WrittenRig& rig_;
};

class HostRig : public WrittenRig {
 public:
  std::optional<Value> Get(std::u16string_view name) const override {
    const auto found = variables.find(std::u16string(name));
    return found == variables.end() ? std::nullopt : std::optional(found->second);
  }
  int Watch(std::u16string_view name, std::function<void()> changed) override {
    watches[++lastWatch] = {std::u16string(name), std::move(changed)};
    return lastWatch;
  }
  void Unwatch(int watch) override { watches.erase(watch); }
  int WatchErrors(std::function<void(const ErrorSummary&, ErrorFate)> changed) override {
    error = std::move(changed);
    return kErrorWatch;
  }
  void UnwatchErrors(int watch) override {
    if (watch == kErrorWatch) error = {};
  }
  std::vector<std::int32_t> ErrorQueue() const override { return queue; }
  std::vector<ErrorSummary> Errors() const override {
    ErrorSummary one;
    one.number = 77;
    return {one};
  }
  void ClearErrors() override {
    queue.clear();
    WrittenRig::ClearErrors();
  }
  std::optional<std::u16string> DescriptionBehind(std::u16string_view helpRef) const override {
    const auto found = descriptions.find(std::u16string(helpRef));
    return found == descriptions.end() ? std::nullopt : std::optional(found->second);
  }
  std::optional<std::string> HostPath(std::u16string_view path) const override {
    hostPathAsked = Text(path);
    return file;
  }
  pnl::rig::MachineControl* Machine() override { return &machine; }

  static constexpr int kErrorWatch = 5;
  WrittenMachine machine{*this};
  std::map<std::u16string, Value> variables;
  std::map<int, std::pair<std::u16string, std::function<void()>>> watches;
  int lastWatch = 0;
  std::function<void(const ErrorSummary&, ErrorFate)> error;
  std::vector<std::int32_t> queue;
  std::map<std::u16string, std::u16string> descriptions;
  std::optional<std::string> file;
  mutable std::string hostPathAsked;
};

class HostFixture : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { ASSERT_TRUE(PnlRig()->StartBare()); }
  HostFixture() {
    UseWords("en");
    area.resize(800, 600);
    session.SetToolArea(&area);
    session.SetMainWindow(&main);
    QObject::connect(&op, &Operator::Changed, [this] { ++changes; });
    Settle();
  }
  /// Changes, told since the last call.
  int Settle() {
    QCoreApplication::processEvents();
    return std::exchange(changes, 0);
  }
  std::string Calls() {
    std::string all;
    for (const std::string& line : std::exchange(rig.lines, {})) all += (all.empty() ? "" : "\n") + line;
    return all;
  }
  void Call(int slot, const QVariantList& args = {}) { emit session.Called({slot, args}); }
  /// The hint, a warning with a mark before it.
  [[nodiscard]] QString Hint() const {
    return (op.CurrentHint().warning ? QStringLiteral("! ") : QString()) + op.CurrentHint().text;
  }
  static QString Warning(Word word) { return QStringLiteral("! ") + Say(word); }

  QWidget area;
  QWidget main;
  int changes = 0;
  HostRig rig;
  HostSession session;
  Operator op{session, &rig};
};

}  // namespace panel
