// SPDX-License-Identifier: MIT
#include "zmc/qt/msg_display.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtGui/QScreen>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <algorithm>
#include <cmath>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/wide_scroll_bar.h"
#include "window/dialog_units.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_look.h"
#include "zmc/zmc_ids.h"

namespace pnl {
namespace {

constexpr int kText = 3069;
constexpr int kIcon = 3070;
constexpr int kFirst = 3058;
constexpr int kSecond = 3059;
constexpr int kWidthUnits = 265;
constexpr int kHeightUnits = 122;
// In pixels of a panel of 600.
constexpr int kPanelHeight = 600;
constexpr int kMargin = 16;
constexpr int kTitle = 30;
constexpr int kIconSide = 40;
constexpr int kButtonWidth = 130;
constexpr int kButtonHeight = 46;
constexpr int kFontHeight = 20;
constexpr int kLeastFont = 15;  // of smaller letters nobody reads a question
constexpr int kWideBox = 620;   // for a list of lines
constexpr int kEdgeRoom = 4;
constexpr std::uint32_t kTextFlags =
    draw::kWordBreak | draw::kEditControl | draw::kNoPrefix | draw::kExpandTabs | draw::kExternalLeading;

QString Caption(const Language& language, int text, const char* fallback) {
  const Text loaded = language.LoadToolText(text);
  return loaded.empty() ? QString::fromLatin1(fallback) : ToQString(loaded);
}

QFont FontOf(int height, int weight) { return MakeFont(QStringLiteral("Arial"), height, weight).value_or(QFont()); }

void DrawField(QPainter& painter, const QRectF& area, Color fill, Color edge, double width) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(ToQColor(fill));
  painter.setPen(QPen(ToQColor(edge), width));
  const double half = width / 2;
  painter.drawRoundedRect(area.adjusted(half, half, -half, -half), 6, 6);
}

/// The text as it is, with its own lines broken where they are too long.
class MessageText : public QWidget {
 public:
  MessageText(const QString& text, QWidget* parent) : QWidget(parent), shown_(text) {
    MarkControl(this, kText, control_kind::kStatic);
    setProperty("pnlText", text);
  }
  [[nodiscard]] int HeightFor(int width) const {
    return MeasureText(fontMetrics(), width, shown_, kTextFlags).height();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setPen(ToQColor(zmc_look::kBoxText));
    DrawText(painter, rect(), shown_, kTextFlags);
  }

 private:
  const QString shown_;
};

/// A disc with a sign.
class SignIcon : public QWidget {
 public:
  SignIcon(bool question, QWidget* parent) : QWidget(parent), question_(question) {
    MarkControl(this, kIcon, control_kind::kPicture);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(ToQColor(question_ ? zmc_look::kBoxEdge : zmc_look::kBoxInfo));
    painter.setPen(Qt::NoPen);
    painter.drawEllipse(rect());
    painter.setPen(ToQColor(question_ ? zmc_look::kBoxDark : zmc_look::kBoxText));
    painter.setFont(FontOf(height() * 4 / 5, 700));
    painter.drawText(rect(), Qt::AlignCenter, question_ ? QStringLiteral("?") : QStringLiteral("i"));
  }

 private:
  const bool question_;
};

/// A button like the panel's keys. An '&' in its caption is an ordinary character.
class BoxButton : public QPushButton {
 public:
  BoxButton(const QString& caption, QWidget* parent) : QPushButton(parent), caption_(caption) {
    setText(QString(caption).replace(u'&', QStringLiteral("&&")));
    setProperty("pnlText", caption);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    const bool focused = hasFocus();
    DrawField(painter, rect(), isDown() ? zmc_look::kBoxPressed : zmc_look::kBoxRaised,
              focused ? zmc_look::kBoxFocus : zmc_look::kBoxBorder, focused ? 3 : 1);
    painter.setPen(ToQColor(zmc_look::kBoxText));
    painter.drawText(rect(), Qt::AlignCenter, fontMetrics().elidedText(caption_, Qt::ElideRight, width() - 8));
  }

 private:
  const QString caption_;
};

}  // namespace

CDlgMsgDisplay::CDlgMsgDisplay(const Language& language, const BoxSpec& box, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      question_(box.style == BoxStyle::kQuestion),
      scale_(std::clamp(parent->height() / static_cast<double>(kPanelHeight), 0.6, 2.5)),
      area_(new QScrollArea(this)),
      text_(new MessageText(ToQString(box.text), nullptr)),
      icon_(new SignIcon(question_, this)) {
  setWindowTitle(ToQString(box.title));
  // Also the text's and the buttons'.
  setFont(FontOf(std::max(kLeastFont, Scaled(kFontHeight)), 500));
  // The palette of the scroll bar; all else is drawn.
  setPalette(QPalette(ToQColor(zmc_look::kBoxRaised), ToQColor(zmc_look::kBoxBack)));
  area_->setFrameShape(QFrame::NoFrame);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area_->setVerticalScrollBar(new WideScrollBar(Qt::Vertical, area_));
  area_->setWidget(text_);
  if (question_) {
    AddButton(kFirst, Caption(language, zmc_text::kYes, "OK"));
    AddButton(kSecond, Caption(language, zmc_text::kNo, "CANCEL"));
    connect(buttons_[1], &QPushButton::clicked, this, &QDialog::reject);
  } else {
    AddButton(kFirst, Caption(language, zmc_text::kOk, "OK"));
  }
  connect(buttons_[0], &QPushButton::clicked, this, &QDialog::accept);
  LayOut();
}

QPushButton* CDlgMsgDisplay::AddButton(int id, const QString& caption) {
  buttons_.push_back(new BoxButton(caption, this));
  MarkControl(buttons_.back(), id, control_kind::kButton);
  buttons_.back()->installEventFilter(this);
  return buttons_.back();
}

int CDlgMsgDisplay::Scaled(int pixels) const { return static_cast<int>(std::lround(pixels * scale_)); }

QRect CDlgMsgDisplay::Room() const {
  const QWidget* parent = parentWidget();
  const QRect over(parent->mapToGlobal(QPoint(0, 0)), parent->size());
  const QRect room = over & parent->screen()->availableGeometry();
  return (room.isEmpty() ? over : room).adjusted(kEdgeRoom, kEdgeRoom, -kEdgeRoom, -kEdgeRoom);
}

/// As wide as the dialog's units, and as high as the text needs.
void CDlgMsgDisplay::LayOut() {
  const QRect room = Room();
  const bool lines = text_->property("pnlText").toString().contains(u'\n');
  const int width = std::min(std::max(DialogPixelsX(kWidthUnits, scale_), lines ? Scaled(kWideBox) : 0), room.width());
  const int margin = Scaled(kMargin);
  const int side = Scaled(kIconSide);
  const int left = 2 * margin + side;
  const int textWidth = width - left - margin - area_->verticalScrollBar()->sizeHint().width();
  const int needed = static_cast<MessageText*>(text_)->HeightFor(textWidth);
  const int button = std::max(Scaled(kButtonHeight), FingerPixels(*this));
  const int around = Scaled(kTitle) + 3 * margin + button;
  const int least = DialogPixelsY(kHeightUnits, scale_);
  const int height = std::min(std::max(std::max(needed, side) + around, least), room.height());
  text_->resize(textWidth, needed);
  icon_->setGeometry(margin, Scaled(kTitle) + margin, side, side);
  area_->setGeometry(left, Scaled(kTitle) + margin, width - left - margin, height - around);
  setFixedSize(width, height);
  PlaceButtons();
  move(room.topLeft() + QPoint((room.width() - width) / 2, (room.height() - height) / 2));
}

void CDlgMsgDisplay::PlaceButtons() {
  const int margin = Scaled(kMargin);
  const auto count = static_cast<int>(buttons_.size());
  const int high = std::max(Scaled(kButtonHeight), FingerPixels(*this));
  int wide = Scaled(kButtonWidth);
  for (const QPushButton* button : buttons_) {
    const QString caption = button->property("pnlText").toString();
    wide = std::max(wide, button->fontMetrics().horizontalAdvance(caption) + 2 * margin);
  }
  wide = std::min(wide, (width() - margin) / count - margin);
  int left = (width() - count * wide - (count - 1) * margin) / 2;
  for (QPushButton* button : buttons_) {
    button->setGeometry(left, height() - margin - high, wide, high);
    left += wide + margin;
  }
}

/// Left and Right go to the other button, the others scroll the text.
bool CDlgMsgDisplay::OnButtonKey(int key) {
  QScrollBar* bar = area_->verticalScrollBar();
  switch (key) {
    case Qt::Key_Left:
      buttons_.front()->setFocus(Qt::BacktabFocusReason);
      return true;
    case Qt::Key_Right:
      buttons_.back()->setFocus(Qt::TabFocusReason);
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
      bar->setValue(bar->value() + (key == Qt::Key_Down ? 1 : -1) * fontMetrics().lineSpacing());
      return true;
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      bar->setValue(bar->value() + (key == Qt::Key_PageDown ? 1 : -1) * bar->pageStep());
      return true;
    default:
      return false;
  }
}

bool CDlgMsgDisplay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnButtonKey(static_cast<QKeyEvent*>(event)->key())) return true;
  return QDialog::eventFilter(watched, event);
}

void CDlgMsgDisplay::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  raise();
  activateWindow();
}

void CDlgMsgDisplay::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(zmc_look::kBoxBack));
  painter.fillRect(0, 0, width(), Scaled(kTitle), ToQColor(zmc_look::kBoxRaised));
  painter.setPen(ToQColor(zmc_look::kBoxText));
  painter.setFont(FontOf(std::max(kLeastFont, Scaled(kTitle) * 7 / 10), 700));
  painter.drawText(QRect(Scaled(kMargin), 0, width(), Scaled(kTitle)), Qt::AlignVCenter | Qt::AlignLeft, windowTitle());
  painter.setPen(QPen(ToQColor(zmc_look::kBoxEdge), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

BoxAnswer CDlgMsgDisplay::Answer() const {
  if (!question_) return BoxAnswer::kOk;
  return result() == Accepted ? BoxAnswer::kYes : BoxAnswer::kNo;
}

}  // namespace pnl
