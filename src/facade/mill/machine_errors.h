// SPDX-License-Identifier: MIT
// The reasons for which the mill refuses a block, as data: every code with its number and its wording in English and
// Spanish. Also makes the error record of a fault, which happens nowhere else.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "base/text.h"
#include "facade/error_record.h"
#include "facade/mill/machine_fault.h"

namespace pnl::sim {

struct FaultText {
  FaultCode code;
  std::int32_t number;
  TextView english;
  TextView spanish;
};

enum class MachineLanguage : std::uint8_t { kEnglish, kSpanish };

/// All texts, in the order of FaultCode.
[[nodiscard]] std::span<const FaultText> FaultTexts();
[[nodiscard]] std::int32_t FaultNumber(FaultCode code);
/// The panel path of the file with the long descriptions. language is "en" or "es".
[[nodiscard]] Text DescriptionFile(std::string_view language);
/// The reference "file#number" to the description of that number.
[[nodiscard]] Text HelpRefOf(std::int32_t number, MachineLanguage language);
/// The wording of a code.
[[nodiscard]] TextView Wording(FaultCode code, MachineLanguage language);
/// Makes the record of a fault for the kernel's queue. The record always has the word at fault, its place, the facts
/// and the block, so that two errors with the same number differ. If the kernel has a diagnosis, the record has it too.
[[nodiscard]] ErrorRecord MakeErrorRecord(const Fault& fault, TextView block, MachineLanguage language);

}  // namespace pnl::sim
