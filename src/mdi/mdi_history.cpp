// SPDX-License-Identifier: MIT
#include "mdi/mdi_history.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/format.h"
#include "base/text_file.h"

namespace pnl {

namespace {

constexpr TextView kHistoryFile = u"MDIC%d.DAT";
constexpr TextView kListFile = u"MDAC%d.DAT";
constexpr std::size_t kNoLimit = std::numeric_limits<std::size_t>::max();

/// Appends up to limit lines of the file. False when the file is there but can't be read, or only in part.
template <typename List>
bool ReadLines(Files& files, const Text& path, std::size_t limit, List& lines) {
  CStdioFileEx file(files);
  if (!file.Open(path, CStdioFileEx::kRead)) return !files.Query(path).exists;
  Text line;
  while (lines.size() < limit && file.ReadString(line)) lines.push_back(std::move(line));
  return !file.ReadFailed();
}

/// The first count lines, each ended by CR LF; an empty list leaves an empty file.
template <typename List>
void WriteLines(Files& files, const Text& path, std::size_t count, const List& lines) {
  CStdioFileEx file(files);
  if (!file.Open(path, CStdioFileEx::kCreate)) return;
  for (std::size_t i = 0; i < std::min(count, lines.size()); ++i) file.WriteString(lines[i] + u"\r\n");
  static_cast<void>(file.Close());
}

}  // namespace

void MdiHistory::LoadLists(MDIDATA_ST& record) {
  if (record.LoadState != mdi_load::kNotRead) return;
  const Text history = Format(kHistoryFile, static_cast<int>(record.Channel));
  record.History.clear();
  const auto limit = static_cast<std::size_t>(settings_.HistoryLimit());
  const Text historyPath = MdiFileToRead(files_, utilities_, history);
  const bool historyRead = ReadLines(files_, historyPath, limit, record.History);
  record.HistoryUnreadable = !historyRead && historyPath == MdiFileIn(utilities_, path_id::kUserSettings, history);

  const Text list = Format(kListFile, static_cast<int>(record.Channel));
  record.MDAList.clear();
  const Text listPath = MdiFileToRead(files_, utilities_, list);
  const bool listRead = ReadLines(files_, listPath, kNoLimit, record.MDAList);
  record.ListUnreadable = !listRead && listPath == MdiFileIn(utilities_, path_id::kUserSettings, list);

  record.LoadState = mdi_load::kMatchesFiles;
  record.MDASelection = -1;
}

void MdiHistory::AddToHistory(MDIDATA_ST& record, const Text& text) {
  if (text.empty()) return;
  const auto equal = std::find(record.History.begin(), record.History.end(), text);
  if (equal != record.History.end()) record.History.erase(equal);
  record.History.push_front(text);
  record.LoadState = mdi_load::kChanged;
}

void MdiHistory::SaveLists(MDIDATA_ST& record) {
  if (record.LoadState != mdi_load::kChanged) return;
  const Text history =
      MdiFileIn(utilities_, path_id::kUserSettings, Format(kHistoryFile, static_cast<int>(record.Channel)));
  const auto limit = static_cast<std::size_t>(settings_.HistoryLimit());
  if (!record.HistoryUnreadable) WriteLines(files_, history, limit, record.History);
  const Text list = MdiFileIn(utilities_, path_id::kUserSettings, Format(kListFile, static_cast<int>(record.Channel)));
  if (!record.ListUnreadable) WriteLines(files_, list, record.MDAList.size(), record.MDAList);
  record.LoadState = mdi_load::kMatchesFiles;
  record.MDASelection = -1;
}

}  // namespace pnl
