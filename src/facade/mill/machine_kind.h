// SPDX-License-Identifier: MIT
// The kinds of simulated machines. All run blocks in the same way; they differ in the values of their CNC variables, in
// the units in which they start, and in their tools. The tables of those files have a column for each kind.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pnl::sim {

enum class MachineKind : std::uint8_t {
  kMill,      // "demo": a mill in millimetres whose spindle can control the cutting power
  kMillTurn,  // "demo-dual": mills and turns, so it has constant cutting speed; no control of the cutting power
  kInchMill,  // "demo-inch": a mill in inches, with control of the cutting power
};
inline constexpr std::size_t kMachineKinds = 3;

/// The units of a machine: those of its numbers before a program chooses others, and those that its tools are made in.
enum class Measure : std::uint8_t { kMillimetres, kInches };
[[nodiscard]] inline Measure MeasureOf(MachineKind kind) {
  return kind == MachineKind::kInchMill ? Measure::kInches : Measure::kMillimetres;
}

}  // namespace pnl::sim
