// SPDX-License-Identifier: MIT
// May the command line open in a channel? A list of checks in order; the first that decides ends it. Changes nothing in
// the control.
#pragma once

#include "facade/cnc_facade.h"

namespace pnl {

[[nodiscard]] bool IsMDIAvailable(CncFacade& cnc, int channel);

}  // namespace pnl
