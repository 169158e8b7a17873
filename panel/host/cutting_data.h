// SPDX-License-Identifier: MIT
// The machining calculator's factory file of the demo machine. It is in the language in which the panel is started for
// the first time; afterwards it belongs to the machine's owner.
#pragma once

#include <pnltools/rig.h>

#include <QString>

namespace panel {

/// Puts the language's file into the machine's folder of cutting data, if there is no such file. source is a folder
/// with a folder for each language; a language without one gets English. Returns false when there is no file
/// afterwards.
[[nodiscard]] bool PlaceCuttingData(pnl::rig::Storage& files, const QString& source, const QString& language);

}  // namespace panel
