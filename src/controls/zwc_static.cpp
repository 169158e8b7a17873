// SPDX-License-Identifier: MIT
#include "controls/zwc_static.h"

#include <QtGui/QPainter>
#include <QtGui/QRegion>
#include <QtGui/QResizeEvent>
#include <array>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::uint32_t kWholeText = 0xb65;
constexpr std::uint32_t kEndShortened = 0x8b65;
constexpr std::uint32_t kPathShortened = 0x4b65;
constexpr std::uint32_t kWrapped = 0xaa10;

constexpr int kStrip = 20;
constexpr int kTriangle = 12;
constexpr int kPlus = 18;

}  // namespace

ZWCStatic::ZWCStatic(int id, Timers& timers, const Files& files, QWidget* parent)
    : QWidget(parent), files_(files), m_Timer(timers) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

ZWCStatic::~ZWCStatic() = default;

void ZWCStatic::SetFont(const QString& face, int height, int weight) {
  if (!m_bLocked) m_pFont = MakeFont(face, height, weight);
}

void ZWCStatic::SetTextW(const QString& text, bool redraw) {
  if (m_bLocked) return;
  text_ = text;
  ChooseFormat();
  if (redraw) update();
}

void ZWCStatic::SetColors(Color frame, Color back, Color text, bool redraw) {
  if (m_bLocked) return;
  m_Frame = frame;
  m_Back = back;
  m_Text = text;
  if (redraw) update();
}

void ZWCStatic::SetColors(Color frameAndBack, Color text, bool redraw) {
  SetColors(frameAndBack, frameAndBack, text, redraw);
}

void ZWCStatic::SetFrameColor(Color color) { SetColors(color, m_Back, m_Text, true); }
void ZWCStatic::SetBackColor(Color color) { SetColors(m_Frame, color, m_Text, true); }
void ZWCStatic::SetTextColor(Color color) { SetColors(m_Frame, m_Back, color, true); }

void ZWCStatic::GetColors(Color& frame, Color& back, Color& text) const {
  frame = m_Frame;
  back = m_Back;
  text = m_Text;
}

void ZWCStatic::SetFormat(std::uint32_t flags) {
  m_Format = flags;
  m_FitMode = kFitNone;
}

void ZWCStatic::SetPlusSign() {
  if (m_FitMode == kPlusSign) return;
  m_FitMode = kPlusSign;
  update();
}

void ZWCStatic::SetBlink(bool on, int period) {
  if (on == m_bBlink) return;
  m_bBlink = on;
  m_bPhase = on;
  period_ = on && period > 0 ? period : 0;
  // A tick paints at once, because only painting changes the phase, and two ticks must not become one paint.
  if (period_ > 0) m_Timer.Start(period_, [this] { repaint(); });
  if (!on) m_Timer.Stop();
  update();
}

void ZWCStatic::ChooseFormat() {
  if (m_FitMode != kFitPath && m_FitMode != kFitWrap) return;
  const QFontMetrics metrics(Font());
  if (MeasureText(metrics, width(), text_, kWholeText).width() <= width()) {
    m_Format = kWholeText;
    return;
  }
  if (m_FitMode == kFitWrap) {
    m_Format = kWrapped;
    return;
  }
  m_Format = kEndShortened;
  const Text path = FromQString(text_);
  if (!files_.Query(path).exists) return;
  const QString last = ToQString(FileNameOf(path));
  if (MeasureText(metrics, width(), last, kWholeText).width() <= width()) m_Format = kPathShortened;
}

void ZWCStatic::paintEvent(QPaintEvent* /*event*/) {
  if (rect().isEmpty()) return;
  // The window system has a buffer already, so this paints at once.
  QPainter painter(this);
  if (m_FitMode == kPlusSign) {
    PaintPlusSign(painter);
  } else {
    PaintText(painter);
  }
}

void ZWCStatic::resizeEvent(QResizeEvent* event) {
  // The format depends on whether the text fits in the width.
  if (event->size().width() != event->oldSize().width()) ChooseFormat();
}

void ZWCStatic::PaintText(QPainter& painter) {
  QRect area = rect();
  painter.fillRect(area, ToQColor(m_Frame));
  if (m_Frame != m_Back) {
    area.adjust(1, 1, -1, -1);
    painter.fillRect(area, ToQColor(m_Back));
  }
  if (m_bBlink) {
    if (m_bPhase) PaintTriangle(painter, QRect(area.left(), area.top(), kStrip, area.height()));
    area.setLeft(area.left() + kStrip);
    m_bPhase = !m_bPhase;
  }
  area.adjust(2, 2, -2, -2);
  painter.setFont(Font());
  painter.setPen(ToQColor(m_Text));
  QString text = text_;
  if (m_FitMode == kFitWrap) area = Centred(painter, area, text);
  DrawText(painter, area, text, m_Format);
}

void ZWCStatic::PaintTriangle(QPainter& painter, const QRect& strip) const {
  const QRect room = strip.adjusted(4, 4, -4, -4);
  const int left = room.left() + (room.width() - kTriangle) / 2;
  const int top = room.top() + (room.height() - kTriangle) / 2;
  const std::array<QPoint, 3> points = {QPoint(left, top), QPoint(left + kTriangle, top + kTriangle / 2),
                                        QPoint(left, top + kTriangle)};
  const QRegion region(QPolygon(QList<QPoint>(points.begin(), points.end())));
  for (const QRect& part : region) painter.fillRect(part, ToQColor(m_Text));
}

QRect ZWCStatic::Centred(QPainter& painter, QRect area, QString& text) const {
  text = ShortenText(painter.fontMetrics(), area.size(), text, m_Format);
  painter.fillRect(area, ToQColor(m_Back));
  const QSize size = MeasureText(painter.fontMetrics(), area.width(), text, m_Format);
  const int side = (area.width() - size.width()) / 2;
  const int end = (area.height() - size.height()) / 2;
  return area.adjusted(side, end, -side, -end);
}

void ZWCStatic::PaintPlusSign(QPainter& painter) const {
  painter.fillRect(rect(), ToQColor(m_Frame));
  const QRect area = rect().adjusted(1, 1, -1, -1);
  painter.fillRect(area, ToQColor(m_Back));
  const int x = area.left() + (area.width() - kPlus) / 2;
  const int y = area.top() + (area.height() - kPlus) / 2;
  const QPolygon points({{x, y + 6},
                         {x + 6, y + 6},
                         {x + 6, y},
                         {x + 12, y},
                         {x + 12, y + 6},
                         {x + 18, y + 6},
                         {x + 18, y + 12},
                         {x + 12, y + 12},
                         {x + 12, y + 18},
                         {x + 6, y + 18},
                         {x + 6, y + 12},
                         {x, y + 12},
                         {x, y + 6}});
  // A rectangle smaller than the sign cuts it; it is never scaled.
  const QRegion sign = QRegion(points).intersected(area);
  for (const QRect& part : sign) painter.fillRect(part, ToQColor(m_Text));
}

}  // namespace pnl
