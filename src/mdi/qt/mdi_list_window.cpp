// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_list_window.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

namespace pnl {

ZCMDIList::ZCMDIList(WindowSystem& windows, const MessageWindow& owner, QWidget* panel)
    : ToolDialog(panel), owner_(&owner), verdict_(windows, owner.Handle()), list_(new ListBox(kListId, this)) {
  hide();
  SetTitleProperty(u"MDI");
  setFocusProxy(list_);
  list_->SetFont(QStringLiteral("Arial"), 18, 600);
  list_->setFrameStyle(QFrame::Box | QFrame::Plain);
  list_->setFocusPolicy(Qt::StrongFocus);
  list_->installEventFilter(this);
  // Queued, so that the list still gets the release of the button.
  connect(list_, &ListBox::doubleClicked, this, &ZCMDIList::OnOK, Qt::QueuedConnection);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
}

ZCMDIList::~ZCMDIList() {
  // The list box loses its focus after this destructor, when this object can't handle the signal any more.
  disconnect(qApp, nullptr, this, nullptr);
}

void ZCMDIList::SetColors(Color background, Color text) { list_->SetColors(background, text); }

void ZCMDIList::SetSelectedColors(Color background, Color text) { list_->SetSelectedColors(background, text); }

void ZCMDIList::Fill(const TextRows* items) {
  list_->SetItems(items == nullptr ? TextRows() : *items);
  list_->Select(0);
}

bool ZCMDIList::GetSelected(Text& text) const {
  const int selected = list_->Selection();
  text = list_->Item(selected);
  return selected >= 0;
}

void ZCMDIList::Open(const QRect& place) {
  setGeometry(place);
  show();
  raise();
  list_->setFocus(Qt::OtherFocusReason);
}

void ZCMDIList::Dismiss() {
  if (dismissed_) return;
  dismissed_ = true;
  EndMessages();
  // If the widget were hidden with the focus, Qt would give it to the next widget of the panel.
  if (list_->hasFocus()) list_->clearFocus();
  hide();
  deleteLater();
}

void ZCMDIList::OnOK() {
  if (dismissed_) return;
  Text selected;
  const bool any = GetSelected(selected);
  verdict_.Accept(any ? std::optional<Text>(std::move(selected)) : std::nullopt);
}

void ZCMDIList::OnCancel() {
  if (!dismissed_) verdict_.Cancel();
}

void ZCMDIList::OnFocusChanged(QWidget* now) {
  if (dismissed_ || now == nullptr) return;
  if (isAncestorOf(now)) {
    active_ = true;
    return;
  }
  if (!active_ || Finished()) return;
  const QPointer<QWidget> taker(now);
  const QPointer<const QWidget> owner(owner_);
  const QPointer<ZCMDIList> self(this);
  emit LostActivation();
  if (self) OnCancel();
  // The owner has taken the focus in OnCancel. It must go to the widget that the operator turned to.
  const bool inOwner = owner && (owner == taker || owner->isAncestorOf(taker));
  if (taker && !inOwner && taker->isVisible()) taker->setFocus(Qt::OtherFocusReason);
}

bool ZCMDIList::OnKey(QKeyEvent& event) {
  event.accept();
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      OnOK();
      return true;
    case Qt::Key_Escape:
      OnCancel();
      return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      // The list has no other control.
      return true;
    default:
      return false;
  }
}

bool ZCMDIList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != list_) return ToolDialog::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return OnKey(static_cast<QKeyEvent&>(*event));
  if (event->type() == QEvent::ShortcutOverride) {
    // The keys of the list come before the panel's shortcuts.
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) event->accept();
  }
  return false;
}

void ZCMDIList::resizeEvent(QResizeEvent* event) {
  ToolDialog::resizeEvent(event);
  if (width() > 0 && height() > 0) list_->setGeometry(0, 0, width(), height());
}

}  // namespace pnl
