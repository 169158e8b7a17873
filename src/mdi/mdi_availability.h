// SPDX-License-Identifier: MIT
// Decides whether the command line may open in a channel. It goes through a list of checks in order, and the first one
// that decides ends it. It changes nothing in the CNC.
#pragma once

#include "facade/cnc_facade.h"

namespace pnl {

[[nodiscard]] bool IsMDIAvailable(CncFacade& cnc, int channel);

}  // namespace pnl
