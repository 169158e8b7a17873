// SPDX-License-Identifier: MIT
// The controls for the operator's input: the expression line, a key of the keypad, and the menu as a bar. They report
// with signals what was typed, pressed or chosen. They decide nothing.
#pragma once

#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QMenuBar>
#include <memory>
#include <string>

#include "calc/calc_view.h"
#include "controls/limited_edit.h"
#include "window/menu.h"

class QSvgRenderer;

namespace pnl {

/// The expression line.
class CalcLine final : public LimitedEdit {
  Q_OBJECT

 public:
  CalcLine(int id, QWidget* parent);
  [[nodiscard]] TextSelection Selection() const;
  void Select(TextSelection selection);

 signals:
  /// Emitted after the edit has handled a press.
  void Pressed();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

/// A key with a picture of the language pack, or with a short text if there is no picture. It never takes the focus, so
/// that the line keeps the caret.
class CalcKeyWidget final : public QAbstractButton {
  Q_OBJECT

 public:
  /// ground is the colour of the key while it isn't pressed.
  CalcKeyWidget(int id, const QString& text, QRgb ground, QWidget* parent);
  ~CalcKeyWidget() override;

  /// Sets the picture. If it can't be read, the key stays as it is.
  void SetPicture(const std::string& svg);
  [[nodiscard]] bool HasPicture() const { return picture_ != nullptr; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] const QPixmap& Drawn(QSize size);
  const QRgb ground_;
  std::unique_ptr<QSvgRenderer> picture_;
  QPixmap drawn_;
};

/// The calculator's menu as a bar on its window. Each time a menu opens, it shows the present data. It reports which
/// item was chosen. If the menu has been destroyed, it is empty.
class CalcMenuWidget final : public QMenuBar {
  Q_OBJECT

 public:
  /// height is the height of the characters in pixels.
  CalcMenuWidget(MenuTable& menus, MenuHandle menu, int height, QWidget* parent);

 signals:
  void Chosen(int id);

 private:
  void Fill(QMenu& shown, MenuHandle menu);
  MenuTable& menus_;
};

}  // namespace pnl
