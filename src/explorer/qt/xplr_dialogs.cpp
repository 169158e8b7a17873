// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_dialogs.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <algorithm>

#include "controls/fonts.h"
#include "controls/system_colors.h"
#include "explorer/xplr_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kMargin = 12;
constexpr int kBorder = 2;
/// The edit is as high as a finger needs.
constexpr int kEditHeight = 40;
constexpr Color kBack = 12569043;
constexpr Color kEdge = 4608090;
constexpr Color kText = 0;
constexpr Color kEditBack = 660510;
constexpr Color kEditText = 0xffffff;
constexpr int kWeight = 600;

void Dress(QWidget& widget, const std::optional<QFont>& font, Color back, Color text) {
  if (font) widget.setFont(*font);
  QPalette colors = widget.palette();
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::HighlightedText}) {
    colors.setColor(role, ToQColor(back));
  }
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::Highlight}) {
    colors.setColor(role, ToQColor(text));
  }
  widget.setPalette(colors);
}

}  // namespace

XplrDialog::XplrDialog(int mostCharacters, const QString& title, int fontHeight, QWidget* frame)
    : ToolDialog(frame), edit_(new QLineEdit(this)) {
  SetTitleProperty(FromQString(title));
  setAttribute(Qt::WA_OpaquePaintEvent);
  MarkControl(edit_, xplr_control::kFindText, control_kind::kEdit);
  edit_->setMaxLength(mostCharacters);
  auto* caption = new QLabel(title, this);
  caption->setTextFormat(Qt::PlainText);
  const auto font = MakeFont(QStringLiteral("Arial"), fontHeight, kWeight);
  Dress(*caption, font, kBack, kText);
  Dress(*edit_, font, kEditBack, kEditText);
  edit_->setFixedHeight(std::max({kEditHeight, 2 * fontHeight, FingerPixels(*this)}));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->addWidget(caption);
  row->addWidget(edit_, 1);
  edit_->installEventFilter(this);
  hide();
}

void XplrDialog::Open(const QString& text) {
  edit_->setText(text);
  edit_->selectAll();
  const QWidget* frame = parentWidget();
  const int width = std::min(frame->width() - 2 * kMargin, frame->width() * 2 / 3);
  const int height = sizeHint().height();
  // Above the name field, which stays visible.
  setGeometry((frame->width() - width) / 2, std::max(0, frame->height() - height - 4 * kMargin), width, height);
  show();
  raise();
  TakeFocus();
}

QString XplrDialog::Text() const { return edit_->text(); }

void XplrDialog::SetText(const QString& text) { edit_->setText(text); }

void XplrDialog::TakeFocus() { edit_->setFocus(Qt::OtherFocusReason); }

void XplrDialog::Close() {
  if (closing_) return;
  closing_ = true;
  const QPointer<XplrDialog> alive = this;
  edit_->removeEventFilter(this);
  emit Closing();
  if (!alive) return;
  EndMessages();
  hide();
  deleteLater();
}

void XplrDialog::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), ToQColor(kEdge));
  painter.fillRect(rect().adjusted(kBorder, kBorder, -kBorder, -kBorder), ToQColor(kBack));
}

bool XplrDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && isVisible()) {
    Close();
    return false;
  }
  if (event->type() == QEvent::ShortcutOverride) event->accept();
  if (event->type() != QEvent::KeyPress) return ToolDialog::eventFilter(watched, event);
  if (OnKey(static_cast<QKeyEvent*>(event)->key())) return true;
  // The edit takes the key first; then the text is what it has become.
  const QPointer<XplrDialog> alive = this;
  edit_->event(event);
  if (alive) emit Typed();
  return true;
}

bool ZCFind::OnKey(int key) {
  switch (key) {
    case Qt::Key_Escape:
      Close();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_PageDown:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_Up:
      emit SearchKey(key);
      return true;
    default:
      return false;
  }
}

bool ZCFolder::OnKey(int key) {
  if (key != Qt::Key_Escape && key != Qt::Key_Return && key != Qt::Key_Enter) return false;
  m_Folder = key == Qt::Key_Escape ? QString() : Text();
  Close();
  return true;
}

}  // namespace pnl
