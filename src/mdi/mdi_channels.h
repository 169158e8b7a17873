// SPDX-License-Identifier: MIT
// The channels' records, and what is asked of the CNC about a channel: holding it in MDI state and releasing it, its
// status, its inspection, the automatic work that waits for it. The control relies on the order of these calls. Knows
// neither window nor host.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "facade/cnc_facade.h"
#include "mdi/mdi_data.h"
#include "window/window.h"

namespace pnl {

/// Bits 8 to 15 and 0 to 7 of a channel's status word.
[[nodiscard]] constexpr std::int32_t MdiStatusByte(std::int32_t status) { return status >> 8 & 0xFF; }
[[nodiscard]] constexpr std::int32_t MdiStatusDetail(std::int32_t status) { return status & 0xFF; }

class MdiChannels {
 public:
  explicit MdiChannels(CncFacade& cnc) : cnc_(cnc) {}

  /// Makes the records of all channels. Where the control has inspection, window gets its reports.
  void MakeRecords(WindowHandle window);
  void CloseReports();
  [[nodiscard]] int Count() const { return static_cast<int>(records_.size()); }
  [[nodiscard]] std::vector<MDIDATA_ST>& Records() { return records_; }
  /// Null for a channel that there isn't.
  [[nodiscard]] MDIDATA_ST* Record(std::intptr_t channel);
  /// The current channel's, null before the first one was opened.
  [[nodiscard]] MDIDATA_ST* Current() { return Record(current_); }
  [[nodiscard]] const MDIDATA_ST* Current() const;
  /// 0 before the first one was opened.
  [[nodiscard]] std::int8_t CurrentChannel() const { return current_; }
  [[nodiscard]] bool IsCurrent(const MDIDATA_ST& record) const { return record.Channel == current_; }
  void MakeCurrent(const MDIDATA_ST& record) { current_ = record.Channel; }

  /// Holds the channel in MDI state, unless it is held already or its manual mode can't be set to 0. window gets the
  /// reports of its status in any case.
  void Hold(MDIDATA_ST& record, WindowHandle window);
  /// Gives a held channel and its interlock back. The caller has taken the interlock for it.
  void Release(MDIDATA_ST& record);
  /// The operator chose another manual mode while the channel is held: the MDI bit goes over to its status word.
  void ChangeManualMode(MDIDATA_ST& record, std::int32_t mode);
  /// Automatic work is pending in a channel that was not in manual mode.
  [[nodiscard]] bool AutomaticWaits(const MDIDATA_ST& record) const;

  /// The channel's status word; nothing when it can't be read.
  [[nodiscard]] static std::optional<std::int32_t> Status(MDIDATA_ST& record);
  /// The status byte reads 1, or can't be read.
  [[nodiscard]] static bool IsIdle(MDIDATA_ST& record);

  // Inspection: while a program is stopped for it, the control itself decides when a typed block may run. The start key
  // then only asks. The answer comes back as a report.
  /// Is an inspection on in the channel, by the kernel or by its variable?
  [[nodiscard]] bool IsInspecting(int channel) const;
  /// The record's inspection variable is there, can be read and isn't 0.
  [[nodiscard]] static bool InspectionIsOn(MDIDATA_ST& record);
  /// A start with that status byte goes by way of the control: then 1 was written to the start request.
  [[nodiscard]] static bool DivertsStart(std::int32_t statusByte, MDIDATA_ST& record);
  /// The control has granted the start that was asked for.
  [[nodiscard]] static bool StartIsGranted(MDIDATA_ST& record);

 private:
  [[nodiscard]] int NumberOfChannels() const;
  /// A variable of a channel, by its name after the channel's prefix.
  [[nodiscard]] ZCVariable ChannelVariable(int channel, TextView name) const;
  void HoldInMdiState(MDIDATA_ST& record);
  /// Sets or clears the MDI bit in the status word of a manual mode: 0 automatic, 1 manual, others have none.
  void MarkStatusWord(int channel, std::int32_t mode, bool on) const;

  CncFacade& cnc_;
  std::vector<MDIDATA_ST> records_;  // by channel minus 1
  std::int8_t current_ = 0;
};

}  // namespace pnl
