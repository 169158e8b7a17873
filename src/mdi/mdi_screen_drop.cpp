// SPDX-License-Identifier: MIT
// The part of the screen that opens and closes the drop list, and types into the edit while the list has the focus.
#include <algorithm>

#include "mdi/mdi_colors.h"
#include "mdi/mdi_drop_list.h"
#include "mdi/mdi_screen.h"

namespace pnl {

void MdiScreen::OpenDropList(const MDIDATA_ST* record) {
  if (record == nullptr || record->LowRole() != MdiRole::kMdi || !record->IsReady() || View().IsDropListOpen()) return;
  selection_ = View().EditSelection();
  arranged_ = false;
  View().SetSignColors(kMdiSignFocus, kMdiSignOpen);
  const MdiColors& colors = settings_.colors;
  const Rect place = MdiDropListRect(View().EditScreenRect(), settings_.Below);
  View().OpenDropList({place, colors.backList, colors.textList, &record->History, settings_.Below});
}

void MdiScreen::CloseDropList() {
  if (!View().IsDropListOpen()) return;
  View().CloseDropList();
  View().SetSignColors(kMdiSignFocus, kMdiSignBack);
}

void MdiScreen::CancelDropList(const MDIDATA_ST* record) { EndDropList(MdiDropList::kCancelled, record); }

void MdiScreen::EndDropList(std::intptr_t verdict, const MDIDATA_ST* record) {
  // Anybody can send the message. Without an open list it means nothing.
  if (!View().IsDropListOpen()) return;
  const Text picked = View().DropListPicked();
  // In the arranged list nothing may be selected. Then the edit keeps what was typed.
  const bool kept = verdict == MdiDropList::kPicked && arranged_ && picked.empty();
  if (verdict == MdiDropList::kPicked && !kept) {
    View().SetEditText(picked);
    View().FocusEdit();
    if (record != nullptr && record->Refused && record->Refused->block == picked) SelectRefusedWord(*record->Refused);
  } else {
    View().FocusEdit();
    SetSelection(selection_);
  }
  CloseDropList();
}

void MdiScreen::TypeIntoEdit(TextView text) {
  SetSelection(selection_);
  View().ReplaceEditSelection(text);
  selection_ = View().EditSelection();
}

void MdiScreen::EraseInEdit() {
  const Text text = View().EditText();
  const auto length = static_cast<int>(text.size());
  const int end = std::clamp(std::max(selection_.start, selection_.end), 0, length);
  int start = std::clamp(std::min(selection_.start, selection_.end), 0, end);
  if (start == end && start > 0) --start;
  const auto isLowHalf = [&](int at) { return (text[static_cast<std::size_t>(at)] & 0xFC00) == 0xDC00; };
  // A character of two units goes as a whole.
  if (end - start == 1 && start > 0 && isLowHalf(start)) --start;
  selection_ = {start, end};
  TypeIntoEdit({});
}

}  // namespace pnl
