// SPDX-License-Identifier: MIT
// The simulated kernel. It records every call. A call returns the answer that a script has set, else the machine's,
// else a start value. Errors always come from the queue. Runs no blocks itself.
#pragma once

#include <pnltools/rig.h>

#include <map>

#include "facade/kernel.h"
#include "facade/sim/machine_seam.h"
#include "facade/sim/sim_answers.h"
#include "facade/sim/sim_error_queue.h"
#include "facade/sim/sim_error_texts.h"
#include "facade/sim/sim_recorder.h"

namespace pnl::sim {

class SimKernel final : public Kernel {
 public:
  SimKernel(const SimRecorder& recorder, SimAnswers& answers, SimErrorQueue& errors, const SimErrorTexts& texts)
      : recorder_(recorder), answers_(answers), errors_(errors), texts_(texts) {}

  /// Attaches a machine; null detaches it. The machine must outlive the kernel or be detached first.
  void AttachMachine(KernelMachine* machine) { machine_ = machine; }
  [[nodiscard]] KernelMachine* Machine() const { return machine_; }
  void SetAxis(std::int32_t logicalNumber, TextView name) { axes_[logicalNumber] = Text(name); }

  int ExisteKernel() override;
  int IsNewInspecAllowed(int zero) override;
  int EnProcesoInspec(int channel) override;
  int IsMDIAllowedInResetInspect(int channel) override;
  int CogerPlcFree(int zero, int channel) override;
  int LiberarPlcFree(int zero, int channel, int one) override;
  int SetMdi(int channel, int on) override;
  int EndMDIMode(int channel) override;
  int SetMode(int channel, int mode) override;
  int MDILine(int zero, TextView block, int none, int four, int last) override;
  int NextSingleStep(int zero) override;
  int ClearFeedhold(int zero) override;
  int MDICancel(int channel) override;
  int PosibleMDICancel(int channel) override;
  int WriteTxtInBlackBox(TextView text, int zero) override;
  int SWOption_IsZMCON() override;
  /// Index -1 means the first error of the queue. If a negative answer is set, the call fails.
  int ReadError(int index, ErrorRecord& record) override;
  /// Index -1 means the first error of the queue. kind is ignored. Returns -1 when there is no such error, unless an
  /// answer is set.
  int ResetError(int index, int kind) override;
  int ResetErrorWithEnter(int zero, const ErrorRecord& record) override;
  int AddLogOnInfo(TextView text) override;
  int ChannelNumber() override;
  int ConvertLogToName(int logicalNumber, Text& name) override;
  int GetTextoMlinkError(int code, Text& text) override;
  int GetTextoSercosError(int code, Text& text) override;

 private:
  /// Returns the answer that was set, else ask(machine), else the start value. Records the call.
  template <typename Ask>
  int Call(std::string_view name, const SimRecorder::Args& args, Ask ask);
  int Call(std::string_view name, const SimRecorder::Args& args);
  int TakeError(std::string_view name, const SimRecorder::Args& args, std::optional<std::size_t> index,
                SimErrorQueue::Fate fate);
  int FieldBusText(std::string_view name, int code, Text& text);

  const SimRecorder& recorder_;
  SimAnswers& answers_;
  SimErrorQueue& errors_;
  const SimErrorTexts& texts_;
  KernelMachine* machine_ = nullptr;
  std::map<std::int32_t, Text> axes_;
};

}  // namespace pnl::sim
