// SPDX-License-Identifier: MIT
// The password box of the demo machine, as a cover over the panel: a line and a keypad for touch. A tool waits for its
// answer, so the box runs an event loop of its own, in which everything but what it covers works on.
#pragma once

#include <QEventLoop>
#include <QLineEdit>
#include <QString>
#include <vector>

#include "ui/cover.h"

namespace panel {

class PanelKey;

/// The password of the demo machine. The box shows it, because it protects nothing.
inline constexpr const char* kDemoPassword = "1111";

class PasswordBox : public Cover {
  Q_OBJECT

 public:
  explicit PasswordBox(QWidget* parent);
  /// Asks for the password. Returns whether it was given; false when the operator leaves, when the box goes, or when it
  /// is open already.
  bool Ask();
  void Enter();
  void Leave() override;
  [[nodiscard]] bool IsOpen() const override { return loop_ != nullptr; }
  [[nodiscard]] QLineEdit& Edit() const { return *edit_; }
  /// The ten digits from 0 on, back, OK and Close.
  [[nodiscard]] const std::vector<PanelKey*>& Keys() const { return keys_; }
  [[nodiscard]] bool WasWrong() const { return wrong_; }
  void SetFontPixels(int pixels);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  [[nodiscard]] std::vector<QWidget*> TabOrder() const override;

 private:
  void MakeKeys();
  void ShowWords();
  void Place();
  void End(bool given);

  QLineEdit* edit_;
  std::vector<PanelKey*> keys_;
  QEventLoop* loop_ = nullptr;
  bool wrong_ = false;
  int fontPixels_ = 16;
};

}  // namespace panel
