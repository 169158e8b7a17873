// SPDX-License-Identifier: MIT
#include "ui/password_box.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <array>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kGap = 8;
constexpr int kColumns = 3;
constexpr int kRows = 4;
constexpr std::size_t kBackKey = 10;
constexpr std::size_t kOkKey = 11;
constexpr std::size_t kCloseKey = 12;

/// The keypad from left to right and top to bottom, as places in Keys().
constexpr std::array<std::size_t, 12> kPad = {7, 8, 9, 4, 5, 6, 1, 2, 3, kCloseKey, 0, kOkKey};

}  // namespace

PasswordBox::PasswordBox(QWidget* parent) : Cover(parent, Arrows::kNone), edit_(new QLineEdit(this)) {
  constexpr int kLongest = 20;
  edit_->setEchoMode(QLineEdit::Password);
  edit_->setMaxLength(kLongest);
  edit_->setContextMenuPolicy(Qt::NoContextMenu);
  connect(edit_, &QLineEdit::returnPressed, this, &PasswordBox::Enter);
  connect(edit_, &QLineEdit::textEdited, this, [this] {
    wrong_ = false;
    update();
  });
  MakeKeys();
  ShowWords();
  hide();
}

void PasswordBox::MakeKeys() {
  const auto add = [this](const QString& name, auto press) {
    auto* key = new PanelKey(this);
    key->setText(name);
    key->setAccessibleName(name);
    connect(key, &PanelKey::clicked, this, press);
    keys_.push_back(key);
    return key;
  };
  for (int digit = 0; digit <= 9; ++digit) {
    const QString name = QString::number(digit);
    add(name, [this, name] {
      edit_->insert(name);
      edit_->setFocus();
    });
  }
  PanelKey* back = add({}, [this] {
    edit_->backspace();
    edit_->setFocus();
  });
  back->SetArrow(Qt::LeftArrow);
  PanelKey* ok = add({}, [this] { Enter(); });
  ok->SetTint(QColor(theme::kGreen));
  ok->SetFilled(true);
  add({}, [this] { Leave(); });
}

void PasswordBox::ShowWords() {
  edit_->setAccessibleName(Say(Word::kPassword));
  keys_[kBackKey]->setAccessibleName(Say(Word::kBack));
  for (const auto& [key, word] : {std::pair(kOkKey, Word::kOk), std::pair(kCloseKey, Word::kClose)}) {
    keys_[key]->setText(Say(word));
    keys_[key]->setAccessibleName(Say(word));
  }
}

void PasswordBox::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

bool PasswordBox::Ask() {
  if (IsOpen()) return false;
  QEventLoop loop;
  loop_ = &loop;
  wrong_ = false;
  edit_->clear();
  show();
  raise();
  edit_->setFocus();
  const QPointer<PasswordBox> alive(this);
  // The box may be destroyed meanwhile, with the panel.
  connect(this, &QObject::destroyed, &loop, [&loop] { loop.exit(0); });
  const bool given = loop.exec() == 1;
  if (!alive) return false;
  loop_ = nullptr;
  edit_->clear();
  hide();
  return given;
}

void PasswordBox::Enter() {
  if (edit_->text() == QLatin1String(kDemoPassword)) return End(true);
  wrong_ = true;
  edit_->clear();
  edit_->setFocus();
  update();
}

void PasswordBox::Leave() { End(false); }

void PasswordBox::End(bool given) {
  if (loop_ != nullptr) loop_->exit(given ? 1 : 0);
}

void PasswordBox::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  edit_->setFont(theme::MonoFont(pixels * 3 / 2));
  for (PanelKey* key : keys_) key->SetFontPixels(pixels * 5 / 4);
  Place();
}

void PasswordBox::Place() {
  const int touch = theme::TouchPixels(*this);
  const int head = fontPixels_ * 5;
  const int row =
      std::clamp((height() - head - 2 * kGap) / (kRows + 1) - kGap, touch, std::max(touch, fontPixels_ * 5));
  const int box = std::min(width() - 2 * kGap, std::max(4 * touch, fontPixels_ * 22));
  const int left = (width() - box) / 2;
  edit_->setGeometry(left, head, box - row - kGap, row);
  keys_[kBackKey]->setGeometry(left + box - row, head, row, row);
  for (std::size_t i = 0; i < kPad.size(); ++i) {
    const int column = static_cast<int>(i) % kColumns;
    const int from = (box + kGap) * column / kColumns;
    const int to = (box + kGap) * (column + 1) / kColumns - kGap;
    const int top = head + (row + kGap) * (1 + static_cast<int>(i) / kColumns);
    keys_[kPad[i]]->setGeometry(left + from, top, to - from, row);
  }
}

void PasswordBox::resizeEvent(QResizeEvent*) { Place(); }

void PasswordBox::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAccent), 8);
  const QRect head(kGap * 2, kGap, width() - kGap * 4, edit_->y() - 2 * kGap);
  const QString hint = Say(Word::kDemoPasswordIs, QString::fromLatin1(kDemoPassword));
  theme::DrawText(painter, head.adjusted(0, 0, 0, -head.height() / 2), Qt::AlignHCenter | Qt::AlignBottom,
                  Say(wrong_ ? Word::kWrongPassword : Word::kPassword), theme::Font(fontPixels_ * 5 / 4, true),
                  QColor(wrong_ ? theme::kAmber : theme::kText));
  theme::DrawText(painter, head.adjusted(0, head.height() / 2, 0, 0), Qt::AlignHCenter | Qt::AlignVCenter, hint,
                  theme::Font(fontPixels_), QColor(theme::kMuted));
}

std::vector<QWidget*> PasswordBox::TabOrder() const {
  std::vector<QWidget*> order{edit_, keys_[kBackKey]};
  for (const std::size_t place : kPad) order.push_back(keys_[place]);
  return order;
}

}  // namespace panel
