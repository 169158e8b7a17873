// SPDX-License-Identifier: MIT
#include "zmc/qt/msg_display.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QStyle>
#include <algorithm>

#include "controls/fonts.h"
#include "window/dialog_units.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"
#include "zmc/zmc_ids.h"

namespace pnl {
namespace {

constexpr int kText = 3069;
constexpr int kFirst = 3058;
constexpr int kSecond = 3059;
constexpr int kWidthUnits = 265;
constexpr int kHeightUnits = 122;
constexpr int kMargin = 16;
constexpr int kIcon = 40;
constexpr int kButtonWidth = 130;
constexpr int kButtonHeight = 44;
constexpr int kFontHeight = 20;
constexpr int kLeastText = 120;
constexpr int kWideBox = 560;  // for a list of lines

QString Caption(const Language& language, int text, const char* fallback) {
  const Text loaded = language.LoadToolText(text);
  return loaded.empty() ? QString::fromLatin1(fallback) : ToQString(loaded).replace(u'&', QStringLiteral("&&"));
}

}  // namespace

CDlgMsgDisplay::CDlgMsgDisplay(const Language& language, const BoxSpec& box, QWidget* parent)
    : QDialog(parent),
      question_(box.style == BoxStyle::kQuestion),
      text_(new QLabel),
      area_(new QScrollArea(this)),
      icon_(new QLabel(this)),
      first_(new QPushButton(this)) {
  setWindowTitle(ToQString(box.title));
  MarkControl(text_, kText, control_kind::kStatic);
  MarkControl(first_, kFirst, control_kind::kButton);
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setText(ToQString(box.text));
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setWidget(text_);
  area_->setWidgetResizable(true);
  const auto picture = question_ ? QStyle::SP_MessageBoxQuestion : QStyle::SP_MessageBoxInformation;
  icon_->setPixmap(style()->standardIcon(picture).pixmap(kIcon, kIcon));
  first_->setText(Caption(language, question_ ? zmc_text::kYes : zmc_text::kOk, "OK"));
  first_->setDefault(true);
  connect(first_, &QPushButton::clicked, this, &QDialog::accept);
  if (question_) {
    second_ = new QPushButton(Caption(language, zmc_text::kNo, "CANCEL"), this);
    MarkControl(second_, kSecond, control_kind::kButton);
    connect(second_, &QPushButton::clicked, this, &QDialog::reject);
  }
  if (const auto font = MakeFont(QStringLiteral("Arial"), kFontHeight, 500)) setFont(*font);
  LayOut();
}

/// As wide as the dialog's units, and as high as the text needs.
void CDlgMsgDisplay::LayOut() {
  const int width = std::max(DialogPixelsX(kWidthUnits, 1), text_->text().contains(u'\n') ? kWideBox : 0);
  const int textLeft = 2 * kMargin + kIcon;
  const int textWidth = width - textLeft - kMargin - area_->verticalScrollBar()->sizeHint().width();
  const QRect measured = text_->fontMetrics().boundingRect(QRect(0, 0, textWidth, 10000), Qt::TextWordWrap, text_->text());
  const int around = 3 * kMargin + kButtonHeight;
  // A text that is longer than the panel is high is scrolled.
  const int most = parentWidget() != nullptr ? std::max(parentWidget()->window()->height() - around, kLeastText) : 10000;
  const int textHeight = std::clamp(measured.height() + kMargin / 2, kIcon, most);
  const int height = std::max(textHeight + around, DialogPixelsY(kHeightUnits, 1));
  const int top = height - kMargin - kButtonHeight;
  icon_->setGeometry(kMargin, kMargin, kIcon, kIcon);
  area_->setGeometry(textLeft, kMargin, width - textLeft - kMargin, top - 2 * kMargin);
  if (second_ == nullptr) {
    first_->setGeometry((width - kButtonWidth) / 2, top, kButtonWidth, kButtonHeight);
  } else {
    first_->setGeometry(width / 2 - kButtonWidth - kMargin / 2, top, kButtonWidth, kButtonHeight);
    second_->setGeometry(width / 2 + kMargin / 2, top, kButtonWidth, kButtonHeight);
  }
  setFixedSize(width, height);
}

void CDlgMsgDisplay::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  raise();
  activateWindow();
}

BoxAnswer CDlgMsgDisplay::Answer() const {
  if (!question_) return BoxAnswer::kOk;
  return result() == Accepted ? BoxAnswer::kYes : BoxAnswer::kNo;
}

}  // namespace pnl
