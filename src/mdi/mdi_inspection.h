// SPDX-License-Identifier: MIT
// Inspection: while a program is stopped for it, the control itself decides when a typed block may run. The start key
// then only asks; the answer comes back as a report. Also the hint in the message line.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// Is an inspection on in the channel, by the kernel or by its variable?
[[nodiscard]] bool IsInspecting(MdiSession& session, int channel);
/// The record's inspection variable is there, can be read and isn't 0.
[[nodiscard]] bool InspectionIsOn(MDIDATA_ST& record);
/// A start with that status byte goes by way of the control: then 1 was written to the start request.
[[nodiscard]] bool IsInspectionDiversion(std::int32_t statusByte, MDIDATA_ST& record);
/// The hint of the current channel's role while an inspection is on, else an empty message line.
void ShowInspectHint(MdiSession& session);

}  // namespace pnl::mdi
