// SPDX-License-Identifier: MIT
// The part of the session that tells a host what the operator has typed and not finished, and puts back what was typed
// or removed. It does only what the operator could do with his keys.
#include "host/kept_work.h"
#include "mdi/mdi_session.h"

namespace pnl {

std::optional<std::intptr_t> MdiSession::OnKeptWork(const Message& message) {
  const auto kept = KeptWorkMessageOf(message.number);
  if (!kept) return std::nullopt;
  if (*kept == KeptWorkMessage::kRemoved) {
    const MdiRemoval* last = list_.Removed().Last();
    MDIDATA_ST* record = channels_.Current();
    if (message.first == PNL_REMOVED_FORGET) list_.Removed().Forget();
    if (last == nullptr || record == nullptr || message.first == PNL_REMOVED_FORGET) return 0;
    if (message.first == PNL_REMOVED_READ) {
      return FillRemoved(message.second, last->Rows(), last->whole, last->FirstRow());
    }
    if (message.first != PNL_REMOVED_PUT_BACK) return 0;
    return static_cast<std::intptr_t>(list_.PutBack(*record));
  }
  if (*kept == KeptWorkMessage::kStoreRows) return StoreRowsNow() ? 1 : 0;
  PnlUnfinished* unfinished = UnfinishedAt(message.second);
  if (unfinished == nullptr) return 0;
  if (*kept == KeptWorkMessage::kRestoreUnfinished) return RestoreUnfinished(*unfinished) ? 1 : 0;
  ReadUnfinished(*unfinished);
  return 1;
}

bool MdiSession::StoreRowsNow() {
  bool stored = true;
  for (MDIDATA_ST& record : channels_.Records()) stored = history_.StoreEarly(record) && stored;
  return stored;
}

void MdiSession::ReadUnfinished(PnlUnfinished& into) const {
  const MDIDATA_ST* record = channels_.Current();
  const Text text = View().EditText();
  if (record == nullptr || record->LowRole() == MdiRole::kMdi) return FillUnfinished(into, PNL_UNFINISHED_LINE, text);
  if (record->Edit() == mdi_edit::kNewItem) return FillUnfinished(into, PNL_UNFINISHED_NEW_ITEM, text);
  if (record->Edit() == mdi_edit::kNone) return FillUnfinished(into, PNL_UNFINISHED_NOTHING, {});
  const int item = View().ListSelection();
  const Text original = View().ListItem(item);
  // An item that nobody has changed yet needs no keeping.
  if (text == original) return FillUnfinished(into, PNL_UNFINISHED_NOTHING, {});
  FillUnfinished(into, PNL_UNFINISHED_CHANGED_ITEM, text, item, original);
}

bool MdiSession::RestoreUnfinished(const PnlUnfinished& from) {
  MDIDATA_ST* record = channels_.Current();
  const Text text = FieldText(from.text);
  if (record == nullptr || record->Opened == 0 || !record->IsReady() || text.empty()) return false;
  if (record->Edit() != mdi_edit::kNone || !View().EditText().empty()) return false;
  screen_.CloseDropList();
  if (from.kind == PNL_UNFINISHED_LINE) {
    if (record->LowRole() != MdiRole::kMdi) SetRole(*record, MdiRole::kMdi);
    View().SetEditText(text);
    screen_.SetCaretToEnd();
    return true;
  }
  if (from.kind != PNL_UNFINISHED_NEW_ITEM && from.kind != PNL_UNFINISHED_CHANGED_ITEM) return false;
  RestoreItem(*record, from);
  return true;
}

/// Begins the edit of the item again. If the list doesn't have the item at its place any more, the text becomes a new
/// item, so that it is in no other item's place.
void MdiSession::RestoreItem(MDIDATA_ST& record, const PnlUnfinished& from) {
  if (record.LowRole() != MdiRole::kMda) SetRole(record, MdiRole::kMda);
  const bool there = from.kind == PNL_UNFINISHED_CHANGED_ITEM && from.item >= 0 && from.item < View().ListCount() &&
                     View().ListItem(from.item) == FieldText(from.original);
  if (there) {
    View().SetListSelection(from.item);
    list_.Change(record);
  } else {
    list_.New(record);
  }
  View().SetEditText(FieldText(from.text));
  screen_.SetCaretToEnd();
}

}  // namespace pnl
