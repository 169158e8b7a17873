// SPDX-License-Identifier: MIT
// What the simulated kernel asks of a machine behind it, and what it offers the machine in return. Without a machine
// the kernel only records its calls and gives its preset answers. An answer set with CncControl::Returns goes before
// the machine's for that function.
#pragma once

#include <pnltools/rig.h>

#include <string_view>

#include "base/text.h"
#include "facade/error_record.h"
#include "window/timers.h"

namespace pnl::sim {

/// The simulated CNC as its machine sees it.
class MachineEnvironment {
 public:
  virtual ~MachineEnvironment() = default;
  /// Makes a variable without a report.
  virtual void Define(TextView name, rig::VariableType type, const rig::Value& value) = 0;
  /// Sets a value and reports to every window with a report open, also when equal.
  virtual void Set(TextView name, const rig::Value& value) = 0;
  /// 0 for a variable that isn't there or isn't an integer.
  [[nodiscard]] virtual std::int32_t GetInt(TextView name) const = 0;
  /// Appends to the kernel's error queue and reports it.
  virtual void PushError(const ErrorRecord& record) = 0;
  /// Makes a text of a number, as the function of that name finds it: error_to_txt and the others of
  /// CncControl::ErrorText.
  virtual void SetErrorText(std::string_view function, std::int32_t number, TextView text, TextView helpRef) = 0;
  [[nodiscard]] virtual Timers& Clock() = 0;
};

/// The kernel calls that reach a machine, each answering as facade/kernel.h says. MDILine and the two without a channel
/// mean the channel in MDI.
class KernelMachine {
 public:
  virtual ~KernelMachine() = default;
  virtual int EnProcesoInspec(int channel) = 0;
  virtual int IsMDIAllowedInResetInspect(int channel) = 0;
  virtual int CogerPlcFree(int channel) = 0;
  virtual int LiberarPlcFree(int channel) = 0;
  virtual int SetMdi(int channel, int on) = 0;
  virtual int EndMDIMode(int channel) = 0;
  virtual int SetMode(int channel, int mode) = 0;
  virtual int MDILine(TextView block) = 0;
  virtual int NextSingleStep() = 0;
  virtual int ClearFeedhold() = 0;
  virtual int MDICancel(int channel) = 0;
  virtual int PosibleMDICancel(int channel) = 0;
  virtual int ChannelNumber() = 0;
  virtual int ConvertLogToName(int logicalNumber, Text& name) = 0;
  /// The queue of errors is empty again, or an error was taken out.
  virtual void OnErrorReset() = 0;
  /// A tool wrote this variable (the value stands already).
  virtual void OnWritten(TextView name) = 0;
};

}  // namespace pnl::sim
