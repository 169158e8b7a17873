// SPDX-License-Identifier: MIT
// ZC3DText: shows one line of text, centred, embossed or flat. It knows nothing about the meaning of the text.
#pragma once

#include <QtGui/QFont>
#include <QtGui/QPixmap>
#include <QtWidgets/QWidget>

#include "controls/system_colors.h"

namespace pnl {

class ZC3DText : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QString pnlText READ WindowText)
  Q_PROPERTY(uint pnlBack READ GetBkgndColor)
  Q_PROPERTY(uint pnlFore READ GetTextColor)

 public:
  ZC3DText(int id, QWidget* parent);

  // If redraw is true, the widget is painted before the call returns.
  void Use3D(bool flag);
  void SetTextColor(Color color, bool redraw);
  [[nodiscard]] Color GetTextColor() const { return textColor; }
  void SetBkgndColor(Color color, bool redraw);
  [[nodiscard]] Color GetBkgndColor() const { return bkgndColor; }
  void SetWindowTextW(const QString& shown, bool redraw);
  void GetWindowTextW(QString& shown) const { shown = text; }
  [[nodiscard]] QString WindowText() const { return text; }
  /// The height is that of MakeFont; 0 means 20.
  void SetFont(const QString& face, int height, const QFont& style);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Draw(QPainter& painter) const;
  void DrawEmbossed(QPainter& painter, QPoint place) const;

  bool use3D = true;
  Color textColor = SystemColor(kColorWindowText);
  Color bkgndColor = SystemColor(kColorWindow);
  QString text;
  QFont font_;
};

}  // namespace pnl
