// SPDX-License-Identifier: MIT
// The blocks that the operator has pinned in a channel, newest first, and their file. They are independent of the
// history: a pinned block stays when the history is full. A change is stored at once. If the file can't be read, no
// block is pinned and nothing is reported. If it was out of reach when it was read and is back, the session's own pins
// are put in front of its rows.
#pragma once

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_data.h"

namespace pnl {

/// The name of a channel's file, without a folder.
[[nodiscard]] Text MdiPinsName(int channel);

class MdiPins {
 public:
  MdiPins(Files& files, Utilities& utilities) : files_(files), utilities_(utilities) {}

  /// Reads the pinned blocks of the user, or those of the machine if he has no file. Later calls for the same record do
  /// nothing.
  void Load(MDIDATA_ST& record);
  /// Pins the block, or unpins it if it is pinned, and stores the file. Ignores an empty block. Returns false if the
  /// file couldn't be written; the change holds until the end of the program then.
  [[nodiscard]] bool Toggle(MDIDATA_ST& record, const Text& block);

 private:
  [[nodiscard]] bool Store(MDIDATA_ST& record);
  Files& files_;
  Utilities& utilities_;
};

}  // namespace pnl
