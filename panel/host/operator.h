// SPDX-License-Identifier: MIT
// What the panel does on the operator's behalf: which tool a key goes to, what a callback asks of the host, what the
// machine says; of the errors its error desk knows. One guard decides what is possible, so that a key, a soft key and a
// shortcut can't disagree. It owns no widget; the window draws everything from its state.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <QString>
#include <optional>
#include <vector>

#include "common/shortcuts.h"
#include "host/demo_faults.h"
#include "host/error_desk.h"
#include "host/host_session.h"

namespace panel {

/// A message of the panel itself to the operator. Information goes with the next key or touch, a warning with the next
/// action; both go with their cause.
struct Hint {
  QString text;
  bool warning = false;
  std::function<bool()> holds;  // whether the cause is still there; empty for one that doesn't end
};

class Operator : public QObject {
  Q_OBJECT

 public:
  /// rig may be null: then there is no machine, no clock and no error queue to show.
  Operator(HostSession& session, pnl::rig::Rig* rig, QObject* parent = nullptr);
  ~Operator() override;

  [[nodiscard]] bool Can(Action action) const;
  /// Does it, or says in the hint why not. Actions of the editor and of the bars are not its own and do nothing.
  void Do(Action action);
  /// Loads the tool at first use and brings it to the front. False, and a hint, when it isn't there.
  bool OpenTool(int tool);
  /// A soft key of a tool's menu.
  void SendCommand(int tool, int id);

  /// The request whose record stands in E.XPLRDATA, null when there is none or its owner has withdrawn it.
  [[nodiscard]] XPLRDATA_ST* Request() const;
  /// Writes the answer into the record and tells the asker. False, and a hint, when the record has gone or the names
  /// don't fit its fields; then nothing was written and the asker hears that there is no file.
  bool AcceptFile(const QString& folder, const QString& file);
  void CancelFile();

  [[nodiscard]] bool HasMachine() const { return machine_ != nullptr; }
  [[nodiscard]] pnl::rig::MachineState Machine() const;
  [[nodiscard]] Word Mode() const;
  [[nodiscard]] std::vector<pnl::rig::CncControl::ErrorSummary> Errors() const;
  [[nodiscard]] ErrorDesk& Desk() { return errors_; }
  [[nodiscard]] const ErrorDesk& Desk() const { return errors_; }
  /// A fault of the demo machine. spot: where the fault of a program lies; without one it can't be raised.
  void RaiseFault(const DemoFault& fault, const std::optional<pnl::rig::ProgramSpot>& spot);
  [[nodiscard]] bool EmergencyStop() const { return Machine().emergencyStop; }
  [[nodiscard]] const Hint& CurrentHint() const { return hint_; }
  void SetHint(const QString& text, bool warning = false, std::function<bool()> holds = {});
  /// The operator pressed a key or touched the screen: information counts as seen.
  void OnPress();

 signals:
  /// Something to draw changed; many changes come as one.
  void Changed();
  void ChooserWanted();
  void ChooserGone();
  void InsertBlockWanted(const QString& text);
  /// A value for wherever the operator works in the program.
  void InsertValueWanted(const QString& text);
  void KeyForwarded(int key);
  void CloseWanted();

 private:
  void Touch();
  void DropStaleHint();
  void OnCalled(const HostCall& call);
  void OnMessage(std::uint32_t message, qint64 first, qint64 second);
  void OnToolClosed(int tool, int reason);
  void DoMachine(Action action);
  void CycleStart();
  void OpenMdi();
  void OpenCalculator();
  void OpenMachining();
  /// That tool to the front, the keyboard to it, and its caret back where there is one.
  void TurnTo(int tool);
  void CloseTool(int tool);
  void TakeCalcResult();
  void SwitchRole();
  void AskHelp();
  void ClearError();
  void EndRequest(bool accepted);
  [[nodiscard]] PnlWindow Asker() const;
  [[nodiscard]] qint64 Int(const char16_t* name) const;

  HostSession& session_;
  pnl::rig::Rig* rig_;
  pnl::rig::MachineControl* machine_;
  std::vector<int> watches_;
  std::vector<std::int32_t> heldChannels_;
  ErrorDesk errors_;
  Hint hint_;
  bool asked_ = false;    // a file request waits for its answer
  bool touched_ = false;  // a Changed is under way
};

}  // namespace panel
