// SPDX-License-Identifier: MIT
#include "ui/undo_offer.h"

#include <QDynamicPropertyChangeEvent>
#include <utility>

#include "common/shortcuts.h"
#include "ui/theme.h"

namespace panel {
namespace {

QString CaptionOf(const RemovedRows& removed) {
  if (removed.whole) return Say(Word::kUndoClear);
  if (removed.rows > 1) return Say(Word::kUndoRows, QString::number(removed.rows));
  return Say(Word::kUndoRow, removed.text);
}

}  // namespace

UndoOffer::UndoOffer(HostSession& session, QWidget* parent) : PanelKey(parent), session_(session) {
  setObjectName(QStringLiteral("undo"));
  SetTint(QColor(theme::kAccent));
  SetKeyName(KeysOf(Action::kUndoRemoval).first().toString());
  SetTip(TooltipOf(Action::kUndoRemoval));
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &UndoOffer::Expire);
  connect(this, &PanelKey::clicked, this, &UndoOffer::Undo);
  connect(&session_, &HostSession::ToolsChanged, this, &UndoOffer::WatchTools);
  hide();
}

void UndoOffer::WatchTools() {
  for (const int tool : {PNL_TOOL_MDI, PNL_TOOL_CALCULATOR}) {
    auto* widget = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(tool)));
    if (widget != nullptr) widget->installEventFilter(this);
  }
  // A tool that has closed may keep its window, but puts nothing back.
  if (IsOpen() && !session_.IsToolOpen(tool_)) Close();
}

bool UndoOffer::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::DynamicPropertyChange && session_.Reacting() &&
      static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == kRemovedProperty) {
    // Queued, because the tool is still at work.
    const int tool = watched->property("pnlTool").toInt();
    QMetaObject::invokeMethod(
        this, [this, tool] { Look(tool); }, Qt::QueuedConnection);
  }
  return PanelKey::eventFilter(watched, event);
}

void UndoOffer::Look(int tool) {
  const auto* widget = static_cast<const QWidget*>(PnlWidgetOf(session_.ToolWindow(tool)));
  const int number = widget == nullptr ? 0 : widget->property(kRemovedProperty).toInt();
  if (number != 0) return Offer(tool, number);
  if (tool == tool_) Close();
}

void UndoOffer::Offer(int tool, int number) {
  if (tool == tool_ && number == number_) return;
  // The other tool's removals can't be offered any more.
  if (tool_ >= 0 && tool_ != tool) ForgetRemovals(session_.ToolWindow(tool_));
  removed_ = LastRemoval(session_.ToolWindow(tool));
  if (removed_.rows == 0) return Close();
  tool_ = tool;
  number_ = number;
  ShowCaption();
  if (manual_) {
    left_ = kMilliseconds;
  } else {
    timer_.start(kMilliseconds);
  }
  show();
  emit Changed();
}

void UndoOffer::ShowCaption() {
  setText(CaptionOf(removed_));
  setAccessibleName(CaptionOf(removed_));
}

void UndoOffer::changeEvent(QEvent* event) {
  PanelKey::changeEvent(event);
  if (event->type() != QEvent::LanguageChange) return;
  SetTip(TooltipOf(Action::kUndoRemoval));
  if (!IsOpen()) return;
  ShowCaption();
  emit Changed();
}

void UndoOffer::Undo() {
  if (IsOpen() && !PutBackRemoval(session_.ToolWindow(tool_))) emit Refused();
}

void UndoOffer::UseManualTime() { manual_ = true; }

void UndoOffer::Advance(qint64 milliseconds) {
  if (!left_) return;
  *left_ -= milliseconds;
  if (*left_ <= 0) Expire();
}

void UndoOffer::Expire() {
  const int tool = tool_;
  Close();
  if (tool >= 0) ForgetRemovals(session_.ToolWindow(tool));
}

void UndoOffer::Close() {
  if (std::exchange(tool_, -1) < 0) return;
  timer_.stop();
  left_.reset();
  hide();
  emit Changed();
}

}  // namespace panel
