// SPDX-License-Identifier: MIT
#include "panel/shift/qt/finger.h"

#include <QtGui/qtestsupport_gui.h>

#include <QApplication>
#include <QEvent>
#include <QEventPoint>
#include <QPointingDevice>
#include <QStyleHints>
#include <QWidget>
#include <QWindow>

#include "support/platform_events.h"

namespace panel::shift {
namespace {

/// The screen that is touched. It lives as long as the application.
const QPointingDevice* TouchScreen() {
  const QString name = QStringLiteral("the screen that is touched");
  if (const auto* made = qApp->findChild<QPointingDevice*>(name)) return made;
  constexpr int kFingers = 10;
  auto* made = new QPointingDevice(name, 1, QInputDevice::DeviceType::TouchScreen, QPointingDevice::PointerType::Finger,
                                   QInputDevice::Capability::Position, kFingers, 0, {}, {}, qApp);
  made->setObjectName(name);
  return made;
}

}  // namespace

bool Finger::IsSeenAt(const QWidget& widget, const QPoint& place) {
  const QWidget* window = widget.window();
  if (!widget.isVisible() || window == nullptr) return false;
  const QPoint local = widget.mapTo(window, place);
  if (!window->rect().contains(local)) return false;
  const QWidget* hit = window->childAt(local);
  if (hit == nullptr) hit = window;
  // Some pictures leave their strokes to the window that they are in.
  const QWidget* taker = &widget;
  while (taker->testAttribute(Qt::WA_TransparentForMouseEvents)) taker = taker->parentWidget();
  return hit == taker || widget.isAncestorOf(hit);
}

bool Finger::Touch(QWidget& widget, const QPoint& place, bool twice) {
  if (!IsSeenAt(widget, place)) return false;
  QWidget* window = widget.window();
  const Spot spot{&widget, window, widget.mapTo(window, place), widget.mapToGlobal(place)};
  // As with a quick finger, a second touch of one place is a double one, however slow the run is.
  constexpr int kLong = 100'000;
  const int interval = QApplication::doubleClickInterval();
  QApplication::setDoubleClickInterval(kLong);
  for (int touch = 0; touch < (twice ? 2 : 1); ++touch) {
    Stroke(spot, true);
    Stroke(spot, false);
  }
  QApplication::setDoubleClickInterval(interval);
  return true;
}

void Finger::Stroke(const Spot& spot, bool press) {
  // A press may close the window, or open one that is in front.
  if (!spot.window) return;
  if (watch_ != nullptr && spot.widget) watch_->OnStroke(*spot.widget, press);
  const QPointer<QWidget> before = touching_;
  touching_ = spot.widget;
  ++strokes_;
  Report(spot, press);
  answer_();
  --strokes_;
  touching_ = before;
  if (watch_ != nullptr) watch_->OnAnswered();
}

void Finger::Report(const Spot& spot, bool press) {
  QWindow* window = spot.window->windowHandle();
  if (window == nullptr) return;
  if (pointing_ == Pointing::kMouse) {
    return pnl::test::ReportPlatformButton({spot.window, spot.local, spot.global}, press, now_ += 1);
  }
  const auto state = press ? QEventPoint::State::Pressed : QEventPoint::State::Released;
  qt_handleTouchEvent(window, TouchScreen(), {QEventPoint(1, state, spot.local, spot.global)}, {});
}

}  // namespace panel::shift
