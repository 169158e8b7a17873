// SPDX-License-Identifier: MIT
// The mill of every kind of machine: it takes blocks from the kernel, runs them on the clock and reports its state
// through variables. It decides who may do what and when. machine_block, machine_request and machine_plan parse, check
// and plan a block; machine_run computes its progress. The library's instance owns the machine.
//
// The channel. At most one block is in hand. Its halt says what it waits for:
//   no block                         0x0100, ready
//   running                          0x0200
//   single block, between two steps  0x0201, NextSingleStep continues
//   feed hold                        0x0405, ClearFeedhold continues
//   M0, M1                           0x0404, 0x0406, NextSingleStep continues
//   aborted                          0x0800 for one millisecond, then ready, so that both are reported
// The steps of a block are: functions before the move, the move or dwell, functions after it, the stop. A block lasts
// at least one millisecond, so that the running state is reported too. Feed hold has an effect only while a step runs.
//
// Interlock. CogerPlcFree grants it whenever the channel is ready, even if a grant exists already: a tool may keep a
// grant after it has left a channel and must not lock itself out. An accepted MDILine takes over one grant and gives it
// back when its block has ended.
//
// Causes. An emergency stop and the faults of SetCause stand until they end: a reset raises their errors again, and no
// block begins or goes on meanwhile. The emergency stop, a drive, the bus and the kernel abort what is in hand. An open
// door holds it instead, because inspection needs the door open; the spindle and the coolant that the door has stopped
// come back when the block goes on.
//
// Inspection. It parks the interrupted block, and the channel is ready for other blocks. A start request of the tool is
// answered at once in any state: the tool then sends its block, or releases the one that it has sent. When the
// inspection ends, the parked block is interrupted as before. When it is released, the axes first go back to where it
// was interrupted. Modal codes that were changed meanwhile stay changed. Inspection doesn't end while one of its own
// blocks is in hand.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "facade/mill/machine.h"
#include "facade/mill/machine_marks.h"
#include "facade/mill/machine_run.h"

namespace pnl::sim {

class DemoMachine final : public Machine {
 public:
  /// Makes the machine's variables, tools, error texts and PLC messages.
  DemoMachine(MachineEnvironment& environment, MachineKind kind);

  void SetLanguage(std::string_view code) override;
  [[nodiscard]] int InterlocksHeld() const override;

  // Calls of the kernel. A call whose result facade/kernel.h doesn't define returns 1 when done and 0 when refused.
  // NextSingleStep, ClearFeedhold and MDICancel return 0 when done and 1 when there is nothing to do. A refused MDILine
  // returns the number of its error.
  int EnProcesoInspec(int channel) override;
  int IsMDIAllowedInResetInspect(int channel) override;
  int CogerPlcFree(int channel) override;
  int LiberarPlcFree(int channel) override;
  /// Leaving MDI ends an inspection and aborts the block in hand and the parked one, because nobody could release them
  /// any more.
  int SetMdi(int channel, int on) override;
  int EndMDIMode(int channel) override;
  int SetMode(int channel, int mode) override;
  int MDILine(TextView block) override;
  int NextSingleStep() override;
  int ClearFeedhold() override;
  int MDICancel(int channel) override;
  int PosibleMDICancel(int channel) override;
  int ChannelNumber() override;
  int ConvertLogToName(int logicalNumber, Text& name) override;
  [[nodiscard]] Text MarkOfBlock(TextView block) const override { return Text(sim::MarkOfBlock(block)); }
  /// The mill's errors are events, so removing one from the queue changes nothing in the mill.
  void OnErrorReset() override {}
  void OnWritten(TextView name) override;

  // The operator's panel.
  [[nodiscard]] rig::MachineState State() const override;
  void OnChanged(std::function<void()> changed) override;
  void FeedHold(bool on) override;
  void FeedOverride(int percent) override;
  void SingleBlock(bool on) override;
  void Cancel() override;
  void Reset() override;
  void Inspection(bool on) override;
  /// While the stop is pressed no block is accepted.
  void EmergencyStop(bool on) override;
  void SetCause(MachineControl::Fault fault, bool stands) override;
  /// Does nothing while the channel is in MDI: the tool sets the mode with SetMode when it leaves.
  void ManualMode(bool on) override;
  void Raise(MachineControl::Fault fault, const rig::ProgramSpot& spot) override;
  [[nodiscard]] std::vector<MachineControl::PlcMessage> PlcMessages() const override;
  void RaisePlcMessage(std::uint32_t code) override;

 private:
  enum class Halt : std::uint8_t { kNone, kSingleStep, kFeedHold, kStop, kOptionalStop };
  struct Task {
    BlockRun run;
    Halt halt = Halt::kNone;
    bool interlock = false;         // the block has a grant, which ends with it
    std::optional<Point> comeBack;  // where the block was interrupted, once inspection has parked it
  };

  /// The spindle and the coolant that an open door has stopped while a block was in hand.
  struct Stopped {
    Spindle spindle;
    bool coolant = false;
  };

  [[nodiscard]] double Now() const;
  /// Where the axes are.
  [[nodiscard]] Point Here() const;
  [[nodiscard]] int FullStatus() const;
  [[nodiscard]] bool Interrupted() const;

  // Running (machine_demo.cpp).
  void Work();
  void EndStep();
  void Apply(const Functions& functions);
  void HaltAt(Halt halt, double when);
  void Release();
  /// Drops the block in hand where it is. If parked is set, drops the parked block too and ends the inspection.
  void Abort(bool parked);
  void StopSpindleAndCoolant();
  void ResetModal();
  void EndInspection();
  /// Updates the timers and the variables after a change and calls the panel.
  void Publish();
  void Arm();
  void ShowPositions();
  void Changed() const;

  // Calls (machine_demo_kernel.cpp).
  [[nodiscard]] std::optional<sim::Fault> CheckState() const;
  /// Whether a start must not set anything moving now.
  [[nodiscard]] bool MayNotGoOn() const { return emergency_ || !causes_.empty(); }
  int Refuse(const sim::Fault& fault, TextView block);
  void PushFault(const sim::Fault& fault, TextView block);
  void Accept(TextView block, Plan plan);
  void SetInt(TextView name, int value);
  void TakeStartRequest();

  // Causes (machine_demo_causes.cpp).
  void RaiseCauses();
  void StopForDoor();

  MachineEnvironment& environment_;
  MachineLanguage language_ = MachineLanguage::kEnglish;
  Condition condition_;
  std::optional<Task> task_;
  std::optional<Task> parked_;
  int grants_ = 0;  // of the interlock, which the panel hasn't given back
  int percent_ = 100;
  int status_ = 0x100;  // the value last reported
  bool mdi_ = false;
  bool aborting_ = false;
  bool inspecting_ = false;
  bool emergency_ = false;
  std::set<MachineControl::Fault> causes_;  // that stand
  std::optional<Stopped> stopped_;          // by the door; nothing while they turn or nobody would start them again
  bool singleBlock_ = false;
  Point shown_{};  // the values of the position variables
  std::function<void()> changed_;
  ScopedTimer display_;
  ScopedTimer end_;
};

}  // namespace pnl::sim
