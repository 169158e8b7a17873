// SPDX-License-Identifier: MIT
// Keys and presses as a platform reports them to the kit. They go through shortcuts, focus and open lists like those of
// an operator, while an event that is sent to a widget goes to that widget alone. Each is handled before the call
// returns.
#pragma once

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtWidgets/QWidget>

// The kit has these two functions for its own tests and declares them in no header for applications.
extern Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                           const QString& text, bool repeated, ushort count);
extern Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                             Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type,
                                             Qt::KeyboardModifiers modifiers, int timestamp);

namespace pnl::test {

/// Reports a key of the keyboard that is pressed in this window, or pressed again because it is held.
inline void PressPlatformKey(const QWidget& window, int key, const QString& text = {},
                             Qt::KeyboardModifiers modifiers = {}, bool repeated = false) {
  qt_handleKeyEvent(window.windowHandle(), QEvent::KeyPress, key, modifiers, text, repeated, 1);
}
inline void ReleasePlatformKey(const QWidget& window, int key, const QString& text = {},
                               Qt::KeyboardModifiers modifiers = {}) {
  qt_handleKeyEvent(window.windowHandle(), QEvent::KeyRelease, key, modifiers, text, false, 1);
}

/// A place of a widget as a platform knows it. It is still valid after the widget is gone.
struct PlatformPlace {
  QPointer<QWidget> window;
  QPointF local;
  QPointF global;
};
inline PlatformPlace PlatformPlaceOf(const QWidget& widget, const QPoint& place) {
  return {widget.window(), widget.mapTo(widget.window(), place), widget.mapToGlobal(place)};
}

/// Reports the left button of the mouse there, pressed or released, at that time in milliseconds. Does nothing if the
/// window is gone.
inline void ReportPlatformButton(const PlatformPlace& at, bool press, int time) {
  if (!at.window || at.window->windowHandle() == nullptr) return;
  qt_handleMouseEvent(at.window->windowHandle(), at.local, at.global, press ? Qt::LeftButton : Qt::NoButton,
                      Qt::LeftButton, press ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, {}, time);
}
/// Reports a press and its release. The press comes pause milliseconds after time, and time is moved on.
inline void ClickPlatformButton(const PlatformPlace& at, int& time, int pause) {
  ReportPlatformButton(at, true, time += pause);
  ReportPlatformButton(at, false, time += 1);
}

}  // namespace pnl::test
