// SPDX-License-Identifier: MIT
// ZWCEdit: a one-line edit whose colours follow the focus, that refuses some characters when they are typed, and that
// tells its parent window when the focus comes and goes. It knows nothing of what is typed.
#pragma once

#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtWidgets/QLineEdit>
#include <optional>

#include "controls/system_colors.h"
#include "window/window.h"

namespace pnl {

class ZWCEdit : public QLineEdit {
  Q_OBJECT
  Q_PROPERTY(uint pnlBack READ BackColor)
  Q_PROPERTY(uint pnlFore READ TextColor)

 public:
  /// parentHandle is the window that gets "ZWCEDIT_SETFOCUS" and "ZWCEDIT_KILLFOCUS"; windows outlives the control.
  ZWCEdit(int id, WindowSystem& windows, WindowHandle parentHandle, QWidget* parent);

  /// Kept when they differ from the present ones; redraw shows them at once, otherwise the next paint does.
  void SetNormalColors(Color back, Color text, bool redraw);
  void SetFocusColors(Color back, Color text, bool redraw);
  /// On failure no font is kept and the control has its parent's.
  void SetFont(const QString& face, int height, int weight);
  /// The characters that typing may not enter; an empty text allows all. Pasted text isn't filtered.
  void SetForbidden(const QString& text) { m_Forbidden = text; }

  [[nodiscard]] QString Forbidden() const { return m_Forbidden; }
  [[nodiscard]] uint BackColor() const { return hasFocus() ? m_BackFocus : m_BackNormal; }
  [[nodiscard]] uint TextColor() const { return hasFocus() ? m_TextFocus : m_TextNormal; }

 protected:
  /// A class that takes the focus events calls these first, and does nothing more if they destroyed the control.
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] bool IsForbidden(const QString& typed) const;
  /// Drops the brush, asks for a repaint and tells the parent; false when the parent destroyed the control meanwhile.
  bool OnFocusChange(std::uint32_t message);
  void UseColors();

  WindowSystem& windows_;
  WindowHandle parentHandle_;
  int id_;
  std::optional<QFont> m_pFont;
  std::optional<QBrush> m_hBrush;
  Color m_BackNormal = SystemColor(kColorWindow);
  Color m_TextNormal = SystemColor(kColorWindowText);
  Color m_BackFocus = SystemColor(kColorWindow);
  Color m_TextFocus = SystemColor(kColorWindowText);
  QString m_Forbidden;
};

}  // namespace pnl
