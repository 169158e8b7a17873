// SPDX-License-Identifier: MIT
// The drives that the library starts with, from the environment. A host with the rig at hand sets its own over them.
#pragma once

#include <string>

#include "base/files.h"

namespace pnl {

/// Fills the map from "C=/srv/cnc;D=/media/usb" (PNLTOOLS_DRIVES); what isn't a letter, a sign and an absolute folder
/// is left out. Without a drive C: it becomes "<dataHome>/pnltools". Any argument may be null.
void SetStartDrives(DriveMap& drives, const char* setting, const char* dataHome, const char* home);

}  // namespace pnl
