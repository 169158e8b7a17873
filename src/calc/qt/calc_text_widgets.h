// SPDX-License-Identifier: MIT
// The calculator's controls that show text: the result display, a line of words, and the note beside the window. Each
// makes its text fit in its own way. None of them takes the focus.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include "controls/system_colors.h"
#include "window/window.h"

namespace pnl {

/// The result display, with its text at the right. It is painted from a picture, so that it never flickers. A press on
/// it does nothing.
class ZCResultWnd final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  ZCResultWnd(int id, QWidget* parent);

  /// Sets the text. With redraw it is painted before the call returns, else at the next paint.
  void SetText(const QString& text, bool redraw);
  void GetText(QString& text) const { text = text_; }
  /// Sets the colours (0x00BBGGRR). redraw is as in SetText.
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

/// A line of words. If the text is too long, its characters become smaller. If it is still too long, the parts farthest
/// from the failing place ("< >") are left out, because the operator looks for that place.
class CalcLabelWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// height is the height of the characters in pixels.
  CalcLabelWidget(int id, int height, QWidget* parent);

  void SetText(const QString& text);
  /// The whole text, even if it is painted shortened.
  [[nodiscard]] QString Shown() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const int height_;
  QString text_;
};

/// The text, shortened to width if necessary. "…" replaces what is left out at the start or the end. The mark "< >"
/// stays if there is one.
[[nodiscard]] QString ShortenAroundMark(const QFontMetrics& metrics, const QString& text, int width);

/// The note: a framed text beside the window. It is a child of the window's parent, so it doesn't change the layout of
/// the window. It is as wide as the window and as high as its text. Presses go through it.
class CalcNoteWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// owner is the handle of the window to which the note belongs for those who look for controls by handle and id.
  /// height is the height of the characters in pixels.
  CalcNoteWidget(int id, WindowHandle owner, int height, QWidget* parent);

  void SetText(const QString& text);
  [[nodiscard]] QString Shown() const { return text_; }
  /// Places the note beside a window of the same parent, in front of all other widgets there.
  void PlaceBeside(const QRect& window);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

}  // namespace pnl
