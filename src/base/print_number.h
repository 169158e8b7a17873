// SPDX-License-Identifier: MIT
// Numbers as printf writes them in the C locale: flags, width and precision of one parsed conversion applied to one
// value. Knows nothing of arguments and formats, and never asks the process's locale.
#pragma once

#include <cstdint>

#include "base/format_spec.h"

namespace pnl {

[[nodiscard]] Text PrintSigned(std::int64_t value, const FormatSpec& spec);
/// By spec.conversion: u decimal, x and X hexadecimal, o octal.
[[nodiscard]] Text PrintUnsigned(std::uint64_t value, const FormatSpec& spec);
/// By spec.conversion: e, f or g, small or capital.
[[nodiscard]] Text PrintReal(double value, const FormatSpec& spec);

}  // namespace pnl
