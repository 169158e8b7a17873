// SPDX-License-Identifier: MIT
// The row of the machine's keys: start, hold, single block, inspection, override, cancel, reset, clear error. It shows
// which keys are possible and which are latched, and emits Pressed; its owner carries the action out.
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
