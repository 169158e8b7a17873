// SPDX-License-Identifier: MIT
// Loads a machine builder's backend: a library that makes a CncFacade in place of the simulated CNC.
#pragma once

#include <memory>
#include <string>

#include "facade/cnc_facade.h"
#include "window/timers.h"
#include "window/window.h"

namespace pnl {

/// Opens the library at that absolute path and lets it make its facade. Returns null, with the reason in problem, when
/// the path isn't absolute, or the library can't be opened, isn't marked as built for exactly this interface
/// (facade/backend.h), or makes no facade. No function of the interface is called before the mark is checked. A library
/// whose facade is returned stays loaded for the life of the process.
[[nodiscard]] std::unique_ptr<CncFacade> LoadBackend(const std::string& path, WindowSystem& windows, Timers& timers,
                                                     std::string& problem);

}  // namespace pnl
