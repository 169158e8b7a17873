// SPDX-License-Identifier: MIT
// The part of the window that has to do with the keyboard: who has the focus, which keys the logic gets first, and how
// a key reaches a control all the same. And the picker, which takes the keyboard for a while.
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include "help/qt/help_window.h"
#include "help/qt/manual_list_dialog.h"

namespace pnl {
namespace {

HelpKey KeyOf(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return HelpKey::kTab;
    case Qt::Key_Up:
      return HelpKey::kUp;
    case Qt::Key_Down:
      return HelpKey::kDown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return HelpKey::kEnter;
    case Qt::Key_Escape:
      return HelpKey::kEscape;
    case Qt::Key_F:
      return event.modifiers() == Qt::ControlModifier ? HelpKey::kFind : HelpKey::kOther;
    default:
      return HelpKey::kOther;
  }
}

/// Left and Right with Alt, or with the key beside it that types third characters.
bool IsSystemKey(const QKeyEvent& event) {
  const bool arrow = event.key() == Qt::Key_Left || event.key() == Qt::Key_Right;
  return arrow && (event.modifiers() & (Qt::AltModifier | Qt::GroupSwitchModifier)) != 0;
}

/// A key that comes before the panel's shortcuts.
bool IsOurs(const QKeyEvent& event) { return KeyOf(event) != HelpKey::kOther || IsSystemKey(event); }

int QtKeyOf(HelpKey key) {
  switch (key) {
    case HelpKey::kTab:
      return Qt::Key_Tab;
    case HelpKey::kUp:
      return Qt::Key_Up;
    case HelpKey::kDown:
      return Qt::Key_Down;
    case HelpKey::kEnter:
      return Qt::Key_Return;
    default:
      return Qt::Key_Escape;
  }
}

bool IsBelow(const QWidget* widget, const QWidget* control) {
  return control != nullptr && widget != nullptr && (widget == control || control->isAncestorOf(widget));
}

}  // namespace

QWidget* ZCHelpHTML::ControlOf(HelpPart part) const {
  if (QLineEdit* line = LineOf(part)) return line;
  if (ListBox* list = ListOf(part)) return list;
  if (part == HelpPart::kContents) return panes_->contents;
  return part == HelpPart::kPage ? page_ : nullptr;
}

QLineEdit* ZCHelpHTML::LineOf(HelpPart part) const {
  switch (part) {
    case HelpPart::kIndexLine:
      return panes_->indexLine;
    case HelpPart::kSearchLine:
      return panes_->searchLine;
    case HelpPart::kFindLine:
      return findLine_;
    default:
      return nullptr;
  }
}

ListBox* ZCHelpHTML::ListOf(HelpPart part) const {
  if (part == HelpPart::kIndexList) return panes_->indexList;
  return part == HelpPart::kResults ? panes_->results : nullptr;
}

HelpPart ZCHelpHTML::FocusedPart() const {
  const QWidget* focused = QApplication::focusWidget();
  for (const HelpPart part : kHelpParts) {
    if (IsBelow(focused, ControlOf(part))) return part;
  }
  return HelpPart::kNone;
}

void ZCHelpHTML::FocusPart(HelpPart part) {
  QWidget* control = ControlOf(part);
  if (control == nullptr) return;
  const bool had = FocusedPart() == part;
  control->setFocus(Qt::OtherFocusReason);
  QLineEdit* line = LineOf(part);
  if (line != nullptr && !had) line->selectAll();
}

bool ZCHelpHTML::OnKeyDown(const QKeyEvent& event) {
  if (sending_) return false;
  const QKeyEvent* before = std::exchange(present_, &event);
  bool consumed = true;
  const QPointer<ZCHelpHTML> alive(this);
  session_.Tell([&](HelpSession& session) {
    if (IsSystemKey(event)) {
      consumed = session.OnSystemKey(event.key() == Qt::Key_Right, (event.modifiers() & Qt::AltModifier) != 0);
    } else {
      consumed = session.OnKey(KeyOf(event));
    }
  });
  if (alive) present_ = before;
  return consumed;
}

bool ZCHelpHTML::event(QEvent* event) {
  // A key that was sent to a control, and which the control doesn't need, goes no further.
  const bool sent = sending_ && event->type() == QEvent::KeyPress;
  // The controls leave the question whose key it is to the window around them.
  if (event->type() == QEvent::ShortcutOverride && IsOurs(static_cast<QKeyEvent&>(*event))) event->accept();
  if (sent || (event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event)))) return true;
  return ToolWindow::event(event);
}

bool ZCHelpHTML::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget()) {
    if (event->type() == QEvent::Resize) session_.Tell([](HelpSession& session) { session.OnParentResized(); });
    return false;
  }
  return event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event));
}

bool ZCHelpHTML::focusNextPrevChild(bool next) {
  if (!isVisible()) return ToolWindow::focusNextPrevChild(next);
  session_.Tell([](HelpSession& session) { session.OnTabPassed(); });
  return true;
}

void ZCHelpHTML::SendKey(HelpKey key) {
  const HelpPart part = FocusedPart();
  if (key == HelpKey::kEnter && part != HelpPart::kPage && part != HelpPart::kNone) return PressEnter(part);
  const bool moves = key == HelpKey::kUp || key == HelpKey::kDown;
  // From a line the arrows move in the list below it.
  if (moves && part == HelpPart::kIndexLine) return SendTo(panes_->indexList, QtKeyOf(key));
  if (moves && part == HelpPart::kSearchLine) return SendTo(panes_->results, QtKeyOf(key));
  SendTo(QApplication::focusWidget(), QtKeyOf(key));
}

void ZCHelpHTML::PressEnter(HelpPart part) {
  const bool shift = present_ != nullptr && (present_->modifiers() & Qt::ShiftModifier) != 0;
  const int row = SelectedRow(part);
  session_.Tell([=, this](HelpSession& session) {
    if (part == HelpPart::kFindLine && shift) return session.OnFindKey(true);
    if (LineOf(part) != nullptr) return session.OnLineEntered(part);
    session.OnRowChosen(part, row);
  });
}

void ZCHelpHTML::SendTo(QWidget* control, int key) {
  if (control == nullptr) return;
  const auto modifiers = present_ == nullptr ? Qt::KeyboardModifiers() : present_->modifiers();
  // Shift and Tab are one key for the kit.
  const bool backtab = key == Qt::Key_Tab && (modifiers & Qt::ShiftModifier) != 0;
  QKeyEvent press(QEvent::KeyPress, backtab ? Qt::Key_Backtab : key, modifiers);
  const QPointer<ZCHelpHTML> alive(this);
  const bool before = std::exchange(sending_, true);
  QCoreApplication::sendEvent(control, &press);
  if (alive) sending_ = before;
}

void ZCHelpHTML::OpenPicker(const ManualPicker& picker) {
  ClosePicker();
  picker_ = new ZCListManuals(context_.language, scale_, picker, this);
  connect(picker_, &ZCListManuals::Finished, this, [this](bool accepted) {
    const std::optional<ManualChoice> choice = accepted ? picker_->Choice() : std::nullopt;
    ClosePicker();
    session_.Tell([&](HelpSession& session) { session.OnPicked(choice); });
  });
  picker_->show();
  picker_->activateWindow();
}

void ZCHelpHTML::ClosePicker() {
  if (picker_ == nullptr) return;
  ZCListManuals* const picker = std::exchange(picker_, nullptr);
  picker->disconnect(this);
  picker->hide();
  // It may be in the middle of the event that ends it.
  picker->deleteLater();
  // Without a window manager nobody else gives the keys back to the panel.
  if (QApplication::activeWindow() == nullptr) window()->activateWindow();
}

}  // namespace pnl
