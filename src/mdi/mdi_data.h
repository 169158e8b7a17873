// SPDX-License-Identifier: MIT
// The record of one channel: how it is held, what runs in it, its history and its list. It is plain data. MdiChannels
// owns the records of all channels. Each rule that changes a record is in the file of its subject.
#pragma once

#include <cstdint>
#include <optional>

#include "base/row_file.h"
#include "base/text.h"
#include "base/text_rows.h"
#include "facade/variables.h"
#include "mdi/mdi_layout.h"
#include "mdi/mdi_refusal.h"

namespace pnl {

/// The help mark of the command line; a block that has a mark of its own goes before it.
inline constexpr TextView kMdiHelpMark = u"OPT0130";

namespace mdi_state {
inline constexpr std::int32_t kReady = 1;
inline constexpr std::int32_t kRunning = 2;
inline constexpr std::int32_t kInterrupted = 4;
}  // namespace mdi_state

/// The high nibble of a role: what the operator edits in MDA role.
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

  std::int8_t Channel;      // counted from 1
  ZCVariable StatusVar;     // "[%d].G.FULLSTATUS"
  ZCVariable InspectVar;    // "[%d].E.INSPECSTATUS"; unnamed if the CNC has no inspection
  ZCVariable StartVar;      // "[%d].E.STARTONMDI"; unnamed if the CNC has no inspection
  std::int32_t Opened = 0;  // 1 while the tool is open in this channel
  std::int32_t InMDI = 0;   // 1 while the channel is held in MDI state
  /// 1 after the window was hidden to be closed: the channel is given back as soon as the block ends.
  std::int32_t ClosePending = 0;
  std::int32_t Role = 1;  // the low nibble is 1 for MDI and 2 for MDA; the high nibble is a value of mdi_edit
  std::int32_t State = mdi_state::kReady;
  pnl::Text Text;  // the block in hand
  std::int32_t LoadState = mdi_load::kNotRead;
  bool ChangedSinceStored = false;  // the lists, since they were read or stored
  TextRows History;                 // newest first
  TextRows MDAList;                 // in the operator's order
  std::int32_t MDASelection = -1;   // index in MDAList, or -1
  std::int32_t SavedManualMode = 0;
  // What is known of the two files. It decides whether they may be written over, so that nothing on the disc is lost.
  FileKnown HistoryKnown = FileKnown::kUnknown;
  FileKnown ListKnown = FileKnown::kUnknown;
  std::size_t HistoryAdded = 0;   // how many blocks at the front of History are of this session
  TextRows ListAdded;             // the items that this session put into MDAList, in any order
  std::uint64_t HistorySize = 0;  // how many bytes were read
  std::uint64_t ListSize = 0;
  TextRows Pins;  // the pinned blocks, newest first
  bool PinsLoaded = false;
  FileKnown PinsKnown = FileKnown::kUnknown;
  TextRows PinsAdded;                 // those that this session pinned
  std::optional<MdiRefusal> Refused;  // the last block that was refused, until one is accepted

  void MarkListsChanged() {
    LoadState = mdi_load::kChanged;
    ChangedSinceStored = true;
  }
  [[nodiscard]] MdiRole LowRole() const { return (Role & 0x0F) == 2 ? MdiRole::kMda : MdiRole::kMdi; }
  [[nodiscard]] std::int32_t Edit() const { return Role & 0xF0; }
  [[nodiscard]] bool IsReady() const { return State == mdi_state::kReady; }
  /// Whether the operator types in the edit: always in MDI role, and in MDA role while he types or changes an item.
  [[nodiscard]] bool TypesInEdit() const { return LowRole() == MdiRole::kMdi || Edit() != mdi_edit::kNone; }
};

}  // namespace pnl
