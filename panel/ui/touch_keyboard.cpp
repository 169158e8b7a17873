// SPDX-License-Identifier: MIT
#include "ui/touch_keyboard.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QTouchEvent>
#include <algorithm>

#include "common/words.h"
#include "ui/theme.h"
#include "ui/touch_signs.h"

namespace panel {
namespace {

constexpr int kGap = 4;
constexpr int kMostRows = 3;
constexpr int kMouse = -1;         // the finger of the mouse
constexpr int kRepeatAfter = 400;  // ms
constexpr int kRepeatEvery = 80;   // ms
constexpr qreal kKeyMillimetres = 12;

/// The stroke of a key; one with key 0 for a key that types nothing.
TouchStroke StrokeOfKey(const TouchKey& key, bool shift) {
  switch (key.act) {
    case TouchAct::kCharacter:
      return StrokeOf(CharacterOf(key, shift));
    case TouchAct::kEnter:
      return {Qt::Key_Return, {}, QStringLiteral("\r")};
    case TouchAct::kEscape:
      return {Qt::Key_Escape, {}, QStringLiteral("\x1b")};
    case TouchAct::kBack:
      return {Qt::Key_Backspace, {}, QStringLiteral("\b")};
    case TouchAct::kLeft:
      return {Qt::Key_Left, {}, {}};
    case TouchAct::kRight:
      return {Qt::Key_Right, {}, {}};
    case TouchAct::kUp:
      return {Qt::Key_Up, {}, {}};
    case TouchAct::kDown:
      return {Qt::Key_Down, {}, {}};
    default:
      return {};
  }
}

/// A held Enter or Escape must not confirm or leave a second thing.
bool Repeats(TouchAct act) { return act != TouchAct::kEnter && act != TouchAct::kEscape; }

}  // namespace

TouchKeyboard::TouchKeyboard(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_AcceptTouchEvents);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAccessibleName(Say(Word::kTouchKeyboard));
  Place();
  hide();
}

int TouchKeyboard::LeastSide() const {
  return theme::PixelsOf(kKeyMillimetres, density_ > 0 ? density_ : theme::DensityOf(*this));
}

void TouchKeyboard::SetDensity(qreal dotsPerInch) {
  density_ = dotsPerInch;
  Place();
}

void TouchKeyboard::SetKeyHeight(int pixels) { keyHeight_ = pixels; }

int TouchKeyboard::HeightFor(int most) const {
  const int least = LeastSide();
  int rows = kMostRows;
  while (rows > 1 && rows * (least + kGap) - kGap > most) --rows;
  const int high = std::max(least, std::min(keyHeight_, (most + kGap) / rows - kGap));
  return rows * (high + kGap) - kGap;
}

void TouchKeyboard::Use(TouchLayout layout) {
  layout_ = layout;
  page_ = 0;
  shift_ = Shift::kOff;
  Place();
}

void TouchKeyboard::Reset() { Use(TouchLayout::kBlock); }

void TouchKeyboard::Place() {
  LetGo();
  const int least = LeastSide();
  const int columns = std::max(1, (width() + kGap) / (least + kGap));
  const int rows = std::clamp((height() + kGap) / (least + kGap), 1, kMostRows);
  pages_ = TouchPages(layout_, columns, rows);
  page_ = std::min(page_, pages_.size() - 1);
  const TouchPage& page = pages_[page_];
  const int across = ColumnsOf(page);
  const auto down = static_cast<int>(page.size());
  cells_.clear();
  for (int row = 0; row < down; ++row) {
    const int top = (height() + kGap) * row / down;
    const int bottom = (height() + kGap) * (row + 1) / down - kGap;
    int column = 0;
    for (const TouchKey& key : page[static_cast<std::size_t>(row)]) {
      const int left = (width() + kGap) * column / across;
      column += key.span;
      const int right = (width() + kGap) * column / across - kGap;
      const bool blank = key.act == TouchAct::kCharacter && key.plain.isNull();
      if (!blank) cells_.push_back({key, QRect(left, top, right - left, bottom - top)});
    }
  }
  update();
}

int TouchKeyboard::CellAt(const QPointF& place) const {
  // A touch between two keys is for one of them.
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    if (QRectF(cells_[i].place).adjusted(-kGap / 2.0, -kGap / 2.0, kGap / 2.0, kGap / 2.0).contains(place)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

void TouchKeyboard::Press(int finger, const QPointF& place) {
  const int at = CellAt(place);
  if (at < 0) return;
  fingers_.push_back({finger, at});
  update();
  repeat_.stop();
  const TouchKey key = cells_[static_cast<std::size_t>(at)].key;
  if (StrokeOfKey(key, false).key == 0) return;
  if (Repeats(key.act)) {
    repeating_ = false;
    repeat_.start(kRepeatAfter, this);
  }
  Type(key, false);
}

void TouchKeyboard::Release(int finger, const QPointF& place) {
  const auto found =
      std::find_if(fingers_.begin(), fingers_.end(), [finger](const Finger& each) { return each.id == finger; });
  if (found == fingers_.end()) return;
  const int at = found->cell;
  // The key that repeats is the last one that was pressed.
  if (found + 1 == fingers_.end()) repeat_.stop();
  fingers_.erase(found);
  update();
  if (CellAt(place) == at) Act(cells_[static_cast<std::size_t>(at)].key);
}

void TouchKeyboard::LetGo() {
  repeat_.stop();
  fingers_.clear();
}

void TouchKeyboard::Type(const TouchKey& key, bool repeated) {
  const TouchStroke stroke = StrokeOfKey(key, Shifted());
  const bool once = shift_ == Shift::kOnce && key.act == TouchAct::kCharacter;
  // What is typed may destroy this keyboard.
  const QPointer<TouchKeyboard> alive(this);
  emit Typed(stroke, repeated);
  if (!alive || !once) return;
  shift_ = Shift::kOff;
  update();
}

void TouchKeyboard::Act(const TouchKey& key) {
  switch (key.act) {
    case TouchAct::kShift:
      shift_ = shift_ == Shift::kOff ? Shift::kOnce : shift_ == Shift::kOnce ? Shift::kLocked : Shift::kOff;
      return update();
    case TouchAct::kBlock:
      return Use(TouchLayout::kBlock);
    case TouchAct::kLetters:
      return Use(TouchLayout::kLetters);
    case TouchAct::kSigns:
      return Use(TouchLayout::kSigns);
    case TouchAct::kMore:
      page_ = (page_ + 1) % pages_.size();
      return Place();
    case TouchAct::kHide:
      emit HideWanted();
      return;
    default:
      return;
  }
}

bool TouchKeyboard::TakePointer(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
      Press(kMouse, static_cast<QMouseEvent*>(event)->position());
      return true;
    case QEvent::MouseButtonRelease:
      Release(kMouse, static_cast<QMouseEvent*>(event)->position());
      return true;
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd: {
      const QPointer<TouchKeyboard> alive(this);
      const auto points = static_cast<QTouchEvent*>(event)->points();
      for (const QEventPoint& point : points) {
        if (!alive) return true;
        if (point.state() == QEventPoint::Pressed) Press(point.id(), point.position());
        if (alive && point.state() == QEventPoint::Released) Release(point.id(), point.position());
      }
      return true;
    }
    case QEvent::TouchCancel:
      LetGo();
      update();
      return true;
    default:
      return false;
  }
}

bool TouchKeyboard::event(QEvent* event) {
  const QPointer<TouchKeyboard> alive(this);
  if (!TakePointer(event)) return QWidget::event(event);
  event->accept();
  return true;
}

void TouchKeyboard::timerEvent(QTimerEvent* event) {
  if (event->timerId() != repeat_.timerId()) return QWidget::timerEvent(event);
  if (fingers_.empty()) return repeat_.stop();
  if (!std::exchange(repeating_, true)) repeat_.start(kRepeatEvery, this);
  Type(cells_[static_cast<std::size_t>(fingers_.back().cell)].key, true);
}

void TouchKeyboard::hideEvent(QHideEvent* event) {
  LetGo();
  QWidget::hideEvent(event);
}

void TouchKeyboard::resizeEvent(QResizeEvent*) { Place(); }

void TouchKeyboard::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) setAccessibleName(Say(Word::kTouchKeyboard));
  QWidget::changeEvent(event);
}

QString TouchKeyboard::CaptionOf(const TouchKey& key) const {
  switch (key.act) {
    case TouchAct::kCharacter:
      return key.plain == QLatin1Char(' ') ? QString() : QString(CharacterOf(key, Shifted()));
    case TouchAct::kEscape:
      return QStringLiteral("Esc");
    case TouchAct::kBlock:
      return QStringLiteral("G1");
    case TouchAct::kLetters:
      return QStringLiteral("abc");
    case TouchAct::kSigns:
      return QStringLiteral("?#+");
    case TouchAct::kMore:
      return QStringLiteral("%1/%2").arg(page_ + 1).arg(pages_.size());
    default:
      return {};
  }
}

void TouchKeyboard::PaintCell(QPainter& painter, const Cell& cell, bool down) const {
  constexpr int kRadius = 6;
  const bool types = cell.key.act == TouchAct::kCharacter;
  const bool latched = cell.key.act == TouchAct::kShift && Shifted();
  const QColor fill(down || latched ? theme::kPressed : types ? theme::kRaised : theme::kSteel);
  const QColor ink = theme::InkOn(fill);
  theme::DrawField(painter, cell.place, fill, QColor(theme::kBorder), kRadius);
  if (const QString caption = CaptionOf(cell.key); !caption.isEmpty()) {
    const QFont font = theme::FittingFont(caption, cell.place.width() - 4, cell.place.height() * 9 / 20, 11, types);
    return theme::DrawText(painter, cell.place, Qt::AlignCenter, caption, font, ink, Qt::ElideNone);
  }
  DrawTouchSign(painter, cell.key.act, cell.place, ink, shift_ == Shift::kLocked);
}

void TouchKeyboard::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), QColor(theme::kBackground));
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool down = std::any_of(fingers_.begin(), fingers_.end(),
                                  [i](const Finger& finger) { return finger.cell == static_cast<int>(i); });
    PaintCell(painter, cells_[i], down);
  }
}

}  // namespace panel
