// SPDX-License-Identifier: MIT
#include "remote/settle.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

namespace panel {

namespace {

constexpr int kMostRounds = 1000;

/// Notices whether any event was delivered, because Qt doesn't report how much is posted. Timer events don't count: a
/// tool that works in slices on a timer would never be at rest. What such a tick posts does count.
class EventSpotter : public QObject {
 public:
  EventSpotter() { QCoreApplication::instance()->installEventFilter(this); }
  ~EventSpotter() override { QCoreApplication::instance()->removeEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() != QEvent::Timer) spotted = true;
    return false;
  }

  bool spotted = false;
};

}  // namespace

bool Settle() {
  EventSpotter spotter;
  for (int round = 0; round < kMostRounds; ++round) {
    spotter.spotted = false;
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    // Handles what the window system has queued: windows that appear, become active, or are painted.
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers);
    if (!spotter.spotted) return true;
  }
  return false;
}

bool WaitWhile(const std::function<bool()>& working, int milliseconds) {
  QDeadlineTimer end(milliseconds);
  // Wakes the loop at the end of the time even when nothing else happens.
  QTimer alarm;
  alarm.setSingleShot(true);
  alarm.start(milliseconds);
  while (working() && !end.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::WaitForMoreEvents);
  }
  return !working();
}

}  // namespace panel
