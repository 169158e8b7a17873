// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_preview_pane.h"

#include <QtGui/QPainter>
#include <algorithm>

#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr Color kEmpty = 10595253;  // as the list
constexpr Color kBack = 0xBEC8D0;
constexpr Color kHead = 8621463;
constexpr Color kEdge = 4608090;
constexpr Color kText = 0;
constexpr Color kComing = 0x303030;
constexpr int kMargin = 8;
constexpr int kNameWeight = 600;
constexpr int kLineWeight = 400;
constexpr int kDot = 6;
constexpr int kDots = 3;

}  // namespace

XplrPreviewPane::XplrPreviewPane(QWidget* list) : QWidget(list) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAttribute(Qt::WA_OpaquePaintEvent);
  hide();
}

int XplrPreviewPane::WidthIn(int list) { return std::clamp(list * 3 / 10, 280, 520); }

void XplrPreviewPane::SetLook(int fontHeight) { fontHeight_ = fontHeight; }

void XplrPreviewPane::Show(const XplrPreviewFace& preview) {
  name_ = ToQString(preview.name);
  lines_.clear();
  for (const Text& line : preview.lines) lines_ << ToQString(line);
  setVisible(preview.there);
  update();
}

void XplrPreviewPane::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(lines_.isEmpty() ? kEmpty : kBack));
  painter.fillRect(0, 0, 1, height(), ToQColor(kEdge));
  if (lines_.isEmpty()) return;
  painter.setPen(ToQColor(kText));
  if (const auto font = MakeFont(QStringLiteral("Arial"), fontHeight_, kNameWeight)) painter.setFont(*font);
  const QRect head(1, 0, width() - 1, painter.fontMetrics().height() + kMargin);
  painter.fillRect(head, ToQColor(kHead));
  const int room = width() - 2 * kMargin;
  painter.drawText(head.adjusted(kMargin - 1, 0, -kMargin, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(name_, Qt::ElideRight, room));
  if (const auto font = MakeFont(QStringLiteral("Courier New"), fontHeight_, kLineWeight)) painter.setFont(*font);
  const int step = painter.fontMetrics().height() + 2;
  int top = head.bottom() + kMargin;
  for (const QString& line : lines_) {
    painter.drawText(QRect(kMargin, top, room, step), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(line, Qt::ElideRight, room));
    top += step;
  }
}

XplrComingSign::XplrComingSign(QWidget* list) : QWidget(list) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  hide();
}

void XplrComingSign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QColor back = ToQColor(kBack);
  back.setAlphaF(0.85F);
  painter.fillRect(rect(), back);
  painter.fillRect(0, 0, width(), 1, ToQColor(kEdge));
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ToQColor(kComing));
  const int left = width() / 2 - (2 * kDots - 1) * kDot / 2;
  for (int dot = 0; dot < kDots; ++dot) painter.drawEllipse(left + 2 * kDot * dot, (height() - kDot) / 2, kDot, kDot);
}

}  // namespace pnl
