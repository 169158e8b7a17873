// SPDX-License-Identifier: MIT
// The MDA list as a program: asking the operator for a file through the explorer, and writing it. While the explorer is
// open the start key does nothing.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// Asks for the file; the answer comes as message 0x804 with the record filled.
void RequestProgramFile(MdiSession& session);
/// Writes the list box's items. What goes wrong is told in a message box, during which the window may be destroyed.
std::intptr_t WriteProgramFile(MdiSession& session, const Text& folder, const Text& name);

}  // namespace pnl::mdi
