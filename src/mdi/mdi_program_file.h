// SPDX-License-Identifier: MIT
// Writes the MDA list as a program: fills the request for the explorer, and writes the file. It shows nothing and
// returns failures as values.
#pragma once

#include <pnltools/pnltools.h>

#include "base/files.h"
#include "base/text.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// Fills a request for the file of a program. title is the title of the explorer, and folder is where it begins.
void FillProgramRequest(XPLRDATA_ST& request, TextView title, TextView folder);

enum class MdiProgramResult {
  kWritten,
  kNotWritable,  // the file exists and is protected
  kNotCreated,   // the file can't be created, or its path contains control characters
  kNotStored,    // the file can't be stored, for example because the disc is full
};

/// Writes the items of the list box as a program of that name. The file is written whole or not at all.
[[nodiscard]] MdiProgramResult WriteProgram(Files& files, TextView folder, TextView name, const MdiView& view);

}  // namespace pnl
