// SPDX-License-Identifier: MIT
#include "mdi/mdi_screen.h"

#include <algorithm>

#include "mdi/mdi_colors.h"

namespace pnl {

namespace {

/// The selected part of the edit, or all of it without a selection.
Text SelectedInEdit(const MdiView& view) {
  Text text = view.EditText();
  const int length = static_cast<int>(text.size());
  const TextSelection selection = view.EditSelection();
  const int start = std::clamp(std::min(selection.start, selection.end), 0, length);
  const int end = std::clamp(std::max(selection.start, selection.end), 0, length);
  if (start == end) return text;
  return text.substr(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start));
}

}  // namespace

void MdiScreen::Begin(int channelCount) {
  channelCount_ = channelCount;
  LayOut(MdiRole::kMdi, nullptr);
  View().SetTitle(MdiTitleText(MdiRole::kMdi, channelCount, 1));
  View().SetSignColors(kMdiSignBack, kMdiSignBack);
}

MdiLayout MdiScreen::LayoutFor(MdiRole role) const {
  return LayOutMdi(role, {View().ParentClientRect(), settings_.FullLength, settings_.Below, channelCount_});
}

void MdiScreen::LayOut(MdiRole role, const MDIDATA_ST* record) {
  CloseDropList();
  displayedRole_ = role;
  View().Place(LayoutFor(role));
  ShowAccess(role, record);
}

/// Sets which controls can be used: the edit if the operator types in it, the list in MDA role, and neither while a
/// block of the channel is running or interrupted.
void MdiScreen::ShowAccess(MdiRole role, const MDIDATA_ST* record) {
  const bool ready = record == nullptr || record->IsReady();
  if (role == MdiRole::kMdi) {
    View().SetEditReadOnly(!ready);
    return;
  }
  const bool editing = record != nullptr && record->Edit() != mdi_edit::kNone;
  View().SetEditReadOnly(!ready || !editing);
  View().SetListEnabled(ready);
}

void MdiScreen::ShowRole(const MDIDATA_ST& record) {
  View().Place(LayoutFor(record.LowRole()));
  // A block may have ended, or the channel may have been given back, while the window was hidden.
  ShowAccess(record.LowRole(), &record);
  ShowTitle(record, true);
}

void MdiScreen::ShowTitle(const MDIDATA_ST& record, bool visible) {
  const MdiRole role = record.LowRole();
  View().SetTitle(MdiTitleText(role, channelCount_, record.Channel));
  View().SetTitleBlinking(visible ? MdiTitleBlink(role) : 0);
}

void MdiScreen::FillList(const MDIDATA_ST& record) {
  View().FillList(record.MDAList);
  ++listFills_;
  // If the operator is changing an item, that item must be selected again.
  if (record.MDASelection >= 0) View().SetListSelection(record.MDASelection);
}

void MdiScreen::Hide() {
  CloseDropList();
  View().Hide();
  View().SetTitleBlinking(0);
}

void MdiScreen::ShowRunning(const MDIDATA_ST& record) {
  View().ClearFocus();
  View().RedrawEdit();
  View().SetEditReadOnly(true);
  if (record.LowRole() != MdiRole::kMdi) View().SetListEnabled(false);
  View().FocusWindow();
}

void MdiScreen::ShowReady(const MDIDATA_ST& record) {
  View().RedrawEdit();
  ShowAccess(record.LowRole(), &record);
  if (View().IsVisible()) FocusForRole(&record);
}

void MdiScreen::ShowAborted(const MDIDATA_ST& record) {
  if (record.LowRole() == MdiRole::kMdi) View().SetEditText({});
  View().SetEditReadOnly(false);
  View().SetListEnabled(true);
  if (View().IsVisible()) FocusForRole(&record);
  View().RedrawEdit();
}

void MdiScreen::SetSelection(TextSelection selection) {
  selection_ = selection;
  selectedIn_.clear();
  View().SetEditSelection(selection);
}

void MdiScreen::SelectRefusedWord(const MdiRefusal& refusal) {
  if (!refusal.word) return;
  SetSelection(*refusal.word);
  selectedIn_ = refusal.block;
}

void MdiScreen::SetCaretToEnd() {
  const int end = static_cast<int>(View().EditText().size());
  SetSelection({end, end});
}

void MdiScreen::OnEditFocus(bool focused) {
  if (focused) {
    // A word at fault stays selected only until the block is corrected: the correction must not be typed over.
    if (!selectedIn_.empty() && View().EditText() != selectedIn_) SetCaretToEnd();
    View().SetEditSelection(selection_);
    View().ScrollEditCaret();
  }
  View().RedrawEdit();
}

void MdiScreen::FocusForRole(const MDIDATA_ST* record) {
  if (record == nullptr || record->TypesInEdit()) {
    View().FocusEdit();
  } else {
    View().FocusList();
  }
}

void MdiScreen::FocusForRoleFirstItem(const MDIDATA_ST* record) {
  if (record != nullptr && !record->TypesInEdit()) View().SetListSelection(0);
  FocusForRole(record);
}

Text MdiScreen::BlockInHand(const MDIDATA_ST& record) const {
  if (record.TypesInEdit()) return SelectedInEdit(View());
  const int selected = View().ListSelection();
  return selected >= 0 ? View().ListItem(selected) : Text();
}

}  // namespace pnl
