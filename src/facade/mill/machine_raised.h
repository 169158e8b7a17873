// SPDX-License-Identifier: MIT
// The faults of the mill that no block causes: what its PLC, a drive, the field bus and the kernel raise on request.
// One table gives each its record and its texts in both languages. The faults of blocks are in machine_errors.
#pragma once

#include <pnltools/rig.h>

#include <span>
#include <string_view>

#include "facade/error_record.h"
#include "facade/mill/machine_errors.h"

namespace pnl::sim {

/// A text of the kernel's tables, whole, with the separator at its start. The text of a drive code has no separator and
/// is a format for the code.
struct TableText {
  std::string_view function;  // a name as in CncControl::ErrorText
  std::int32_t number;
  TextView english;
  TextView spanish;
  /// The number of its entry in the description file; 0 for none.
  std::int32_t description;
};

[[nodiscard]] std::span<const TableText> RaisedTexts();
/// Makes the record of a fault. Only kProgramLine uses the spot. A folder or a name that doesn't fit the record is cut.
[[nodiscard]] ErrorRecord MakeRaisedRecord(rig::MachineControl::Fault fault, const rig::ProgramSpot& spot);
/// The number of the error that the fault raises.
[[nodiscard]] std::int32_t RaisedNumber(rig::MachineControl::Fault fault);
/// Whether the fault has a cause that can stand, as SetCause says.
[[nodiscard]] bool HasCause(rig::MachineControl::Fault fault);

}  // namespace pnl::sim
