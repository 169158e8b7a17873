// SPDX-License-Identifier: MIT
// Brings SIGTERM, SIGINT and SIGHUP, with which a system or a terminal ends a program, into the event loop, so that the
// tools can close first. A signal that was ignored when the program started stays ignored. A process has at most one
// such object.
#pragma once

#include <QObject>
#include <functional>

class QSocketNotifier;

namespace panel {

class EndSignals : public QObject {
  Q_OBJECT

 public:
  /// Calls asked from the event loop after a signal. Signals that arrive together cause one call. When no pipe can be
  /// made, the signals keep their default effect.
  explicit EndSignals(std::function<void()> asked);
  /// Gives the signals their default effect again.
  ~EndSignals() override;

 private:
  void OnReadable();
  std::function<void()> asked_;
  int readEnd_ = -1;
  QSocketNotifier* notifier_ = nullptr;
};

}  // namespace panel
