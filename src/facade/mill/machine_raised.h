// SPDX-License-Identifier: MIT
// The faults of the mill that no block causes: what its PLC, a drive, the field bus and the kernel may raise when
// somebody asks for it. One table gives each its record and its texts in both languages. Not what a block is refused
// for: that is machine_errors.
#pragma once

#include <pnltools/rig.h>

#include <span>
#include <string_view>

#include "facade/error_record.h"
#include "facade/mill/machine_errors.h"

namespace pnl::sim {

/// A text of the kernel's tables, whole, with the separator that stands first; those of the drive codes have none and
/// are formats for their code.
struct TableText {
  std::string_view function;  // as CncControl::ErrorText names them
  std::int32_t number;
  TextView english;
  TextView spanish;
  /// The entry of the description file; 0 for none.
  std::int32_t description;
};

[[nodiscard]] std::span<const TableText> RaisedTexts();
/// The record of a fault. The spot is looked at for kProgramLine alone; a folder or a name that the record has no room
/// for is cut.
[[nodiscard]] ErrorRecord MakeRaisedRecord(rig::MachineControl::Fault fault, const rig::ProgramSpot& spot);

}  // namespace pnl::sim
