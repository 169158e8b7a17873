// SPDX-License-Identifier: MIT
#include "guided/hands.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <utility>

#include "remote/window_inspector.h"
#include "ui/panel_menu.h"
#include "ui/soft_key_bar.h"

namespace panel {
namespace {

constexpr int kFewEvents = 5;
constexpr int kSlice = 100;  // ms
constexpr int kMostSlices = 600;

QWidget* WindowOf(const HostSession& session, int toolId) {
  return static_cast<QWidget*>(PnlWidgetOf(session.ToolWindow(toolId)));
}

}  // namespace

void Hands::Settle() {
  while (window_.Working() || rig_.IsWorking()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  for (int i = 0; i < kFewEvents; ++i) QCoreApplication::processEvents();
}

void Hands::Key(int key, const QString& text, Qt::KeyboardModifiers modifiers) {
  QWidget* focus = QApplication::focusWidget();
  if (focus == nullptr) focus = &window_;
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, key, modifiers, text);
    QCoreApplication::sendEvent(focus, &event);
    // The press may move the focus or destroy the widget.
    focus = QApplication::focusWidget();
    if (focus == nullptr) focus = &window_;
  }
  Settle();
}

void Hands::Type(const QString& text) {
  for (const QChar c : text) Key(c.toUpper().unicode(), QString(c));
}

void Hands::Advance(int milliseconds) {
  rig_.Advance(milliseconds);
  Settle();
}

void Hands::Press(Action action) {
  window_.Trigger(action);
  Settle();
}

bool Hands::WaitForRest() {
  for (int i = 0; i < kMostSlices && op_.Machine().channelStatus != 1; ++i) Advance(kSlice);
  return op_.Machine().channelStatus == 1;
}

bool Hands::RunBlock(const QString& block) {
  Type(block);
  PressStart();
  return WaitForRest();
}

// Soft keys.

bool Hands::PressItem(int id) { return PressOn(window_.MainBar(), kMainKeys, id); }

bool Hands::PressSideItem(int id) { return PressOn(window_.SideBar(), kSideKeys, id); }

bool Hands::PressClose() {
  for (const SoftKeyItem& item : window_.MainBar().Items()) {
    if (KeyOfItem(item.id) == Qt::Key_Escape || IsCloseItem(item.id)) return PressItem(item.id);
  }
  return false;
}

bool Hands::PressOn(SoftKeyBar& bar, int keyCount, int id) {
  for (int page = 0; page < bar.PageCount(); ++page) {
    for (int slot = 0; slot < keyCount; ++slot) {
      const int index = bar.Page() * keyCount + slot;
      if (index < static_cast<int>(bar.Items().size()) && bar.Items().at(static_cast<std::size_t>(index)).id == id) {
        bar.Press(slot);
        Settle();
        return true;
      }
    }
    bar.NextPage();
  }
  return false;
}

// Dialogs.

bool Hands::InDialog(const std::function<void()>& press, const std::function<bool(QWidget& dialog)>& work) {
  press();
  Settle();
  const QPointer<QWidget> dialog = QApplication::activeModalWidget();
  if (!dialog) return false;
  const bool worked = work(*dialog);
  if (!dialog) return worked;
  CaptureWith(*dialog);
  if (dialog->isVisible()) Key(Qt::Key_Escape);
  return worked;
}

void Hands::CaptureWith(QWidget& dialog) {
  withDialog_ = window_.grab();
  QPainter(&withDialog_).drawPixmap(window_.mapFromGlobal(dialog.mapToGlobal(QPoint())), dialog.grab());
}

// What is shown.

QLineEdit* Hands::Edit(int toolId) const {
  const QWidget* tool = WindowOf(session_, toolId);
  return tool == nullptr ? nullptr : tool->findChild<QLineEdit*>();
}

QWidget* Hands::Control(int toolId, int control) const {
  QWidget* tool = WindowOf(session_, toolId);
  return tool == nullptr ? nullptr : WindowInspector::Control(tool, control);
}

QString Hands::TextIn(int toolId, int control) const {
  QWidget* found = Control(toolId, control);
  if (found == nullptr) return {};
  const WindowInspector inspector(window_.ToolAreaWidget());
  return inspector.DescribeControl(WindowOf(session_, toolId), found)["text"].toString();
}

bool Hands::Capture(int number, const QString& name) {
  Settle();
  const QString file = QStringLiteral("%1/%2-%3.png").arg(folder_).arg(number, 2, 10, QLatin1Char('0')).arg(name);
  const QPixmap picture = withDialog_.isNull() ? window_.grab() : std::exchange(withDialog_, QPixmap());
  return picture.save(file);
}

}  // namespace panel
