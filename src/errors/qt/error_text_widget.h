// SPDX-License-Identifier: MIT
// The controls of the error window that show text and pictures. ErrorTextWidget shows plain text of several lines,
// black on the panel's colour: the title line and the description. It never reads the kernel's texts as rich text.
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
  [[nodiscard]] const QFont& TextFont() const { return font_; }
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

 private:
  QString text_;
  QFont font_;
  bool centred_;
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
