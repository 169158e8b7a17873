// SPDX-License-Identifier: MIT
// Reports that discs have been mounted or unmounted, so that whoever shows drives can look again. The kernel's mount
// table wakes the event loop when it changes; nothing polls. Which drive has changed it doesn't know.
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "base/descriptor.h"

namespace pnl {

class MountWatch final {
 public:
  /// Opens the mount table of this process. The descriptor is none when there is no such table.
  [[nodiscard]] static Descriptor OpenTable();

  /// Calls changed from the event loop after each change of the table. Changes in quick succession may come as one.
  /// Does nothing without a table.
  MountWatch(Descriptor table, std::function<void()> changed);

 private:
  Descriptor table_;
  std::unique_ptr<QSocketNotifier> notifier_;  // goes before the table does
};

}  // namespace pnl
