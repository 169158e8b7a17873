// SPDX-License-Identifier: MIT
// A control that shows how many errors are before or after the one on the screen.
#pragma once

#include <QtWidgets/QWidget>

namespace pnl {

class ErrorCounterWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  ErrorCounterWidget(int id, QWidget* parent);
  void SetText(const QString& text);
  [[nodiscard]] QString Shown() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

}  // namespace pnl
