// SPDX-License-Identifier: MIT
// The two lists of a channel and their files: the history of blocks that ran and the working list of the MDA role.
// Failures of files are silent: what can't be read is an empty list, what can't be written leaves the file as it was.
#pragma once

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"

namespace pnl {

class MdiHistory {
 public:
  MdiHistory(Files& files, Utilities& utilities, MdiSettings& settings)
      : files_(files), utilities_(utilities), settings_(settings) {}

  /// Reads both lists the first time a channel is shown; later calls do nothing.
  void LoadLists(MDIDATA_ST& record);
  /// To the head, and away from wherever an equal entry stood. An empty text is ignored. Nothing is cut here: during a
  /// run the history may grow beyond its limit.
  static void AddToHistory(MDIDATA_ST& record, const Text& text);
  /// Writes both lists if they changed.
  void SaveLists(MDIDATA_ST& record);

 private:
  Files& files_;
  Utilities& utilities_;
  MdiSettings& settings_;
};

}  // namespace pnl
