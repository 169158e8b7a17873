// SPDX-License-Identifier: MIT
// Taking a channel away from the other modes and giving it back: the order of these calls is what the control relies
// on. A hidden window still holds its channel; only LeaveChannel gives it back.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

inline constexpr int kNotifyTaken = 41;
inline constexpr int kNotifyGiven = 42;
/// Reason of HostToolClosed: the ordinary close.
inline constexpr int kOrdinaryClose = 2;

/// ToolNotify to the host's window.
void NotifyHost(MdiSession& session, int code, int channel);
void EnterChannel(MdiSession& session, int channel);
/// kDone, or kRefused when the interlock wasn't granted; then nothing changes.
std::intptr_t LeaveChannel(MdiSession& session, int channel);
/// Sets or clears the MDI bit in the status word of a manual mode: 0 automatic, 1 manual, others have none.
void MarkStatusWord(MdiSession& session, int channel, std::int32_t mode, bool on);
/// Automatic work is pending in a channel that was not in manual mode.
[[nodiscard]] bool AutomaticWaits(MdiSession& session, const MDIDATA_ST& record);
/// The status byte reads 1, or can't be read.
[[nodiscard]] bool IsIdle(MDIDATA_ST& record);
/// Hides the window and has the channel given back when its block ends.
void CloseLater(MdiSession& session, MDIDATA_ST& record);

}  // namespace pnl::mdi
