// SPDX-License-Identifier: MIT
// Waits for another thread or the clock. A test that waits in vain fails; it doesn't hang.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>

namespace pnl::test {

/// Runs the event loop until the condition is true. Returns false after a minute, which is enough on any busy machine.
template <typename Condition>
[[nodiscard]] bool RunUntil(Condition done) {
  bool late = false;
  QTimer alarm;
  alarm.setSingleShot(true);
  QObject::connect(&alarm, &QTimer::timeout, [&late] { late = true; });
  alarm.start(60'000);
  while (!done() && !late) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  return done();
}

}  // namespace pnl::test
