// SPDX-License-Identifier: MIT
#include "ui/first_start.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <vector>

#include "common/words.h"
#include "host/panel_settings.h"
#include "ui/panel_key.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kPad = 12;
constexpr int kGap = 10;
/// The least height of a key on the cover. It is generous, because the density of the screen isn't known yet.
constexpr qreal kKeyMillimetres = 12;
constexpr qreal kLeastDensity = 40;
/// The repeats of a held key, in milliseconds, and the pixels that each of them adds.
constexpr int kRepeatDelay = 400;
constexpr int kRepeatInterval = 50;
constexpr int kRepeatStep = 3;
constexpr const char* kCodes[] = {"en", "es"};

/// The length of a card at that density.
int CardPixels(qreal dotsPerInch) {
  return static_cast<int>(std::lround(FirstStart::kCardMillimetres * dotsPerInch / theme::kMillimetresPerInch));
}

bool IsOf(FirstStart::Key key, FirstStart::Page page) {
  return (key <= FirstStart::kSpanish) == (page == FirstStart::Page::kLanguage);
}

}  // namespace

FirstStart::FirstStart(QWidget* parent) : Cover(parent, Arrows::kLeftRight) {
  setFocusPolicy(Qt::StrongFocus);
  for (PanelKey*& key : keys_) key = new PanelKey(this);
  for (const Key language : {kEnglish, kSpanish}) {
    // Each language is named in itself, so its key never changes.
    const QString name = WordIn(Word::kOtherLanguage, language == kEnglish ? 1 : 0);
    keys_[language]->setText(name);
    keys_[language]->setAccessibleName(name);
    connect(keys_[language], &PanelKey::clicked, this, [this, language] { Choose(language); });
  }
  keys_[kShorter]->setText(QString(QChar(0x2212)));
  keys_[kLonger]->setText(QStringLiteral("+"));
  for (const Key key : {kShorter, kLonger}) {
    keys_[key]->setAutoRepeat(true);
    keys_[key]->setAutoRepeatDelay(kRepeatDelay);
    keys_[key]->setAutoRepeatInterval(kRepeatInterval);
    connect(keys_[key], &PanelKey::clicked, this, [this, key] {
      // While a key is held, it clicks and is still down.
      const int step = keys_[key]->isDown() ? kRepeatStep : 1;
      SetBarLength(length_ + (key == kLonger ? step : -step));
    });
  }
  keys_[kOk]->SetTint(QColor(theme::kGreen));
  keys_[kOk]->SetFilled(true);
  connect(keys_[kBack], &PanelKey::clicked, this, &FirstStart::GoBack);
  connect(keys_[kOk], &PanelKey::clicked, this, &FirstStart::Finish);
  ShowWords();
  hide();
}

void FirstStart::Ask(Page page, bool leave) {
  if (IsOpen()) return;
  open_ = true;
  leave_ = leave;
  const qreal density = theme::DensityOf(*this);
  assumed_ = theme::IsDensity(density) ? density : theme::kUsualDensity;
  length_ = CardPixels(assumed_);
  ShowPage(page);
  show();
  raise();
  FocusFirst();
}

void FirstStart::FocusFirst() {
  if (page_ == Page::kScreen) return keys_[kOk]->setFocus();
  keys_[WordsInUse() == QLatin1String(kCodes[1]) ? kSpanish : kEnglish]->setFocus();
}

void FirstStart::Choose(Key language) {
  if (!IsOpen()) return;
  ShowPage(Page::kScreen);
  FocusFirst();
  emit LanguageChosen(QString::fromLatin1(kCodes[language]));
}

void FirstStart::GoBack() {
  if (page_ != Page::kScreen) return;
  ShowPage(Page::kLanguage);
  FocusFirst();
}

void FirstStart::Leave() {
  if (leave_) return Close();
  GoBack();
}

void FirstStart::Close() {
  open_ = false;
  drag_.reset();
  hide();
}

void FirstStart::Finish() {
  if (!IsOpen()) return;
  // The cover is closed first, because the owner may ask the next question.
  Close();
  emit Answered(ScreenMillimetres());
}

void FirstStart::ShowPage(Page page) {
  page_ = page;
  drag_.reset();
  for (int key = 0; key < kKeyCount; ++key) {
    keys_[static_cast<std::size_t>(key)]->setVisible(IsOf(static_cast<Key>(key), page));
  }
  Place();
  ShowWords();
}

void FirstStart::ShowWords() {
  keys_[kBack]->setText(Say(Word::kBack));
  keys_[kBack]->setAccessibleName(Say(Word::kBack));
  keys_[kOk]->setText(Say(Word::kOk));
  keys_[kOk]->setAccessibleName(Say(Word::kOk));
  keys_[kShorter]->setAccessibleName(Say(Word::kBarShorter));
  keys_[kLonger]->setAccessibleName(Say(Word::kBarLonger));
  setAccessibleName(Text());
  setAccessibleDescription(Reading());
  update();
}

QString FirstStart::Text() const {
  if (page_ == Page::kScreen) return Say(Word::kScreenAsked, QString::number(kCardMillimetres));
  // Both languages ask, because nobody knows yet which one the operator reads.
  return WordIn(Word::kLanguageAsked, 0) + QLatin1Char('\n') + WordIn(Word::kLanguageAsked, 1);
}

QString FirstStart::Reading() const {
  return page_ == Page::kScreen ? Say(Word::kScreenIsWide, QString::number(std::lround(ScreenMillimetres())))
                                : QString();
}

int FirstStart::ScreenPixels() const { return screen() == nullptr ? window()->width() : screen()->size().width(); }

double FirstStart::ScreenMillimetres() const { return ScreenPixels() * kCardMillimetres / std::max(1, length_); }

void FirstStart::SetMostDensity(qreal dotsPerInch) {
  mostDensity_ = dotsPerInch;
  LimitBar();
}

void FirstStart::SetBarLength(int pixels) {
  length_ = pixels;
  LimitBar();
}

void FirstStart::LimitBar() {
  int most = std::max(1, width() - 2 * kPad);
  if (mostDensity_ > 0) most = std::min(most, CardPixels(mostDensity_));
  // With a shorter bar the screen would be wider than any screen is.
  const auto narrowest = static_cast<int>(std::ceil(ScreenPixels() * kCardMillimetres / kMostScreenMillimetres));
  const int least = std::min(most, std::max(CardPixels(kLeastDensity), narrowest));
  length_ = std::clamp(length_, least, most);
  setAccessibleDescription(Reading());
  update();
}

void FirstStart::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  for (PanelKey* key : keys_) key->SetFontPixels(pixels * 5 / 4);
  for (const Key key : {kShorter, kLonger}) keys_[key]->SetFontPixels(pixels * 2);
  Place();
}

void FirstStart::Place() {
  const int least = theme::PixelsOf(kKeyMillimetres, assumed_);
  const int high = std::max(least, std::min(fontPixels_ * 4, height() / 4));
  const auto row = [this, high](int left, int top, int box, const std::vector<Key>& keys) {
    const auto count = static_cast<int>(keys.size());
    for (int i = 0; i < count; ++i) {
      const int from = (box + kGap) * i / count;
      const int to = (box + kGap) * (i + 1) / count - kGap;
      keys_[keys[static_cast<std::size_t>(i)]]->setGeometry(left + from, top, to - from, high);
    }
  };
  const int box = std::min(width() - 2 * kPad, std::max(fontPixels_ * 40, 4 * (least + kGap)));
  const int left = (width() - box) / 2;
  row(left, std::min(height() - high - kPad, height() / 2), box, {kEnglish, kSpanish});
  row(left, height() - high - kPad, box, {kBack, kShorter, kLonger, kOk});
  LimitBar();
}

QRect FirstStart::Bar() const {
  const QRect row = keys_[kOk]->geometry();
  const int line = fontPixels_ * 3 / 2;
  // The bar is as high as a key, because a finger pulls it.
  const int high = std::min(row.height(), std::max(fontPixels_, height() / 5));
  return {kPad, row.top() - kGap - line - high, length_, high};
}

QRect FirstStart::TextPlace() const {
  const int bottom = page_ == Page::kScreen ? Bar().top() - kGap : keys_[kEnglish]->y() - kGap;
  const int box = std::min(width() - 2 * kPad, fontPixels_ * 44);
  return {(width() - box) / 2, kPad, box, std::max(1, bottom - kPad)};
}

QFont FirstStart::TextFont() const {
  constexpr int kLeast = 11;
  int pixels = fontPixels_ * 5 / 4;
  const QSize room = TextPlace().size();
  while (pixels > kLeast && theme::ParagraphIn(Text(), theme::Font(pixels, true), room) != Text()) --pixels;
  return theme::Font(pixels, true);
}

void FirstStart::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  theme::DrawField(painter, rect(), QColor(theme::kBackground), QColor(theme::kAccent), 8);
  // The text about the bar is close to the bar.
  const Qt::Alignment high = page_ == Page::kScreen ? Qt::AlignBottom : Qt::AlignVCenter;
  theme::DrawParagraph(painter, TextPlace(), Qt::AlignHCenter | high, Text(), TextFont(), QColor(theme::kText));
  if (page_ != Page::kScreen) return;
  const QRect bar = Bar();
  painter.fillRect(bar, QColor(theme::kAccent));
  // The operator compares the two ends with the card, so they are marked.
  painter.fillRect(QRect(bar.left(), bar.top(), 2, bar.height()), QColor(theme::kText));
  painter.fillRect(QRect(bar.right() - 1, bar.top(), 2, bar.height()), QColor(theme::kText));
  const QRect line(kPad, bar.bottom() + 1, width() - 2 * kPad, keys_[kOk]->y() - bar.bottom() - 1);
  theme::DrawText(painter, line, Qt::AlignCenter, Reading(),
                  theme::FittingFont(Reading(), line.width(), fontPixels_, 11), QColor(theme::kMuted));
}

void FirstStart::resizeEvent(QResizeEvent*) { Place(); }

void FirstStart::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) ShowWords();
  QWidget::changeEvent(event);
}

void FirstStart::mousePressEvent(QMouseEvent* event) {
  drag_.reset();
  if (page_ != Page::kScreen || event->button() != Qt::LeftButton) return;
  // A finger close to the end of the bar pulls it, too. A tap alone changes nothing.
  const int reach = keys_[kOk]->height();
  if (Bar().adjusted(0, 0, reach, 0).contains(event->pos())) drag_ = Drag{event->pos().x(), length_};
}

void FirstStart::mouseMoveEvent(QMouseEvent* event) {
  if (drag_) SetBarLength(drag_->length + event->pos().x() - drag_->from);
}

void FirstStart::mouseReleaseEvent(QMouseEvent* /*event*/) { drag_.reset(); }

std::vector<QWidget*> FirstStart::TabOrder() const { return {keys_.begin(), keys_.end()}; }

}  // namespace panel
