// SPDX-License-Identifier: MIT
#include "explorer/xplr_session.h"

#include <utility>

#include "base/format.h"
#include "host/storage_messages.h"

namespace pnl {
namespace {

constexpr int kTool = PNL_TOOL_EXPLORER;

/// A fitted height, or a fixed one when it has grown.
int FitOr(Utilities& utilities, int height, int grown) {
  const int fitted = utilities.UTIL7340_FitFontSize(height);
  return fitted > height ? grown : fitted;
}

}  // namespace

XplrSession::XplrSession(const ToolContext& context, XplrView& view)
    : ToolSession(context, view),
      self_(std::make_shared<std::weak_ptr<ToolSession<XplrView>>>()),
      settings_(context.files, context.cnc.Util()),
      places_(context.places, failures_),
      network_(context.network, failures_),
      jobs_(context.worker, XplrSteps([this, self = self_](const std::function<void()>& step) {
              RunOperation(self->lock(), [&](const ToolSession& /*session*/) { NoteFailures(), step(); });
            })),
      folders_(places_, network_, jobs_),
      posts_(context.windows, [this]() -> XplrView& { return View(); }),
      menus_(context.language),
      tree_({state_, folders_, posts_, [this]() -> XplrView& { return View(); },
             [this](const XplrNotice& notice) { ShowNotice(notice), messageIsNew_ = true; }}),
      list_({state_, places_, network_, jobs_, posts_, [this]() -> XplrView& { return View(); },
             [this] { UpdateMenus(); }, [this] { preview_.OnSelected(state_.Path, list_.SelectedRow()); },
             [this](bool loading) { OnLoading(loading); }}),
      accept_(
          {state_, folders_, [this]() -> XplrView& { return View(); },
           [this](const XplrNotice& notice) { ShowNotice(notice); },
           [this](const Text& name) {
             const Text question = Format(Context().language.LoadToolText(xplr_text::kConfirmOverwrite), name);
             const WindowHandle frame = View().Handle();
             BeginBox();
             const BoxAnswer answer = Context().windows.ShowBox(frame, {state_.Title, question, BoxStyle::kQuestion});
             EndBox();
             return answer == BoxAnswer::kYes;
           },
           [this](const Text& path, const Text& name) { Accept(path, name); }}),
      find_(posts_, context.language),
      preview_(places_, jobs_, [this]() -> XplrView& { return View(); }),
      comingTimer_(context.timers) {}

// The start.

void XplrSession::Start() {
  *self_ = weak_from_this();
  settings_.Open();
  WatchDrives();
  Host().HostToolOpening(kTool);
  request_ = RequestNumber(Context().cnc.Vars());
  const XPLRDATA_ST* request = RequestOf(request_);
  state_ = StartState(request, Context().language.LoadToolText(xplr_text::kTitle));
  if (request == nullptr) request_ = 0;
  const auto go = [this] {
    FinishStart(state_, Context().cnc.Util());
    list_.SetSort(SortState::FromText(settings_.Sort()));
    posts_.Send(XplrWindow::kForm, XplrMessage::kGo);
  };
  if (request != nullptr) {
    SanitizeStartFolder(state_, Context().places, Context().cnc.Util());
    LoadPinnedFolder(go);
  } else {
    go();
  }
  // The host may have ended the window when it got the list's menu; nobody would free this one then.
  if (HasEnded()) return;
  state_.Layout = LayoutOf(state_);
  menus_.LoadFrameMenu(state_);
  Host().HostSetSideMenu(kTool, menus_.FrameMenu());
  View().Show();
  View().BringToTop();
  // A drive may take long, or hang, and the operator must be able to leave.
  if (!focusGiven_) View().FocusFrame();
}

/// A pinned folder overrides the folder that the request proposes, if it is still there.
void XplrSession::LoadPinnedFolder(std::function<void()> then) {
  const Text pinned = state_.Has(XPLR_LISTONLY) ? Text() : settings_.PinnedFolder(state_.Owner);
  if (pinned.empty()) {
    then();
    return;
  }
  folders_.LookAt(pinned, [this, pinned, then = std::move(then)](const FileFacts& facts) {
    if (facts.exists) {
      state_.Path = pinned;
      state_.Flags |= XPLR_PINNED;
    }
    then();
  });
}

void XplrSession::Go() {
  StyleForm();
  started_ = true;
  LayOut();
  menus_.LoadListMenu(IsQualityTest(Context().files, Context().cnc.Util()));
  posts_.Send(XplrWindow::kFrame, XplrMessage::kShowMenu, static_cast<std::intptr_t>(menus_.ListMenu()));
  tree_.Fill(Context().language.LoadToolText(xplr_text::kUnavailable),
             [this] { list_.FirstFill([this] { FocusFirst(); }); });
}

void XplrSession::StyleForm() {
  Utilities& utilities = Context().cnc.Util();
  const Language& language = Context().language;
  XplrView& view = View();
  view.StyleForm({FitOr(utilities, 18, 30), FitOr(utilities, 16, 24), utilities.UTIL7340_FitFontSize(14)});
  view.SetColumnTitles({language.LoadToolText(xplr_text::kColumnName), language.LoadToolText(xplr_text::kColumnSize),
                        language.LoadToolText(xplr_text::kColumnDate)});
  view.SetLabel(xplr_control::kCaption, state_.Caption(state_.File));
  view.SetLabel(xplr_control::kFilter, state_.Filter);
  view.SetLabel(xplr_control::kFolder, state_.Path);
  view.SetLabel(xplr_control::kLabel,
                language.LoadToolText(state_.IsFolderMode() ? xplr_text::kFolderLabel : xplr_text::kFileLabel));
  view.SetNameText(state_.File);
}

void XplrSession::FocusFirst() {
  focusGiven_ = true;
  if (state_.ResultFlags != 0) {
    View().FocusControl(xplr_control::kName);
  } else if (state_.IsFolderMode() && state_.Layout == LayoutMode::kTreeAndList) {
    tree_.TakeSelection();
  } else {
    View().FocusControl(xplr_control::kList);
  }
}

void XplrSession::End() {
  if (HasEnded()) return;
  MarkEnded();
  jobs_.DropAll();
  comingTimer_.Stop();
  for (const auto& [place, timer] : failed_) Context().timers.Stop(timer);
  menus_.Destroy();
}

// Messages.

std::optional<std::intptr_t> XplrSession::OnMessage(XplrWindow window, const Message& message) {
  switch (window) {
    case XplrWindow::kFrame:
      return OnFrameMessage(message);
    case XplrWindow::kForm:
      return OnFormMessage(message);
    case XplrWindow::kList:
      return OnListMessage(message);
    case XplrWindow::kTree:
      if (message.number != posts_.NumberOf(XplrMessage::kEndFind)) return std::nullopt;
      EndFolderSearch();
      return 0;
    case XplrWindow::kFind:
      if (message.number != posts_.NumberOf(XplrMessage::kFindResult)) return std::nullopt;
      find_.OnResult(static_cast<int>(message.first));
      return 0;
    case XplrWindow::kFolder:
      break;
  }
  return std::nullopt;
}

std::optional<std::intptr_t> XplrSession::OnFrameMessage(const Message& message) {
  if (message.number == PNL_MSG_TOOL_COMMAND) return OnToolCommand(message.first);
  if (message.number == PNL_MSG_COMMAND) {
    OnMenuCommand(message.first);
  } else if (message.number == posts_.NumberOf(XplrMessage::kShowMenu)) {
    Host().HostSetMainMenu(kTool, static_cast<MenuHandle>(message.first));
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateMenu)) {
    Host().HostUpdateMainMenu(kTool);
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdate)) {
    if (messageShown_ && !std::exchange(messageIsNew_, false)) ShowNotice({});
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdatePinState)) {
    UpdatePinState();
  } else if (message.number == posts_.NumberOf(XplrMessage::kShowMessage)) {
    ShowGivenMessage(message.first, message.second);
  } else {
    return std::nullopt;
  }
  return 0;
}

std::optional<std::intptr_t> XplrSession::OnFormMessage(const Message& message) {
  constexpr std::intptr_t kIsFolder = 4;
  if (message.number == posts_.NumberOf(XplrMessage::kGo)) {
    Go();
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateMenu)) {
    UpdateMenus();
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateCaption)) {
    if (message.first != 0) View().SetLabel(xplr_control::kCaption, TextAt(message.first));
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateFolder)) {
    View().SetLabel(xplr_control::kFolder, message.first == kIsFolder ? state_.Path : Text());
  } else if (message.number == posts_.NumberOf(XplrMessage::kResetList)) {
    list_.Clear();
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateList)) {
    list_.FillList(static_cast<ListMode>(message.first));
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateTree)) {
    tree_.StepIntoChild();
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateEdit)) {
    View().SetNameText(state_.File);
  } else if (message.number == posts_.NumberOf(XplrMessage::kUpdateDrives)) {
    UpdateDrives();
  } else {
    return std::nullopt;
  }
  return 0;
}

std::optional<std::intptr_t> XplrSession::OnListMessage(const Message& message) {
  const bool forward = message.number == posts_.NumberOf(XplrMessage::kFindNext);
  if (message.number == posts_.NumberOf(XplrMessage::kFind)) {
    menus_.EnableSteps(message.first != 0);
    posts_.Send(XplrWindow::kFrame, XplrMessage::kUpdateMenu);
  } else if (forward || message.number == posts_.NumberOf(XplrMessage::kFindPrevious)) {
    if (message.first == 0) return 0;
    list_.SetSearch(View().FindText());
    list_.SearchList(forward);
  } else if (message.number == posts_.NumberOf(XplrMessage::kEndFind)) {
    EndFind();
  } else {
    return std::nullopt;
  }
  return 0;
}

/// Selector: the colour in the low half, the line in the high half.
void XplrSession::ShowGivenMessage(std::intptr_t selector, std::intptr_t text) {
  constexpr std::uint32_t kColors[] = {xplr_color::kHint, xplr_color::kWarning, xplr_color::kRefusal};
  const std::uint16_t color = PnlLowHalf(selector);
  const std::uint16_t line = PnlHighHalf(selector);
  Host().HostShowMessage(kTool, TextAt(text), kColors[color < std::size(kColors) ? color : 0], 0,
                         line < std::size(kColors) ? line + 1 : 1);
}

void XplrSession::ShowNotice(const XplrNotice& notice) {
  messageShown_ = notice.text != 0;
  messageIsNew_ = false;
  Text text;
  if (messageShown_) text = Context().language.LoadToolText(notice.text);
  if (notice.text == xplr_text::kNotInFilter) text = Format(text, state_.Filter);
  Host().HostShowMessage(kTool, text, notice.color);
}

// The end.

void XplrSession::Accept(const Text& path, const Text& name) {
  // The asker may have withdrawn its record meanwhile; then nothing takes the answer.
  if (XPLRDATA_ST* request = RequestOf(request_)) AnswerRequest(*request, path, name);
  FinishExplorer(PNL_CLOSED_ACCEPTED);
}

void XplrSession::FinishExplorer(int code) {
  const bool stored = settings_.SaveSort(list_.Sort().ToText());
  ShowNotice({});
  if (!stored) ShowNotSaved(Context(), kTool, {u"XPLR7340.ini"});
  View().Hide();
  Host().HostToolClosed(kTool, code);
  if (code == PNL_CLOSED_ACCEPTED) {
    if (state_.IsFolderMode()) {
      Host().HostExplorerAcceptedAlt();
    } else {
      Host().HostExplorerAccepted();
    }
  }
  View().Destroy();
}

}  // namespace pnl
