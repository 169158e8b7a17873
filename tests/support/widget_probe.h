// SPDX-License-Identifier: MIT
// An operator's hands and eyes for window tests: keys and presses as events, pixels as colours 0x00BBGGRR. Nothing
// waits.
#pragma once

#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <cstdint>

namespace pnl::test {

/// What the widget paints now, one paint.
inline QImage Paint(QWidget& widget) {
  if (widget.size().isEmpty()) return {};
  QImage image(widget.size(), QImage::Format_RGB32);
  image.fill(Qt::magenta);
  widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
  return image;
}

inline std::uint32_t ColorAt(const QImage& image, int x, int y) {
  const QColor color = image.pixelColor(x, y);
  return static_cast<std::uint32_t>(color.red() | color.green() << 8 | color.blue() << 16);
}

/// How many points of the area have exactly that colour.
inline int Count(const QImage& image, std::uint32_t color, QRect area) {
  int count = 0;
  area &= image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) count += ColorAt(image, x, y) == color ? 1 : 0;
  }
  return count;
}
inline int Count(const QImage& image, std::uint32_t color) { return Count(image, color, image.rect()); }

/// The smallest rectangle around the points of the area that have not that colour; empty when all have.
inline QRect Ink(const QImage& image, std::uint32_t ground, QRect area) {
  QRect ink;
  area &= image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (ColorAt(image, x, y) != ground) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}
inline QRect Ink(const QImage& image, std::uint32_t ground) { return Ink(image, ground, image.rect()); }

/// Everything posted is handled and what was to be deleted later is gone.
inline void Settle() {
  for (int round = 0; round < 5; ++round) {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
  }
}

/// Shows a window and makes it the active one, so that its widgets can have the focus.
inline void Activate(QWidget& window) {
  window.show();
  window.activateWindow();
  Settle();
}

/// A key to the widget; true when it, or one of its parents, took it.
inline bool PressKey(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(widget, &press);
  return press.isAccepted();
}

inline void Type(QWidget* widget, const QString& text) {
  for (const QChar c : text) PressKey(widget, c.toUpper().unicode(), QString(c));
}

/// A press at a place of the widget; the focus follows as the widgets' policies say.
inline void PressMouse(QWidget* widget, QPoint place, QEvent::Type type = QEvent::MouseButtonPress,
                       Qt::MouseButton button = Qt::LeftButton) {
  for (QWidget* taker = widget; taker != nullptr && type == QEvent::MouseButtonPress; taker = taker->parentWidget()) {
    if (taker->isEnabled() && (taker->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus) {
      taker->setFocus(Qt::MouseFocusReason);
      break;
    }
    if (taker->isWindow()) break;
  }
  QMouseEvent event(type, place, widget->mapToGlobal(place), button, button, Qt::NoModifier);
  QApplication::sendEvent(widget, &event);
}

}  // namespace pnl::test
