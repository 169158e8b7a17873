// SPDX-License-Identifier: MIT
// What the operator works the calculator with: the expression line, a key of the keypad, and the menu as a bar. They
// report what was typed, pressed or chosen by signals; what follows is decided elsewhere.
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
  /// The edit has done with the press.
  void Pressed();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

/// A key: a picture of the language pack, or a short text where there is none. It never takes the focus, so that the
/// line keeps the caret; its id says what it means.
class CalcKeyWidget final : public QAbstractButton {
  Q_OBJECT

 public:
  /// ground is the colour of the key at rest.
  CalcKeyWidget(int id, const QString& text, QRgb ground, QWidget* parent);
  ~CalcKeyWidget() override;

  /// A picture that can't be read leaves the key as it is.
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

/// The calculator's menu as a bar on its window. It shows the menu data as they are when a menu opens and reports which
/// item was chosen; a menu that has gone is empty.
class CalcMenuWidget final : public QMenuBar {
  Q_OBJECT

 public:
  CalcMenuWidget(MenuTable& menus, MenuHandle menu, QWidget* parent);

 signals:
  void Chosen(int id);

 private:
  void Fill(QMenu& shown, MenuHandle menu);
  MenuTable& menus_;
};

}  // namespace pnl
