// SPDX-License-Identifier: MIT
#include "calc/qt/calc_text_widgets.h"

#include <QtCore/QRegularExpression>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include "calc/calc_places.h"
#include "calc/qt/calc_look.h"
#include "controls/draw_text.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr std::uint32_t kFormat =
    draw::kRight | draw::kVCenter | draw::kSingleLine | draw::kNoPrefix | draw::kEndEllipsis;
constexpr int kResultMargin = 4;
/// The least height of the characters, in pixels. A long text gets smaller characters, so that 32 binary digits fit.
constexpr int kSmallestResult = 8;

constexpr int kLabelMargin = 2;
constexpr int kSmallestLabel = 11;
const QString kMark = QStringLiteral("< >");

constexpr int kNoteMargin = 6;

/// The format for painting the text. Lines break between words, and within words only if one is wider than the note.
int FormatFor(const QFontMetrics& metrics, const QString& text, int width) {
  int format = Qt::AlignLeft | Qt::AlignTop;
  for (const QString& word : text.split(QRegularExpression(QStringLiteral("\\s")))) {
    if (metrics.horizontalAdvance(word) > width) return format | Qt::TextWrapAnywhere;
  }
  return format | Qt::TextWordWrap;
}

}  // namespace

// The result display.

ZCResultWnd::ZCResultWnd(int id, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  font_ = calc_look::Font(calc_look::kDialogHeight, calc_look::kNormalWeight);
}

void ZCResultWnd::SetText(const QString& text, bool redraw) {
  text_ = text;
  Redraw(redraw);
}

void ZCResultWnd::SetColors(Color back, Color text, bool redraw) {
  backColor_ = back;
  textColor_ = text;
  Redraw(redraw);
}

void ZCResultWnd::SetFont(const QFont& font) {
  font_ = font;
  Redraw(false);
}

void ZCResultWnd::Redraw(bool now) {
  picture_ = QPixmap();
  if (now && isVisible()) {
    repaint();
  } else {
    update();
  }
}

void ZCResultWnd::Compose() {
  const qreal ratio = devicePixelRatioF();
  picture_ = QPixmap(size() * ratio);
  picture_.setDevicePixelRatio(ratio);
  QPainter painter(&picture_);
  painter.fillRect(rect(), ToQColor(backColor_));
  const QRect field = rect().adjusted(kResultMargin, 0, -kResultMargin, 0);
  painter.setFont(calc_look::FittingFont(font_, text_, field.width(), kSmallestResult));
  painter.setPen(ToQColor(textColor_));
  DrawText(painter, field, text_, kFormat);
}

void ZCResultWnd::paintEvent(QPaintEvent* /*event*/) {
  if (picture_.isNull() || picture_.deviceIndependentSize().toSize() != size()) Compose();
  QPainter(this).drawPixmap(0, 0, picture_);
}

void ZCResultWnd::mousePressEvent(QMouseEvent* event) { event->accept(); }

void ZCResultWnd::mouseDoubleClickEvent(QMouseEvent* event) { event->accept(); }

// A line of words.

CalcLabelWidget::CalcLabelWidget(int id, int height, QWidget* parent) : QWidget(parent), height_(height) {
  MarkControl(this, id, control_kind::kStatic);
}

void CalcLabelWidget::SetText(const QString& text) {
  if (text == text_) return;
  text_ = text;
  update();
}

void CalcLabelWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const QRect field = rect().adjusted(kLabelMargin, 0, -kLabelMargin, 0);
  const QFont font =
      calc_look::FittingFont(calc_look::Font(height_, calc_look::kNormalWeight), text_, field.width(), kSmallestLabel);
  painter.setFont(font);
  painter.setPen(QColor(calc_look::kText));
  painter.drawText(field, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                   ShortenAroundMark(QFontMetrics(font), text_, field.width()));
}

QString ShortenAroundMark(const QFontMetrics& metrics, const QString& text, int width) {
  if (metrics.horizontalAdvance(text) <= width) return text;
  const qsizetype mark = text.indexOf(kMark);
  if (mark < 0) return metrics.elidedText(text, Qt::ElideRight, width);
  // The text after the mark gets a third of the width, or more if the text before the mark leaves more free.
  const QString after = text.mid(mark + kMark.size());
  const QString before = text.left(mark);
  const int room = std::max(0, width - metrics.horizontalAdvance(kMark));
  const int needed = metrics.horizontalAdvance(before);
  const int afterRoom = std::max(room / 3, room - needed);
  const QString shownAfter = metrics.elidedText(after, Qt::ElideRight, afterRoom);
  const int beforeRoom = room - metrics.horizontalAdvance(shownAfter);
  return metrics.elidedText(before, Qt::ElideLeft, beforeRoom) + kMark + shownAfter;
}

// The note.

CalcNoteWidget::CalcNoteWidget(int id, WindowHandle owner, int height, QWidget* parent) : QWidget(parent) {
  MarkControl(this, id, control_kind::kStatic);
  setProperty(property::kOwner, owner);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setFont(calc_look::Font(height, calc_look::kNormalWeight));
  hide();
}

void CalcNoteWidget::SetText(const QString& text) {
  text_ = text;
  update();
}

void CalcNoteWidget::PlaceBeside(const QRect& window) {
  const QRect room(0, 0, std::max(1, window.width() - 2 * kNoteMargin), QWIDGETSIZE_MAX);
  const QFontMetrics metrics(font());
  const QRect used = metrics.boundingRect(room, FormatFor(metrics, text_, room.width()), text_);
  const CalcExtent extent{window.width(), used.height() + 2 * kNoteMargin};
  const Rect area{0, 0, parentWidget()->width(), parentWidget()->height()};
  const Rect beside{window.left(), window.top(), window.left() + window.width(), window.top() + window.height()};
  const Rect place = CalcNoteRect(area, beside, extent);
  setGeometry(ToQRect(place));
  raise();
}

void CalcNoteWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(calc_look::kGround));
  painter.setPen(QColor(calc_look::kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  painter.setPen(QColor(calc_look::kText));
  const QRect room = rect().adjusted(kNoteMargin, kNoteMargin, -kNoteMargin, -kNoteMargin);
  painter.drawText(room, FormatFor(QFontMetrics(font()), text_, room.width()), text_);
}

}  // namespace pnl
