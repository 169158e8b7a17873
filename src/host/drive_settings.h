// SPDX-License-Identifier: MIT
// The drives with which the library starts, taken from the environment. A host that uses the rig may replace them.
#pragma once

#include <string>

#include "base/files.h"
#include "places/drive_file.h"

namespace pnl {

/// Fills the map from setting, a text like "C=/srv/cnc;D=/media/usb" (the value of PNLTOOLS_DRIVES). A part that isn't
/// a letter, "=" and an absolute folder is left out. If C: isn't set, it becomes "<dataHome>/pnltools", or without an
/// absolute dataHome "<home>/.local/share/pnltools". Any of the three texts may be null.
void SetStartDrives(DriveMap& drives, const char* setting, const char* dataHome, const char* home);

/// Fills the map with the folders that a drive file names. SetStartDrives comes after it: what a start says goes before
/// what is said of the machine.
void SetDescribedDrives(DriveMap& drives, const DriveSetup& setup);

}  // namespace pnl
