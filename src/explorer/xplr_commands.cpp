// SPDX-License-Identifier: MIT
// The part of XplrSession that obeys keys, soft keys and the host's commands: layout, pin and dialogs.
#include "explorer/xplr_session.h"
#include "host/storage_messages.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_EXPLORER;
/// The kind of access that the pin asks for.
constexpr int kPinAccess = 4;

}  // namespace

std::intptr_t XplrSession::OnToolCommand(std::intptr_t code) {
  switch (code) {
    case PNL_COMMAND_LEAVE:
      View().Hide();
      View().Destroy();
      break;
    case PNL_COMMAND_RESTORE_FOCUS:
      View().PostTab();
      break;
    case PNL_COMMAND_CLOSE_TOOL:
    case PNL_COMMAND_CLOSE_FOR_OTHER:
      FinishExplorer(PNL_CLOSED);
      break;
    default:
      break;
  }
  return 0;
}

void XplrSession::OnKey(XplrKey key) {
  if (key == XplrKey::kEnter) {
    ForgetFailure(state_.Path);
    accept_.Accept();
  } else if (state_.HasDialog()) {
    View().PostEscapeToDialog();
  } else {
    FinishExplorer(PNL_CLOSED);
  }
}

void XplrSession::OnMenuCommand(std::intptr_t id) {
  const bool dialog = state_.HasDialog();
  switch (id) {
    case xplr_command::kRefresh:
      if (dialog) break;
      ForgetFailure(state_.Path);
      list_.FillList(ListMode::kFolder);
      break;
    case xplr_command::kTogglePin:
      if (!dialog) TogglePin();
      break;
    case xplr_command::kMoveToTree:
      if (!dialog && state_.Layout == LayoutMode::kTreeAndList) tree_.TakeSelection();
      break;
    case xplr_command::kMoveToList:
      if (!dialog) View().FocusControl(xplr_control::kList);
      break;
    case xplr_command::kMoveToField:
      if (!dialog) View().FocusControl(xplr_control::kName);
      break;
    case xplr_command::kSortByName:
    case xplr_command::kSortBySize:
    case xplr_command::kSortByDate:
    case xplr_command::kSortByExtension:
      list_.SortBy(static_cast<int>(id));
      break;
    case xplr_command::kFind:
      StartFind();
      break;
    case xplr_command::kFindFolder:
      StartFolderSearch();
      break;
    case xplr_command::kNext:
    case xplr_command::kPrevious:
      if (state_.FindDialog == 0) break;
      list_.SetSearch(View().FindText());
      list_.SearchList(id == xplr_command::kNext);
      break;
    default:
      break;
  }
}

// Layout and pin.

void XplrSession::OnResized(int width, int height) {
  width_ = width;
  height_ = height;
  if (started_) LayOut();
}

void XplrSession::LayOut() {
  state_.Layout = LayoutOf(state_);
  XplrView& view = View();
  const bool moves = state_.Layout != LayoutMode::kTreeAndList && view.FocusedControl() == xplr_control::kTree;
  view.Place(LayOutXplr(width_, height_, state_.Layout));
  preview_.SetThere(width_ >= kPreviewFromWidth);
  if (moves) View().FocusControl(xplr_control::kList);
}

void XplrSession::TogglePin() {
  if (state_.Has(XPLR_LISTONLY)) return;
  // The password's box runs an event loop.
  BeginBox();
  const bool allowed = Context().cnc.Psw().PSW_ConfirmarAcceso(kPinAccess, 0, 0) != 0;
  EndBox();
  if (!allowed) return;
  state_.Flags ^= XPLR_PINNED;
  LayOut();
  posts_.Send(XplrWindow::kFrame, XplrMessage::kUpdatePinState);
  UpdateMenus();
}

void XplrSession::UpdatePinState() {
  menus_.UpdatePin(state_);
  Host().HostUpdateSideMenu(kTool);
  const bool stored =
      settings_.SavePinnedFolder(state_.Owner, state_.Has(XPLR_PINNED) ? std::optional(state_.Path) : std::nullopt);
  if (!stored) ShowNotSaved(Context(), kTool, {u"XPLR7340.ini"});
}

void XplrSession::UpdateMenus() {
  menus_.UpdateList(state_, list_.Sort());
  posts_.Send(XplrWindow::kFrame, XplrMessage::kUpdateMenu);
}

// Focus and name.

void XplrSession::ShowPane(int heading, bool focused) {
  constexpr std::uint32_t kFrame = 4608090;
  constexpr std::uint32_t kLight = 12569043;
  constexpr std::uint32_t kDark = 8621463;
  View().SetLabelColors(heading, focused ? kFrame : kLight, focused ? kLight : kDark, 0);
}

void XplrSession::OnFocus(int id, bool focused) {
  if (id == xplr_control::kTree) {
    ShowPane(xplr_control::kFilter, focused);
    if (!focused) return;
    posts_.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
    if (!state_.HasDialog()) tree_.OnFocus();
  } else if (id == xplr_control::kList) {
    ShowPane(xplr_control::kFolder, focused);
    if (!focused) list_.OnLeft();
    if (!focused) return;
    posts_.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
    list_.OnFocus();
  } else if (id == xplr_control::kName && focused) {
    posts_.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
    SyncName();
  }
}

void XplrSession::OnNameChanged() {
  if (View().FocusedControl() == xplr_control::kName) SyncName();
}

void XplrSession::SyncName() {
  state_.File = View().NameText();
  posts_.SendCaption(state_.Caption(state_.File));
  posts_.Post(XplrWindow::kFrame, XplrMessage::kUpdate);
}

// Dialogs.

void XplrSession::StartFind() {
  if (state_.HasDialog() || !View().OpenFind(list_.Search())) return;
  menus_.BeginFind(!list_.Search().empty());
  state_.FindDialog = View().HandleOf(XplrWindow::kFind);
  find_.OnOpened(list_.Search());
  UpdateMenus();
}

void XplrSession::EndFind() {
  state_.FindDialog = 0;
  menus_.EndFind();
  UpdateMenus();
  View().FocusControl(xplr_control::kList);
}

void XplrSession::StartFolderSearch() {
  const bool offered = IsQualityTest(Context().files, Context().cnc.Util());
  if (!offered || state_.HasDialog() || state_.Has(XPLR_PINNED) || !View().OpenFolderSearch()) return;
  state_.FolderDialog = View().HandleOf(XplrWindow::kFolder);
  posts_.Post(XplrWindow::kForm, XplrMessage::kUpdateMenu);
}

void XplrSession::EndFolderSearch() {
  const Text target = state_.FolderDialog != 0 ? View().FolderText() : Text();
  state_.FolderDialog = 0;
  posts_.Post(XplrWindow::kForm, XplrMessage::kUpdateMenu);
  if (target.empty()) return;
  folders_.LookAt(target, [this, target](const FileFacts& facts) {
    if (facts.exists) tree_.GoTo(target);
  });
}

}  // namespace pnl
