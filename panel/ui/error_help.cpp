// SPDX-License-Identifier: MIT
#include "ui/error_help.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QScroller>
#include <algorithm>

#include "common/words.h"
#include "ui/panel_key.h"
#include "ui/question.h"
#include "ui/theme.h"

namespace panel {
namespace {

constexpr int kPad = 10;

}  // namespace

ErrorHelpCover::ErrorHelpCover(QWidget* parent)
    : QWidget(parent), text_(new QPlainTextEdit(this)), back_(new PanelKey(this)) {
  setFocusPolicy(Qt::StrongFocus);
  text_->setReadOnly(true);
  text_->setFrameShape(QFrame::NoFrame);
  // The cover takes the keys; the text only scrolls.
  text_->setFocusPolicy(Qt::NoFocus);
  QScroller::grabGesture(text_->viewport(), QScroller::LeftMouseButtonGesture);
  back_->setText(Say(Word::kBack));
  back_->setAccessibleName(back_->text());
  back_->SetKeyName(QStringLiteral("Esc"));
  connect(back_, &PanelKey::clicked, this, &ErrorHelpCover::Left);
  hide();
}

// A gesture that isn't released stays until the program ends.
ErrorHelpCover::~ErrorHelpCover() { QScroller::ungrabGesture(text_->viewport()); }

void ErrorHelpCover::Show(const std::optional<ErrorHelp>& help) {
  if (help == help_) return;
  help_ = help;
  setVisible(help_.has_value());
  if (!help_) return;
  header_ = help_->header;
  text_->setPlainText(help_->text);
  setAccessibleName(header_);
  Place();
  raise();
  setFocus();
  update();
}

void ErrorHelpCover::SetFontPixels(int pixels) {
  fontPixels_ = pixels;
  text_->setFont(theme::Font(pixels * 9 / 8));
  back_->SetFontPixels(pixels);
  Place();
}

QRect ErrorHelpCover::HeaderRect() const {
  const int width = this->width() - 2 * kPad;
  const QFontMetrics metrics(theme::Font(fontPixels_ * 5 / 4, true));
  const int text = metrics.boundingRect({0, 0, width - 2 * kPad, 0}, Qt::TextWordWrap, header_).height();
  return {kPad, kPad, width, std::min(text + kPad, height() / 3)};
}

void ErrorHelpCover::Place() {
  const int row = std::max(theme::TouchPixels(*this), fontPixels_ * 3);
  const int key = std::max(fontPixels_ * 12, 2 * row);
  const int top = HeaderRect().bottom() + 1 + kPad;
  back_->setGeometry(width() - kPad - key, height() - kPad - row, key, row);
  text_->setGeometry(kPad, top, width() - 2 * kPad, back_->y() - kPad - top);
}

void ErrorHelpCover::resizeEvent(QResizeEvent*) { Place(); }

void ErrorHelpCover::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(theme::kBackground));
  if (!help_) return;
  const QColor back = theme::FromColorRef(help_->back);
  theme::DrawField(painter, rect(), QColor(theme::kBackground), back.lighter(150), 8);
  theme::DrawField(painter, HeaderRect(), back, back, 6);
  theme::DrawParagraph(painter, HeaderRect().adjusted(kPad, 0, -kPad, 0), Qt::AlignLeft | Qt::AlignVCenter, header_,
                       theme::Font(fontPixels_ * 5 / 4, true), theme::FromColorRef(help_->fore));
}

void ErrorHelpCover::keyPressEvent(QKeyEvent* event) {
  QScrollBar* bar = text_->verticalScrollBar();
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      emit Left();
      return;
    case Qt::Key_Up:
      return bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    case Qt::Key_Down:
      return bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    case Qt::Key_PageUp:
      return bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    case Qt::Key_PageDown:
      return bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    default:
      // No key reaches what is under the cover.
      event->accept();
  }
}

bool ErrorHelpCover::focusNextPrevChild(bool next) { return FocusAmong({this, back_}, next); }

}  // namespace panel
