// SPDX-License-Identifier: MIT
// The mill "demo": takes blocks from the kernel, runs them over the clock and tells its state by variables. Parsing,
// checking and planning lie in machine_block, machine_request and machine_plan, progress in machine_run; here is who
// may do what when. Owned by the simulated CNC.
//
// The channel. At most one block is in hand, and its halt says what it waits for:
//   no block                         0x0100 ready
//   running                          0x0200
//   single block, between two steps  0x0201 goes on by NextSingleStep
//   feed hold                        0x0405 goes on by ClearFeedhold
//   M0, M1                           0x0404, 0x0406 go on by NextSingleStep
//   aborted                          0x0800 for one millisecond, then ready, so that both are reported
// A block's steps are: functions before the move, the move or dwell, functions behind it, the stop. A block lasts at
// least a millisecond, so that running is seen too. Feed hold means something only while a step runs.
//
// Interlock. CogerPlcFree grants it whenever no block is in hand, also when a grant stands already: a tool may keep one
// after it left a channel, and must not lock itself out. An accepted MDILine takes one grant over and gives it back
// when its block has ended.
//
// Inspection. It parks the interrupted block, and the channel is ready for blocks of its own. A start request of the
// tool is answered at once, whatever stands: the tool then sends its block or releases the one it sent. When inspection
// ends the parked block is interrupted as before; released, the axes first come back to where it was interrupted.
// Modal codes changed meanwhile stay changed. Inspection doesn't end while a block of its own is in hand.
#pragma once

#include <cstdint>
#include <optional>

#include "facade/mill/machine.h"
#include "facade/mill/machine_run.h"

namespace pnl::sim {

class DemoMachine final : public Machine {
 public:
  /// Makes the variables and error texts.
  explicit DemoMachine(MachineEnvironment& environment);

  void SetLanguage(std::string_view code) override;
  [[nodiscard]] int InterlocksHeld() const override;

  // Calls of the kernel. Those without a result of their own in facade/kernel.h answer 1 for done and 0 for refused,
  // the three that release or cancel 0 for done and 1 for nothing to do. MDILine answers the number of its error.
  int EnProcesoInspec(int channel) override;
  int IsMDIAllowedInResetInspect(int channel) override;
  int CogerPlcFree(int channel) override;
  int LiberarPlcFree(int channel) override;
  /// Leaving MDI ends an inspection and aborts what is in hand or parked: nobody could release it any more.
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
  /// The mill's errors are events: taking one out of the queue changes nothing in it.
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
  /// While it is on no block is accepted.
  void EmergencyStop(bool on) override;
  /// While MDI holds the channel the variable stays: the tool sets the mode by SetMode when it leaves.
  void ManualMode(bool on) override;
  void Raise(MachineControl::Fault fault, const rig::ProgramSpot& spot) override;

 private:
  enum class Halt : std::uint8_t { kNone, kSingleStep, kFeedHold, kStop, kOptionalStop };
  struct Task {
    BlockRun run;
    Halt halt = Halt::kNone;
    bool interlock = false;         // a grant to give back at the end
    std::optional<Point> comeBack;  // where it was interrupted, once inspection took the axes from it
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
  /// Drops the block in hand where it is; with parked also the one that inspection holds.
  void Abort(bool parked);
  void StopSpindleAndCoolant();
  void ResetModal();
  void EndInspection();
  /// Tells what has changed: variables, timers, the panel.
  void Publish();
  void Arm();
  void ShowPositions();
  void Changed() const;

  // Calls (machine_demo_kernel.cpp).
  [[nodiscard]] std::optional<sim::Fault> CheckState() const;
  int Refuse(const sim::Fault& fault, TextView block);
  void PushFault(const sim::Fault& fault, TextView block);
  void Accept(TextView block, Plan plan);
  void SetInt(TextView name, int value);
  void TakeStartRequest();

  MachineEnvironment& environment_;
  MachineLanguage language_ = MachineLanguage::kEnglish;
  Condition condition_;
  std::optional<Task> task_;
  std::optional<Task> parked_;
  int grants_ = 0;  // of the interlock, not given back by the panel
  int percent_ = 100;
  int status_ = 0x100;  // as last reported
  bool mdi_ = false;
  bool aborting_ = false;
  bool inspecting_ = false;
  bool emergency_ = false;
  bool singleBlock_ = false;
  Point shown_{};  // as the position variables stand
  std::function<void()> changed_;
  ScopedTimer display_;
  ScopedTimer end_;
};

}  // namespace pnl::sim
