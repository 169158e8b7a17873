// SPDX-License-Identifier: MIT
// The row of the machine's keys: start, hold, single block, inspection, override, cancel, reset, clear error. It shows
// which keys are possible and which are latched, and emits Pressed, also for a touch on a dim key; its owner carries
// the action out, or says why it is impossible.
#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "common/shortcuts.h"

namespace panel {

class PanelKey;

class OperatorKeys : public QWidget {
  Q_OBJECT

 public:
  explicit OperatorKeys(QWidget* parent);
  /// Enables the keys that are possible and lights those that are latched.
  void Show(const std::function<bool(Action)>& can, const std::function<bool(Action)>& latched);
  /// Shows why start is dim, in a word or two on the key and whole in its tip; empty texts when it isn't.
  void ShowStartReason(const QString& note, const QString& reason);
  void SetFontPixels(int pixels);
  [[nodiscard]] PanelKey* Key(Action action) const;
  [[nodiscard]] const std::vector<std::pair<Action, PanelKey*>>& Keys() const { return keys_; }

 signals:
  void Pressed(panel::Action action);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowWords();
  std::vector<std::pair<Action, PanelKey*>> keys_;
};

}  // namespace panel
