// SPDX-License-Identifier: MIT
// The calculator's fields that show a text: the result display, a line of words, and the note beside the window. They
// paint what they are given, each makes a text fit in its own way, and none takes the focus.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include "controls/system_colors.h"
#include "window/window.h"

namespace pnl {

/// The result display, with its text at the right. It is painted through a picture of its own, so that it never
/// flickers, and a press on it changes nothing.
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

/// A line of words. A text too long for it first gets smaller characters, then loses what is farthest from the place of
/// a failure ("< >"), because that place is what the operator looks for.
class CalcLabelWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// height is that of the characters in pixels.
  CalcLabelWidget(int id, int height, QWidget* parent);

  void SetText(const QString& text);
  /// The whole text, shortened or not.
  [[nodiscard]] QString Shown() const { return text_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const int height_;
  QString text_;
};

/// The text as it fits into width: whole, or with "…" for what is left out at its end, its start, or both, so that the
/// mark "< >" stays if there is one.
[[nodiscard]] QString ShortenAroundMark(const QFontMetrics& metrics, const QString& text, int width);

/// The note: a framed text beside the window, in the window's parent, so that the window's own layout keeps its place.
/// It is as wide as the window, as high as its text needs, and takes no presses.
class CalcNoteWidget final : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)

 public:
  /// owner is the window whose control it is for whoever asks by handle and id.
  CalcNoteWidget(int id, WindowHandle owner, QWidget* parent);

  void SetText(const QString& text);
  [[nodiscard]] QString Shown() const { return text_; }
  /// Beside that window of the same parent, in front of everything.
  void PlaceBeside(const QRect& window);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
};

}  // namespace pnl
