// SPDX-License-Identifier: MIT
// ZWCEdit: a one-line edit whose colours depend on the focus. It refuses some characters when they are typed, and
// reports to its parent window when it gets or loses the focus.
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
  /// parentHandle is the window that gets "ZWCEDIT_SETFOCUS" and "ZWCEDIT_KILLFOCUS". windows must outlive the control.
  ZWCEdit(int id, WindowSystem& windows, WindowHandle parentHandle, QWidget* parent);

  /// Sets the colours without the focus. If redraw is set, they are shown at once, otherwise with the next paint.
  /// SetFocusColors does the same for the colours with the focus.
  void SetNormalColors(Color back, Color text, bool redraw);
  void SetFocusColors(Color back, Color text, bool redraw);
  /// Sets the font. If it can't be made, the control has its parent's font.
  void SetFont(const QString& face, int height, int weight);
  /// Sets the characters that can't be typed. An empty text allows all. Pasted text isn't filtered.
  void SetForbidden(const QString& text) { m_Forbidden = text; }

  [[nodiscard]] QString Forbidden() const { return m_Forbidden; }
  [[nodiscard]] uint BackColor() const { return hasFocus() ? m_BackFocus : m_BackNormal; }
  [[nodiscard]] uint TextColor() const { return hasFocus() ? m_TextFocus : m_TextNormal; }

 protected:
  /// An override must call these first, and must do nothing more if the call destroyed the control.
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  [[nodiscard]] bool IsForbidden(const QString& typed) const;
  /// Drops the brush, requests a repaint and sends the message to the parent. Returns false when the parent destroyed
  /// the control meanwhile.
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
