// SPDX-License-Identifier: MIT
// What the mill can refuse, as data: every code with its number and its wording in English and Spanish, and the error
// record that carries one. A fault is a code, the word at fault, its place in the block and the facts behind it; its
// record is made only here.
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

/// All of them, in the order of FaultCode.
[[nodiscard]] std::span<const FaultText> FaultTexts();
[[nodiscard]] std::int32_t FaultNumber(FaultCode code);
/// The panel path of the file with the long descriptions in that language, "en" or "es".
[[nodiscard]] Text DescriptionFile(std::string_view language);
/// The reference to the entry of that number in it.
[[nodiscard]] Text HelpRefOf(std::int32_t number, MachineLanguage language);
/// The wording of its number.
[[nodiscard]] TextView Wording(FaultCode code, MachineLanguage language);
/// The record that puts a fault into the kernel's queue: with the kernel's own diagnosis where block preparation has
/// one for it, and always with the word at fault, the facts behind it and the block, so that two of one number can
/// stand in the queue and each says what happened.
[[nodiscard]] ErrorRecord MakeErrorRecord(const Fault& fault, TextView block, MachineLanguage language);

}  // namespace pnl::sim
