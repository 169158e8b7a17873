// SPDX-License-Identifier: MIT
#include "ui/error_indicator.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "common/shortcuts.h"
#include "ui/theme.h"

namespace panel {

QString NameOfKind(ErrorKind kind) {
  return Say(static_cast<Word>(static_cast<int>(Word::kKindError) + static_cast<int>(kind)));
}

ErrorIndicator::ErrorIndicator(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::TabFocus);
  Show({}, 0);
}

void ErrorIndicator::Show(const ErrorSign& sign, int standing) {
  if (sign == sign_ && standing == standing_) return;
  const bool otherFlash = sign.flashPeriod != sign_.flashPeriod || (sign.count > 0) != (sign_.count > 0);
  sign_ = sign;
  standing_ = standing;
  if (otherFlash) StartFlash();
  ShowWords();
}

void ErrorIndicator::ShowWords() {
  setToolTip(theme::PlainTip(TooltipOf(Action::kErrorList)));
  const QString count = QString::number(ErrorCount());
  setText(ErrorCount() == 0 ? Say(Word::kNoErrors) : Say(Word::kErrors, count));
  setAccessibleName(sign_.count > 0 ? Say(Word::kErrorSign).arg(count, NameOfKind(sign_.kind)) : text());
  update();
}

void ErrorIndicator::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QAbstractButton::changeEvent(event);
}

void ErrorIndicator::StartFlash() {
  // In ms. A shorter flash can't be seen and would only keep the processor awake.
  constexpr int kShortest = 50;
  inverted_ = false;
  flash_.stop();
  if (sign_.count > 0 && sign_.flashPeriod > 0) flash_.start(std::max(sign_.flashPeriod, kShortest), this);
}

void ErrorIndicator::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  update();
}

void ErrorIndicator::timerEvent(QTimerEvent* event) {
  if (event->timerId() != flash_.timerId()) return QAbstractButton::timerEvent(event);
  inverted_ = !inverted_;
  update();
}

void ErrorIndicator::keyPressEvent(QKeyEvent* event) {
  // Many panel keyboards have no space bar, so Enter presses the key too.
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
  QAbstractButton::keyPressEvent(event);
}

QColor ErrorIndicator::Fill() const {
  if (isDown()) return QColor(theme::kPressed);
  if (ErrorCount() == 0) return QColor(theme::kSurface);
  if (sign_.count == 0) return QColor(theme::kRed);
  const QColor color = theme::FromColorRef(ColorOfKind(sign_.kind));
  return inverted_ ? theme::InkOn(color) : color;
}

QColor ErrorIndicator::Ink() const {
  if (isDown()) return theme::InkOn(Fill());
  if (ErrorCount() == 0) return QColor(theme::kMuted);
  if (sign_.count == 0) return QColor(theme::kText);
  const QColor color = theme::FromColorRef(ColorOfKind(sign_.kind));
  return inverted_ ? color : theme::InkOn(color);
}

void ErrorIndicator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QColor edge = hasFocus() ? QColor(theme::kAccent) : QColor(theme::kBorder);
  theme::DrawField(painter, rect(), Fill(), edge, 6);
  const QRect field = rect().adjusted(6, 0, -6, 0);
  const QFont font = theme::FittingFont(text(), field.width(), fontPixels_, 11, ErrorCount() != 0);
  // On the smallest panel the count goes below its word; it must not be cut.
  if (QFontMetrics(font).horizontalAdvance(text()) > field.width()) {
    return theme::DrawParagraph(painter, field, Qt::AlignCenter, text(), font, Ink());
  }
  theme::DrawText(painter, field, Qt::AlignCenter, text(), font, Ink());
}

}  // namespace panel
