// SPDX-License-Identifier: MIT
// The record of one channel: how it is held, what it runs, its history and its list. Plain data. MdiChannels owns the
// records of all channels; each rule that changes one is in the file of its subject.
#pragma once

#include <cstdint>

#include "base/row_file.h"
#include "base/text.h"
#include "base/text_rows.h"
#include "facade/variables.h"
#include "mdi/mdi_layout.h"

namespace pnl {

namespace mdi_state {
inline constexpr std::int32_t kReady = 1;
inline constexpr std::int32_t kRunning = 2;
inline constexpr std::int32_t kInterrupted = 4;
}  // namespace mdi_state

/// The high nibble of a role.
namespace mdi_edit {
inline constexpr std::int32_t kNone = 0;
inline constexpr std::int32_t kNewItem = 0x10;
inline constexpr std::int32_t kChangeItem = 0x20;
}  // namespace mdi_edit

namespace mdi_load {
inline constexpr std::int32_t kNotRead = 0;
inline constexpr std::int32_t kMatchesFiles = 1;
inline constexpr std::int32_t kChanged = 2;
}  // namespace mdi_load

struct MDIDATA_ST {
  MDIDATA_ST(Variables& variables, std::int8_t channel)
      : Channel(channel), StatusVar(variables), InspectVar(variables), StartVar(variables) {}

  std::int8_t Channel;      // from 1
  ZCVariable StatusVar;     // "[%d].G.FULLSTATUS"
  ZCVariable InspectVar;    // "[%d].E.INSPECSTATUS"; bound only where the control has inspection
  ZCVariable StartVar;      // "[%d].E.STARTONMDI"; likewise
  std::int32_t Opened = 0;  // 1 while the tool is open in this channel
  std::int32_t InMDI = 0;   // 1 while the channel is held in MDI state
  /// 1 when the window has been hidden and the channel is to be given back as soon as the block ends.
  std::int32_t ClosePending = 0;
  std::int32_t Role = 1;  // low nibble 1 MDI, 2 MDA; high nibble as mdi_edit
  std::int32_t State = mdi_state::kReady;
  pnl::Text Text;  // the block in hand
  std::int32_t LoadState = mdi_load::kNotRead;
  TextRows History;                // newest first
  TextRows MDAList;                // in the operator's order
  std::int32_t MDASelection = -1;  // index in MDAList, -1 for none
  std::int32_t SavedManualMode = 0;
  // What is known of the two files decides what may be written over them, so that nothing on the disc is lost.
  FileKnown HistoryKnown = FileKnown::kUnknown;
  FileKnown ListKnown = FileKnown::kUnknown;
  std::size_t HistoryAdded = 0;   // the first so many of History are blocks of this session
  TextRows ListAdded;             // what this session put into MDAList, in any order
  std::uint64_t HistorySize = 0;  // of what was read, in bytes
  std::uint64_t ListSize = 0;

  [[nodiscard]] MdiRole LowRole() const { return (Role & 0x0F) == 2 ? MdiRole::kMda : MdiRole::kMdi; }
  [[nodiscard]] std::int32_t Edit() const { return Role & 0xF0; }
  [[nodiscard]] bool IsReady() const { return State == mdi_state::kReady; }
  /// The edit contains what the operator types: always in MDI role, in MDA role while an item is typed or changed.
  [[nodiscard]] bool TypesInEdit() const { return LowRole() == MdiRole::kMdi || Edit() != mdi_edit::kNone; }
};

}  // namespace pnl
