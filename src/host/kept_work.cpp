// SPDX-License-Identifier: MIT
#include "host/kept_work.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "window/window.h"

namespace pnl {

std::optional<KeptWorkMessage> KeptWorkMessageOf(std::uint32_t number) {
  static const std::uint32_t read = RegisterMessage(PNL_NAME_READ_UNFINISHED);
  static const std::uint32_t restore = RegisterMessage(PNL_NAME_RESTORE_UNFINISHED);
  static const std::uint32_t removed = RegisterMessage(PNL_NAME_REMOVED);
  static const std::uint32_t store = RegisterMessage(PNL_NAME_STORE_ROWS);
  if (number == read) return KeptWorkMessage::kReadUnfinished;
  if (number == restore) return KeptWorkMessage::kRestoreUnfinished;
  if (number == removed) return KeptWorkMessage::kRemoved;
  if (number == store) return KeptWorkMessage::kStoreRows;
  return std::nullopt;
}

PnlUnfinished* UnfinishedAt(std::intptr_t address) {
  return reinterpret_cast<PnlUnfinished*>(address);  // NOLINT(performance-no-int-to-ptr)
}

void FillUnfinished(PnlUnfinished& record, PnlUnfinishedKind kind, TextView text, int item, TextView original) {
  record = {};
  record.item = -1;
  if (text.empty() || text.size() >= std::size(record.text) || original.size() >= std::size(record.original)) return;
  record.kind = kind;
  record.item = item;
  SetField(record.text, text);
  SetField(record.original, original);
}

std::intptr_t FillRemoved(std::intptr_t address, std::size_t rows, bool whole, TextView firstRow) {
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  const auto count = static_cast<std::int32_t>(std::min(rows, kMost));
  auto* record = reinterpret_cast<PnlRemoved*>(address);  // NOLINT(performance-no-int-to-ptr)
  if (record != nullptr) {
    *record = {};
    record->rows = count;
    record->whole = whole ? 1 : 0;
    SetField(record->text, firstRow.substr(0, std::size(record->text) - 1));
  }
  return count;
}

}  // namespace pnl
