// SPDX-License-Identifier: MIT
// The two lists of a channel and their files: the history of the blocks that have run, and the working list of the MDA
// role. If a file can't be read, its list is empty and nothing is reported. If a file can't be written, it stays as it
// was and its name is reported. If a file was out of reach when the lists were read and is back when they are written,
// the session's own rows are put in front of its rows.
#pragma once

#include <vector>

#include "base/files.h"
#include "base/text.h"
#include "facade/utilities.h"
#include "mdi/mdi_data.h"
#include "mdi/mdi_settings.h"

namespace pnl {

/// The names of the two files of a channel, without a folder.
[[nodiscard]] Text MdiHistoryName(int channel);
[[nodiscard]] Text MdiListName(int channel);

class MdiHistory {
 public:
  MdiHistory(Files& files, Utilities& utilities, MdiSettings& settings)
      : files_(files), utilities_(utilities), settings_(settings) {}

  /// Reads both lists. Later calls for the same record do nothing.
  void LoadLists(MDIDATA_ST& record);
  /// Puts the text at the front of the history and removes an equal entry. Ignores an empty text. It removes nothing
  /// else: the history may become longer than its limit while the program runs.
  static void AddToHistory(MDIDATA_ST& record, const Text& text);
  /// Writes both lists if one has changed. Returns the names of the files that couldn't be written.
  std::vector<Text> SaveLists(MDIDATA_ST& record);
  /// Writes both lists before the end if one has changed since they were written. Changes nothing else: SaveLists still
  /// writes them at the end. Returns false if a file couldn't be written.
  bool StoreEarly(MDIDATA_ST& record);

 private:
  [[nodiscard]] RowsRead Load(TextView name, std::size_t most);
  /// How many blocks of the history are stored.
  [[nodiscard]] std::size_t StoredBlocks() const;
  Files& files_;
  Utilities& utilities_;
  MdiSettings& settings_;
};

}  // namespace pnl
