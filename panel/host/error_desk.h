// SPDX-License-Identifier: MIT
// The panel's side of the error tool. It makes the tool at the start. It keeps the sign that is shown while the tool's
// window is away, the question whether to close the panel, and the history of the session's errors. It has the PLC
// message view show the help of an error, and decides when the tool's window comes back. It draws nothing itself. Under
// --bare it makes no tool and keeps nothing.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <QString>
#include <optional>
#include <utility>

#include "host/error_history.h"
#include "host/host_session.h"

namespace panel {

/// The tool's classes of errors, with its numbers. The tool's message and the library's summary carry the class;
/// nothing here classifies again.
using ErrorKind = pnl::rig::CncControl::ErrorClass;
inline constexpr int kErrorClasses = 5;
/// The colour of a class of errors, as 0x00BBGGRR.
[[nodiscard]] std::uint32_t ColorOfKind(ErrorKind kind);

/// What the tool wants the panel to show while the tool's window is away. With count 0 nothing is shown.
struct ErrorSign {
  int number = 0;
  ErrorKind kind = ErrorKind::kError;
  int flashPeriod = 0;  // ms; 0 for no flash
  int count = 0;
  bool operator==(const ErrorSign&) const = default;
};

/// The property of the error window with the place of the shown error in the queue.
inline constexpr const char* kErrorPlaceProperty = "pnlErrorPlace";

/// Reads the two arguments of "ZM_UPDATE_NERRORS". A number that is no class becomes kError.
[[nodiscard]] ErrorSign ErrorSignOf(qint64 first, qint64 second);

class ErrorDesk : public QObject {
  Q_OBJECT

 public:
  /// rig may be null: then there is no history. now reads the wall clock; a test passes its own.
  ErrorDesk(HostSession& session, pnl::rig::Rig* rig, std::function<ErrorTime()> now = &std::chrono::system_clock::now);
  ~ErrorDesk() override;

  /// Makes the error tool and the PLC message view, hidden. Does nothing under --bare or for a tool that exists
  /// already.
  void StartTools();
  [[nodiscard]] bool HasTool() const { return session_.ToolWindow(PNL_TOOL_ERRORS) != 0; }
  [[nodiscard]] bool WindowShown() const { return session_.IsToolOpen(PNL_TOOL_ERRORS); }

  /// The number of errors in the kernel's queue. Without a rig, the count that the tool sent last.
  [[nodiscard]] int Standing() const;
  [[nodiscard]] const ErrorSign& Sign() const { return sign_; }
  /// Whether the PLC message view shows the help of an error in place of the tool's window.
  [[nodiscard]] bool ShowsHelp() const { return showsHelp_; }
  [[nodiscard]] const ErrorHistory& History() const { return history_; }
  [[nodiscard]] ErrorTime Now() const { return now_(); }

  /// Brings the tool's window to the front. Returns false when there is no error to show, or no tool.
  bool BringBack();
  /// Acknowledges the error in the tool's window as the tool's own key does. When the window is away, it only comes
  /// back: no error is acknowledged unseen. Without the tool, and under --bare, the queue is emptied.
  void Acknowledge();
  /// Empties the queue, as the reset key does, and ends the help.
  void ClearAll();
  /// The PLC message view has closed the help: the tool shows its window again.
  void OnHelpLeft();

  /// Puts the tool's window away, as the operator does. Its errors stay.
  void PutAway();
  /// Where the error that the tool's window shows lies in a program; nothing when it lies in none or the window is
  /// away.
  [[nodiscard]] std::optional<pnl::rig::ProgramSpot> ShownSpot() const;
  /// The long description of an error: cause, effect and remedy. Empty when it has none.
  [[nodiscard]] QString DescriptionOf(const ErrorHistory::Summary& error) const;
  /// Has the PLC message view show the description.
  void ShowHelpOf(const ErrorHistory::Summary& error);

  /// Whether the question to close the panel is waiting for its answer.
  [[nodiscard]] bool AsksToClose() const { return asksToClose_; }
  void AnswerClose(bool yes);

  /// What the session reports: the tool's window opens, callbacks 13 and 14, and messages to the main window.
  void OnWindowOpening();
  void OnShowError(const QVariantMap& line);
  void OnErrorsGone();
  void OnMessage(std::uint32_t message, qint64 first, qint64 second);

 signals:
  void Changed();
  /// The tool has opened its window by itself, without being asked to.
  void WindowCame();
  void CloseAsked();
  void CloseWanted();

 private:
  /// Has the tool show its window.
  void CallWindow();
  void OnError(const pnl::rig::CncControl::ErrorSummary& error, pnl::rig::CncControl::ErrorFate fate);
  void HideHelp();

  HostSession& session_;
  pnl::rig::Rig* rig_;
  std::function<ErrorTime()> now_;
  ErrorHistory history_;
  int watch_ = 0;
  bool watching_ = false;
  ErrorSign sign_;
  bool showsHelp_ = false;
  bool called_ = false;  // CallWindow is making the window open
  bool asksToClose_ = false;
  bool closeRefused_ = false;
  // ShownSpot as it was for that revision of the history and that place in the queue.
  mutable std::pair<std::int64_t, int> shownAt_{-1, -1};
  mutable std::optional<pnl::rig::ProgramSpot> shownSpot_;
};

}  // namespace panel
