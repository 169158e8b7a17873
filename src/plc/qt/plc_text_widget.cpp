// SPDX-License-Identifier: MIT
#include "plc/qt/plc_text_widget.h"

#include <QtGui/QPainter>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollBar>
#include <algorithm>

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "controls/wide_scroll_bar.h"
#include "plc/plc_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kTitleFont = 25;
constexpr int kTitleWidth = 10;
constexpr int kTextFont = 21;
constexpr int kWeight = 400;
constexpr int kPadding = 6;
constexpr int kMargin = 12;
constexpr std::uint32_t kLine = draw::kSingleLine | draw::kVCenter | draw::kNoPrefix | draw::kEndEllipsis;

/// The title's font has characters of that width on average.
QFont TitleFont() {
  QFont font = MakeFont(QStringLiteral("Arial"), kTitleFont, kWeight).value_or(QFont());
  const int average = QFontMetrics(font).averageCharWidth();
  if (average > 0) font.setStretch(std::clamp(100 * kTitleWidth / average, 50, 200));
  return font;
}

}  // namespace

PlcTitleWidget::PlcTitleWidget(QWidget* parent) : QWidget(parent), font_(TitleFont()) {
  MarkControl(this, plc_id::kTitle, control_kind::kStatic);
  setAttribute(Qt::WA_OpaquePaintEvent);
  auto* const count = new QLabel(this);
  count->setTextFormat(Qt::PlainText);
  count->setFont(font_);
  MarkControl(count, plc_id::kCount, control_kind::kStatic);
  count_ = count;
}

void PlcTitleWidget::SetText(const QString& text) {
  text_ = text;
  setAccessibleName(text);
  update();
}

void PlcTitleWidget::SetCount(const QString& text) {
  static_cast<QLabel*>(count_)->setText(text);
  count_->setProperty("pnlText", text);
  PlaceCount();
  update();
}

void PlcTitleWidget::SetColors(std::uint32_t back, std::uint32_t text) {
  back_ = back;
  fore_ = text;
  QPalette palette = count_->palette();
  palette.setColor(QPalette::WindowText, ToQColor(text));
  count_->setPalette(palette);
  update();
}

void PlcTitleWidget::PlaceCount() {
  const bool any = !static_cast<QLabel*>(count_)->text().isEmpty();
  const int width = any ? std::min(count_->sizeHint().width(), this->width() / 3) : 0;
  count_->setGeometry(this->width() - width - kPadding, 0, width, height());
}

void PlcTitleWidget::resizeEvent(QResizeEvent* /*event*/) { PlaceCount(); }

void PlcTitleWidget::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(back_));
  painter.setFont(font_);
  painter.setPen(ToQColor(fore_));
  const QRect line = rect().adjusted(kPadding, 0, -2 * kPadding - count_->width(), 0);
  DrawText(painter, line, text_, kLine);
}

PlcTextWidget::PlcTextWidget(QWidget* parent)
    : QWidget(parent),
      layout_(new QStackedLayout(this)),
      edit_(new QPlainTextEdit(this)),
      picture_(new PictureArea(this)) {
  MarkControl(this, plc_id::kText, control_kind::kStatic);
  QFont font = MakeFont(QStringLiteral("Times New Roman"), kTextFont, kWeight).value_or(QFont());
  edit_->setFont(font);
  edit_->document()->setDocumentMargin(kMargin);
  QPalette colors = edit_->palette();
  colors.setColor(QPalette::Base, ToQColor(SystemColor(kColorWindow)));
  colors.setColor(QPalette::Text, ToQColor(SystemColor(kColorWindowText)));
  edit_->setPalette(colors);
  edit_->setReadOnly(true);
  edit_->setUndoRedoEnabled(false);
  edit_->setFrameShape(QFrame::NoFrame);
  edit_->setContextMenuPolicy(Qt::NoContextMenu);
  edit_->setVerticalScrollBar(new WideScrollBar(Qt::Vertical, edit_));
  layout_->addWidget(edit_);
  layout_->addWidget(picture_);
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(edit_);
}

void PlcTextWidget::SetText(const QString& text) {
  picture_->Clear();
  edit_->setPlainText(text);
  layout_->setCurrentWidget(edit_);
  setFocusProxy(edit_);
}

bool PlcTextWidget::SetPicture(const std::string& bytes) {
  edit_->clear();
  // A hidden proxy would take the focus nowhere.
  setFocusProxy(nullptr);
  layout_->setCurrentWidget(picture_);
  return picture_->SetPicture(bytes, PictureFit::kStretch);
}

int PlcTextWidget::ScrollPosition() const { return edit_->verticalScrollBar()->value(); }

void PlcTextWidget::SetScrollPosition(int position) { edit_->verticalScrollBar()->setValue(position); }

}  // namespace pnl
