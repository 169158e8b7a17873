// SPDX-License-Identifier: MIT
// The panel's side of the error tool: makes it at the start, keeps the sign that it asks for while its window is away,
// the help it offers, the question whether to close, and the history of the session's errors. Decides when the window
// comes back; shows nothing itself. Under --bare it makes no tool and keeps nothing.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <QString>
#include <optional>

#include "host/error_history.h"
#include "host/host_session.h"

namespace panel {

/// How the tool sorts errors, as it numbers them: the tool's message and the library's summary bring it, and nothing
/// here sorts anew.
using ErrorKind = pnl::rig::CncControl::ErrorClass;
inline constexpr int kErrorClasses = 5;
/// 0x00BBGGRR; the colour of an error for a number that is no class.
[[nodiscard]] std::uint32_t ColorOfKind(ErrorKind kind);

/// What the tool wants shown of the errors while its window is away; count 0 for nothing.
struct ErrorSign {
  int number = 0;
  ErrorKind kind = ErrorKind::kError;
  int flashPeriod = 0;  // ms; 0 for no flash
  int count = 0;
  bool operator==(const ErrorSign&) const = default;
};

/// The two arguments of "ZM_UPDATE_NERRORS".
[[nodiscard]] ErrorSign ErrorSignOf(qint64 first, qint64 second);

/// The help of an error, as the panel shows it in the window's place.
struct ErrorHelp {
  QString header;
  std::uint32_t back = 0;
  std::uint32_t fore = 0;
  QString text;
  bool operator==(const ErrorHelp&) const = default;
};

class ErrorDesk : public QObject {
  Q_OBJECT

 public:
  /// rig may be null: then there is no history and no description. now: the wall clock, or a test's.
  ErrorDesk(HostSession& session, pnl::rig::Rig* rig, std::function<ErrorTime()> now = &std::chrono::system_clock::now);
  ~ErrorDesk() override;

  /// Makes the error tool, hidden. Nothing under --bare, and nothing a second time.
  void StartTool();
  [[nodiscard]] bool HasTool() const { return session_.ToolWindow(PNL_TOOL_ERRORS) != 0; }
  [[nodiscard]] bool WindowShown() const { return session_.IsToolOpen(PNL_TOOL_ERRORS); }

  /// Errors in the kernel's queue.
  [[nodiscard]] int Standing() const;
  [[nodiscard]] const ErrorSign& Sign() const { return sign_; }
  [[nodiscard]] const std::optional<ErrorHelp>& Help() const { return help_; }
  [[nodiscard]] const ErrorHistory& History() const { return history_; }
  [[nodiscard]] ErrorTime Now() const { return now_(); }

  /// The tool's window in front, if there is an error to show. False when there is none, or no tool.
  bool BringBack();
  /// Acknowledges the error in the window as its own key does. One that isn't shown comes back first: nothing is
  /// acknowledged unseen. Without the tool the queue is emptied.
  void Acknowledge();
  /// Empties the queue, as the reset key does.
  void ClearAll();
  /// Ends the help; the tool's window comes back.
  void CloseHelp();

  /// Whether the question to close waits for its answer.
  [[nodiscard]] bool AsksToClose() const { return asksToClose_; }
  void AnswerClose(bool yes);

  /// From the session: the tool's window opens, callbacks 13 and 14, and messages to the main window.
  void OnWindowOpening();
  void OnShowError(const QVariantMap& line);
  void OnErrorsGone();
  void OnMessage(std::uint32_t message, qint64 first, qint64 second);

 signals:
  void Changed();
  /// The tool's window opens by itself: nobody called for it.
  void WindowCame();
  void CloseAsked();
  void CloseWanted();

 private:
  /// Has the tool show its window, wherever that was.
  void CallWindow();
  void OnError(const pnl::rig::CncControl::ErrorSummary& error, pnl::rig::CncControl::ErrorFate fate);
  [[nodiscard]] QString DescriptionOf(const QString& reference) const;

  HostSession& session_;
  pnl::rig::Rig* rig_;
  std::function<ErrorTime()> now_;
  ErrorHistory history_;
  int watch_ = 0;
  bool watching_ = false;
  ErrorSign sign_;
  std::optional<ErrorHelp> help_;
  bool called_ = false;  // the window opens because the operator wants to see it
  bool asksToClose_ = false;
  bool closeRefused_ = false;
};

}  // namespace panel
