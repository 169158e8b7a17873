// SPDX-License-Identifier: MIT
// What the operator sees and where the focus is: laying out, showing a role, the selection that comes back with the
// focus, the drop list, the host's message line. No kernel call is made here.
#pragma once

#include "mdi/mdi_session.h"

namespace pnl::mdi {

/// Lays the window out for a role of a channel; record may be null. Closes the drop list.
void LayOut(MdiSession& session, MdiRole role, const MDIDATA_ST* record);
/// What can be written and chosen: the edit where the operator types in it, the list in MDA role, and neither while a
/// block of the channel is in the machine's hands. record may be null.
void ShowAccess(MdiSession& session, MdiRole role, const MDIDATA_ST* record);
/// The role's controls, their access and the title, in a window that is about to be visible.
void ShowRole(MdiSession& session, const MDIDATA_ST& record);
/// The title alone: its text, and whether it blinks. Out of sight it rests, so that an idle panel sleeps.
void ShowTitle(MdiSession& session, const MDIDATA_ST& record, bool visible);
/// The list box gets the record's list, and its selection.
void FillList(MdiSession& session, const MDIDATA_ST& record);
/// Hides the window with all that belongs to it and lets the title rest.
void HideWindow(MdiSession& session);

/// Selects in the edit, now and whenever it gets the focus back.
void SetSelection(MdiSession& session, MdiSelection selection);
/// Caret behind the last character.
void SetCaretToEnd(MdiSession& session);
/// The edit where the operator types in it, else the list.
void FocusForRole(MdiSession& session);
/// The same, with the list's first item selected.
void FocusForRoleFirstItem(MdiSession& session);

/// Opens the drop list with the current channel's history, in MDI role and State 1 only.
void OpenDropList(MdiSession& session);
/// Closes it, if it is open, and leaves the focus alone.
void CloseDropList(MdiSession& session);
/// Closes it as Cancel does: the focus and the saved selection go back to the edit.
void CancelDropList(MdiSession& session);
/// "MDI_ENDLIST": verdict 1 means that a text was picked.
void EndDropList(MdiSession& session, std::intptr_t verdict);

void ShowMessage(MdiSession& session, TextView text);
void ClearMessage(MdiSession& session);

}  // namespace pnl::mdi
