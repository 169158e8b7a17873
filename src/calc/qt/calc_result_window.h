// SPDX-License-Identifier: MIT
// ZCResultWnd: the calculator's result display, a field with one text at its right. It is painted through a picture of
// its own, so that it never flickers, and a press on it changes nothing.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include "controls/system_colors.h"

namespace pnl {

class ZCResultWnd final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  ZCResultWnd(int id, QWidget* parent);

  /// A redraw is immediate; without one the next paint shows the change.
  void SetText(const QString& text, bool redraw);
  void GetText(QString& text) const { text = text_; }
  /// 0x00BBGGRR.
  void SetColors(Color back, Color text, bool redraw);
  void SetFont(const QFont& font);

  [[nodiscard]] QString Shown() const { return text_; }
  [[nodiscard]] uint BackColor() const { return backColor_; }
  [[nodiscard]] uint TextColor() const { return textColor_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void Compose();
  void Redraw(bool now);
  QString text_;
  Color backColor_ = SystemColor(kColorButtonFace);
  Color textColor_ = SystemColor(kColorButtonText);
  QFont font_;
  QPixmap picture_;
};

}  // namespace pnl
