// SPDX-License-Identifier: MIT
// A window with two fields and a button under a touch desk, and what a platform tells of keys and fingers.
#pragma once

#include <QtGui/qtestsupport_gui.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointingDevice>
#include <QPushButton>
#include <QWindow>

#include "ui/touch_desk.h"

// How a platform tells of its keyboard and its pointer.
extern Q_GUI_EXPORT void qt_handleKeyEvent(QWindow* window, QEvent::Type type, int key, Qt::KeyboardModifiers modifiers,
                                           const QString& text, bool repeated, ushort count);
extern Q_GUI_EXPORT void qt_handleMouseEvent(QWindow* window, const QPointF& local, const QPointF& global,
                                             Qt::MouseButtons held, Qt::MouseButton button, QEvent::Type type,
                                             Qt::KeyboardModifiers modifiers, int timestamp);

namespace panel {

class TouchDeskTest : public ::testing::Test {
 protected:
  TouchDeskTest() {
    panel.resize(400, 300);
    first = Make<QLineEdit>(0);
    second = Make<QLineEdit>(30);
    button = Make<QPushButton>(60);
    QObject::connect(&desk, &TouchDesk::Changed, [this] { ++changes; });
    panel.show();
    panel.activateWindow();
    button->setFocus();
    Settle();
  }
  template <typename W>
  W* Make(int top) {
    auto* widget = new W(&panel);
    widget->setGeometry(0, top, 200, 28);
    return widget;
  }
  static void Settle() {
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }
  /// A press of the pointer, so long after the last one that two touches are never a double one.
  void Finger(QWidget* widget, int pause = 10'000) {
    const QPoint place = widget->rect().center();
    const QPointF local = widget->mapTo(&panel, place);
    const QPointF global = widget->mapToGlobal(place);
    qt_handleMouseEvent(panel.windowHandle(), local, global, Qt::LeftButton, Qt::LeftButton, QEvent::MouseButtonPress,
                        {}, now += pause);
    qt_handleMouseEvent(panel.windowHandle(), local, global, Qt::NoButton, Qt::LeftButton, QEvent::MouseButtonRelease,
                        {}, now += 1);
    Settle();
  }
  /// A touch of a touch screen, down and up.
  void Touch(QWidget* widget) {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    const QPointF local = widget->mapTo(&panel, widget->rect().center());
    const QPointF global = widget->mapToGlobal(widget->rect().center());
    for (const auto state : {QEventPoint::State::Pressed, QEventPoint::State::Released}) {
      qt_handleTouchEventv2(panel.windowHandle(), screen, {QEventPoint(1, state, local, global)});
    }
    Settle();
  }
  void RealKey(int key) {
    qt_handleKeyEvent(panel.windowHandle(), QEvent::KeyPress, key, Qt::NoModifier, QStringLiteral("x"), false, 1);
    Settle();
  }
  void Focus(QWidget* widget) {
    widget->setFocus();
    Settle();
  }

  QWidget panel;
  TouchDesk desk{panel};
  QLineEdit* first = nullptr;
  QLineEdit* second = nullptr;
  QPushButton* button = nullptr;
  int changes = 0;
  int now = 0;
};

}  // namespace panel
