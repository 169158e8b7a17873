// SPDX-License-Identifier: MIT
#include "mdi/mdi_list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace pnl {

namespace {

using Kind = MdiListChange::Kind;

bool IsItem(const MDIDATA_ST& record, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < record.MDAList.size();
}

/// Notes that this session added the item. It must be in the file later, even if the file changes meanwhile.
void NoteAdded(MDIDATA_ST& record, TextView text) { record.ListAdded.push_back(text); }

MdiListChange Append(MDIDATA_ST& record, const Text& text) {
  record.MDAList.push_back(text);
  NoteAdded(record, text);
  return {Kind::kAppended, 0, text};
}

/// Inserts at the end if nothing is selected.
MdiListChange InsertBefore(MDIDATA_ST& record, int selected, const Text& text) {
  if (!IsItem(record, selected)) return Append(record, text);
  record.MDAList.Insert(static_cast<std::size_t>(selected), text);
  NoteAdded(record, text);
  return {Kind::kInserted, selected, text};
}

/// Appends the text if there is no such item, so that no block is lost.
MdiListChange Replace(MDIDATA_ST& record, int index, const Text& text) {
  if (!IsItem(record, index)) return Append(record, text);
  const auto place = static_cast<std::size_t>(index);
  // If this session had added the old item, that is no longer in the list.
  if (const auto old = record.ListAdded.Find(record.MDAList[place])) record.ListAdded.Erase(*old);
  record.MDAList.Replace(place, text);
  NoteAdded(record, text);
  return {Kind::kReplaced, index, text};
}

/// The new index of the item at index, in a list of count items.
int MoveTarget(int index, int count, bool up) {
  if (up) return index == 0 ? count - 1 : index - 1;
  return index == count - 1 ? 0 : index + 1;
}

}  // namespace

std::optional<MdiListChange> MdiList::Store(MDIDATA_ST& record, bool shown) {
  if (record.Text.empty()) return std::nullopt;
  std::optional<MdiListChange> change;
  if (record.LowRole() == MdiRole::kMdi) {
    change = Append(record, record.Text);
  } else if (record.Edit() == mdi_edit::kNewItem) {
    change = InsertBefore(record, shown ? View().ListSelection() : record.MDASelection, record.Text);
  } else if (record.Edit() == mdi_edit::kChangeItem) {
    int index = std::exchange(record.MDASelection, -1);
    // A refused block has set MDASelection to -1, but the item is still selected in the list box.
    if (index < 0 && shown) index = View().ListSelection();
    change = Replace(record, index, record.Text);
  } else {
    // The block was started from the list, so the list contains it. Text keeps it.
    return std::nullopt;
  }
  record.Text.clear();
  record.MarkListsChanged();
  return change;
}

void MdiList::Show(MDIDATA_ST& record, const MdiListChange& change, bool alreadyThere) {
  if (alreadyThere) return menus_.SetEdit(record, mdi_edit::kNone);
  const int index = change.kind == Kind::kAppended ? View().ListCount() : change.index;
  if (change.kind == Kind::kReplaced) {
    View().ReplaceListItem(index, change.text);
  } else {
    View().InsertListItem(index, change.text);
  }
  View().SetListSelection(index);
  menus_.SetEdit(record, mdi_edit::kNone);
}

void MdiList::Delete(const MDIDATA_ST& record) {
  const int index = View().ListSelection();
  if (index < 0) return;
  MdiRemoval removal;
  removal.channel = record.Channel;
  removal.index = index;
  removal.item = View().ListItem(index);
  removal.fills = screen_.ListFills();
  removed_.Note(std::move(removal));
  View().DeleteListItem(index);
  // Not a mistake: the store keeps the item and isn't marked as changed. The item is back when the list is filled
  // again.
  View().SetListSelection(std::min(index, View().ListCount() - 1));
  UpdateMenus(record);
}

void MdiList::Change(MDIDATA_ST& record) {
  const int index = View().ListSelection();
  if (index < 0) return;
  menus_.SetEdit(record, mdi_edit::kChangeItem);
  record.MDASelection = index;
  View().SetEditText(View().ListItem(index));
  screen_.SetCaretToEnd();
  View().SetEditReadOnly(false);
  View().FocusEdit();
  UpdateMenus(record);
}

void MdiList::New(MDIDATA_ST& record) {
  menus_.SetEdit(record, mdi_edit::kNewItem);
  screen_.SetSelection({-1, -1});
  View().SetEditReadOnly(false);
  View().FocusEdit();
  UpdateMenus(record);
}

void MdiList::EndEdit(MDIDATA_ST& record) {
  menus_.SetEdit(record, mdi_edit::kNone);
  View().SetEditText({});
  // A list that gets the focus does this too. But the window may be hidden, and then the list gets no focus.
  View().SetEditReadOnly(true);
  View().FocusList();
  UpdateMenus(record);
}

void MdiList::Clear(MDIDATA_ST& record) {
  MdiRemoval removal;
  removal.channel = record.Channel;
  removal.whole = true;
  removal.box = BoxRows(record);
  removal.store = record.MDAList;
  removal.added = record.ListAdded;
  removal.selection = View().ListSelection();
  if (!removal.box.empty() || !removal.store.empty()) removed_.Note(std::move(removal));
  record.MDAList.clear();
  record.ListAdded.clear();
  View().FillList(record.MDAList);
  record.MDASelection = -1;
  record.MarkListsChanged();
  UpdateMenus(record);
}

/// The rows of the list box. They are shared with the store if it has the same ones.
TextRows MdiList::BoxRows(const MDIDATA_ST& record) const {
  const int count = View().ListCount();
  if (static_cast<std::size_t>(std::max(0, count)) == record.MDAList.size()) return record.MDAList;
  TextRows rows;
  for (int i = 0; i < count; ++i) rows.push_back(View().ListItem(i));
  return rows;
}

std::size_t MdiList::PutBack(MDIDATA_ST& record) {
  const MdiRemoval* last = removed_.Last();
  if (last == nullptr || last->channel != record.Channel) return 0;
  if (!record.IsReady() || record.Edit() != mdi_edit::kNone) return 0;
  const MdiRemoval removal = *last;
  removed_.DropLast();
  if (removal.whole) {
    PutBackList(record, removal);
  } else if (removal.fills == screen_.ListFills()) {
    const int index = std::min(removal.index, View().ListCount());
    View().InsertListItem(index, removal.item);
    View().SetListSelection(index);
  }
  UpdateMenus(record);
  return removal.Rows();
}

void MdiList::PutBackList(MDIDATA_ST& record, const MdiRemoval& removal) {
  const auto join = [](TextRows first, const TextRows& then) {
    for (const Text& row : then) first.push_back(row);
    return first;
  };
  const TextRows box = join(removal.box, BoxRows(record));
  record.MDAList = join(removal.store, record.MDAList);
  record.ListAdded = join(removal.added, record.ListAdded);
  record.MarkListsChanged();
  View().FillList(box);
  View().SetListSelection(removal.selection);
}

void MdiList::Move(MDIDATA_ST& record, bool up) {
  const int index = View().ListSelection();
  if (index < 0) return;
  const int target = MoveTarget(index, View().ListCount(), up);
  const Text shown = View().ListItem(index);
  View().DeleteListItem(index);
  View().InsertListItem(target, shown);
  if (IsItem(record, index)) {
    // The store may have more items than the box, because Delete removes them only there. An item that goes to the end
    // goes to the end of each.
    const bool toEnd = up && index == 0;
    const auto place = static_cast<std::size_t>(index);
    const Text item = record.MDAList[place];
    record.MDAList.Erase(place);
    const std::size_t end = record.MDAList.size();
    record.MDAList.Insert(toEnd ? end : std::min(static_cast<std::size_t>(target), end), item);
  }
  record.MarkListsChanged();
  View().SetListSelection(target);
}

void MdiList::Enter(MDIDATA_ST& record) {
  record.Text = View().EditText();
  record.MDASelection = View().ListSelection();
  if (record.Edit() == mdi_edit::kNone) {
    if (record.MDASelection < 0) {
      New(record);
    } else {
      Change(record);
    }
    return;
  }
  if (const auto change = Store(record, true)) {
    Show(record, *change);
    EndEdit(record);
  }
}

void MdiList::OnFocus(MDIDATA_ST& record) {
  menus_.SetEdit(record, mdi_edit::kNone);
  View().SetEditText({});
  View().SetEditReadOnly(true);
  View().RedrawEdit();
}

}  // namespace pnl
