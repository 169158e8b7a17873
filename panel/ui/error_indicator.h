// SPDX-License-Identifier: MIT
// The field of the status strip that tells how many errors stand: in the class colour and flashing while the error
// window is away, steady while it shows. A key: a press brings the window back or opens the list, which somebody else
// decides. Its timer runs only while it flashes.
#pragma once

#include <QAbstractButton>
#include <QBasicTimer>

#include "host/error_desk.h"

namespace panel {

class ErrorIndicator : public QAbstractButton {
  Q_OBJECT

 public:
  explicit ErrorIndicator(QWidget* parent);
  /// standing: errors in the queue, shown when the sign has no count of its own.
  void Show(const ErrorSign& sign, int standing);
  void SetFontPixels(int pixels);
  [[nodiscard]] int Count() const { return sign_.count > 0 ? sign_.count : standing_; }
  [[nodiscard]] bool Flashes() const { return flash_.isActive(); }
  /// What it is filled with at this moment.
  [[nodiscard]] QColor Fill() const;
  [[nodiscard]] QColor Ink() const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void timerEvent(QTimerEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void StartFlash();
  ErrorSign sign_;
  int standing_ = -1;
  bool inverted_ = false;
  int fontPixels_ = 15;
  QBasicTimer flash_;
};

/// "error", "warning", … in the language in use.
[[nodiscard]] QString NameOfKind(ErrorKind kind);

}  // namespace panel
