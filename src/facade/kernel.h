// SPDX-License-Identifier: MIT
// The kernel calls of the CNC, as the tools make them. Some arguments always have one value in this library; they are
// kept because a machine's own kernel expects them. Every call may block until the control has answered.
#pragma once

#include <cstdint>

#include "base/text.h"
#include "facade/error_record.h"

namespace pnl {

class Kernel {
 public:
  virtual ~Kernel() = default;
  /// Returns 0 when the kernel is present. Any other value refuses MDI.
  virtual int ExisteKernel() = 0;
  /// Returns non-zero when this control has the inspection variables.
  virtual int IsNewInspecAllowed(int zero) = 0;
  /// Returns non-zero while inspection runs in the channel.
  virtual int EnProcesoInspec(int channel) = 0;
  /// Returns non-zero when MDI may open at once, without the status checks.
  virtual int IsMDIAllowedInResetInspect(int channel) = 0;
  /// Takes the interlock for a block. Returns 0 when it isn't granted.
  virtual int CogerPlcFree(int zero, int channel) = 0;
  /// Gives the interlock back.
  virtual int LiberarPlcFree(int zero, int channel, int one) = 0;
  /// Enters (1) or leaves (0) MDI state in the channel.
  virtual int SetMdi(int channel, int on) = 0;
  /// Ends MDI mode. Called after SetMdi(channel, 0).
  virtual int EndMDIMode(int channel) = 0;
  /// Sets the manual mode of the channel.
  virtual int SetMode(int channel, int mode) = 0;
  /// Runs one block. The tools pass 0, the text, 0, 4, 0. Returns 0 when the block is accepted.
  virtual int MDILine(int zero, TextView block, int none, int four, int last) = 0;
  /// Lets the channel run its next step.
  virtual int NextSingleStep(int zero) = 0;
  /// Ends a feed hold.
  virtual int ClearFeedhold(int zero) = 0;
  /// Cancels the interrupted block.
  virtual int MDICancel(int channel) = 0;
  /// Returns 2 when the interrupted block can be cancelled, any other value when it can't.
  virtual int PosibleMDICancel(int channel) = 0;
  /// Writes a line into the control's trace log.
  virtual int WriteTxtInBlackBox(TextView text, int zero) = 0;
  /// Returns non-zero when the machining calculator option is present.
  virtual int SWOption_IsZMCON() = 0;

  /// Reads the error with that index of the queue; index -1 means the one to show first. Returns the index that was
  /// read. Returns -1, and record stays as it was, when there is none.
  virtual int ReadError(int index, ErrorRecord& record) = 0;
  /// Removes an error from the queue. kind is 1 for errors, 0 for warnings.
  virtual int ResetError(int index, int kind) = 0;
  virtual int ResetErrorWithEnter(int zero, const ErrorRecord& record) = 0;
  /// Adds a text to the machine's log.
  virtual int AddLogOnInfo(TextView text) = 0;
  /// Returns the number of channels.
  virtual int ChannelNumber() = 0;
  /// Puts the name of a logical axis into name. Returns 0, or another value when the axis isn't known.
  virtual int ConvertLogToName(int logicalNumber, Text& name) = 0;
  /// Puts the text of a field bus code into text. Returns -1 when the code isn't known. GetTextoSercosError likewise.
  virtual int GetTextoMlinkError(int code, Text& text) = 0;
  virtual int GetTextoSercosError(int code, Text& text) = 0;
};

}  // namespace pnl
