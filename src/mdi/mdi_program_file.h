// SPDX-License-Identifier: MIT
// The MDA list as a program: what the explorer is asked for, and the file. Shows nothing: what went wrong is a value.
#pragma once

#include <pnltools/pnltools.h>

#include "base/files.h"
#include "base/text.h"
#include "mdi/mdi_view.h"

namespace pnl {

/// A request for the file of a program, with the explorer's title and the folder that it begins in.
void FillProgramRequest(XPLRDATA_ST& request, TextView title, TextView folder);

enum class MdiProgramResult {
  kWritten,
  kNotWritable,  // the file is there and protected
  kNotCreated,   // no such folder, or a name that nobody can type
  kNotStored,    // the disc is full, or the like
};

/// Writes the list box's items as a program of that name. The file comes to the disc whole or not at all.
[[nodiscard]] MdiProgramResult WriteProgram(Files& files, TextView folder, TextView name, const MdiView& view);

}  // namespace pnl
