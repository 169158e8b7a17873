// SPDX-License-Identifier: MIT
// Handles SIGTERM, SIGINT and SIGHUP, by which a system or a terminal ends a program, in the event loop, so that the
// tools close first. A signal that was ignored when the program started stays ignored. One object in a process.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace panel {

class EndSignals : public QObject {
  Q_OBJECT

 public:
  /// Calls asked for each signal that comes. Where no pipe can be had the signals keep their ordinary effect.
  explicit EndSignals(std::function<void()> asked);
  /// The signals have their ordinary effect again.
  ~EndSignals() override;

 private:
  void OnReadable();
  std::function<void()> asked_;
  int readEnd_ = -1;
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace panel
