// SPDX-License-Identifier: MIT
#include "ui/question.h"

#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {

bool FocusAmong(const std::vector<QWidget*>& widgets, bool next) {
  std::vector<QWidget*> able;
  for (QWidget* widget : widgets) {
    if (widget->isVisibleTo(widget->window()) && widget->isEnabled()) able.push_back(widget);
  }
  if (able.empty()) return false;
  const auto count = static_cast<int>(able.size());
  int at = next ? -1 : count;
  for (int i = 0; i < count; ++i) {
    if (able[static_cast<std::size_t>(i)]->hasFocus()) at = i;
  }
  able[static_cast<std::size_t>((at + (next ? 1 : count - 1)) % count)]->setFocus(next ? Qt::TabFocusReason
                                                                                       : Qt::BacktabFocusReason);
  return true;
}

Question::Question(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  hide();
}

void Question::Ask(const QString& text, const QStringList& answers, std::function<void(int)> answered) {
  if (IsOpen()) Answer(static_cast<int>(keys_.size()) - 1);
  for (PanelKey* key : keys_) key->deleteLater();
  keys_.clear();
  text_ = text;
  setAccessibleName(text);
  answered_ = std::move(answered);
  for (int i = 0; i < answers.size(); ++i) {
    auto* key = new PanelKey(this);
    key->setText(answers.at(i));
    key->setAccessibleName(answers.at(i));
    key->SetFontPixels(fontPixels_);
    connect(key, &PanelKey::clicked, this, [this, i] { Answer(i); });
    key->show();
    keys_.push_back(key);
  }
  Place();
  show();
  raise();
  FocusCareful();
}

void Question::FocusCareful() {
  // The careful answer has the focus, so that a hasty Enter loses nothing.
  if (!keys_.empty()) keys_.back()->setFocus();
}

void Question::Answer(int index) {
  if (!IsOpen() || index < 0) return;
  // The question is closed before answered is called, because answered may ask the next one.
  const auto answered = std::exchange(answered_, nullptr);
  hide();
  answered(index);
}

void Question::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  for (PanelKey* key : keys_) key->SetFontPixels(pixels);
  Place();
}

void Question::Place() {
  const int count = static_cast<int>(keys_.size());
  if (count == 0) return;
  const int touch = theme::TouchPixels(*this);
  const int high = std::max(touch, fontPixels_ * 4);
  const int box = std::min(width() - 24, fontPixels_ * 40);
  const int left = (width() - box) / 2;
  const int top = std::min(height() - high - 12, height() / 2 + fontPixels_);
  constexpr int kGap = 10;
  for (int i = 0; i < count; ++i) {
    const int from = (box + kGap) * i / count;
    keys_[static_cast<std::size_t>(i)]->setGeometry(left + from, top, (box + kGap) * (i + 1) / count - from - kGap,
                                                    high);
  }
}

void Question::resizeEvent(QResizeEvent*) { Place(); }

void Question::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAmber), 8);
  const int box = std::min(width() - 24, fontPixels_ * 40);
  const QRect text((width() - box) / 2, 12, box, height() / 2 + fontPixels_ - 24);
  theme::DrawParagraph(painter, text, Qt::AlignCenter, text_, theme::Font(fontPixels_ * 5 / 4, true),
                       QColor(theme::kText));
}

void Question::keyPressEvent(QKeyEvent* event) {
  const int last = static_cast<int>(keys_.size()) - 1;
  switch (event->key()) {
    case Qt::Key_Escape:
      return Answer(last);
    case Qt::Key_Left:
    case Qt::Key_Right:
      focusNextPrevChild(event->key() == Qt::Key_Right);
      return;
    default:
      // It counts as taken, so that no key reaches what is under the cover.
      return;
  }
}

bool Question::focusNextPrevChild(bool next) { return FocusAmong({keys_.begin(), keys_.end()}, next); }

}  // namespace panel
