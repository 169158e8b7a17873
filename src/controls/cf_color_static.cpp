// SPDX-License-Identifier: MIT
#include "controls/cf_color_static.h"

#include <QtGui/QPainter>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kTallest = 21;
constexpr int kTooSmall = 4;
constexpr int kBold = 700;

}  // namespace

CFColorStatic::CFColorStatic(int id, QWidget* parent, Color back)
    : QWidget(parent), face_(QStringLiteral("Arial")), m_Back(back), m_pBrush(ToQColor(back)) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void CFColorStatic::SetTextW(const QString& text) {
  text_ = text;
  update();
}

void CFColorStatic::SetBackColor(Color color) {
  m_Back = color;
  m_pBrush = QBrush(ToQColor(color));
  update();
}

void CFColorStatic::SetTextColor(Color color) {
  m_Text = color;
  update();
}

void CFColorStatic::SetFormat(std::uint32_t flags) {
  m_Format = flags;
  update();
}

void CFColorStatic::SetFontFace(const QString& face) {
  const QString wanted = face.isEmpty() ? QStringLiteral("Arial") : face;
  auto made = MakeFont(wanted, m_nHeight, kBold);
  if (!made) return;
  face_ = wanted;
  weight_ = kBold;
  m_pFont = std::move(made);
  update();
}

void CFColorStatic::FitFont(const QString& text, bool centred) {
  const std::uint32_t flags = draw::kSingleLine | draw::kCalcRect | (centred ? draw::kCenter : 0);
  int height = kTallest;
  for (; height > kTooSmall; --height) {
    const auto font = MakeFont(face_, -height, weight_);
    const QSize size = MeasureText(QFontMetrics(font ? *font : Font()), width(), text, flags);
    if (size.width() < width() && size.height() < this->height()) break;
  }
  m_nHeight = -height;
  m_pFont = MakeFont(face_, m_nHeight, weight_);
  update();
}

void CFColorStatic::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), m_pBrush);
  painter.setFont(Font());
  painter.setPen(ToQColor(m_Text));
  DrawText(painter, rect(), text_, m_Format);
}

}  // namespace pnl
