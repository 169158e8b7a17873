// SPDX-License-Identifier: MIT
// CFColorStatic: a coloured field with one line of text. It can choose the largest font that fits the field.
#pragma once

#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtWidgets/QWidget>
#include <optional>

#include "controls/system_colors.h"

namespace pnl {

class CFColorStatic : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ WindowText)
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  explicit CFColorStatic(int id, QWidget* parent, Color back = SystemColor(kColorButtonFace));

  void SetTextW(const QString& text);
  void SetBackColor(Color color);
  void SetTextColor(Color color);
  /// Takes a bold font of that face at the present height. An empty face means "Arial". On failure the old font stays.
  void SetFontFace(const QString& face);
  void SetFormat(std::uint32_t flags);
  /// Takes the largest font, from height 21 down to 5, in which the text is narrower and lower than the field. If there
  /// is none, takes height 4.
  void FitFont(const QString& text, bool centred);

  /// The font's height: positive for the height of the cell, negative, as FitFont sets it, for the height of the
  /// characters.
  [[nodiscard]] int GetFontHeight() const { return m_nHeight; }
  [[nodiscard]] QString WindowText() const { return text_; }
  [[nodiscard]] uint BackColor() const { return m_Back; }
  [[nodiscard]] uint TextColor() const { return m_Text; }
  [[nodiscard]] QFont Font() const { return m_pFont ? *m_pFont : font(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  QString face_;
  int weight_ = 0;
  Color m_Back;
  Color m_Text = 0;
  QBrush m_pBrush;
  std::optional<QFont> m_pFont;
  int m_nHeight = 21;
  std::uint32_t m_Format = 0x26;
};

}  // namespace pnl
