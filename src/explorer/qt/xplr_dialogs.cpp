// SPDX-License-Identifier: MIT
#include "explorer/qt/xplr_dialogs.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>

#include "explorer/xplr_ids.h"
#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

constexpr int kMargin = 10;
constexpr int kHeight = 60;

}  // namespace

XplrDialog::XplrDialog(int mostCharacters, const QString& title, QWidget* frame)
    : ToolDialog(frame), edit_(new QLineEdit(this)) {
  SetTitleProperty(FromQString(title));
  setAutoFillBackground(true);
  MarkControl(edit_, xplr_control::kFindText, control_kind::kEdit);
  edit_->setMaxLength(mostCharacters);
  auto* caption = new QLabel(title, this);
  caption->setTextFormat(Qt::PlainText);
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
  const int height = std::max(kHeight, sizeHint().height());
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

bool XplrDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut && isVisible()) {
    Close();
    return false;
  }
  if (event->type() == QEvent::ShortcutOverride) {
    event->accept();
    return true;
  }
  if (event->type() != QEvent::KeyPress) return ToolDialog::eventFilter(watched, event);
  auto* key = static_cast<QKeyEvent*>(event);
  const QPointer<XplrDialog> alive = this;
  if (OnKey(key->key())) {
    event->accept();
    return true;
  }
  // The edit takes the key first; then the text is what it has become.
  edit_->removeEventFilter(this);
  edit_->event(event);
  if (!alive) return true;
  edit_->installEventFilter(this);
  emit Typed();
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
