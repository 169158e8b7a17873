// SPDX-License-Identifier: MIT
// CDlgMsgDisplay: the modal message box of the machining calculator: a title, a text, an icon, and one button or two.
// It has the panel's look and no frame of the window system. It is sized to its text; a text that is too long for the
// panel is scrolled, and the buttons are always on the screen. Whoever shows it must expect the box, and its own
// window, to be gone when exec returns.
#pragma once

#include <QtWidgets/QDialog>
#include <vector>

#include "host/language.h"
#include "window/window.h"

class QPushButton;
class QScrollArea;

namespace pnl {

class CDlgMsgDisplay : public QDialog {
  Q_OBJECT

 public:
  /// The box lies over the middle of parent.
  CDlgMsgDisplay(const Language& language, const BoxSpec& box, QWidget* parent);
  /// What was pressed: kOk, or for a question kYes for the first button, else kNo.
  [[nodiscard]] BoxAnswer Answer() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QPushButton* AddButton(int id, const QString& caption);
  void LayOut();
  void PlaceButtons();
  bool OnButtonKey(int key);
  [[nodiscard]] int Scaled(int pixels) const;
  /// The part of the screen in which the box may lie.
  [[nodiscard]] QRect Room() const;

  const bool question_;
  const double scale_;  // of all sizes, as large as the panel
  QScrollArea* area_;
  QWidget* text_;
  QWidget* icon_;
  std::vector<QPushButton*> buttons_;
};

}  // namespace pnl
