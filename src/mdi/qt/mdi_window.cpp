// SPDX-License-Identifier: MIT
#include "mdi/qt/mdi_window.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <optional>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/qt_rect.h"
#include "window/qt/qt_text.h"
#include "window/qt/window_registry.h"

namespace pnl {
namespace {

const QString kFace = QStringLiteral("Arial");
constexpr int kFontHeight = 18;
constexpr int kFontWeight = 600;

/// The key if it is one that the session gets before the controls.
std::optional<MdiKey> LogicKey(int key) {
  switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
      return MdiKey::kTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return MdiKey::kEnter;
    case Qt::Key_Escape:
      return MdiKey::kEscape;
    case Qt::Key_Up:
      return MdiKey::kUp;
    case Qt::Key_Down:
      return MdiKey::kDown;
    case Qt::Key_Delete:
      return MdiKey::kDelete;
    default:
      return std::nullopt;
  }
}

}  // namespace

ZCMDIWindow::ZCMDIWindow(const ToolContext& context, QWidget* parent)
    : ToolWindowWith(PNL_TOOL_MDI, parent),
      context_(context),
      edit_(new MdiEdit(kEditId, this)),
      list_(new ListBox(kListId, this)),
      title_(new ZWCStatic(kTitleId, context.timers, context.files, this)),
      sign_(new ZWCStatic(kSignId, context.timers, context.files, this)) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setFocusPolicy(Qt::ClickFocus);
  SetBackProperty(kMdiDialogBack);
  if (const auto font = MakeFont(kFace, kFontHeight, kFontWeight)) edit_->setFont(*font);
  list_->SetFont(kFace, kFontHeight, kFontWeight);
  title_->SetFont(kFace, kFontHeight, kFontWeight);
  titleColors_ = {title_->TextColor(), title_->BackColor()};
  sign_->SetTextW(QStringLiteral("MORE!"), false);
  sign_->SetPlusSign();
  MdiView& view = *this;
  session_.Make(context_, view, WindowRegistry::Instance().HandleOf(parent));

  connect(edit_, &MdiEdit::FocusChanged, this,
          [this](bool focused) { Tell([focused](MdiSession& session) { session.OnEditFocus(focused); }); });
  connect(list_, &ListBox::Focused, this, &ZCMDIWindow::OnListFocus);
  edit_->installEventFilter(this);
  list_->installEventFilter(this);
  if (parent != nullptr) parent->installEventFilter(this);
}

ZCMDIWindow::~ZCMDIWindow() {
  EndMessages();
  // The controls are destroyed after this object and may lose the focus then.
  for (QObject* control : {static_cast<QObject*>(edit_), static_cast<QObject*>(list_)}) control->disconnect(this);
  if (dropList_) dropList_->Dismiss();
  session_.End();
}

void ZCMDIWindow::Start() {
  Tell([](MdiSession& session) { session.Start(); });
}

template <typename Intention>
bool ZCMDIWindow::Tell(Intention intention) {
  if (!session_.Tell(intention)) return false;
  UseColors();
  return ShowRemoval();
}

/// Tells a host through a property what was removed. A listener may destroy the window; then it returns false.
bool ZCMDIWindow::ShowRemoval() {
  return session_.Tell([this](const MdiSession& session) { SetRemovedProperty(session.RemovalNumber()); });
}

std::intptr_t ZCMDIWindow::OnMessage(const Message& message) {
  std::intptr_t answer = 0;
  Tell([&](MdiSession& session) { answer = session.OnMessage(message).value_or(0); });
  return answer;
}

bool ZCMDIWindow::OnKeyDown(QKeyEvent& event) {
  const auto key = LogicKey(event.key());
  if (!key) return false;
  bool consumed = false;
  // If the key has destroyed the window, it was meant for it. It must not reach a control that no longer exists.
  if (!Tell([&](MdiSession& session) { consumed = session.OnKey(*key); })) consumed = true;
  // Qt passes a key that isn't accepted to the parents.
  if (consumed) event.accept();
  return consumed;
}

bool ZCMDIWindow::event(QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event))) return true;
  if (type != QEvent::FocusIn) return ToolWindow::event(event);
  const bool handled = ToolWindow::event(event);
  OnWindowFocus();
  return handled;
}

bool ZCMDIWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == edit_ || watched == list_) {
    if (event->type() == QEvent::KeyPress) return OnKeyDown(static_cast<QKeyEvent&>(*event));
    // The keys of the command line come before the panel's shortcuts.
    if (event->type() == QEvent::ShortcutOverride) {
      const auto* key = static_cast<QKeyEvent*>(event);
      // With Ctrl or Alt the same keys belong to the host, which may use one of them as its start key.
      const bool plain = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
      if (plain && LogicKey(key->key())) event->accept();
    }
    return false;
  }
  if (event->type() == QEvent::Resize) Tell([](MdiSession& session) { session.OnParentResized(); });
  return false;
}

bool ZCMDIWindow::focusNextPrevChild(bool next) {
  if (!isVisible()) return ToolWindow::focusNextPrevChild(next);
  // As in every dialog, Tab moves between its own controls only.
  QWidget* other = edit_->hasFocus() ? static_cast<QWidget*>(list_) : edit_;
  if (other->isVisible() && other->isEnabled()) {
    other->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
  }
  return true;
}

void ZCMDIWindow::MoveFocus(QWidget* taker) {
  ++focusMoves_;
  taker->setFocus(Qt::OtherFocusReason);
  if (--focusMoves_ == 0) SettleFocus();
}

void ZCMDIWindow::OnListFocus() {
  if (!Tell([](MdiSession& session) { session.OnListFocus(); })) return;
  listGotFocus_ = true;
  // If MoveFocus settles the focus before, the later call finds nothing to do.
  SettleFocusLater();
}

void ZCMDIWindow::OnWindowFocus() {
  ++focusMoves_;
  if (!Tell([](MdiSession& session) { session.OnWindowFocus(); })) return;
  if (--focusMoves_ == 0) SettleFocusLater();
}

void ZCMDIWindow::SettleFocus() {
  if (std::exchange(listGotFocus_, false)) Tell([](MdiSession& session) { session.OnFocusSettled(); });
}

void ZCMDIWindow::SettleFocusLater() {
  // Later, because Qt still works with its widgets after this event.
  if (listGotFocus_) QMetaObject::invokeMethod(this, &ZCMDIWindow::SettleFocus, Qt::QueuedConnection);
}

void ZCMDIWindow::hideEvent(QHideEvent* /*event*/) {
  // The drop list is a child of the panel and would stay on the screen.
  Tell([](MdiSession& session) { session.OnHidden(); });
}

void ZCMDIWindow::mousePressEvent(QMouseEvent* event) {
  event->accept();
  if (event->button() != Qt::LeftButton) return;
  const bool ended = endedDropList_;
  Tell([ended](MdiSession& session) { session.OnLeftPress(ended); });
}

void ZCMDIWindow::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), ToQColor(kMdiDialogBack)); }

void ZCMDIWindow::Place(const MdiLayout& layout) {
  setGeometry(ToQRect(layout.window));
  title_->setGeometry(ToQRect(layout.title));
  edit_->setGeometry(ToQRect(layout.edit));
  list_->setGeometry(ToQRect(layout.list));
  sign_->setGeometry(ToQRect(layout.sign));
  list_->setVisible(layout.listShown);
  sign_->setVisible(layout.signShown);
}

void ZCMDIWindow::SetTitle(TextView title) {
  title_->SetTextW(ToQString(title), true);
  SetTitleProperty(title);
}

void ZCMDIWindow::SetTitleBlinking(int period) { title_->SetBlink(period != 0, period); }

void ZCMDIWindow::SetSignColors(std::uint32_t fore, std::uint32_t back) {
  // Tell uses them at the end of the intention.
  signColors_ = {fore, back};
}

Text ZCMDIWindow::EditText() const { return FromQString(edit_->text()); }

void ZCMDIWindow::SetEditText(TextView text) { edit_->SetText(ToQString(text)); }

void ZCMDIWindow::ReplaceEditSelection(TextView text) { edit_->ReplaceSelection(ToQString(text)); }

void ZCMDIWindow::SetEditReadOnly(bool readOnly) { edit_->setReadOnly(readOnly); }

void ZCMDIWindow::RedrawEdit() { UseColors(); }

void ZCMDIWindow::UseColors() {
  std::optional<MdiColorPair> edit;
  std::optional<MdiColorPair> list;
  std::optional<MdiColorPair> others;
  session_.Tell([&](const MdiSession& session) {
    edit = session.ControlColors(MdiControl::kEdit, edit_->hasFocus());
    list = session.ControlColors(MdiControl::kList);
    others = session.ControlColors(MdiControl::kOther);
  });
  if (edit) edit_->SetColors(*edit);
  const MdiColorPair listNow{list_->TextColor(), list_->BackColor()};
  const MdiColorPair listWanted = list.value_or(listNow);
  if (listWanted != listNow) list_->SetColors(listWanted.back, listWanted.text);
  const MdiColorPair title = others.value_or(titleColors_);
  const MdiColorPair sign = others.value_or(signColors_);
  if (title != MdiColorPair{title_->TextColor(), title_->BackColor()}) title_->SetColors(title.back, title.text, true);
  if (sign != MdiColorPair{sign_->TextColor(), sign_->BackColor()}) sign_->SetColors(sign.back, sign.text, true);
}

Rect ZCMDIWindow::EditScreenRect() const {
  const QPoint corner = edit_->mapToGlobal(QPoint(0, 0));
  return {corner.x(), corner.y(), corner.x() + edit_->width(), corner.y() + edit_->height()};
}

void ZCMDIWindow::OpenDropList(const MdiDropListSpec& spec) {
  CloseDropList();
  QWidget* panel = window();
  dropList_ = new ZCMDIList(context_.windows, *this, panel);
  ConnectDropList();
  dropList_->SetColors(spec.back, spec.text);
  dropList_->Fill(spec.items);
  const QPoint corner = panel->mapFromGlobal(QPoint(spec.screenRect.left, spec.screenRect.top));
  dropList_->Open({corner, QSize(spec.screenRect.Width(), spec.screenRect.Height())}, spec.above);
}

void ZCMDIWindow::ConnectDropList() {
  connect(dropList_, &ZCMDIList::LostActivation, this, &ZCMDIWindow::NoteEndedDropList);
  connect(dropList_, &ZCMDIList::Typed, this, [this](const QString& text) {
    Tell([typed = FromQString(text)](MdiSession& session) { session.OnDropListTyped(typed); });
  });
  connect(dropList_, &ZCMDIList::Erased, this,
          [this] { Tell([](MdiSession& session) { session.OnDropListErased(); }); });
  connect(dropList_, &ZCMDIList::SwitchWanted, this,
          [this] { Tell([](MdiSession& session) { session.OnDropListSwitched(); }); });
  connect(dropList_, &ZCMDIList::PinWanted, this,
          [this] { Tell([](MdiSession& session) { session.OnDropListPin(); }); });
  connect(dropList_, &ZCMDIList::SelectionMoved, this,
          [this] { Tell([](MdiSession& session) { session.OnDropListSelection(); }); });
}

void ZCMDIWindow::ShowDropRows(const MdiDropRows& rows) {
  if (dropList_) dropList_->ShowRows(rows);
}

void ZCMDIWindow::ShowDropKeys(const MdiDropKeys& keys) {
  if (dropList_) dropList_->ShowKeys(keys);
}

void ZCMDIWindow::CloseDropList() {
  // dropList_ is cleared first, so that no list is open for everything that follows from its end.
  ZCMDIList* closing = std::exchange(dropList_, nullptr);
  if (closing == nullptr) return;
  const QWidget* focused = QApplication::focusWidget();
  const bool hadFocus = focused != nullptr && closing->isAncestorOf(focused);
  closing->Dismiss();
  // The window of the list gets the keyboard back.
  if (hadFocus && isVisible()) FocusEdit();
}

void ZCMDIWindow::NoteEndedDropList() {
  endedDropList_ = true;
  // It stays set until this event is over. So the press that ended the list differs from the next one.
  QMetaObject::invokeMethod(
      this, [this] { endedDropList_ = false; }, Qt::QueuedConnection);
}

std::optional<Text> ZCMDIWindow::DropListSelection() const {
  Text selected;
  if (!dropList_ || !dropList_->GetSelected(selected)) return std::nullopt;
  return selected;
}

Text ZCMDIWindow::DropListPicked() const {
  Text picked;
  if (dropList_) dropList_->GetText(picked);
  return picked;
}

}  // namespace pnl
