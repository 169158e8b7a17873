// SPDX-License-Identifier: MIT
// The part of the session that gives a host what the operator has typed and not finished, and puts back what was typed
// or deleted.
#include <algorithm>

#include "calc/calc_session.h"

namespace pnl {

std::optional<std::intptr_t> CalcSession::OnKeptWork(const Message& message) {
  const auto kept = KeptWorkMessageOf(message.number);
  if (!kept) return std::nullopt;
  if (*kept == KeptWorkMessage::kRemoved) {
    if (message.first == PNL_REMOVED_FORGET) removed_.Forget();
    const CalcRemoval* last = removed_.Last();
    if (last == nullptr) return 0;
    if (message.first == PNL_REMOVED_READ) {
      return FillRemoved(message.second, last->rows.size(), false, last->rows.front().second);
    }
    return message.first == PNL_REMOVED_PUT_BACK ? static_cast<std::intptr_t>(PutBackRows()) : 0;
  }
  if (*kept == KeptWorkMessage::kStoreRows) {
    return window_ == nullptr || !opened_ || history_.StoreEarly(View().ListRows()) ? 1 : 0;
  }
  PnlUnfinished* unfinished = UnfinishedAt(message.second);
  if (unfinished == nullptr) return 0;
  if (*kept == KeptWorkMessage::kRestoreUnfinished) return RestoreUnfinished(*unfinished) ? 1 : 0;
  ReadUnfinished(*unfinished);
  return 1;
}

void CalcSession::ReadUnfinished(PnlUnfinished& into) const {
  // While the history is open, the line shows one of its rows.
  FillUnfinished(into, PNL_UNFINISHED_LINE, openList_ == OpenList::kHistory ? savedLine_ : View().LineText());
}

bool CalcSession::RestoreUnfinished(const PnlUnfinished& from) {
  const Text text = FieldText(from.text).substr(0, kLongestExpression);
  if (from.kind != PNL_UNFINISHED_LINE || text.empty() || run_.IsConfirming()) return false;
  if (openList_ != OpenList::kNone || !View().LineText().empty()) return false;
  WriteLine(text);
  return true;
}

/// Puts the rows that were deleted last back to their places. Rows that were confirmed since are above them.
std::size_t CalcSession::PutBackRows() {
  if (run_.IsConfirming()) return 0;
  const CalcRemoval removal = removed_.TakeLast();
  const int above = std::max(0, View().ListCount() - removal.left);
  for (std::size_t i = 0; i < removal.rows.size(); ++i) {
    const auto& [row, text] = removal.rows[i];
    const int place = std::min(row + above, View().ListCount());
    values_.Rows().Insert(place, removal.values[i]);
    View().InsertListItem(place, text);
  }
  history_.NoteChanged();
  return removal.rows.size();
}

}  // namespace pnl
