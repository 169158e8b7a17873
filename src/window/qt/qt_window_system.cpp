// SPDX-License-Identifier: MIT
#include "window/qt/qt_window_system.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPointer>

#include "window/qt/control_properties.h"
#include "window/qt/pnl_event.h"
#include "window/qt/qt_text.h"

namespace pnl {
namespace {

QMessageBox::Icon IconOf(BoxStyle style) {
  switch (style) {
    case BoxStyle::kError:
      return QMessageBox::Critical;
    case BoxStyle::kQuestion:
      return QMessageBox::Question;
    case BoxStyle::kInfo:
      break;
  }
  return QMessageBox::Information;
}

}  // namespace

std::intptr_t QtWindowSystem::Send(WindowHandle window, const Message& message) {
  const WindowRegistry::Entry* entry = registry_.Find(window);
  if (entry == nullptr) return 0;
  QObject* const target = entry->target;
  const bool host = entry->host;
  if (host) {
    ++callOuts_;
    if (onMessageToHost) onMessageToHost(window, message);
  }
  PnlEvent event(window, message);
  // The listener may have destroyed the window.
  if (!host || registry_.Find(window) != nullptr) QCoreApplication::sendEvent(target, &event);
  if (host) --callOuts_;
  return event.result;
}

void QtWindowSystem::Post(WindowHandle window, const Message& message) {
  const WindowRegistry::Entry* entry = registry_.Find(window);
  if (entry == nullptr) return;
  // Queue the message before the listener is called, because the listener may destroy the window. Qt drops queued
  // events together with their receiver.
  const bool host = entry->host;
  QCoreApplication::postEvent(entry->target, new PnlEvent(window, message));
  if (host && onMessageToHost) onMessageToHost(window, message);
}

Rect QtWindowSystem::PanelRect() const {
  const QWidget* widget = WidgetOf(mainWindow_);
  if (widget == nullptr) return {0, 0, 800, 600};
  // A host that gives its tools only a part of its window names that part.
  const QWidget* area = widget->property(property::kPanelArea).value<QWidget*>();
  if (area != nullptr) return {0, 0, area->width(), area->height()};
  const QPoint origin = widget->mapToGlobal(QPoint(0, 0));
  return {origin.x(), origin.y(), origin.x() + widget->width(), origin.y() + widget->height()};
}

BoxAnswer QtWindowSystem::ShowBox(WindowHandle owner, const BoxSpec& box) {
  ++callOuts_;
  const BoxAnswer answer = answerer_ ? answerer_(box) : box.show ? box.show(box) : AskOperator(owner, box);
  if (onBoxAnswered) onBoxAnswered(box, answer);
  --callOuts_;
  return answer;
}

BoxAnswer QtWindowSystem::AskOperator(WindowHandle owner, const BoxSpec& box) {
  QWidget* parent = WidgetOf(owner);
  if (parent == nullptr) parent = WidgetOf(mainWindow_);
  // The box is on the heap and watched: its parent may be destroyed while it is open, and destroys the box too.
  const QPointer<QMessageBox> dialog = new QMessageBox(parent);
  dialog->setIcon(IconOf(box.style));
  dialog->setWindowTitle(ToQString(box.title));
  // A file name in the text must never be taken for markup.
  dialog->setTextFormat(Qt::PlainText);
  dialog->setText(ToQString(box.text));
  const bool question = box.style == BoxStyle::kQuestion;
  dialog->setStandardButtons(question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  const int button = dialog->exec();
  delete dialog;
  if (!question) return BoxAnswer::kOk;
  return button == QMessageBox::Yes ? BoxAnswer::kYes : BoxAnswer::kNo;
}

void QtWindowSystem::SetClipboardText(TextView text) { QGuiApplication::clipboard()->setText(ToQString(text)); }

Text QtWindowSystem::ClipboardText() const { return FromQString(QGuiApplication::clipboard()->text()); }

QWidget* QtWindowSystem::WidgetOf(WindowHandle window) const {
  const WindowRegistry::Entry* entry = registry_.Find(window);
  return entry != nullptr ? entry->widget : nullptr;
}

}  // namespace pnl
