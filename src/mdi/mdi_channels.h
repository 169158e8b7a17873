// SPDX-License-Identifier: MIT
// The records of the channels, and everything that is asked of the CNC about a channel: to hold it in MDI state and to
// release it, its status, its inspection, and automatic work that waits for it. The CNC relies on the order of these
// calls. The class knows neither window nor host.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "facade/cnc_facade.h"
#include "mdi/mdi_data.h"
#include "window/window.h"

namespace pnl {

/// Bits 8 to 15 of a channel's status word, and bits 0 to 7.
[[nodiscard]] constexpr std::int32_t MdiStatusByte(std::int32_t status) { return status >> 8 & 0xFF; }
[[nodiscard]] constexpr std::int32_t MdiStatusDetail(std::int32_t status) { return status & 0xFF; }

class MdiChannels {
 public:
  explicit MdiChannels(CncFacade& cnc) : cnc_(cnc) {}

  /// Makes the records of all channels. If the CNC has inspection, its reports go to window.
  void MakeRecords(WindowHandle window);
  void CloseReports();
  [[nodiscard]] int Count() const { return static_cast<int>(records_.size()); }
  [[nodiscard]] std::vector<MDIDATA_ST>& Records() { return records_; }
  /// The record of a channel, or null if there is no such channel.
  [[nodiscard]] MDIDATA_ST* Record(std::intptr_t channel);
  /// The record of the current channel, or null before the first one is opened.
  [[nodiscard]] MDIDATA_ST* Current() { return Record(current_); }
  [[nodiscard]] const MDIDATA_ST* Current() const;
  /// The number of the current channel, or 0 before the first one is opened.
  [[nodiscard]] std::int8_t CurrentChannel() const { return current_; }
  [[nodiscard]] bool IsCurrent(const MDIDATA_ST& record) const { return record.Channel == current_; }
  void MakeCurrent(const MDIDATA_ST& record) { current_ = record.Channel; }

  /// Holds the channel in MDI state, unless it is already held or its manual mode can't be set to 0. In each case the
  /// reports of its status go to window.
  void Hold(MDIDATA_ST& record, WindowHandle window);
  /// Gives back a held channel and the interlock, which the caller must have taken.
  void Release(MDIDATA_ST& record);
  /// Notes another manual mode of a held channel and moves the MDI bit to the status word of that mode.
  void ChangeManualMode(MDIDATA_ST& record, std::int32_t mode);
  /// Whether automatic work is pending. Always false for a channel that was in manual mode.
  [[nodiscard]] bool AutomaticWaits(const MDIDATA_ST& record) const;

  /// The channel's status word, or nothing if it can't be read.
  [[nodiscard]] static std::optional<std::int32_t> Status(MDIDATA_ST& record);
  /// Whether the status byte is 1. Also true if it can't be read.
  [[nodiscard]] static bool IsIdle(MDIDATA_ST& record);

  // Inspection: while a program is stopped for it, the CNC decides when a typed block may run. The start key only asks
  // for the start, and the answer comes back as a report.
  /// Whether an inspection is on in the channel. Asks the kernel and then the variable.
  [[nodiscard]] bool IsInspecting(int channel) const;
  /// Whether the record's inspection variable is valid, can be read and isn't 0.
  [[nodiscard]] static bool InspectionIsOn(MDIDATA_ST& record);
  /// Whether the CNC decides about a start at that status byte. If so, writes 1 into the variable that asks for it.
  [[nodiscard]] static bool DivertsStart(std::int32_t statusByte, MDIDATA_ST& record);
  /// Whether the CNC has granted the start that was asked for.
  [[nodiscard]] static bool StartIsGranted(MDIDATA_ST& record);

 private:
  [[nodiscard]] int NumberOfChannels() const;
  /// A variable of a channel. name is the part of its name after the channel's prefix.
  [[nodiscard]] ZCVariable ChannelVariable(int channel, TextView name) const;
  void HoldInMdiState(MDIDATA_ST& record);
  /// Sets or clears the MDI bit in the status word of a mode: 0 automatic, 1 manual. Other modes have no status word.
  void MarkStatusWord(int channel, std::int32_t mode, bool on) const;

  CncFacade& cnc_;
  std::vector<MDIDATA_ST> records_;  // by channel minus 1
  std::int8_t current_ = 0;
};

}  // namespace pnl
