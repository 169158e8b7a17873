// SPDX-License-Identifier: MIT
// CDlgMsgDisplay: the modal message box of the machining calculator: a text, an icon, and one button or two. Buttons and
// box are sized to the text; a list that is too long for the panel is scrolled. Whoever shows it must expect the box, and its own window, to be gone when exec returns.
#pragma once

#include <QtWidgets/QDialog>

#include "host/language.h"
#include "window/window.h"

class QLabel;
class QPushButton;
class QScrollArea;

namespace pnl {

class CDlgMsgDisplay : public QDialog {
  Q_OBJECT

 public:
  CDlgMsgDisplay(const Language& language, const BoxSpec& box, QWidget* parent);
  /// What was pressed: kOk, or for a question kYes for the first button, else kNo.
  [[nodiscard]] BoxAnswer Answer() const;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void LayOut();

  const bool question_;
  QLabel* text_;
  QScrollArea* area_;
  QLabel* icon_;
  QPushButton* first_;
  QPushButton* second_ = nullptr;
};

}  // namespace pnl
