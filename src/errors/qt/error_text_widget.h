// SPDX-License-Identifier: MIT
// The controls of the error window that show text and pictures. ErrorTextWidget shows plain text of several lines,
// black on the panel's colour: the title line and the description. It never reads the kernel's texts as rich text. A
// text that doesn't fit gets smaller letters; if these don't suffice, it can be pulled, and a thumb at the right shows
// which part is seen.
#pragma once

#include <QtGui/QFont>
#include <QtWidgets/QWidget>

namespace pnl {

class ErrorTextWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ Shown)
  Q_PROPERTY(uint pnlBack READ Back)
  Q_PROPERTY(uint pnlFore READ Fore)

 public:
  ErrorTextWidget(int id, bool centred, QWidget* parent);
  void SetText(const QString& text);
  [[nodiscard]] QString Shown() const { return text_; }
  void SetTextFont(const QFont& font);
  /// The font of a text that fits.
  [[nodiscard]] const QFont& TextFont() const { return font_; }
  /// The font in which the present text is written.
  [[nodiscard]] const QFont& FittedFont() const { return fitted_; }
  /// Moves a text that doesn't fit up by so many pixels, or down by a negative number, as far as it goes.
  void PullBy(int pixels);
  /// How far the text has been moved up, in pixels.
  [[nodiscard]] int Pulled() const { return pulled_; }
  /// Centres the text both ways, or writes it from the top left corner.
  void SetCentred(bool centred);
  /// The height of the text, broken into the lines of a widget of that width.
  [[nodiscard]] int HeightOf(const QString& text, int width) const;
  /// The width that a widget needs to show the text in one line.
  [[nodiscard]] int WidthOf(const QString& text) const;
  [[nodiscard]] uint Back() const;
  [[nodiscard]] uint Fore() const { return 0; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] int HeightIn(const QFont& font, const QString& text, int width) const;
  /// Chooses the font for the text and the widget's size.
  void Fit();
  void PaintThumb(QPainter& painter) const;

  QString text_;
  QFont font_;
  QFont fitted_;
  bool centred_;
  int textHeight_ = 0;  // in the fitted font
  int pulled_ = 0;
};

/// One picture of the language, on the colour of the error's class.
class ErrorPictureWidget : public QWidget {
  Q_OBJECT
  Q_PROPERTY(uint pnlBack READ Back)

 public:
  ErrorPictureWidget(int id, const std::string* svg, const QString& instead, QWidget* parent);
  void SetBack(std::uint32_t color);
  [[nodiscard]] uint Back() const { return back_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QByteArray svg_;
  QString instead_;  // drawn if the language does not have the picture
  std::uint32_t back_ = 0;
};

}  // namespace pnl
