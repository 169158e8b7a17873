// SPDX-License-Identifier: MIT
// The timers that come into being while this object lives, also those that no other object has as a child: so a test
// reads the interval of a timer and lets it fire by hand.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtCore/QTimerEvent>
#include <cstdint>
#include <mutex>
#include <utility>

// The toolkit's table of hooks, which are called for each object that is made or destroyed.
extern Q_CORE_EXPORT std::uintptr_t qtHookData[];

namespace pnl::test {

class MadeTimers {
 public:
  MadeTimers() {
    made_ = std::exchange(qtHookData[kMade], reinterpret_cast<std::uintptr_t>(&OnMade));
    gone_ = std::exchange(qtHookData[kGone], reinterpret_cast<std::uintptr_t>(&OnGone));
  }
  ~MadeTimers() {
    qtHookData[kMade] = made_;
    qtHookData[kGone] = gone_;
    const std::lock_guard lock(Mutex());
    Objects().clear();
  }
  MadeTimers(const MadeTimers&) = delete;
  MadeTimers& operator=(const MadeTimers&) = delete;

  /// The timers of this thread that are still there.
  [[nodiscard]] QList<QTimer*> All() const {
    const std::lock_guard lock(Mutex());
    QList<QTimer*> timers;
    for (QObject* object : Objects()) {
      auto* timer = object->thread() == QThread::currentThread() ? qobject_cast<QTimer*>(object) : nullptr;
      if (timer != nullptr) timers << timer;
    }
    return timers;
  }

 private:
  static constexpr int kMade = 3;
  static constexpr int kGone = 4;
  static std::mutex& Mutex() {
    static std::mutex mutex;
    return mutex;
  }
  static QList<QObject*>& Objects() {
    static QList<QObject*> objects;
    return objects;
  }
  // Other threads make objects, too.
  static void OnMade(QObject* object) {
    const std::lock_guard lock(Mutex());
    Objects() << object;
  }
  static void OnGone(QObject* object) {
    const std::lock_guard lock(Mutex());
    Objects().removeOne(object);
  }

  std::uintptr_t made_ = 0;
  std::uintptr_t gone_ = 0;
};

/// Lets a timer that runs fire at once.
inline void Fire(QTimer& timer) {
  QTimerEvent tick(timer.timerId());
  QCoreApplication::sendEvent(&timer, &tick);
}

}  // namespace pnl::test
