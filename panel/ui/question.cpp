// SPDX-License-Identifier: MIT
#include "ui/question.h"

#include <QPainter>
#include <algorithm>

#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {

Question::Question(QWidget* parent) : Cover(parent, Arrows::kLeftRight) {
  setFocusPolicy(Qt::StrongFocus);
  hide();
}

void Question::Ask(const QString& text, const QStringList& answers, std::function<void(int)> answered) {
  Leave();
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

void Question::Leave() { Answer(static_cast<int>(keys_.size()) - 1); }

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

std::vector<QWidget*> Question::TabOrder() const { return {keys_.begin(), keys_.end()}; }

}  // namespace panel
