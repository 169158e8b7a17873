// SPDX-License-Identifier: MIT
// A machine builder's backend: a library that makes the CncFacade in place of the simulated CNC.
#pragma once

#include <memory>
#include <string>

#include "facade/cnc_facade.h"
#include "window/timers.h"
#include "window/window.h"

namespace pnl {

/// Opens the library at that absolute path and has it make its facade. Null with a reason in problem when the path is
/// no absolute one, the library can't be opened, isn't marked as built for this very interface (facade/backend.h), or
/// makes no facade. Nothing of it is called before the mark was read. It stays loaded for the life of the process.
[[nodiscard]] std::unique_ptr<CncFacade> LoadBackend(const std::string& path, WindowSystem& windows, Timers& timers,
                                                     std::string& problem);

}  // namespace pnl
