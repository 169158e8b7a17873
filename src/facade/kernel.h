// SPDX-License-Identifier: MIT
// The kernel calls of the CNC, as the tools make them. Arguments that the library always passes with one value are
// kept, because a machine's own kernel expects them. Every call may block for the length of a call to the control.
#pragma once

#include <cstdint>

#include "base/text.h"
#include "facade/error_record.h"

namespace pnl {

class Kernel {
 public:
  virtual ~Kernel() = default;
  /// 0 when the kernel is there; any other value refuses MDI.
  virtual int ExisteKernel() = 0;
  /// Non-zero: this control has the inspection variables.
  virtual int IsNewInspecAllowed(int zero) = 0;
  /// Non-zero while inspection runs in the channel.
  virtual int EnProcesoInspec(int channel) = 0;
  /// Non-zero: MDI may open at once, status checks are skipped.
  virtual int IsMDIAllowedInResetInspect(int channel) = 0;
  /// Takes the interlock for a block. 0 means not granted.
  virtual int CogerPlcFree(int zero, int channel) = 0;
  /// Gives it back.
  virtual int LiberarPlcFree(int zero, int channel, int one) = 0;
  /// Enters (1) or leaves (0) MDI state in the channel.
  virtual int SetMdi(int channel, int on) = 0;
  /// Ends the mode, after SetMdi(channel, 0).
  virtual int EndMDIMode(int channel) = 0;
  /// Sets the manual mode.
  virtual int SetMode(int channel, int mode) = 0;
  /// Runs one block; the tools pass 0, the text, 0, 4, 0. 0 means accepted.
  virtual int MDILine(int zero, TextView block, int none, int four, int last) = 0;
  /// Releases the next step.
  virtual int NextSingleStep(int zero) = 0;
  /// Ends a feed hold.
  virtual int ClearFeedhold(int zero) = 0;
  /// Cancels the interrupted block.
  virtual int MDICancel(int channel) = 0;
  /// 2: the interrupted block can be cancelled; any other value: it cannot.
  virtual int PosibleMDICancel(int channel) = 0;
  /// Writes a line into the control's trace log.
  virtual int WriteTxtInBlackBox(TextView text, int zero) = 0;
  /// Non-zero: the machining calculator option is present.
  virtual int SWOption_IsZMCON() = 0;

  /// Reads the error with that index of the queue, -1 for the one to show first. Returns the index read, -1 for none;
  /// then record stays as it was.
  virtual int ReadError(int index, ErrorRecord& record) = 0;
  /// Takes an error out of the queue; kind 1 for errors, 0 for warnings.
  virtual int ResetError(int index, int kind) = 0;
  virtual int ResetErrorWithEnter(int zero, const ErrorRecord& record) = 0;
  /// Adds to the machine's log.
  virtual int AddLogOnInfo(TextView text) = 0;
  /// The count of channels.
  virtual int ChannelNumber() = 0;
  /// 0 and the name of a logical axis; another value when it isn't known.
  virtual int ConvertLogToName(int logicalNumber, Text& name) = 0;
  /// -1 when the code isn't known.
  virtual int GetTextoMlinkError(int code, Text& text) = 0;
  virtual int GetTextoSercosError(int code, Text& text) = 0;
};

}  // namespace pnl
