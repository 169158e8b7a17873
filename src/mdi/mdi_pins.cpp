// SPDX-License-Identifier: MIT
#include "mdi/mdi_pins.h"

#include "base/format.h"
#include "mdi/mdi_settings.h"

namespace pnl {

namespace {

/// The rows as pins: a file that was edited by hand may have empty rows, or one row twice.
TextRows PinsOf(const TextRows& rows) {
  TextRows pins;
  for (const Text& row : rows) {
    if (!row.empty() && !pins.Find(row)) pins.push_back(row);
  }
  return pins;
}

}  // namespace

Text MdiPinsName(int channel) { return Format(u"MDIP%d.DAT", channel); }

void MdiPins::Load(MDIDATA_ST& record) {
  if (record.PinsLoaded) return;
  record.PinsLoaded = true;
  const Text name = MdiPinsName(record.Channel);
  const Text users = MdiFileIn(utilities_, path_id::kUserSettings, name);
  const Text path = MdiFileToRead(files_, utilities_, name);
  const RowsRead read = ReadRows(files_, path);
  record.Pins = PinsOf(read.rows);
  record.PinsKnown = read.known;
  if (path == users) return;
  // The machine's copy was read in place of the user's. Only the user's is written, so PinsKnown must be about that.
  const FileInfo info = files_.Query(users);
  record.PinsKnown = info.exists || info.outOfReach ? FileKnown::kUnknown : FileKnown::kAbsent;
}

bool MdiPins::Toggle(MDIDATA_ST& record, const Text& block) {
  if (block.empty()) return true;
  if (const auto pinned = record.Pins.Find(block)) {
    record.Pins.Erase(*pinned);
    if (const auto added = record.PinsAdded.Find(block)) record.PinsAdded.Erase(*added);
  } else {
    record.Pins.push_front(block);
    record.PinsAdded.push_front(block);
  }
  return Store(record);
}

bool MdiPins::Store(MDIDATA_ST& record) {
  const Text path = MdiFileIn(utilities_, path_id::kUserSettings, MdiPinsName(record.Channel));
  const RowsToStore rows{record.Pins, record.PinsAdded, kAllRows, true};
  if (StoreRows(files_, path, record.PinsKnown, rows) != FileStatus::kOk) return false;
  if (record.PinsKnown == FileKnown::kWhole) return true;
  // The file is there now, perhaps with pins of its own. From here on it is known, so that an unpinned block doesn't
  // come back from it.
  const RowsRead read = ReadRows(files_, path);
  if (read.known != FileKnown::kWhole) return true;
  record.Pins = PinsOf(read.rows);
  record.PinsKnown = FileKnown::kWhole;
  return true;
}

}  // namespace pnl
