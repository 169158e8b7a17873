// SPDX-License-Identifier: MIT
#include "mdi/mdi_history.h"

#include <pnltools/pnltools.h>

#include <algorithm>
#include <utility>

#include "base/format.h"

namespace pnl {

namespace {

/// The first count rows. There must be so many.
TextRows FirstRows(const TextRows& rows, std::size_t count) {
  TextRows first;
  auto row = rows.begin();
  for (std::size_t i = 0; i < count; ++i, ++row) first.push_back(*row);
  return first;
}

}  // namespace

Text MdiHistoryName(int channel) { return Format(u"MDIC%d.DAT", channel); }

Text MdiListName(int channel) { return Format(u"MDAC%d.DAT", channel); }

RowsRead MdiHistory::Load(TextView name, std::size_t most) {
  const Text users = MdiFileIn(utilities_, path_id::kUserSettings, name);
  const Text path = MdiFileToRead(files_, utilities_, name);
  RowsRead read = ReadRows(files_, path, most);
  if (path == users) return read;
  // The machine's copy was read in place of the user's. Only the user's is written, so `known` must be about that one.
  const FileInfo info = files_.Query(users);
  read.known = info.exists || info.outOfReach ? FileKnown::kUnknown : FileKnown::kAbsent;
  return read;
}

void MdiHistory::LoadLists(MDIDATA_ST& record) {
  if (record.LoadState != mdi_load::kNotRead) return;
  const auto limit = static_cast<std::size_t>(settings_.HistoryLimit());
  RowsRead history = Load(MdiHistoryName(record.Channel), limit);
  record.History = std::move(history.rows);
  record.HistoryKnown =
      settings_.LimitUnknown() && history.known == FileKnown::kWhole ? FileKnown::kUnknown : history.known;
  record.HistoryAdded = 0;

  RowsRead list = Load(MdiListName(record.Channel), kAllRows);
  record.MDAList = std::move(list.rows);
  record.ListKnown = list.known;
  record.ListAdded.clear();

  record.HistorySize = history.bytes;
  record.ListSize = list.bytes;
  record.LoadState = mdi_load::kMatchesFiles;
  record.MDASelection = -1;
}

void MdiHistory::AddToHistory(MDIDATA_ST& record, const Text& text) {
  if (text.empty()) return;
  const auto equal = record.History.Find(text);
  if (equal) record.History.Erase(*equal);
  if (!equal || *equal >= record.HistoryAdded) ++record.HistoryAdded;
  record.History.push_front(text);
  record.MarkListsChanged();
}

std::size_t MdiHistory::StoredBlocks() const {
  return settings_.LimitUnknown() ? kAllRows : static_cast<std::size_t>(settings_.HistoryLimit());
}

std::vector<Text> MdiHistory::SaveLists(MDIDATA_ST& record) {
  std::vector<Text> failed;
  if (record.LoadState != mdi_load::kChanged) return failed;
  const auto store = [&](const Text& name, FileKnown known, const RowsToStore& rows) {
    const Text path = MdiFileIn(utilities_, path_id::kUserSettings, name);
    if (StoreRows(files_, path, known, rows) != FileStatus::kOk) failed.push_back(name);
  };
  const TextRows newBlocks = FirstRows(record.History, record.HistoryAdded);
  store(MdiHistoryName(record.Channel), record.HistoryKnown, {record.History, newBlocks, StoredBlocks(), true});
  const TextRows newItems = RowsOf(record.MDAList, record.ListAdded);
  store(MdiListName(record.Channel), record.ListKnown, {record.MDAList, newItems});
  record.LoadState = mdi_load::kMatchesFiles;
  record.MDASelection = -1;
  return failed;
}

bool MdiHistory::StoreEarly(MDIDATA_ST& record) {
  if (!record.ChangedSinceStored) return true;
  const auto store = [&](const Text& name, FileKnown& known, const RowsToStore& rows) {
    const Text path = MdiFileIn(utilities_, path_id::kUserSettings, name);
    return StoreRowsEarly(files_, path, known, rows, PNL_MOST_STORED_NOW);
  };
  const TextRows none;
  const bool history =
      store(MdiHistoryName(record.Channel), record.HistoryKnown, {record.History, none, StoredBlocks(), true});
  const bool list = store(MdiListName(record.Channel), record.ListKnown, {record.MDAList, none});
  record.ChangedSinceStored = !history || !list;
  return history && list;
}

}  // namespace pnl
