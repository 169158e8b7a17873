// SPDX-License-Identifier: MIT
// Conversions of simulated variables' values among integer, real and text. Each conversion has one sensible result or
// none. The locale plays no part.
#pragma once

#include <pnltools/rig.h>

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl::sim {

/// The 32 bits that a tool reads: a signed or unsigned 32-bit integer as it is, a real cut toward zero, a text if all
/// of it is an integer. Returns nothing for a value that doesn't fit, NaN, a record or no value.
[[nodiscard]] std::optional<std::int32_t> AsInt32(const rig::Value& value);
[[nodiscard]] std::optional<double> AsDouble(const rig::Value& value);
/// The value as text. A real gets as many digits as distinguish it from other reals.
[[nodiscard]] std::optional<Text> AsText(const rig::Value& value);

/// The value in the form in which a variable of that type stores it. Returns nothing when it can't be converted.
[[nodiscard]] std::optional<rig::Value> ConvertTo(rig::VariableType type, const rig::Value& value);
/// 0, 0.0 or the empty text.
[[nodiscard]] rig::Value ZeroOf(rig::VariableType type);
/// True when type and value are equal. Two records never are.
[[nodiscard]] bool SameValue(const rig::Value& a, const rig::Value& b);

}  // namespace pnl::sim
