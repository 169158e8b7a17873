// SPDX-License-Identifier: MIT
#include "window/qt/tool_window.h"

#include <QApplication>
#include <QPointer>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/pnl_event.h"
#include "window/qt/qt_text.h"
#include "window/qt/window_registry.h"

namespace pnl {

MessageWindow::MessageWindow(QWidget* parent, Qt::WindowFlags flags) : QWidget(parent, flags) {
  handle_ = WindowRegistry::Instance().Register(this);
}

MessageWindow::~MessageWindow() {
  if (gone_ != nullptr) *gone_ = true;
  EndMessages();
}

void MessageWindow::EndMessages() { WindowRegistry::Instance().Unregister(handle_); }

std::intptr_t MessageWindow::OnMessage(const Message&) { return 0; }

bool MessageWindow::event(QEvent* event) {
  if (event->type() != PnlEvent::EventType()) return QWidget::event(event);
  auto* message = static_cast<PnlEvent*>(event);
  // A handler may run an event loop in which the host's window is destroyed, and this window with it. The destructor
  // then sets the flag of the innermost handling, and each handling sets the flag of the one around it.
  bool gone = false;
  bool* const outer = std::exchange(gone_, &gone);
  ++depth_;
  message->result = OnMessage(message->message);
  if (gone) {
    if (outer != nullptr) *outer = true;
    return true;
  }
  gone_ = outer;
  --depth_;
  return true;
}

ToolWindow::ToolWindow(int toolId, QWidget* parent) : MessageWindow(parent), toolId_(toolId) {
  setProperty(property::kTool, toolId);
  setProperty(property::kTitle, QString());
  hide();
  ++living;
}

ToolWindow::~ToolWindow() { --living; }

void ToolWindow::SetTitleProperty(TextView title) { setProperty(property::kTitle, ToQString(title)); }

void ToolWindow::SetBackProperty(std::uint32_t color) { SetColorProperty(this, property::kBack, color); }

void ToolWindow::SetRemovedProperty(int number) {
  if (property(property::kRemoved).toInt() != number) setProperty(property::kRemoved, number);
}

Rect ToolWindow::ParentArea() const {
  const QWidget* parent = parentWidget();
  return parent == nullptr ? Rect{} : Rect{0, 0, parent->width(), parent->height()};
}

void ToolWindow::HideWithFocus() {
  const QPointer<ToolWindow> alive = this;
  DropFocus();
  // A listener to focus changes may have destroyed the window.
  if (alive) hide();
}

void ToolWindow::DropFocus() {
  QWidget* focused = QApplication::focusWidget();
  if (focused != nullptr && (focused == this || isAncestorOf(focused))) focused->clearFocus();
}

ToolDialog::ToolDialog(QWidget* owner, Qt::WindowFlags flags) : MessageWindow(owner, flags) {
  setProperty(property::kDialog, true);
  setProperty(property::kTitle, QString());
}

void ToolDialog::SetTitleProperty(TextView title) { setProperty(property::kTitle, ToQString(title)); }

}  // namespace pnl
