// SPDX-License-Identifier: MIT
// The MDA list: what becomes of its items in the store and in the list box, and the commands and keys that work on it.
// Store and box hold the same items but for one deliberate difference, told at DeleteItem.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

// Where a block goes. Each mirrors the change in the list box of the current channel and selects the item there;
// marking the store and ending the edit is the caller's.
void AppendItem(MdiSession& session, MDIDATA_ST& record, const Text& text);
/// At the end when nothing is selected.
void InsertBeforeSelected(MdiSession& session, MDIDATA_ST& record, const Text& text);
/// In the place of MDASelection, which then is -1. Appends when there is no such item, so that no block is lost.
void ReplaceChanged(MdiSession& session, MDIDATA_ST& record, const Text& text);

/// Takes the selected item out of the list box only: the store keeps it and isn't marked, so it is back at the next
/// load.
void DeleteItem(MdiSession& session);
void ChangeItem(MdiSession& session, MDIDATA_ST& record);
void NewItem(MdiSession& session, MDIDATA_ST& record);
void EndEdit(MdiSession& session, MDIDATA_ST& record);
void ClearList(MdiSession& session, MDIDATA_ST& record);
/// Up is towards index 0; both ends are joined.
void MoveItem(MdiSession& session, MDIDATA_ST& record, bool up);

/// The Enter key in MDA role: begins an edit, or stores the edited item without running it.
void EnterInList(MdiSession& session, MDIDATA_ST& record);

}  // namespace pnl::mdi
