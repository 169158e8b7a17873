// SPDX-License-Identifier: MIT
// The help of an error, a cover over the panel while the error window is away: the header in the colours of its class,
// the long description, and a key back. All texts are shown as plain text. It emits Left when the operator wants to go
// back; its owner shows and hides it.
#pragma once

#include <QPlainTextEdit>
#include <QWidget>

#include "host/error_desk.h"

namespace panel {

class PanelKey;

class ErrorHelpCover : public QWidget {
  Q_OBJECT

 public:
  explicit ErrorHelpCover(QWidget* parent);
  ~ErrorHelpCover() override;
  /// Shows the help and takes the keyboard, or hides the cover without help. When the same help is shown already, the
  /// text keeps its scroll position.
  void Show(const std::optional<ErrorHelp>& help);
  [[nodiscard]] bool IsShown() const { return help_.has_value(); }
  [[nodiscard]] const QString& Header() const { return header_; }
  [[nodiscard]] QPlainTextEdit& Text() const { return *text_; }
  [[nodiscard]] PanelKey* BackKey() const { return back_; }
  void SetFontPixels(int pixels);

 signals:
  void Left();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void Place();
  [[nodiscard]] QRect HeaderRect() const;
  std::optional<ErrorHelp> help_;
  QString header_;
  QPlainTextEdit* text_;
  PanelKey* back_;
  int fontPixels_ = 16;
};

}  // namespace panel
