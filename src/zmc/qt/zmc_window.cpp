// SPDX-License-Identifier: MIT
#include "zmc/qt/zmc_window.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <optional>
#include <utility>

#include "window/qt/control_properties.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/msg_display.h"
#include "zmc/qt/zmc_key_events.h"
#include "zmc/qt/zmc_look.h"

namespace pnl {

ZCZelorMacCalc::ZCZelorMacCalc(const ToolContext& context, QWidget* parent)
    : ToolWindowWith(PNL_TOOL_MACHINING_CALCULATOR, parent), context_(context) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  SetBackProperty(zmc_look::kPage);
  ZmcView& view = *this;
  session_.Make(context_, view);
  setGeometry(parent->rect());
  parent->installEventFilter(this);
}

ZCZelorMacCalc::~ZCZelorMacCalc() {
  EndMessages();
  LeaveTabs();
  session_.End();
}

void ZCZelorMacCalc::Start() {
  session_.Tell([](ZmcSession& session) { session.Start(); });
}

/// The controls are destroyed after this object and may lose the focus then.
void ZCZelorMacCalc::LeaveTabs() {
  for (QWidget* widget : findChildren<QWidget*>()) {
    widget->disconnect(this);
    widget->removeEventFilter(this);
  }
  if (main_ != nullptr) {
    main_->disconnect();
    main_->GridControl().SetKeyHook({});
    main_->End();
  }
  for (ZmcTableTab* table : {static_cast<ZmcTableTab*>(materials_), static_cast<ZmcTableTab*>(operations_)}) {
    if (table == nullptr) continue;
    table->GridControl().SetKeyHook({});
    table->End();
  }
}

// Tabs.

MessageWindow* ZCZelorMacCalc::Page(ZmcTab tab) const {
  switch (tab) {
    case ZmcTab::kMain:
      return main_;
    case ZmcTab::kMaterials:
      return materials_;
    case ZmcTab::kOperations:
      break;
  }
  return operations_;
}

void ZCZelorMacCalc::MakeTab(ZmcTab tab) {
  if (Page(tab) != nullptr) return;
  if (tab == ZmcTab::kMain) {
    main_ = new ZCTabZMCMain(context_, this);
    main_->hide();
    main_->setGeometry(rect());
    ConnectMain();
    ConnectGrid(tab, main_->GridControl());
    return;
  }
  ZmcTableTab* table = nullptr;
  if (tab == ZmcTab::kMaterials) {
    table = materials_ = new ZCTabZMCMateriales(context_, this);
  } else {
    table = operations_ = new ZCTabZMCOperaciones(context_, this);
  }
  table->hide();
  table->setGeometry(rect());
  ConnectGrid(tab, table->GridControl());
}

void ZCZelorMacCalc::ShowTab(ZmcTab tab) {
  MessageWindow* page = Page(tab);
  page->setGeometry(rect());
  page->show();
  page->raise();
}

void ZCZelorMacCalc::HideTab(ZmcTab tab) {
  MessageWindow* page = Page(tab);
  if (page != nullptr) page->hide();
}

WindowHandle ZCZelorMacCalc::TabHandle(ZmcTab tab) const {
  const MessageWindow* page = Page(tab);
  return page != nullptr ? page->Handle() : 0;
}

ZmcGrid& ZCZelorMacCalc::Grid(ZmcTab tab) {
  MakeTab(tab);
  if (tab == ZmcTab::kMain) return main_->Grid();
  return tab == ZmcTab::kMaterials ? materials_->Grid() : operations_->Grid();
}

void ZCZelorMacCalc::ConnectMain() {
  connect(main_, &ZCTabZMCMain::ListSelected, this,
          [this](int id) { session_.Tell([=](ZmcSession& session) { session.OnListSelected(id); }); });
  connect(main_, &ZCTabZMCMain::ToolTyped, this,
          [this] { session_.Tell([](ZmcSession& session) { session.OnToolTyped(); }); });
  connect(main_, &ZCTabZMCMain::ToolLeft, this,
          [this] { session_.Tell([](ZmcSession& session) { session.OnToolLeft(); }); });
  connect(main_, &ZCTabZMCMain::CheckChanged, this,
          [this](int id) { session_.Tell([=](ZmcSession& session) { session.OnCheckChanged(id); }); });
  connect(main_, &ZCTabZMCMain::FieldChanged, this,
          [this](int id) { session_.Tell([=](ZmcSession& session) { session.OnFieldChanged(id); }); });
  connect(main_, &ZCTabZMCMain::LineFocused, this, [this](int id, bool focused) {
    session_.Tell([=](ZmcSession& session) { session.OnLineFocus(id, focused); });
  });
  for (QWidget* receiver : main_->KeyReceivers()) receiver->installEventFilter(this);
}

void ZCZelorMacCalc::ConnectGrid(ZmcTab tab, ZCGridXWrap& grid) {
  connect(&grid, &ZCGridXWrap::Committed, this, [this, tab](int row, int col, bool) {
    session_.Tell([=](ZmcSession& session) { session.OnCellCommitted(tab, row, col); });
  });
  connect(&grid, &ZCGridXWrap::Moved, this,
          [this, tab](int, int) { session_.Tell([=](ZmcSession& session) { session.OnCellMoved(tab); }); });
  connect(&grid, &ZCGridXWrap::FocusChanged, this, &ZCZelorMacCalc::TellFocusLater);
  connect(&grid, &ZCGridXWrap::HeaderClicked, this,
          [this, tab](int col) { session_.Tell([=](ZmcSession& session) { session.OnHeaderClicked(tab, col); }); });
  grid.SetKeyHook([this](QKeyEvent& event) { return OnKeyDown(event); });
}

// Keys.

bool ZCZelorMacCalc::OnKeyDown(QKeyEvent& event) {
  const std::optional<ZmcKey> key = KeyOf(event);
  if (!key) return false;
  bool taken = false;
  // A window that went with the key has taken it.
  if (!session_.Tell([&](ZmcSession& session) { taken = session.OnKey(*key); })) return true;
  if (taken) event.accept();
  return taken;
}

bool ZCZelorMacCalc::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress && OnKeyDown(static_cast<QKeyEvent&>(*event))) return true;
  // From every control that doesn't claim the key itself. The tool's keys come before the panel's shortcuts.
  if (event->type() == QEvent::ShortcutOverride && ClaimKey(static_cast<QKeyEvent&>(*event))) return true;
  return ToolWindow::event(event);
}

bool ZCZelorMacCalc::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget()) {
    if (event->type() == QEvent::Resize) setGeometry(parentWidget()->rect());
    return false;
  }
  if (event->type() == QEvent::KeyPress) return OnKeyDown(static_cast<QKeyEvent&>(*event));
  if (event->type() == QEvent::FocusIn) TellFocusLater();
  // An open list is a window of its own, so its keys don't come to the frame. Qt closes it at this event already; the
  // key itself would then reach the box, and Escape the whole tool.
  if (event->type() == QEvent::ShortcutOverride) return ClaimKey(static_cast<QKeyEvent&>(*event));
  return false;
}

/// True when the key is the tool's and no shortcut's.
bool ZCZelorMacCalc::ClaimKey(QKeyEvent& event) {
  if (!KeyOf(event) && !IsTyped(event)) return false;
  event.accept();
  return true;
}

/// The focus is there only after the event that brings it.
void ZCZelorMacCalc::TellFocusLater() {
  const auto tell = [this] { session_.Tell([](ZmcSession& session) { session.OnFocusMoved(); }); };
  QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

std::intptr_t ZCZelorMacCalc::OnMessage(const Message& message) {
  std::intptr_t answer = 0;
  session_.Tell([&](ZmcSession& session) { answer = session.OnMessage(message).value_or(0); });
  return answer;
}

void ZCZelorMacCalc::resizeEvent(QResizeEvent* event) {
  ToolWindow::resizeEvent(event);
  for (const ZmcTab tab : kZmcTabs) {
    if (MessageWindow* page = Page(tab)) page->setGeometry(rect());
  }
}

/// The host shows a frame that was closed: the tool opens again. Not in the event, because the host may destroy the
/// frame when it hears of the opening.
void ZCZelorMacCalc::setVisible(bool visible) {
  const QPointer<ZCZelorMacCalc> alive(this);
  const bool outer = std::exchange(showing_, true);
  ToolWindow::setVisible(visible);
  if (!alive) return;
  showing_ = outer;
  if (visible && !outer && isVisible()) OpenAgain();
}

void ZCZelorMacCalc::showEvent(QShowEvent* event) {
  ToolWindow::showEvent(event);
  if (!showing_) QMetaObject::invokeMethod(this, &ZCZelorMacCalc::OpenAgain, Qt::QueuedConnection);
}

void ZCZelorMacCalc::OpenAgain() {
  if (isVisible()) session_.Tell([](ZmcSession& session) { session.OnShownAgain(); });
}

void ZCZelorMacCalc::paintEvent(QPaintEvent* event) {
  QPainter(this).fillRect(event->rect(), ToQColor(zmc_look::kPage));
}

// ZmcView.

void ZCZelorMacCalc::Show() {
  showing_ = true;
  show();
  showing_ = false;
}

void ZCZelorMacCalc::Destroy() {
  EndMessages();
  LeaveTabs();
  // Nothing of a window that waits for its deletion reaches the logic any more.
  session_.End();
  deleteLater();
}

void ZCZelorMacCalc::PostTab() {
  QWidget* focus = QApplication::focusWidget();
  if (focus != nullptr)
    QCoreApplication::postEvent(focus, new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
}

void ZCZelorMacCalc::FocusGrid(ZmcTab tab) {
  (void)Grid(tab);
  ZCGridXWrap& grid = tab == ZmcTab::kMain        ? main_->GridControl()
                      : tab == ZmcTab::kMaterials ? materials_->GridControl()
                                                  : operations_->GridControl();
  grid.setFocus(Qt::OtherFocusReason);
}

BoxAnswer ZCZelorMacCalc::AskInBox(const BoxSpec& box) {
  // Watched: the box goes with this window, which somebody may destroy while it is open.
  const QPointer<CDlgMsgDisplay> dialog = new CDlgMsgDisplay(context_.language, box, this);
  const QPointer<ZCZelorMacCalc> alive(this);
  dialog->exec();
  if (!dialog) return box.style == BoxStyle::kQuestion ? BoxAnswer::kNo : BoxAnswer::kOk;
  const BoxAnswer answer = dialog->Answer();
  delete dialog;
  // Without a window manager nobody else gives the keys back to the panel.
  if (alive && QApplication::activeWindow() == nullptr) window()->activateWindow();
  return answer;
}

}  // namespace pnl
