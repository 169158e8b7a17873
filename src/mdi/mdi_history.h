// SPDX-License-Identifier: MIT
// The two lists of a channel and their files: the history of blocks that ran and the working list of the MDA role.
// A file that can't be read is an empty list, silently. One that can't be written stays as it was and is reported. One
// that was out of reach when the lists were read gets the session's own rows in front of those found there later.
#pragma once

#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"

namespace pnl {

/// The files' names.
[[nodiscard]] Text MdiHistoryName(int channel);
[[nodiscard]] Text MdiListName(int channel);

class MdiHistory {
 public:
  MdiHistory(Files& files, Utilities& utilities, MdiSettings& settings)
      : files_(files), utilities_(utilities), settings_(settings) {}

  /// Reads both lists the first time a channel is shown; later calls do nothing.
  void LoadLists(MDIDATA_ST& record);
  /// To the head, and away from wherever an equal entry stood. An empty text is ignored. Nothing is cut here: during a
  /// run the history may grow beyond its limit.
  static void AddToHistory(MDIDATA_ST& record, const Text& text);
  /// Writes both lists if they changed; the names of the files that couldn't be written.
  std::vector<Text> SaveLists(MDIDATA_ST& record);

 private:
  [[nodiscard]] RowsRead Load(TextView name, std::size_t most);
  Files& files_;
  Utilities& utilities_;
  MdiSettings& settings_;
};

}  // namespace pnl
