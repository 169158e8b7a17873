// SPDX-License-Identifier: MIT
#include "mdi/mdi_list.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "mdi/mdi_block.h"
#include "mdi/mdi_menus.h"
#include "mdi/mdi_screen.h"

namespace pnl::mdi {

namespace {

bool IsItem(const MDIDATA_ST& record, int index) {
  return index >= 0 && static_cast<std::size_t>(index) < record.MDAList.size();
}

/// The session put it there, whatever becomes of the file meanwhile.
void NoteAdded(MDIDATA_ST& record, TextView text) { record.ListAdded.push_back(text); }

void Mirror(MdiSession& session, const MDIDATA_ST& record, int index, const Text& text) {
  if (!session.IsCurrent(record)) return;
  session.View().InsertListItem(index, text);
  session.View().SetListSelection(index);
}

/// Where an item goes that is taken out at index of count items.
int MoveTarget(int index, int count, bool up) {
  if (up) return index == 0 ? count - 1 : index - 1;
  return index == count - 1 ? 0 : index + 1;
}

}  // namespace

void AppendItem(MdiSession& session, MDIDATA_ST& record, const Text& text) {
  record.MDAList.push_back(text);
  NoteAdded(record, text);
  Mirror(session, record, session.View().ListCount(), text);
}

void InsertBeforeSelected(MdiSession& session, MDIDATA_ST& record, const Text& text) {
  const int selected = session.IsCurrent(record) ? session.View().ListSelection() : record.MDASelection;
  if (!IsItem(record, selected)) {
    AppendItem(session, record, text);
    return;
  }
  record.MDAList.Insert(static_cast<std::size_t>(selected), text);
  NoteAdded(record, text);
  Mirror(session, record, selected, text);
}

void ReplaceChanged(MdiSession& session, MDIDATA_ST& record, const Text& text) {
  int index = std::exchange(record.MDASelection, -1);
  // A refused block has dropped the place; the list box still shows it.
  if (index < 0 && session.IsCurrent(record)) index = session.View().ListSelection();
  if (!IsItem(record, index)) {
    AppendItem(session, record, text);
    return;
  }
  const auto place = static_cast<std::size_t>(index);
  // A row that this session had put there is another one now.
  if (const auto old = record.ListAdded.Find(record.MDAList[place])) record.ListAdded.Erase(*old);
  record.MDAList.Replace(place, text);
  NoteAdded(record, text);
  if (!session.IsCurrent(record)) return;
  session.View().ReplaceListItem(index, text);
  session.View().SetListSelection(index);
}

void DeleteItem(MdiSession& session) {
  MdiView& view = session.View();
  const int index = view.ListSelection();
  if (index < 0) return;
  view.DeleteListItem(index);
  // The store keeps the item and stays unmarked: deleting here is for the sitting, and the next load brings it back.
  view.SetListSelection(std::min(index, view.ListCount() - 1));
  UpdateMenus(session);
}

void ChangeItem(MdiSession& session, MDIDATA_ST& record) {
  MdiView& view = session.View();
  const int index = view.ListSelection();
  if (index < 0) return;
  SetEdit(session, record, mdi_edit::kChangeItem);
  record.MDASelection = index;
  view.SetEditText(view.ListItem(index));
  SetCaretToEnd(session);
  view.SetEditReadOnly(false);
  view.FocusEdit();
  UpdateMenus(session);
}

void NewItem(MdiSession& session, MDIDATA_ST& record) {
  SetEdit(session, record, mdi_edit::kNewItem);
  SetSelection(session, {-1, -1});
  session.View().SetEditReadOnly(false);
  session.View().FocusEdit();
  UpdateMenus(session);
}

void EndEdit(MdiSession& session, MDIDATA_ST& record) {
  SetEdit(session, record, mdi_edit::kNone);
  session.View().SetEditText({});
  // The list can't always take the focus, which would do this too: the window may be hidden.
  session.View().SetEditReadOnly(true);
  session.View().FocusList();
  UpdateMenus(session);
}

void ClearList(MdiSession& session, MDIDATA_ST& record) {
  record.MDAList.clear();
  record.ListAdded.clear();
  session.View().FillList(record.MDAList);
  record.MDASelection = -1;
  record.LoadState = mdi_load::kChanged;
  UpdateMenus(session);
}

void MoveItem(MdiSession& session, MDIDATA_ST& record, bool up) {
  MdiView& view = session.View();
  const int index = view.ListSelection();
  if (index < 0) return;
  const int target = MoveTarget(index, view.ListCount(), up);
  const Text shown = view.ListItem(index);
  view.DeleteListItem(index);
  view.InsertListItem(target, shown);
  if (IsItem(record, index)) {
    // The store may be longer than the box, whose items it then keeps at its end; "the end" is each one's own.
    const bool toEnd = up && index == 0;
    const auto place = static_cast<std::size_t>(index);
    const Text item = record.MDAList[place];
    record.MDAList.Erase(place);
    const std::size_t end = record.MDAList.size();
    record.MDAList.Insert(toEnd ? end : std::min(static_cast<std::size_t>(target), end), item);
  }
  record.LoadState = mdi_load::kChanged;
  view.SetListSelection(target);
}

void EnterInList(MdiSession& session, MDIDATA_ST& record) {
  MdiView& view = session.View();
  record.Text = view.EditText();
  record.MDASelection = view.ListSelection();
  if (record.Edit() == mdi_edit::kNone) {
    if (record.MDASelection < 0) {
      NewItem(session, record);
    } else {
      ChangeItem(session, record);
    }
    return;
  }
  if (record.Text.empty()) return;
  StoreBlock(session, record);
  EndEdit(session, record);
}

}  // namespace pnl::mdi
