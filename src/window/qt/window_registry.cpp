// SPDX-License-Identifier: MIT
#include "window/qt/window_registry.h"

#include <QCoreApplication>
#include <algorithm>

#include "window/qt/control_properties.h"
#include "window/qt/pnl_event.h"

namespace pnl {
namespace {

/// Receives the messages for a widget of the host. It is a child of the widget, so it dies before the tools that were
/// made after it. A tool that reports its end while the host's widget is being destroyed then finds no window, rather
/// than a half-destroyed one.
class HostReceiver final : public QObject {
 public:
  HostReceiver(QWidget* widget, WindowHandle window) : QObject(widget), window_(window) {}
  ~HostReceiver() override { WindowRegistry::Instance().Unregister(window_); }

  void SetProc(PnlMessageProc proc, void* context) {
    proc_ = proc;
    context_ = context;
  }

  bool event(QEvent* event) override {
    if (event->type() != PnlEvent::EventType()) return QObject::event(event);
    auto* message = static_cast<PnlEvent*>(event);
    if (proc_ != nullptr) {
      const Message& m = message->message;
      message->result = proc_(context_, message->window, m.number, m.first, m.second);
    }
    return true;
  }

 private:
  const WindowHandle window_;
  PnlMessageProc proc_ = nullptr;
  void* context_ = nullptr;
};

}  // namespace

WindowRegistry& WindowRegistry::Instance() {
  // Never destroyed: a host's widget may outlive every other static object and unregister itself then.
  static auto* const registry = new WindowRegistry;
  return *registry;
}

WindowHandle WindowRegistry::Register(QWidget* widget) {
  const WindowHandle window = next_++;
  entries_.emplace(window, Entry{widget, widget, false});
  widget->setProperty(property::kWindow, window);
  return window;
}

void WindowRegistry::Unregister(WindowHandle window) {
  const auto found = entries_.find(window);
  if (found == entries_.end()) return;
  QObject* const target = found->second.target;
  entries_.erase(found);
  QCoreApplication::removePostedEvents(target, PnlEvent::EventType());
}

WindowHandle WindowRegistry::Attach(QWidget* widget, PnlMessageProc proc, void* context) {
  if (widget == nullptr) return 0;
  WindowHandle window = HandleOf(widget);
  if (window == 0) {
    window = next_++;
    entries_.emplace(window, Entry{widget, new HostReceiver(widget, window), true});
    widget->setProperty(property::kWindow, window);
  }
  const Entry& entry = entries_.at(window);
  // A window of the library handles its messages itself; only a host's widget has a message procedure.
  if (entry.host) static_cast<HostReceiver*>(entry.target)->SetProc(proc, context);
  return window;
}

WindowHandle WindowRegistry::HandleOf(const QWidget* widget) const {
  if (widget == nullptr) return 0;
  const WindowHandle window = widget->property(property::kWindow).toInt();
  const Entry* entry = Find(window);
  return entry != nullptr && entry->widget == widget ? window : 0;
}

std::vector<WindowHandle> WindowRegistry::ToolWindows() const {
  std::vector<WindowHandle> windows;
  for (const auto& [window, entry] : entries_) {
    if (!entry.host) windows.push_back(window);
  }
  std::sort(windows.begin(), windows.end());
  return windows;
}

}  // namespace pnl
