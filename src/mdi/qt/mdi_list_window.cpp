// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_list_window.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <algorithm>

#include "window/qt/finger.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

/// Whether the key types characters. With Ctrl, Alt or Meta it is a command of the host.
bool IsTyping(const QKeyEvent& event) {
  constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  if ((event.modifiers() & kCommands) != 0 || event.text().isEmpty()) return false;
  for (const QChar unit : event.text()) {
    if (!unit.isPrint() && !unit.isSurrogate()) return false;
  }
  return true;
}

}  // namespace

ZCMDIList::ZCMDIList(WindowSystem& windows, const MessageWindow& owner, QWidget* panel)
    : ToolDialog(panel),
      owner_(&owner),
      verdict_(windows, owner.Handle()),
      list_(new ListBox(kListId, this)),
      arrangeKey_(new MdiListKey(QLatin1String(kArrangeKey), panel)),
      pinKey_(new MdiListKey(QLatin1String(kPinKey), panel)) {
  hide();
  SetTitleProperty(u"MDI");
  setFocusProxy(list_);
  list_->SetFont(QStringLiteral("Arial"), 18, 600);
  list_->setFrameStyle(QFrame::Box | QFrame::Plain);
  list_->installEventFilter(this);
  // Queued, so that the list still gets the release of the button.
  connect(list_, &ListBox::doubleClicked, this, &ZCMDIList::OnOK, Qt::QueuedConnection);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
  list_->SetNotes([this](int row) { return NoteOf(row); });
  connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
    if (!quiet_ && !dismissed_) emit SelectionMoved();
  });
  for (MdiListKey* key : {arrangeKey_.data(), pinKey_.data()}) key->setFocusProxy(list_);
  connect(arrangeKey_, &QAbstractButton::clicked, this, &ZCMDIList::SwitchWanted);
  connect(pinKey_, &QAbstractButton::clicked, this, &ZCMDIList::PinWanted);
}

ZCMDIList::~ZCMDIList() {
  // The list box loses its focus after this destructor, when this object can't handle the signal any more.
  disconnect(qApp, nullptr, this, nullptr);
  delete arrangeKey_;
  delete pinKey_;
}

void ZCMDIList::SetColors(Color background, Color text) { list_->SetColors(background, text); }

void ZCMDIList::Fill(const TextRows* items) {
  const QScopedValueRollback quiet(quiet_, true);
  list_->SetItems(items == nullptr ? TextRows() : *items);
  list_->Select(0);
}

void ZCMDIList::ShowRows(const MdiDropRows& rows) {
  const QScopedValueRollback quiet(quiet_, true);
  if (!(rows.items == list_->Items())) list_->SetItems(rows.items);
  marks_ = rows.marks;
  list_->Select(rows.selected);
  list_->viewport()->update();
}

void ZCMDIList::ShowKeys(const MdiDropKeys& keys) {
  if (dismissed_ || arrangeKey_ == nullptr || pinKey_ == nullptr) return;
  refusedWord_ = keys.refused;
  arrangeKey_->setText(ToQString(keys.arrange));
  pinKey_->setText(ToQString(keys.pin));
  pinKey_->setEnabled(keys.pinEnabled);
  PlaceKeys();
}

/// Puts the keys side by side at the end of the list that is away from the edit. Where the panel has no room for them
/// they are over that end.
void ZCMDIList::PlaceKeys() {
  const QWidget* panel = parentWidget();
  const int height = FingerPixels(*arrangeKey_);
  const int wanted = keysAbove_ ? y() - height : y() + this->height();
  const int top = std::clamp(wanted, 0, std::max(0, panel->height() - height));
  const int arrangeWidth = width() * 3 / 5;
  arrangeKey_->setGeometry(x(), top, arrangeWidth, height);
  pinKey_->setGeometry(x() + arrangeWidth, top, width() - arrangeWidth, height);
  for (MdiListKey* key : {arrangeKey_.data(), pinKey_.data()}) {
    key->show();
    key->raise();
  }
}

ListNote ZCMDIList::NoteOf(int row) const {
  const auto index = static_cast<std::size_t>(row);
  const MdiRowMark mark = index < marks_.size() ? marks_[index] : MdiRowMark::kNone;
  if (mark == MdiRowMark::kPinned) return {{}, ListSign::kPin};
  if (mark == MdiRowMark::kRefused) return {refusedWord_, ListSign::kCross};
  return {};
}

bool ZCMDIList::GetSelected(Text& text) const {
  const int selected = list_->Selection();
  text = list_->Item(selected);
  return selected >= 0;
}

void ZCMDIList::Open(const QRect& place, bool keysAbove) {
  keysAbove_ = keysAbove;
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
  list_->clearFocus();
  hide();
  // A key may be handling the press that ends the list, so it goes with the list and not before.
  for (MdiListKey* key : {arrangeKey_.data(), pinKey_.data()}) {
    if (key != nullptr) key->hide();
  }
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
      emit SwitchWanted();
      return true;
    case Qt::Key_Insert:
      emit PinWanted();
      return true;
    case Qt::Key_Backspace:
      emit Erased();
      return true;
    default:
      break;
  }
  if (!IsTyping(event)) return false;
  emit Typed(event.text());
  return true;
}

bool ZCMDIList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != list_) return ToolDialog::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) return OnKey(static_cast<QKeyEvent&>(*event));
  if (event->type() == QEvent::ShortcutOverride) {
    // The keys of the list come before the panel's shortcuts.
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool verdict = key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape;
    const bool edits = key == Qt::Key_Insert || key == Qt::Key_Backspace;
    if (verdict || edits || IsTyping(*static_cast<QKeyEvent*>(event))) event->accept();
  }
  return false;
}

void ZCMDIList::resizeEvent(QResizeEvent* /*event*/) {
  if (width() > 0 && height() > 0) list_->setGeometry(0, 0, width(), height());
}

}  // namespace pnl
