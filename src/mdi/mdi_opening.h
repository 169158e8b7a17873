// SPDX-License-Identifier: MIT
// The commands of the host that open, show, hide and close the command line in a channel, and the change between its
// two roles. Results are those of ToolCommand.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// A close was asked for, but the block of the channel has to end first.
inline constexpr std::intptr_t kClosesLater = 1;

/// kRefused, and nothing changed, when the channel doesn't allow it or isn't there.
std::intptr_t OpenInChannel(MdiSession& session, std::intptr_t channel);
/// Only for the current channel, which stays held.
std::intptr_t HideChannel(MdiSession& session, std::intptr_t channel);
std::intptr_t ReshowChannel(MdiSession& session, std::intptr_t channel);
/// kDone: given back at once, or no such channel; kClosesLater; kRefused.
std::intptr_t RequestClose(MdiSession& session, std::intptr_t channel, bool onlyIfInspecting);
std::intptr_t ManualModeChanged(MdiSession& session, std::intptr_t channel, std::int32_t mode);
/// Caret behind the text, focus where the role has it.
void RestoreCaret(MdiSession& session);
/// Between MDI and MDA, in State 1 only.
void SwitchRole(MdiSession& session);
/// The Escape key, when no drop list was open.
void Escape(MdiSession& session);

}  // namespace pnl::mdi
