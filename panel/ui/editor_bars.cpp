// SPDX-License-Identifier: MIT
#include "ui/editor_bars.h"

#include <QKeyEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <algorithm>
#include <utility>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {

BarField::BarField(QWidget* parent) : QLineEdit(parent) {
  // More than a line of a program has.
  constexpr int kMostCharacters = 1000;
  setMaxLength(kMostCharacters);
}

void BarField::SetName(const QString& name) {
  setAccessibleName(name);
  setPlaceholderText(name);
}

void BarField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    emit Entered(event->modifiers().testFlag(Qt::ShiftModifier));
    return;
  }
  QLineEdit::keyPressEvent(event);
}

int EditorBar::RowHeight() const { return std::max(theme::TouchPixels(*this), fontPixels_ * 2); }

QRect EditorBar::Row(int row) const {
  return {kGap, gap_ + row * (RowHeight() + gap_), std::max(0, width() - 2 * kGap), RowHeight()};
}

void EditorBar::FitInto(int room) {
  const int gap = std::clamp((room - Rows() * RowHeight()) / (Rows() + 1), 0, kGap);
  if (gap == std::exchange(gap_, gap)) return;
  Place();
}

PanelKey* EditorBar::AddKey(Word caption) {
  auto* key = new PanelKey(this);
  keys_.emplace_back(key, caption);
  key->setText(Say(caption));
  key->setAccessibleName(key->text());
  return key;
}

PanelKey* EditorBar::AddArrowKey(Qt::ArrowType arrow, Word name) {
  auto* key = new PanelKey(this);
  keys_.emplace_back(key, name);
  key->SetArrow(arrow);
  key->setAccessibleName(Say(name));
  key->SetTip(Say(name));
  return key;
}

BarField* EditorBar::AddField(Word name) {
  auto* field = new BarField(this);
  field->SetName(Say(name));
  fields_.emplace_back(field, name);
  return field;
}

void EditorBar::ShowWords() {
  for (const auto& [key, word] : keys_) {
    key->setAccessibleName(Say(word));
    if (key->Arrow() == Qt::NoArrow) {
      key->setText(Say(word));
    } else {
      key->SetTip(Say(word));
    }
  }
  for (const auto& [field, word] : fields_) field->SetName(Say(word));
  Place();
  update();
}

void EditorBar::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

void EditorBar::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  for (const auto& [key, word] : keys_) key->SetFontPixels(pixels * 7 / 8);
  for (const auto& [field, word] : fields_) field->setFont(theme::MonoFont(pixels));
  Place();
}

int EditorBar::PlaceAtRight(int row, const std::vector<PanelKey*>& keys) const {
  const QRect at = Row(row);
  const QFontMetrics metrics(theme::Font(fontPixels_ * 7 / 8, true));
  int right = at.right() + 1;
  for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
    const int least = std::max(theme::TouchPixels(*this), at.height());
    const int width = std::max(least, metrics.horizontalAdvance((*key)->text()) + 2 * fontPixels_);
    (*key)->setGeometry(right - width, at.top(), width, at.height());
    right -= width + kGap;
  }
  return right + kGap;
}

void EditorBar::resizeEvent(QResizeEvent*) { Place(); }

void EditorBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
}

LineBar::LineBar(QWidget* parent)
    : EditorBar(parent), field_(AddField(Word::kLineNumber)), go_(AddKey(Word::kGo)), close_(AddKey(Word::kClose)) {
  field_->setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]{0,9}")), field_));
  connect(field_, &BarField::Entered, this, &LineBar::Enter);
  connect(go_, &PanelKey::clicked, this, &LineBar::Enter);
  connect(close_, &PanelKey::clicked, this, &LineBar::LeaveWanted);
}

void LineBar::Begin() {
  field_->clear();
  field_->setFocus();
}

void LineBar::Enter() {
  if (field_->text().isEmpty()) return field_->setFocus();
  emit LineWanted(field_->text().toInt());
}

void LineBar::Place() {
  const int right = PlaceAtRight(0, {go_, close_});
  const QRect row = Row(0);
  field_->setGeometry(row.left(), row.top(), std::max(0, right - kGap - row.left()), row.height());
}

OpeningBar::OpeningBar(QWidget* parent) : EditorBar(parent), cancel_(AddKey(Word::kCancel)) {
  cancel_->SetKeyName(QStringLiteral("Esc"));
  connect(cancel_, &PanelKey::clicked, this, &OpeningBar::CancelWanted);
}

void OpeningBar::Show(int percent) {
  if (percent == percent_) return;
  percent_ = percent;
  update();
}

void OpeningBar::Place() { PlaceAtRight(0, {cancel_}); }

void OpeningBar::paintEvent(QPaintEvent* event) {
  EditorBar::paintEvent(event);
  QPainter painter(this);
  const QRect row = Row(0);
  const QRect field(row.left(), row.top(), std::max(0, cancel_->x() - kGap - row.left()), row.height());
  theme::DrawField(painter, field, QColor(theme::kRaised), QColor(theme::kBorder), 4);
  QRect done = field.adjusted(1, 1, -1, -1);
  done.setWidth(done.width() * percent_ / 100);
  if (done.width() > 0) theme::DrawField(painter, done, QColor(theme::kSteel), QColor(theme::kSteel), 3);
  theme::DrawText(painter, field.adjusted(2 * kGap, 0, -2 * kGap, 0), Qt::AlignCenter,
                  QStringLiteral("%1 %").arg(percent_), theme::Font(FontPixels(), true), QColor(theme::kText));
}

}  // namespace panel
