// SPDX-License-Identifier: MIT
// Keys and presses in a grid. While an edit is open its editor gets the keys (grid_delegate.cpp).
#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLineEdit>
#include <utility>

#include "controls/grid_header.h"
#include "controls/zc_grid_xwrap.h"

namespace pnl {
namespace {

bool IsMove(int key) {
  switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return true;
    default:
      return false;
  }
}

bool IsInput(QEvent::Type type) {
  return type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
         type == QEvent::MouseButtonDblClick || type == QEvent::MouseMove;
}

/// The signs that a key types; empty for a key that types none.
QString TypedSigns(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return {};
  const QString text = event.text();
  if (text.isEmpty()) return {};
  return text.front().isPrint() || text.front().isHighSurrogate() ? text : QString();
}

}  // namespace

bool ZCGridXWrap::event(QEvent* event) {
  const QEvent::Type type = event->type();
  const bool focus = type == QEvent::FocusIn || type == QEvent::FocusOut;
  if (type != QEvent::KeyPress && !focus) return QTableView::event(event);
  if (type == QEvent::KeyPress && RunKeyHook(static_cast<QKeyEvent&>(*event))) return true;
  bool handled = false;
  InStep([&] {
    handled = QTableView::event(event);
    if (focus) NoteFocus();
  });
  return handled;
}

bool ZCGridXWrap::viewportEvent(QEvent* event) {
  if (!IsInput(event->type())) return QTableView::viewportEvent(event);
  bool handled = false;
  InStep([&] { handled = QTableView::viewportEvent(event); });
  return handled;
}

bool ZCGridXWrap::eventFilter(QObject* watched, QEvent* event) {
  auto* corner = qobject_cast<QAbstractButton*>(watched);
  if (corner == nullptr || event->type() != QEvent::Paint) return QTableView::eventFilter(watched, event);
  QPainter painter(corner);
  columnHeader_->DrawSection(painter, corner->rect(), -1);
  return true;
}

bool ZCGridXWrap::RunKeyHook(QKeyEvent& event) {
  if (!keyHook_) return false;
  const QPointer<ZCGridXWrap> alive(this);
  // A copy: the hook may destroy the grid.
  const KeyHook hook = keyHook_;
  const bool taken = hook(event);
  if (taken) event.accept();
  return taken || !alive;
}

void ZCGridXWrap::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (IsMove(key)) {
    QTableView::keyPressEvent(event);
    // At the edge the key does nothing, and nobody else gets it.
    return event->accept();
  }
  bool taken = false;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    taken = BeginEdit();
  } else if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
    taken = MoveBy(key == Qt::Key_Tab);
  } else if (key == Qt::Key_Backspace || key == Qt::Key_Delete) {
    taken = BeginTyping({});
  } else if (key == Qt::Key_Space && ToggleCheck()) {
    taken = true;
  } else if (const QString typed = TypedSigns(*event); !typed.isEmpty()) {
    taken = BeginTyping(typed);
  }
  event->setAccepted(taken);
}

bool ZCGridXWrap::MoveBy(bool forward) {
  if (!currentIndex().isValid()) return false;
  int row = Row();
  int column = Column();
  do {
    column += forward ? 1 : -1;
    if (column >= cells_.Columns()) {
      column = 1;
      ++row;
    } else if (column < 1) {
      column = cells_.Columns() - 1;
      --row;
    }
    if (row < 1 || row >= cells_.Rows()) return false;
  } while (isColumnHidden(column));
  Select(row, column);
  return true;
}

bool ZCGridXWrap::BeginTyping(const QString& text) {
  const QModelIndex cell = currentIndex();
  if (!cells_.flags(cell).testFlag(Qt::ItemIsEditable) || !delegate_->MayBegin(cell, text)) return false;
  InStep([&] {
    BeginEdit();
    if (auto* line = qobject_cast<QLineEdit*>(delegate_->Editor())) {
      line->selectAll();
      if (text.isEmpty()) line->del();
      line->insert(text);
    } else if (auto* list = qobject_cast<ListBox*>(delegate_->Editor())) {
      if (!text.isEmpty()) list->keyboardSearch(text);
    }
  });
  return true;
}

void ZCGridXWrap::mousePressEvent(QMouseEvent* event) {
  const QModelIndex under = indexAt(event->position().toPoint());
  const bool left = event->button() == Qt::LeftButton;
  pressedAgain_ = left && under.isValid() && under == currentIndex() && event->modifiers() == Qt::NoModifier;
  pressed_ = left ? under : QModelIndex();
  if (left) QTableView::mousePressEvent(event);
}

void ZCGridXWrap::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  const QModelIndex pressed = std::exchange(pressed_, QPersistentModelIndex());
  if (!pressed.isValid() || indexAt(event->position().toPoint()) != pressed || currentIndex() != pressed) return;
  if (!ToggleCheck() && std::exchange(pressedAgain_, false)) BeginEdit();
}

void ZCGridXWrap::mouseDoubleClickEvent(QMouseEvent* event) {
  const QModelIndex under = indexAt(event->position().toPoint());
  if (event->button() != Qt::LeftButton || !under.isValid() || under != currentIndex()) return;
  // A check cell takes a second quick touch as another one.
  if (cells_.flags(under).testFlag(Qt::ItemIsUserCheckable)) {
    pressed_ = under;
  } else {
    BeginEdit();
  }
}

}  // namespace pnl
