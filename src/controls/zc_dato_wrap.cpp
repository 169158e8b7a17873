// SPDX-License-Identifier: MIT
#include "controls/zc_dato_wrap.h"

#include <QtCore/QPointer>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <algorithm>
#include <utility>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/grid_look.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr QColor kEdge(0x46, 0x56, 0x6A);
constexpr QColor kFocusEdge(0x0A, 0x6E, 0xC8);
constexpr QColor kRefused(0xB0, 0x10, 0x1C);
constexpr QColor kMarked(0x00, 0x74, 0xD0);
constexpr int kFocusWidth = 2;
constexpr int kSideMargin = 4;
constexpr std::uint32_t kPainted =
    draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis | draw::kRight;

bool IsArrow(int key) {
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Left || key == Qt::Key_Right;
}

bool ChangesText(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete) return true;
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
  return !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace

ZCDatoWrap::ZCDatoWrap(int id, QWidget* parent) : QLineEdit(parent), validator_(new EntryValidator(this)) {
  MarkControl(this, id, control_kind::kEdit);
  setFrame(false);
  setAlignment(Qt::AlignRight);
  setTextMargins(kSideMargin, 0, kSideMargin, 0);
  setContextMenuPolicy(Qt::NoContextMenu);
  validator_->SetFormat(format_);
  setValidator(validator_);
  connect(this, &QLineEdit::textEdited, this, &ZCDatoWrap::OnEdited);
  SetColors(back_, text_);
}

void ZCDatoWrap::SetText(const QString& text) { EndEdit(text); }

void ZCDatoWrap::SetDigits(const NumberFormat& format) {
  format_ = format;
  validator_->SetFormat(format);
  update();
}

void ZCDatoWrap::SetFont(const QString& face, int height, int weight) {
  if (const auto made = MakeFont(face, height, weight)) setFont(*made);
}

void ZCDatoWrap::SetColors(Color back, Color text) {
  back_ = back;
  text_ = text;
  MarkRefused(false);
}

void ZCDatoWrap::MarkRefused(bool refused) {
  refused_ = refused;
  QPalette colors = palette();
  colors.setColor(QPalette::Base, ToQColor(back_));
  colors.setColor(QPalette::Text, refused ? kRefused : ToQColor(text_));
  colors.setColor(QPalette::Highlight, refused ? kRefused : kMarked);
  colors.setColor(QPalette::HighlightedText, Qt::white);
  setPalette(colors);
  update();
}

void ZCDatoWrap::BeginEdit(const QString& start) {
  editing_ = true;
  start_ = start;
  validator_->SetStart(start);
  if (text() != start) setText(start);
}

void ZCDatoWrap::EndEdit(const QString& text) {
  editing_ = false;
  written_ = text;
  // The text itself may be longer than the digits allow.
  validator_->SetStart(text);
  setText(text);
  if (hasFocus()) selectAll();
  MarkRefused(false);
}

void ZCDatoWrap::OnEdited() {
  edited_ = true;
  editing_ = true;
  start_ = PaintedText();
  if (refused_) MarkRefused(false);
}

bool ZCDatoWrap::CommitEdit() {
  if (!editing_) return true;
  const QString typed = text();
  if (typed == start_ || typed == written_) {
    EndEdit(written_);
    return true;
  }
  if (!validator_->Accepts(typed)) {
    MarkRefused(true);
    selectAll();
    return false;
  }
  EndEdit(typed);
  emit Changed();
  return true;
}

void ZCDatoWrap::CancelEdit() {
  if (editing_) EndEdit(written_);
}

void ZCDatoWrap::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  fresh_ = false;
  if (key == Qt::Key_Return || key == Qt::Key_Enter) {
    // A committed Enter goes on to the window, which may move the focus.
    const QPointer<ZCDatoWrap> alive(this);
    const bool stays = !CommitEdit();
    if (!alive) return event->accept();
    return event->setAccepted(stays);
  }
  if (key == Qt::Key_Escape) {
    event->setAccepted(editing_);
    return CancelEdit();
  }
  const bool begins = !editing_;
  if (begins && !ChangesText(*event)) return event->ignore();
  if (begins) {
    BeginEdit(PaintedText());
    selectAll();
    edited_ = false;
  }
  QLineEdit::keyPressEvent(event);
  if (begins && !edited_) return CancelEdit();  // the first character was refused
  if (IsArrow(key)) event->accept();
}

void ZCDatoWrap::focusInEvent(QFocusEvent* event) {
  QLineEdit::focusInEvent(event);
  fresh_ = event->reason() == Qt::MouseFocusReason;
  if (!editing_) selectAll();
}

void ZCDatoWrap::focusOutEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  const QPointer<ZCDatoWrap> alive(this);
  QLineEdit::focusOutEvent(event);
  // A menu or another window comes back to the open edit.
  if (!alive || !editing_ || reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
  const bool acceptable = validator_->Accepts(text());
  if (!acceptable) return CancelEdit();
  CommitEdit();
}

void ZCDatoWrap::mousePressEvent(QMouseEvent* event) {
  // The first touch gives the focus and selects all, the second places the caret.
  if (std::exchange(fresh_, false)) return event->accept();
  if (!editing_ && hasFocus()) BeginEdit(PaintedText());
  QLineEdit::mousePressEvent(event);
}

void ZCDatoWrap::paintEvent(QPaintEvent* event) {
  if (editing_) QLineEdit::paintEvent(event);
  QPainter painter(this);
  const QColor back = ToQColor(back_);
  if (!editing_) {
    const bool marked = hasFocus();
    painter.fillRect(rect(), isEnabled() ? back : back.darker(125));
    const QRect area = rect().adjusted(kSideMargin + kFocusWidth, 0, -kSideMargin - kFocusWidth, 0);
    const QString painted = PaintedText();
    const int width = std::min(area.width(), painter.fontMetrics().horizontalAdvance(painted));
    const int height = CellHeight(painter.fontMetrics());
    if (marked && !painted.isEmpty()) {
      painter.fillRect(QRect(area.right() - width, (rect().height() - height) / 2, width + 1, height), kMarked);
    }
    QColor ink = marked && !painted.isEmpty() ? QColor(Qt::white) : ToQColor(text_);
    if (!isEnabled()) ink.setAlpha(165);
    painter.setPen(ink);
    DrawText(painter, area, painted, kPainted);
  }
  const int width = hasFocus() ? kFocusWidth : 1;
  painter.setPen(QPen(refused_ ? kRefused : hasFocus() ? kFocusEdge : kEdge, width));
  const double half = width / 2.0;
  painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
}

}  // namespace pnl
