// SPDX-License-Identifier: MIT
// CFColorStatic: a coloured field with one line of text that can make its font as large as the field allows.
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
  /// A bold font of that face at the present height; an empty face is "Arial". On failure the old font stays.
  void SetFontFace(const QString& face);
  void SetFormat(std::uint32_t flags);
  /// The largest font, from height 21 down to 5, whose text stays below the field in width and height; where none does,
  /// height 4.
  void FitFont(const QString& text, bool centred);

  /// Positive: of the cell; negative, as FitFont leaves it: of the characters.
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
