// SPDX-License-Identifier: MIT
// A plain text of several lines in black on the panel's colour: the error window's title line and description. What the
// kernel writes is never read as rich text.
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
  /// Both ways, or from the top.
  void SetCentred(bool centred);
  /// Of the text broken into lines at that width.
  [[nodiscard]] int HeightOf(const QString& text, int width) const;
  /// Of a widget that shows the text in one line.
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

/// One picture of the language on the class colour, which tells where it was clicked by its id.
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
  QString instead_;  // drawn where the language has no picture
  std::uint32_t back_ = 0;
};

}  // namespace pnl
