// SPDX-License-Identifier: MIT
// The explorer without its window: lets the operator walk drives, folders and shares until a file or folder is chosen
// for the tool that asked. Receives the windows' events and messages as intentions and puts its subjects together:
// tree, list, acceptance, menus, search and settings. The window (ZCExplorer) owns it and implements XplrView.
#pragma once

#include <cstdint>
#include <optional>

#include "explorer/xplr_accept.h"
#include "explorer/xplr_failures.h"
#include "explorer/xplr_find.h"
#include "explorer/xplr_list.h"
#include "explorer/xplr_menus.h"
#include "explorer/xplr_preview.h"
#include "explorer/xplr_settings.h"
#include "explorer/xplr_tree.h"
#include "host/tool_session.h"

namespace pnl {

/// Key-downs that the frame takes before the controls see them.
enum class XplrKey { kEnter, kEscape };

class XplrSession final : public ToolSession<XplrView> {
 public:
  XplrSession(const ToolContext& context, XplrView& view);

  /// The frame is there, hidden: reads the request, fills the form and shows the frame.
  void Start();
  /// The window is going.
  void End();

  /// A message to one of the windows. The answer to the sender, or nothing for a message that the window doesn't know.
  std::optional<std::intptr_t> OnMessage(XplrWindow window, const Message& message);
  void OnKey(XplrKey key);
  /// The form has another size.
  void OnResized(int width, int height);
  /// A control got or lost the focus.
  void OnFocus(int id, bool focused);
  /// The operator changed the name.
  void OnNameChanged();

  /// walked: the operator came there with the arrow keys, which doesn't ask a place again that has failed lately.
  void OnNodeSelected(NodeId node, bool walked = false);
  void OnNodeOpening(NodeId node, bool walked = false);
  /// The selected node was touched again.
  void OnNodeTouched(NodeId node);
  void OnRowSelected(int row) { list_.OnRowSelected(row); }
  void OnRowClicked(int row) { list_.OnClick(row); }
  void OnRowDoubleClicked(int row) { list_.OnDoubleClick(row); }
  void OnHeaderClicked(int column) { list_.OnHeaderClicked(column); }
  void OnListTyped(TextView letters) { list_.OnTyped(letters); }
  void OnListBackspace() { list_.OnBackspace(); }
  /// The path in the heading was touched, at that character.
  void OnPathTouched(std::size_t at);

  // The find dialog.
  void OnFindKey(FindKey key) { find_.OnKey(key); }
  void OnFindTyped(TextView text) { find_.OnTyped(text); }
  /// A dialog is being destroyed; its text can still be asked for.
  void OnFindClosed() { find_.OnClosed(); }
  void OnFolderClosed() { posts_.Send(XplrWindow::kTree, XplrMessage::kEndFind); }

  /// What tree and list draw.
  [[nodiscard]] const XplrNodes& Nodes() const { return tree_.Nodes(); }
  [[nodiscard]] const XplrList& List() const { return list_; }

 private:
  // Messages, by the window that gets them.
  std::optional<std::intptr_t> OnFrameMessage(const Message& message);
  std::optional<std::intptr_t> OnFormMessage(const Message& message);
  std::optional<std::intptr_t> OnListMessage(const Message& message);
  std::intptr_t OnToolCommand(std::intptr_t code);
  void OnMenuCommand(std::intptr_t id);
  void ShowGivenMessage(std::intptr_t selector, std::intptr_t text);
  // The start.
  void LoadPinnedFolder(std::function<void()> then);
  void Go();
  void StyleForm();
  void FocusFirst();
  // Layout, pin, dialogs.
  void LayOut();
  void TogglePin();
  void UpdatePinState();
  void UpdateMenus();
  void StartFind();
  void StartFolderSearch();
  void EndFind();
  void EndFolderSearch();
  // Shares and servers that failed.
  /// The path's place is asked again when it is next used.
  void ForgetFailure(TextView path);
  void NoteFailures();
  void ShowFailures();
  /// The list has begun to load, or has ended.
  void OnLoading(bool loading);
  // Drives that come and go.
  void WatchDrives();
  void UpdateDrives();
  /// Around a message box, whose event loop delivers messages. The drives stay as they are until it ends.
  void BeginBox() { ++boxes_; }
  void EndBox();
  // The end.
  void Accept(const Text& path, const Text& name);
  void FinishExplorer(int code);
  void ShowNotice(const XplrNotice& notice);
  void ShowPane(int heading, bool focused);
  void SyncName();

  XplrState state_;
  SortState startSort_;
  std::int32_t request_ = 0;
  // Filled when the session is shared; a step of a job finds it through this.
  const std::shared_ptr<std::weak_ptr<ToolSession<XplrView>>> self_;
  XplrSettings settings_;
  const SharedFailures failures_ = std::make_shared<XplrFailures>();
  CarefulPlaces places_;
  CarefulNetwork network_;
  XplrJobs jobs_;
  XplrFolders folders_;
  XplrPosts posts_;
  XplrMenus menus_;
  XplrTree tree_;
  XplrList list_;
  XplrAccept accept_;
  XplrFind find_;
  XplrPreview preview_;
  ScopedTimer comingTimer_;
  bool comingShown_ = false;
  std::map<Text, TimerId> failed_;  // when each place may be asked again
  int width_ = 0;
  int height_ = 0;
  bool started_ = false;       // the list exists, and sizes count
  bool focusGiven_ = false;    // a control has got the first focus
  bool messageShown_ = false;  // a numbered message is on the line
  bool messageIsNew_ = false;  // and not to be cleared by the update that comes with it
  int boxes_ = 0;              // message boxes that are open
  bool drivesPosted_ = false;  // the message that updates the drives is on its way, or waits for the boxes
};

}  // namespace pnl
