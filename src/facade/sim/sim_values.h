// SPDX-License-Identifier: MIT
// The values of simulated variables: conversions among integer, real and text, each of which either has one sensible
// answer or none. The locale plays no part.
#pragma once

#include <pnltools/rig.h>

#include <cstdint>
#include <optional>

#include "base/text.h"

namespace pnl::sim {

/// The 32 bits that a tool reads: signed or unsigned words as they are, reals cut toward zero, texts that are an
/// integer as a whole. Nothing for what doesn't fit, for NaN, for records and for no value.
[[nodiscard]] std::optional<std::int32_t> AsInt32(const rig::Value& value);
[[nodiscard]] std::optional<double> AsDouble(const rig::Value& value);
/// Reals with as many digits as tell them apart from their neighbours.
[[nodiscard]] std::optional<Text> AsText(const rig::Value& value);

/// The value in the form that a variable of that type keeps; nothing when it has none.
[[nodiscard]] std::optional<rig::Value> ConvertTo(rig::VariableType type, const rig::Value& value);
/// 0, 0.0 or the empty text.
[[nodiscard]] rig::Value ZeroOf(rig::VariableType type);
/// Equal in type and value; two records never are.
[[nodiscard]] bool SameValue(const rig::Value& a, const rig::Value& b);

}  // namespace pnl::sim
