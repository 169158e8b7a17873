// SPDX-License-Identifier: MIT
#include "errors/qt/raised_text_widget.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <array>

#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kDefaultHeight = 20;
constexpr int kRaise = 3;

/// A copy of the text, moved by x and y. The copies are drawn in this order, the later ones over the earlier ones.
struct Shade {
  int color;
  int x;
  int y;
};
constexpr std::array kShades = {
    Shade{kColorDarkShadow, -2, +2},  Shade{kColorDarkShadow, +2, -2},  Shade{kColorDarkShadow, +2, +2},
    Shade{kColorHighlight3D, +1, -2}, Shade{kColorHighlight3D, -2, +1}, Shade{kColorHighlight3D, -2, -2},
    Shade{kColorShadow, -1, +1},      Shade{kColorShadow, +1, -1},      Shade{kColorShadow, +1, +1},
    Shade{kColorLight, 0, -1},        Shade{kColorLight, -1, 0},        Shade{kColorLight, -1, -1},
};

}  // namespace

ZC3DText::ZC3DText(int id, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  SetFont(QStringLiteral("Arial"), 0, QFont());
}

void ZC3DText::Use3D(bool flag) {
  use3D = flag;
  update();
}

void ZC3DText::SetTextColor(Color color, bool redraw) {
  textColor = color;
  if (redraw) repaint();
}

void ZC3DText::SetBkgndColor(Color color, bool redraw) {
  bkgndColor = color;
  if (redraw) repaint();
}

void ZC3DText::SetWindowTextW(const QString& shown, bool redraw) {
  text = shown;
  setAccessibleName(shown);
  if (redraw) repaint();
}

void ZC3DText::SetFont(const QString& face, int height, const QFont& style) {
  const auto made = MakeFont(face, height == 0 ? kDefaultHeight : height, style.weight());
  if (!made) return;
  font_ = *made;
  font_.setItalic(style.italic());
  font_.setUnderline(style.underline());
  font_.setStrikeOut(style.strikeOut());
  update();
}

void ZC3DText::paintEvent(QPaintEvent* /*event*/) {
  // The window system has a buffer already, so this paints at once.
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(backgroundRole()));
  Draw(painter);
}

void ZC3DText::Draw(QPainter& painter) const {
  QRect area = rect();
  if (use3D) area.adjust(kRaise, kRaise, -kRaise, -kRaise);
  painter.setFont(font_);
  const QFontMetrics metrics(font_);
  QPoint place((area.width() - metrics.horizontalAdvance(text)) / 2 + area.left(),
               (area.height() - CellHeight(metrics)) / 2 + area.top());
  if (use3D) place += QPoint(kRaise, kRaise);
  painter.fillRect(area, ToQColor(textColor));
  painter.fillRect(area.adjusted(1, 1, -1, -1), ToQColor(bkgndColor));
  const QPoint baseline = place + QPoint(0, metrics.ascent());
  if (use3D) DrawEmbossed(painter, baseline);
  painter.setPen(ToQColor(textColor));
  painter.drawText(baseline, text);
}

void ZC3DText::DrawEmbossed(QPainter& painter, QPoint place) const {
  for (const Shade& shade : kShades) {
    painter.setPen(ToQColor(SystemColor(shade.color)));
    painter.drawText(place + QPoint(shade.x, shade.y), text);
  }
}

}  // namespace pnl
