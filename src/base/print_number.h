// SPDX-License-Identifier: MIT
// Prints numbers as printf does in the C locale: applies the flags, width and precision of one parsed conversion to one
// value. Knows nothing of arguments and whole formats, and never uses the process's locale.
#pragma once

#include <cstdint>

#include "base/format_spec.h"

namespace pnl {

[[nodiscard]] Text PrintSigned(std::int64_t value, const FormatSpec& spec);
/// spec.conversion selects the base: u decimal, x and X hexadecimal, o octal.
[[nodiscard]] Text PrintUnsigned(std::uint64_t value, const FormatSpec& spec);
/// spec.conversion selects the notation: e, f or g, small or capital.
[[nodiscard]] Text PrintReal(double value, const FormatSpec& spec);

}  // namespace pnl
