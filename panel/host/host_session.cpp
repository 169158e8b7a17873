// SPDX-License-Identifier: MIT
#include "host/host_session.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>
#include <algorithm>

#include "common/record_fields.h"

namespace panel {
namespace {

HostSession* current = nullptr;

QString FromText(const char16_t* text) { return text == nullptr ? QString() : QString::fromUtf16(text); }

}  // namespace

const std::array<const char*, kSlotCount> kSlotNames = {"HostMayOpenTool",
                                                        "HostToolOpening",
                                                        "HostToolClosed",
                                                        "HostSetMainMenu",
                                                        "HostSetSideMenu",
                                                        "HostUpdateMainMenu",
                                                        "HostUpdateSideMenu",
                                                        "HostShowMessage",
                                                        "HostExplorerRequest",
                                                        "HostCalcResultAccepted",
                                                        "HostExplorerAccepted",
                                                        "HostExplorerAcceptedAlt",
                                                        "HostInsertBlock",
                                                        "HostShowError",
                                                        "HostErrorsGone",
                                                        "HostForwardKey",
                                                        "HostToolWantsClose",
                                                        "HostOpenCalculator",
                                                        "HostOpenMachiningCalculator"};

/// The nineteen callbacks. They are plain functions, so each finds the one session and passes the call on.
struct HostCallbacks {
  static int Tell(int slot, QVariantList args = {}) {
    if (current == nullptr) return 0;
    current->OnCall({slot, std::move(args)});
    // A listener may have destroyed the session.
    return current == nullptr ? 0 : current->ReturnOf(slot);
  }

  static int MayOpenTool(int tool) { return Tell(PNL_SLOT_MAY_OPEN_TOOL, {tool}); }
  static void ToolOpening(int tool) { Tell(PNL_SLOT_TOOL_OPENING, {tool}); }
  static void ToolClosed(int tool, int reason) { Tell(PNL_SLOT_TOOL_CLOSED, {tool, reason}); }
  static void SetMainMenu(int tool, HostMenuRef menu) { Tell(PNL_SLOT_SET_MAIN_MENU, {tool, menu.menu}); }
  static void SetSideMenu(int tool, HostMenuRef menu) { Tell(PNL_SLOT_SET_SIDE_MENU, {tool, menu.menu}); }
  static void UpdateMainMenu(int tool, int zero) { Tell(PNL_SLOT_UPDATE_MAIN_MENU, {tool, zero}); }
  static void UpdateSideMenu(int tool, int zero) { Tell(PNL_SLOT_UPDATE_SIDE_MENU, {tool, zero}); }
  static void ShowMessage(int tool, const HostMessage* message) {
    if (message == nullptr) return;
    Tell(PNL_SLOT_SHOW_MESSAGE, {tool, QVariantMap{{"line", message->line},
                                                   {"text", FromField(message->text)},
                                                   {"back", message->back},
                                                   {"fore", message->fore}}});
  }
  static void ExplorerRequest() { Tell(PNL_SLOT_EXPLORER_REQUEST); }
  static void CalcResultAccepted() { Tell(PNL_SLOT_CALC_RESULT_ACCEPTED); }
  static void ExplorerAccepted() { Tell(PNL_SLOT_EXPLORER_ACCEPTED); }
  static void ExplorerAcceptedAlt() { Tell(PNL_SLOT_EXPLORER_ACCEPTED_ALT); }
  static void InsertBlock() { Tell(PNL_SLOT_INSERT_BLOCK); }
  static int ShowError(const HostErrorLine* line) {
    if (line == nullptr) return Tell(PNL_SLOT_SHOW_ERROR, {QVariant()});
    return Tell(PNL_SLOT_SHOW_ERROR, {QVariantMap{{"back", line->backColor},
                                                  {"fore", line->textColor},
                                                  {"helpRef", FromText(line->helpRef)},
                                                  {"header", FromText(line->headerText)}}});
  }
  static void ErrorsGone() { Tell(PNL_SLOT_ERRORS_GONE); }
  static void ForwardKey(int key) { Tell(PNL_SLOT_FORWARD_KEY, {key}); }
  static void ToolWantsClose(int tool) { Tell(PNL_SLOT_TOOL_WANTS_CLOSE, {tool}); }
  static void OpenCalculator() { Tell(PNL_SLOT_OPEN_CALCULATOR); }
  static void OpenMachiningCalculator() { Tell(PNL_SLOT_OPEN_MACHINING_CALCULATOR); }
};

HostSession::HostSession(QObject* parent) : QObject(parent) {
  returns_[0] = 1;
  current = this;
}

HostSession::~HostSession() {
  CloseAll();
  Offer({});
  if (PnlIsAlive(toolArea_)) PnlAttachWidget(PnlWidgetOf(toolArea_), nullptr, nullptr);
  if (PnlIsAlive(mainWindow_)) PnlAttachWidget(PnlWidgetOf(mainWindow_), nullptr, nullptr);
  if (current == this) current = nullptr;
}

HostSession* HostSession::Current() { return current; }

intptr_t HostSession::OnMessage(void* context, PnlWindow window, std::uint32_t message, intptr_t first,
                                intptr_t second) {
  (void)window;
  emit static_cast<HostSession*>(context)->MessageArrived(message, first, second);
  return 0;
}

void HostSession::SetToolArea(QWidget* area) { toolArea_ = PnlAttachWidget(area, &HostSession::OnMessage, this); }

void HostSession::SetMainWindow(QWidget* window) {
  mainWindow_ = PnlAttachWidget(window, &HostSession::OnMessage, this);
  PnlSetMainWindow(mainWindow_);
}

void HostSession::Offer(const std::vector<int>& slotNumbers) {
  using C = HostCallbacks;
  const auto pick = [&slotNumbers](int slot, auto function) {
    return std::find(slotNumbers.begin(), slotNumbers.end(), slot) != slotNumbers.end() ? function : nullptr;
  };
  SetPNLApi(pick(0, &C::MayOpenTool), pick(1, &C::ToolOpening), pick(2, &C::ToolClosed), pick(3, &C::SetMainMenu),
            pick(4, &C::SetSideMenu), pick(5, &C::UpdateMainMenu), pick(6, &C::UpdateSideMenu),
            pick(7, &C::ShowMessage), pick(8, &C::ExplorerRequest), pick(9, &C::CalcResultAccepted),
            pick(10, &C::ExplorerAccepted), pick(11, &C::ExplorerAcceptedAlt), pick(12, &C::InsertBlock),
            pick(13, &C::ShowError), pick(14, &C::ErrorsGone), pick(15, &C::ForwardKey), pick(16, &C::ToolWantsClose),
            pick(17, &C::OpenCalculator), pick(18, &C::OpenMachiningCalculator));
}

void HostSession::OfferAll() {
  std::vector<int> all(kSlotCount);
  for (int slot = 0; slot < kSlotCount; ++slot) all[static_cast<std::size_t>(slot)] = slot;
  Offer(all);
}

void HostSession::SetReturn(int slot, int value) {
  if (slot >= 0 && slot < kSlotCount) returns_[static_cast<std::size_t>(slot)] = value;
}

PnlWindow HostSession::LoadTool(int toolId, PnlWindow parent) {
  const PnlWindow window = LoadPNLTool(toolId, parent);
  if (window == 0) return 0;
  // Tools that come and go leave their windows here.
  std::erase_if(loaded_, [](const auto& entry) { return PnlIsAlive(entry.second) == 0; });
  loaded_.emplace_back(toolId, window);
  // A window may go without a report that its tool has closed.
  connect(static_cast<QWidget*>(PnlWidgetOf(window)), &QObject::destroyed, this, [this, toolId] {
    if (ToolWindow(toolId) == 0) KeepToolState(toolId, false);
  });
  emit ToolsChanged();
  return window;
}

PnlWindow HostSession::ToolWindow(int toolId) const {
  for (auto it = loaded_.rbegin(); it != loaded_.rend(); ++it) {
    if (it->first == toolId && PnlIsAlive(it->second)) return it->second;
  }
  return 0;
}

std::vector<PnlWindow> HostSession::ToolWindows() const {
  std::vector<PnlWindow> alive;
  for (const auto& [tool, window] : loaded_) {
    if (PnlIsAlive(window)) alive.push_back(window);
  }
  return alive;
}

void HostSession::DestroyTool(PnlWindow window) {
  const auto it =
      std::find_if(loaded_.begin(), loaded_.end(), [window](const auto& entry) { return entry.second == window; });
  const int tool = it == loaded_.end() ? -1 : it->first;
  // What the window does at its end may load another tool.
  PnlDestroyWindow(window);
  std::erase_if(loaded_, [window](const auto& entry) { return entry.second == window; });
  if (tool >= 0 && ToolWindow(tool) == 0) KeepToolState(tool, false);
}

void HostSession::CloseAll() {
  // The command line gives its channel back before its window goes. The close command reaches it in every state.
  constexpr int kChannel = 1;
  const auto loaded = loaded_;
  for (const auto& [tool, window] : loaded) {
    if (!PnlIsAlive(window)) continue;
    if (tool == PNL_TOOL_MDI) PnlSendMessage(window, PNL_MSG_TOOL_COMMAND, PNL_COMMAND_CLOSE, kChannel);
    DestroyTool(window);
  }
}

bool HostSession::IsToolOpen(int toolId) const {
  return std::find(openFrontLast_.begin(), openFrontLast_.end(), toolId) != openFrontLast_.end();
}

int HostSession::FrontTool() const { return openFrontLast_.empty() ? -1 : openFrontLast_.back(); }

void HostSession::BringToFront(int toolId) {
  const PnlWindow window = ToolWindow(toolId);
  auto* widget = static_cast<QWidget*>(PnlWidgetOf(window));
  if (widget == nullptr || !IsToolOpen(toolId)) return;
  widget->raise();
  KeepToolState(toolId, true);
  FocusWithin(window);
}

bool HostSession::IsTypedIn(PnlWindow window) {
  const auto* widget = static_cast<const QWidget*>(PnlWidgetOf(window));
  const auto* line = widget == nullptr ? nullptr : qobject_cast<const QLineEdit*>(widget->focusWidget());
  return line != nullptr && line->isEnabled() && !line->isReadOnly();
}

void HostSession::FocusWithin(PnlWindow window) {
  auto* widget = static_cast<QWidget*>(PnlWidgetOf(window));
  if (widget == nullptr) return;
  const QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == widget || widget->isAncestorOf(focused))) return;
  QWidget* last = widget->focusWidget();
  // When the control can't take the keyboard now, its window does.
  if (last != nullptr && (!last->isVisible() || !last->isEnabled())) last = widget;
  auto* line = qobject_cast<QLineEdit*>(last);
  if (line == nullptr) return (last != nullptr ? last : widget)->setFocus(Qt::OtherFocusReason);
  // A tool may move the caret when the line gets the focus. The operator goes on where he was, so the caret is put
  // back.
  const int caret = line->cursorPosition();
  const int start = line->selectionStart();
  const int length = line->selectionLength();
  const QPointer<QLineEdit> alive(line);
  line->setFocus(Qt::OtherFocusReason);
  if (!alive) return;
  line->setCursorPosition(caret);
  // A selection that was made from right to left has the caret at its start.
  if (start >= 0) line->setSelection(caret == start ? start + length : start, caret == start ? -length : length);
}

void HostSession::WorkInProgram() {
  if (std::exchange(workingTool_, -1) >= 0) emit WorkChanged();
}

void HostSession::TurnToProgram() {
  WorkInProgram();
  emit ToolsChanged();
}

void HostSession::TypeInto(int toolId, int key) {
  if (FrontTool() != toolId) return;
  FocusWithin(ToolWindow(toolId));
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    // The press may destroy the window. What then has the focus must not get the release.
    auto* widget = static_cast<QWidget*>(PnlWidgetOf(ToolWindow(toolId)));
    QWidget* focus = QApplication::focusWidget();
    if (widget == nullptr || focus == nullptr) return;
    QKeyEvent event(type, key, Qt::NoModifier);
    QCoreApplication::sendEvent(focus, &event);
  }
}

HostSession::ToolMenu HostSession::BarOf(const std::map<int, std::uint32_t>& menus) const {
  for (auto tool = openFrontLast_.rbegin(); tool != openFrontLast_.rend(); ++tool) {
    const auto menu = menus.find(*tool);
    if (menu == menus.end()) continue;
    // When a tool has cleared its bar, the panel gets it, not the next open tool.
    if (PnlMenuItemCount(menu->second) < 0) break;
    return {*tool, menu->second};
  }
  return {-1, 0};
}

void HostSession::KeepToolState(int tool, bool open) {
  const auto before = openFrontLast_;
  const int worked = workingTool_;
  openFrontLast_.erase(std::remove(openFrontLast_.begin(), openFrontLast_.end(), tool), openFrontLast_.end());
  if (open) openFrontLast_.push_back(tool);
  KeepWorkingTool(tool, open);
  const QPointer<HostSession> alive(this);
  if (!open) DropMessagesOf(tool);
  if (alive && openFrontLast_ != before) emit ToolsChanged();
  if (alive && workingTool_ != worked) emit WorkChanged();
}

void HostSession::KeepWorkingTool(int tool, bool open) {
  if (tool == PNL_TOOL_ERRORS) return;
  if (open) {
    workingTool_ = tool;
  } else if (workingTool_ == tool) {
    const auto behind = std::find_if(openFrontLast_.rbegin(), openFrontLast_.rend(),
                                     [](int other) { return other != PNL_TOOL_ERRORS; });
    workingTool_ = behind == openFrontLast_.rend() ? -1 : *behind;
  }
}

void HostSession::KeepMessage(int tool, const QVariantMap& message) {
  const int line = message.value("line").toInt();
  const QString text = message.value("text").toString();
  if (text.isEmpty()) {
    messages_.erase(line);
  } else {
    messages_[line] = {tool, text, message.value("back").toUInt(), message.value("fore").toUInt()};
  }
  emit MessagesChanged();
}

void HostSession::DropMessagesOf(int tool) {
  // A tool clears its first line itself when it closes, or leaves a farewell there.
  const auto dropped =
      std::erase_if(messages_, [tool](const auto& entry) { return entry.first > 1 && entry.second.tool == tool; });
  if (dropped != 0) emit MessagesChanged();
}

void HostSession::OnCall(const HostCall& call) {
  // A listener may destroy the session.
  const QPointer<HostSession> alive(this);
  const auto first = [&call] { return call.args.value(0).toInt(); };
  // The session updates its state before it emits Called, so that a listener sees the new state.
  switch (call.slot) {
    case PNL_SLOT_TOOL_OPENING:
      KeepToolState(first(), true);
      break;
    case PNL_SLOT_TOOL_CLOSED:
      KeepToolState(first(), false);
      break;
    case PNL_SLOT_SET_MAIN_MENU:
      mainMenuTool_ = first();
      mainMenu_ = call.args.value(1).toUInt();
      mainMenus_[mainMenuTool_] = mainMenu_;
      break;
    case PNL_SLOT_SET_SIDE_MENU:
      sideMenuTool_ = first();
      sideMenu_ = call.args.value(1).toUInt();
      sideMenus_[sideMenuTool_] = sideMenu_;
      break;
    case PNL_SLOT_SHOW_MESSAGE:
      KeepMessage(first(), call.args.value(1).toMap());
      break;
    default:
      break;
  }
  if (!alive) return;
  emit Called(call);
  if (!alive) return;
  if (call.slot == PNL_SLOT_SET_MAIN_MENU || call.slot == PNL_SLOT_UPDATE_MAIN_MENU) emit MainMenuChanged();
  if (call.slot == PNL_SLOT_SET_SIDE_MENU || call.slot == PNL_SLOT_UPDATE_SIDE_MENU) emit SideMenuChanged();
}

}  // namespace panel
