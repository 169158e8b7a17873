// SPDX-License-Identifier: MIT
// The seam between the simulated kernel and a machine: what the kernel asks of the machine, and what it offers the
// machine in return. Without a machine the kernel only records its calls and returns its preset answers. An answer set
// with CncControl::Returns goes before the machine's answer for that function.
#pragma once

#include <pnltools/rig.h>

#include <string_view>

#include "base/text.h"
#include "facade/error_record.h"
#include "facade/tables.h"
#include "window/timers.h"

namespace pnl::sim {

/// The simulated CNC as its machine sees it.
class MachineEnvironment {
 public:
  virtual ~MachineEnvironment() = default;
  /// Makes or replaces a variable, without a report.
  virtual void Define(TextView name, rig::VariableType type, const rig::Value& value) = 0;
  /// Sets a value and reports to every window with an open report, even if the value is the same.
  virtual void Set(TextView name, const rig::Value& value) = 0;
  /// The value of an integer variable; 0 when the variable doesn't exist or isn't an integer.
  [[nodiscard]] virtual std::int32_t GetInt(TextView name) const = 0;
  /// Adds a tool to the tool table, or replaces the one with that number.
  virtual void SetTool(std::int32_t number, std::int32_t type, const ToolData& data) = 0;
  /// Appends a record to the kernel's error queue and reports it.
  virtual void PushError(const ErrorRecord& record) = 0;
  /// Sets the text that the function of that name returns for a number. The functions are error_to_txt and the others
  /// of CncControl::ErrorText.
  virtual void SetErrorText(std::string_view function, std::int32_t number, TextView text, TextView helpRef) = 0;
  /// Adds a message to the table of PLC messages, or replaces the one with that type and identifier.
  virtual void SetPlcMessage(std::int32_t type, std::int32_t id, TextView message, TextView info) = 0;
  [[nodiscard]] virtual Timers& Clock() = 0;
};

/// The kernel calls that reach a machine, with the results of facade/kernel.h. MDILine, NextSingleStep and
/// ClearFeedhold apply to the channel in MDI.
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
  /// The help mark of a block; empty when it has none.
  [[nodiscard]] virtual Text MarkOfBlock(TextView block) const = 0;
  /// Called after an error was removed from the queue, or the queue was cleared.
  virtual void OnErrorReset() = 0;
  /// Called after a tool wrote this variable. The variable has the new value already.
  virtual void OnWritten(TextView name) = 0;
};

}  // namespace pnl::sim
