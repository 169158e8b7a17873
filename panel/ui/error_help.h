// SPDX-License-Identifier: MIT
// The help of an error, over the panel while the error window is away: its header in the class colours, the long
// description, a key back. Texts are plain, whatever they hold. It says when the operator wants to go back and shows
// or hides as it is told.
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
  /// Shows it and takes the keyboard, or hides it for no help. The text shown already keeps its place.
  void Show(const std::optional<ErrorHelp>& help);
  [[nodiscard]] bool Stands() const { return help_.has_value(); }
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
