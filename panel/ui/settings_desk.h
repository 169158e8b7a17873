// SPDX-License-Identifier: MIT
// Carries out the panel's settings and keeps them. It asks the questions of the first start, sets what they say, and
// stores each change beside the window's thread: a slow disc never stops the machine's keys. The file is that of
// host/panel_settings.h.
#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "host/panel_settings.h"
#include "ui/background.h"

namespace panel {

class Operator;
class PanelWindow;

class SettingsDesk : public QObject {
 public:
  /// window and op must outlive the desk. file is the file of this machine that keeps the settings.
  SettingsDesk(PanelWindow& window, Operator& op, QString file);
  /// Stores what isn't stored yet.
  ~SettingsDesk() override;

  /// Sets what is known, and calls then. Unless the screen's width is known, asks first; then is called when that is
  /// answered.
  void Begin(const PanelSettings& known, std::function<void()> then);
  /// Whether a change is being stored.
  [[nodiscard]] bool Working() const { return writer_.Working(); }

 private:
  void OnAnswered(double screenMillimetres);
  void Store(const PanelSettings& changed);
  void Write();

  PanelWindow& window_;
  Operator& op_;
  QString file_;
  PanelSettings waiting_;  // for the writer
  Background writer_;
  std::function<void()> then_;
};

}  // namespace panel
