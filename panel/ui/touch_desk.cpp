// SPDX-License-Identifier: MIT
#include "ui/touch_desk.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointingDevice>
#include <QTextEdit>
#include <utility>

namespace panel {
namespace {

/// The view whose current cell can be typed over; null for any other widget.
const QAbstractItemView* CellsOf(const QWidget& widget) {
  const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
  if (view == nullptr || !view->currentIndex().isValid()) return nullptr;
  const Qt::ItemFlags flags = view->currentIndex().flags();
  return flags.testFlag(Qt::ItemIsEditable) && flags.testFlag(Qt::ItemIsEnabled) ? view : nullptr;
}

/// Whether the widget is made for text, even if nothing can be typed into it now.
bool IsTextField(const QWidget& widget) {
  if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) return combo->isEditable();
  return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
         qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
         qobject_cast<const QTextEdit*>(&widget) != nullptr || CellsOf(widget) != nullptr;
}

bool IsReadOnly(const QWidget& widget) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->isReadOnly();
  if (const auto* plain = qobject_cast<const QPlainTextEdit*>(&widget)) return plain->isReadOnly();
  if (const auto* rich = qobject_cast<const QTextEdit*>(&widget)) return rich->isReadOnly();
  return false;
}

/// Whether the widget belongs to a list or a question that a tool has opened over its field.
bool IsInDialog(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    if (at->property("pnlDialog").toBool()) return true;
  }
  return false;
}

}  // namespace

TouchDesk::TouchDesk(QWidget& panel) : panel_(panel) {
  connect(qApp, &QApplication::focusChanged, this, &TouchDesk::ReviewSoon);
  qApp->installEventFilter(this);
}

TouchDesk::~TouchDesk() = default;

bool TouchDesk::TakesText(const QWidget& widget) {
  return IsTextField(widget) && widget.isEnabled() && !IsReadOnly(widget);
}

void TouchDesk::SetTouched(bool on) {
  touchScreen_ = on;
  switchedOn_ = on;
  ReviewSoon();
}

void TouchDesk::SwitchOn() {
  switchedOn_ = true;
  ReviewSoon();
}

void TouchDesk::Toggle() {
  if (up_) {
    PutAway();
    switchedOn_ = touchScreen_;
    emit Switched(switchedOn_);
    return;
  }
  forced_ = true;
  switchedOn_ = true;
  interrupted_ = false;
  typed_ = false;
  Review();
  emit Switched(switchedOn_);
}

void TouchDesk::SetInterrupted(bool on) {
  interrupted_ = on;
  Review();
}

void TouchDesk::PutAway() {
  forced_ = false;
  wanted_ = false;
  away_ = true;
  Review();
}

void TouchDesk::ReviewSoon() {
  if (std::exchange(soon_, true)) return;
  // The focus may move on at once, and a tool may still be placing its controls.
  QMetaObject::invokeMethod(
      this,
      [this] {
        soon_ = false;
        Review();
      },
      Qt::QueuedConnection);
}

void TouchDesk::Review() {
  QWidget* focus = QApplication::focusWidget();
  const bool here = focus != nullptr && focus->window() == &panel_;
  // A box with its own window takes no text from this keyboard. The field below the box needs the keyboard again later.
  if (here && focus != focus_ && !interrupted_) {
    away_ = false;
    if (!IsTextField(*focus) && !IsInDialog(*focus)) wanted_ = false;
    focus_ = focus;
  }
  const bool takes = here && TakesText(*focus) && !away_ && !typed_ && (wanted_ || switchedOn_);
  // The operator also uses these keys in a list that opens under a field.
  const bool stays = up_ && here && !away_ && IsInDialog(*focus);
  const bool up = !interrupted_ && (forced_ || takes || stays);
  const bool changed = up != std::exchange(up_, up);
  if (changed || up_) emit Changed();
}

void TouchDesk::OnFinger(const QPointer<QWidget>& touched) {
  const QWidget* focus = QApplication::focusWidget();
  if (!touched || focus == nullptr || !TakesText(*focus)) return;
  if (focus != touched && !focus->isAncestorOf(touched)) return;
  interrupted_ = false;
  wanted_ = true;
  away_ = false;
  typed_ = false;
  Review();
}

bool TouchDesk::IsFinger(const QEvent& event) const {
  if (!event.spontaneous()) return false;
  if (event.type() == QEvent::TouchBegin) return true;
  if (event.type() != QEvent::MouseButtonPress && event.type() != QEvent::MouseButtonDblClick) return false;
  const auto& press = static_cast<const QMouseEvent&>(event);
  const bool screen =
      press.pointingDevice() != nullptr && press.pointingDevice()->type() == QInputDevice::DeviceType::TouchScreen;
  return touchScreen_ || switchedOn_ || screen;
}

bool TouchDesk::Concerns(const QObject* watched, const QEvent& event) const {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || !watched->isWidgetType()) return false;
  switch (event.type()) {
    case QEvent::ReadOnlyChange:
    case QEvent::EnabledChange:
      return watched == focus;
    case QEvent::Move:
    case QEvent::Resize:
      return up_ && watched != &panel_ &&
             (watched == focus || static_cast<const QWidget*>(watched)->isAncestorOf(focus));
    default:
      return false;
  }
}

bool TouchDesk::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && event->spontaneous()) {
    typed_ = true;
    if (up_) PutAway();
    return false;
  }
  if (watched->isWidgetType() && IsFinger(*event)) {
    // Afterwards, because the press decides who has the focus.
    const QPointer<QWidget> touched(static_cast<QWidget*>(watched));
    QMetaObject::invokeMethod(
        this, [this, touched] { OnFinger(touched); }, Qt::QueuedConnection);
  } else if (Concerns(watched, *event)) {
    ReviewSoon();
  }
  return false;
}

QRect TouchDesk::Seen(const QWidget& area, int most) {
  const QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr || (focus != &area && !area.isAncestorOf(focus))) return {};
  QRect place = focus->rect();
  if (const QAbstractItemView* cells = CellsOf(*focus)) {
    const QRect cell = cells->visualRect(cells->currentIndex()) & cells->viewport()->rect();
    if (!cell.isEmpty()) place = cell.translated(cells->viewport()->pos());
  } else if (place.height() > most) {
    if (const auto* view = qobject_cast<const QAbstractItemView*>(focus); view != nullptr) {
      place = view->visualRect(view->currentIndex()) & view->viewport()->rect();
    } else {
      place = focus->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    }
  }
  return place.isEmpty() ? QRect() : QRect(focus->mapTo(&area, place.topLeft()), place.size());
}

}  // namespace panel
