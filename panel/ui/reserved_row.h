// SPDX-License-Identifier: MIT
// The row of keys that have the same place whatever is in front: the errors, the calculator, the help, the keyboard's
// Enter, Insert and Escape, the touch keyboard and the other language. It shows which keys there are, which are
// possible and which are lit, and emits Pressed; its owner carries the key out. A key that doesn't exist leaves its
// place free.
#pragma once

#include <QWidget>
#include <array>
#include <functional>

namespace panel {

class PanelKey;

enum class RowKey { kErrors, kCalculator, kHelp, kKeyboard, kLanguage, kInsert, kClose, kEnter, kCount };
inline constexpr int kRowKeys = static_cast<int>(RowKey::kCount);

/// How a key of the row is shown.
struct RowKeyLook {
  bool there = true;
  bool enabled = true;
  bool lit = false;
};

class ReservedRow : public QWidget {
  Q_OBJECT

 public:
  explicit ReservedRow(QWidget* parent);
  void Show(const std::function<RowKeyLook(RowKey)>& look);
  void SetFontPixels(int pixels);
  [[nodiscard]] PanelKey* Key(RowKey key) const { return keys_[static_cast<std::size_t>(key)]; }

 signals:
  void Pressed(panel::RowKey key);

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void ShowWords();
  std::array<PanelKey*, kRowKeys> keys_{};
};

}  // namespace panel
