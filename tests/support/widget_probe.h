// SPDX-License-Identifier: MIT
// Input and output for window tests: keys and presses as events, pixels as colours 0x00BBGGRR. Nothing here waits.
#pragma once

#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>
#include <cstdint>

namespace pnl::test {

/// Paints the widget once and returns the picture.
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

/// Counts the pixels of the area that have exactly that colour.
inline int Count(const QImage& image, std::uint32_t color, QRect area) {
  int count = 0;
  area &= image.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) count += ColorAt(image, x, y) == color ? 1 : 0;
  }
  return count;
}
inline int Count(const QImage& image, std::uint32_t color) { return Count(image, color, image.rect()); }

/// Returns the smallest rectangle around the pixels of the area that don't have the colour ground; empty when all have
/// it.
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

/// Handles what is posted and deletes what was to be deleted later.
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

/// Sends a key to the widget. Returns true when the widget or one of its parents took it.
inline bool PressKey(QWidget* widget, int key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
  QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
  QApplication::sendEvent(widget, &press);
  return press.isAccepted();
}

inline void Type(QWidget* widget, const QString& text) {
  for (const QChar c : text) PressKey(widget, c.toUpper().unicode(), QString(c));
}

/// Presses a place of the widget. The focus follows the focus policies of the widgets.
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
