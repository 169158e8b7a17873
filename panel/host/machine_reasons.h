// SPDX-License-Identifier: MIT
// Why a key of the machine is dim, and why a press has done nothing, in words and from the machine's state alone. The
// Operator asks here, so that keys, shortcuts and messages agree. Nothing here acts on the machine.
#pragma once

#include <pnltools/rig.h>

#include <optional>

#include "common/shortcuts.h"
#include "common/words.h"

namespace panel {

inline constexpr int kOverrideMost = 200;  // percent

/// Whether the action acts on the machine and so is impossible without one. Start isn't among them: a command line
/// without a machine takes it, too.
[[nodiscard]] bool NeedsMachine(Action action);
/// Why the machine in this state can't do that; nothing when it can, or when the action isn't the machine's.
[[nodiscard]] std::optional<Word> ReasonAgainst(Action action, const pnl::rig::MachineState& state);
/// The reason why start is dim in a word or two, for the key itself; nothing when it isn't.
[[nodiscard]] std::optional<Word> NoteOnStart(const pnl::rig::MachineState& state);

/// Whether no block is in hand, or only one that inspection has parked.
[[nodiscard]] bool IsAtRest(const pnl::rig::MachineState& state);
/// Why a press on hold changes nothing in this state; nothing when it stops something.
[[nodiscard]] std::optional<Word> WhyHoldDoesNothing(const pnl::rig::MachineState& state);
/// Why nothing moves after a press on start that no error has answered: from the states before and after it. Nothing
/// when something moves.
[[nodiscard]] std::optional<Word> WhyStartDidNothing(const pnl::rig::MachineState& before,
                                                     const pnl::rig::MachineState& after);

}  // namespace panel
