// SPDX-License-Identifier: MIT
#include "places/qt/mount_watch.h"

#include <fcntl.h>

#include <utility>

namespace pnl {

Descriptor MountWatch::OpenTable() { return Descriptor(open("/proc/self/mountinfo", O_RDONLY | O_CLOEXEC)); }

MountWatch::MountWatch(Descriptor table, std::function<void()> changed) : table_(std::move(table)) {
  if (!table_ || !changed) return;
  // The kernel marks a changed table with POLLPRI, once a change: asking takes the mark away.
  notifier_ = std::make_unique<QSocketNotifier>(table_.Get(), QSocketNotifier::Exception);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [changed = std::move(changed)] {
    // The watcher may destroy this object, and with it the function.
    const auto call = changed;
    call();
  });
}

}  // namespace pnl
