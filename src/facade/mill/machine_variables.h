// SPDX-License-Identifier: MIT
// The CNC variables of the machines with their start values, and the names of those that it changes or watches. The
// mill has one channel, so the names are spelled out. The table of variables belongs to the simulated CNC.
#pragma once

#include "facade/mill/machine_data.h"
#include "facade/mill/machine_kind.h"
#include "facade/sim/machine_seam.h"

namespace pnl::sim {

namespace machine_variable {
inline constexpr TextView kFullStatus = u"[1].G.FULLSTATUS";
inline constexpr TextView kStatus = u"[1].G.STATUS";
inline constexpr TextView kPanelMode = u"[1].E.PNLMODE";
inline constexpr TextView kManualMode = u"[1].E.MANUALMODE";
inline constexpr TextView kInspection = u"[1].E.INSPECSTATUS";
inline constexpr TextView kStartOnMdi = u"[1].E.STARTONMDI";
inline constexpr TextView kPlcMessage = u"E.PLCMSGDATA";
/// Positions in workpiece coordinates, millimetres, in the order of the axes.
inline constexpr std::array<TextView, kAxisCount> kPositions{u"[1].A.POS.X", u"[1].A.POS.Y", u"[1].A.POS.Z"};
}  // namespace machine_variable

/// Makes every variable, without reports.
void DefineMachineVariables(MachineEnvironment& environment, MachineKind kind);

}  // namespace pnl::sim
