// SPDX-License-Identifier: MIT
#include "host/error_desk.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <algorithm>
#include <array>

#include "common/words.h"

namespace panel {
namespace {

constexpr std::array<std::uint32_t, kErrorClasses> kColors = {0x0000A0, 0x0000A0, 0x648064, 0x806480, 0x806480};

/// The control can't go on after this error, and it closes the panel.
constexpr std::int32_t kClosingError = 201;

std::uint32_t Registered(const char* name) { return PnlRegisterMessage(name); }

}  // namespace

std::uint32_t ColorOfKind(ErrorKind kind) { return kColors[static_cast<std::size_t>(kind)]; }

ErrorSign ErrorSignOf(qint64 first, qint64 second) {
  ErrorKind kind = ErrorKind::kError;
  if (PnlHighHalf(first) < kErrorClasses) kind = static_cast<ErrorKind>(PnlHighHalf(first));
  return {PnlLowHalf(first), kind, PnlLowHalf(second), PnlHighHalf(second)};
}

ErrorDesk::ErrorDesk(HostSession& session, pnl::rig::Rig* rig, std::function<ErrorTime()> now)
    : session_(session), rig_(rig), now_(std::move(now)), history_(now_) {
  if (rig_ == nullptr || !session_.Reacting()) return;
  watch_ = rig_->Cnc().WatchErrors([this](const pnl::rig::CncControl::ErrorSummary& error,
                                          pnl::rig::CncControl::ErrorFate fate) { OnError(error, fate); });
  watching_ = true;
}

ErrorDesk::~ErrorDesk() {
  if (watching_) rig_->Cnc().UnwatchErrors(watch_);
}

void ErrorDesk::StartTools() {
  if (!session_.Reacting()) return;
  for (const int tool : {PNL_TOOL_PLC_MESSAGES, PNL_TOOL_ERRORS}) {
    if (session_.ToolWindow(tool) == 0) session_.LoadTool(tool, session_.ToolArea());
  }
}

int ErrorDesk::Standing() const {
  return rig_ == nullptr ? sign_.count : static_cast<int>(rig_->Cnc().ErrorQueue().size());
}

void ErrorDesk::CallWindow() {
  const QScopedValueRollback called(called_, true);
  // The tool shows its window when it hears that the help has ended, whether or not there was any.
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_ERRORS), Registered(PNL_NAME_ERROR_HELP_ENDED), 0, 0);
}

bool ErrorDesk::BringBack() {
  if (!HasTool() || Standing() == 0) return false;
  if (!WindowShown()) CallWindow();
  if (!WindowShown()) return false;
  HideHelp();
  session_.BringToFront(PNL_TOOL_ERRORS);
  return true;
}

void ErrorDesk::Acknowledge() {
  // Only the script commands a tool that a script has loaded.
  if (!session_.Reacting() || !HasTool()) return ClearAll();
  if (!WindowShown()) {
    // When no error is left, there is no window to return to, and the help goes.
    if (!BringBack()) OnErrorsGone();
    return;
  }
  session_.BringToFront(PNL_TOOL_ERRORS);
  // Escape, not Enter: Enter would confirm an error, and the operator must confirm it himself in its window.
  QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
  auto* window = static_cast<QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  if (window != nullptr) QCoreApplication::sendEvent(window, &escape);
}

void ErrorDesk::ClearAll() {
  if (rig_ != nullptr && Standing() != 0) rig_->Cnc().ClearErrors();
  OnErrorsGone();
}

void ErrorDesk::OnHelpLeft() {
  if (!std::exchange(showsHelp_, false)) return;
  CallWindow();
  emit Changed();
}

void ErrorDesk::PutAway() {
  if (!WindowShown()) return;
  const PnlWindow window = session_.ToolWindow(PNL_TOOL_ERRORS);
  // Blocking its errors hides the window, and they are let through again at once.
  for (const intptr_t blocked : {1, 0}) PnlSendMessage(window, PNL_MSG_TOOL_NOTIFY, PNL_NOTIFY_BLOCK_ERRORS, blocked);
  emit Changed();
}

std::optional<pnl::rig::ProgramSpot> ErrorDesk::ShownSpot() const {
  if (!watching_ || !WindowShown()) return std::nullopt;
  const auto* window = static_cast<const QWidget*>(PnlWidgetOf(session_.ToolWindow(PNL_TOOL_ERRORS)));
  if (window == nullptr) return std::nullopt;
  // Summaries of a long queue cost time, and this is asked at every change of the machine.
  const std::pair at{history_.Revision(), window->property(kErrorPlaceProperty).toInt()};
  if (at == shownAt_) return shownSpot_;
  shownAt_ = at;
  const auto errors = rig_->Cnc().Errors();
  const auto place = static_cast<std::size_t>(std::max(0, at.second));
  shownSpot_ = place < errors.size() ? errors[place].program : std::nullopt;
  return shownSpot_;
}

QString ErrorDesk::DescriptionOf(const ErrorHistory::Summary& error) const {
  if (rig_ == nullptr || error.helpRef.empty()) return {};
  return QString::fromStdU16String(rig_->Cnc().DescriptionBehind(error.helpRef).value_or(std::u16string()));
}

void ErrorDesk::ShowHelpOf(const ErrorHistory::Summary& error) {
  PutAway();
  const QString title =
      QStringLiteral("%1 : %2").arg(error.number).arg(QString::fromStdU16String(error.text).trimmed());
  OnShowError({{QStringLiteral("helpRef"), QString::fromStdU16String(error.helpRef)},
               {QStringLiteral("header"), title},
               {QStringLiteral("back"), ColorOfKind(error.errorClass)},
               {QStringLiteral("fore"), 0xFFFFFFu}});
}

void ErrorDesk::HideHelp() {
  if (!std::exchange(showsHelp_, false)) return;
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES), Registered(PNL_NAME_HIDE_ERROR_HELP), 0, 0);
}

void ErrorDesk::AnswerClose(bool yes) {
  if (!asksToClose_) return;
  asksToClose_ = false;
  // The tool repeats its question every few seconds. After a no it is shown again only for a new reason.
  closeRefused_ = !yes;
  if (yes) emit CloseWanted();
  emit Changed();
}

void ErrorDesk::OnShowError(const QVariantMap& line) {
  const std::u16string file = line.value(QStringLiteral("helpRef")).toString().toStdU16String();
  const std::u16string title = line.value(QStringLiteral("header")).toString().toStdU16String();
  const ShowFileRecord record{line.value(QStringLiteral("back")).toUInt(), line.value(QStringLiteral("fore")).toUInt(),
                              file.c_str(), title.c_str()};
  PnlSendMessage(session_.ToolWindow(PNL_TOOL_PLC_MESSAGES), Registered(PNL_NAME_SHOW_ERROR_HELP), 0,
                 reinterpret_cast<intptr_t>(&record));
  showsHelp_ = session_.IsToolOpen(PNL_TOOL_PLC_MESSAGES);
  // Without the view the error must not disappear. The message is posted, because the tool waits for this call.
  if (!showsHelp_) {
    PnlPostMessage(session_.ToolWindow(PNL_TOOL_ERRORS), Registered(PNL_NAME_ERROR_HELP_ENDED), 0, 0);
  }
  emit Changed();
}

void ErrorDesk::OnWindowOpening() {
  // The help replaces the window; the two are never shown together.
  OnErrorsGone();
  if (!called_) emit WindowCame();
}

void ErrorDesk::OnErrorsGone() {
  HideHelp();
  emit Changed();
}

void ErrorDesk::OnMessage(std::uint32_t message, qint64 first, qint64 second) {
  if (message == Registered(PNL_NAME_ERRORS_CHANGED)) {
    sign_ = ErrorSignOf(first, second);
    emit Changed();
  }
  if (message != Registered(PNL_NAME_CLOSE_PANEL) || first != 1 || asksToClose_ || closeRefused_) return;
  asksToClose_ = true;
  emit CloseAsked();
}

void ErrorDesk::OnError(const pnl::rig::CncControl::ErrorSummary& error, pnl::rig::CncControl::ErrorFate fate) {
  using Fate = pnl::rig::CncControl::ErrorFate;
  history_.Tell(error, fate);
  const bool closing = error.number == kClosingError && error.errorClass != ErrorKind::kWarning;
  if (fate == Fate::kRaised && (closing || error.errorClass == ErrorKind::kFatal)) closeRefused_ = false;
  emit Changed();
}

}  // namespace panel
