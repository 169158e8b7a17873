// SPDX-License-Identifier: MIT
// What the host and the soft keys can ask of the command line, as tables: codes of ToolCommand and ids of the menus,
// each with its precondition. The doing is in the other files of this folder.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// ToolCommand: 0 for a code that isn't known.
std::intptr_t OnToolCommand(MdiSession& session, std::intptr_t code, std::intptr_t argument);
/// A soft key. Nothing happens for an id that isn't known, or whose precondition doesn't hold.
void OnMenuCommand(MdiSession& session, std::intptr_t id);

}  // namespace pnl::mdi
