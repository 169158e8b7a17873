// SPDX-License-Identifier: MIT
// Applies the panel's settings and stores them. It asks the questions of the first start, applies the answers, and
// stores each change on another thread, so that a slow disc never blocks the machine's keys. The file is described in
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

  /// Applies the settings that are known, and calls then. If the screen's width isn't known, asks the questions first,
  /// and calls then after the answer.
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
