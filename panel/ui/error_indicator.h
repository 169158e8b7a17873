// SPDX-License-Identifier: MIT
// The field of the status strip that shows how many errors are in the queue. It has the colour of the class and flashes
// while the error window is away; it is steady while the window is shown. It is a key, but its owner decides what a
// press does. Its timer runs only while it flashes.
#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

#include "host/error_desk.h"

namespace panel {

class ErrorIndicator : public QAbstractButton {
  Q_OBJECT

 public:
  explicit ErrorIndicator(QWidget* parent);
  /// standing: the number of errors in the queue, shown when the sign has no count of its own.
  void Show(const ErrorSign& sign, int standing);
  void SetFontPixels(int pixels);
  [[nodiscard]] int ErrorCount() const { return sign_.count > 0 ? sign_.count : standing_; }
  [[nodiscard]] bool Flashes() const { return flash_.isActive(); }
  /// The colour of the field at this moment.
  [[nodiscard]] QColor Fill() const;
  [[nodiscard]] QColor Ink() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void StartFlash();
  void ShowWords();
  ErrorSign sign_;
  int standing_ = -1;
  bool inverted_ = false;
  int fontPixels_ = 15;
  QBasicTimer flash_;
};

/// "error", "warning" and so on, in the current language.
[[nodiscard]] QString NameOfKind(ErrorKind kind);

}  // namespace panel
