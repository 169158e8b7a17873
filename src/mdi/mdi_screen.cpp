// SPDX-License-Identifier: MIT
#include "mdi/mdi_screen.h"

#include "mdi/mdi_colors.h"
#include "mdi/mdi_drop_list.h"

namespace pnl::mdi {

namespace {

MdiLayout LayoutFor(const MdiSession& session, MdiRole role) {
  const MdiSettings& settings = session.settings;
  return LayOutMdi(role,
                   {session.View().ParentClientRect(), settings.FullLength, settings.Below, session.ChannelCount()});
}

}  // namespace

void LayOut(MdiSession& session, MdiRole role, const MDIDATA_ST* record) {
  CloseDropList(session);
  session.DisplayedRole = role;
  session.View().Place(LayoutFor(session, role));
  ShowAccess(session, role, record);
}

void ShowAccess(MdiSession& session, MdiRole role, const MDIDATA_ST* record) {
  MdiView& view = session.View();
  const bool ready = record == nullptr || record->IsReady();
  if (role == MdiRole::kMdi) {
    view.SetEditReadOnly(!ready);
    return;
  }
  const bool editing = record != nullptr && record->Edit() != mdi_edit::kNone;
  view.SetEditReadOnly(!ready || !editing);
  view.SetListEnabled(ready);
}

void ShowRole(MdiSession& session, const MDIDATA_ST& record) {
  session.View().Place(LayoutFor(session, record.LowRole()));
  // A block may have ended, or the channel may have gone back, while the window was out of sight.
  ShowAccess(session, record.LowRole(), &record);
  ShowTitle(session, record, true);
}

void ShowTitle(MdiSession& session, const MDIDATA_ST& record, bool visible) {
  const MdiRole role = record.LowRole();
  session.View().SetTitle(MdiTitleText(role, session.ChannelCount(), record.Channel));
  session.View().SetTitleBlinking(visible ? MdiTitleBlink(role) : 0);
}

void FillList(MdiSession& session, const MDIDATA_ST& record) {
  session.View().FillList(record.MDAList);
  // A change of an item that is under way must still find its item.
  if (record.MDASelection >= 0) session.View().SetListSelection(record.MDASelection);
}

void HideWindow(MdiSession& session) {
  CloseDropList(session);
  session.View().Hide();
  session.View().SetTitleBlinking(0);
}

void SetSelection(MdiSession& session, MdiSelection selection) {
  session.selection = selection;
  session.View().SetEditSelection(selection);
}

void SetCaretToEnd(MdiSession& session) {
  const int end = static_cast<int>(session.View().EditText().size());
  SetSelection(session, {end, end});
}

void FocusForRole(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  if (record == nullptr || record->TypesInEdit()) {
    session.View().FocusEdit();
  } else {
    session.View().FocusList();
  }
}

void FocusForRoleFirstItem(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  if (record != nullptr && !record->TypesInEdit()) session.View().SetListSelection(0);
  FocusForRole(session);
}

void OpenDropList(MdiSession& session) {
  const MDIDATA_ST* record = session.Current();
  MdiView& view = session.View();
  if (record == nullptr || record->LowRole() != MdiRole::kMdi || !record->IsReady() || view.IsDropListOpen()) return;
  session.selection = view.EditSelection();
  view.SetSignColors(kMdiSignFocus, kMdiSignOpen);
  const MdiColors& colors = session.settings.colors;
  const Rect place = MdiDropListRect(view.EditScreenRect(), session.settings.Below);
  view.OpenDropList({place, colors.backList, colors.textList, &record->History});
}

void CloseDropList(MdiSession& session) {
  if (!session.View().IsDropListOpen()) return;
  session.View().CloseDropList();
  session.View().SetSignColors(kMdiSignFocus, kMdiSignBack);
}

void CancelDropList(MdiSession& session) { EndDropList(session, MdiDropList::kCancelled); }

void EndDropList(MdiSession& session, std::intptr_t verdict) {
  MdiView& view = session.View();
  // A verdict without a list is none: anybody can send the message.
  if (!view.IsDropListOpen()) return;
  if (verdict == MdiDropList::kPicked) {
    view.SetEditText(view.DropListPicked());
    view.FocusEdit();
  } else {
    view.FocusEdit();
    SetSelection(session, session.selection);
  }
  CloseDropList(session);
}

void ShowMessage(MdiSession& session, TextView text) { session.Host().HostShowMessage(tool_id::kMdi, text); }

void ClearMessage(MdiSession& session) { ShowMessage(session, {}); }

}  // namespace pnl::mdi
