// SPDX-License-Identifier: MIT
// A window with two fields and a button under a touch desk, and the keys and touches that a platform reports.
#pragma once

#include <QtGui/qtestsupport_gui.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPointingDevice>
#include <QPushButton>
#include <QWindow>

#include "support/platform_events.h"
#include "ui/touch_desk.h"

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
    pnl::test::ClickPlatformButton(pnl::test::PlatformPlaceOf(*widget, widget->rect().center()), now, pause);
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
    pnl::test::PressPlatformKey(panel, key, QStringLiteral("x"));
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
