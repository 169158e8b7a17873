// SPDX-License-Identifier: MIT
// What the panel does for the operator: which tool a key goes to, what a callback asks of the host, and what the
// machine shows. Its ErrorDesk deals with errors, its FileDesk with requests for a file. Can alone decides what is
// possible, so a key, a soft key and a shortcut can't disagree. It owns no widget; the window draws everything from its
// state.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <QString>
#include <optional>
#include <vector>

#include "common/shortcuts.h"
#include "host/demo_faults.h"
#include "host/error_desk.h"
#include "host/file_desk.h"
#include "host/help_desk.h"
#include "host/host_session.h"

namespace panel {

/// A message of the panel itself to the operator. Information disappears with the next key or touch, a warning with the
/// next action. Both disappear when their cause ends.
struct Hint {
  QString text;
  bool warning = false;
  std::function<bool()> holds;  // whether the cause is still there; empty for a cause that doesn't end
};

class Operator : public QObject {
  Q_OBJECT

 public:
  /// rig may be null: then there is no machine, no clock and no error queue.
  Operator(HostSession& session, pnl::rig::Rig* rig, QObject* parent = nullptr);
  ~Operator() override;

  [[nodiscard]] bool Can(Action action) const;
  /// Why the action is impossible now. Nothing when it is possible, or when there is nothing to say about it.
  [[nodiscard]] std::optional<Word> WhyNot(Action action) const;
  /// The reason why start is dim, short enough for its key; nothing when it isn't dim.
  [[nodiscard]] std::optional<Word> StartNote() const;
  /// Carries the action out, or says in the hint why that isn't possible. Actions of the editor and of the bars belong
  /// to the window; here they do nothing.
  void Do(Action action);
  /// Opens the tool, and loads it at its first use. Returns false and sets a hint when the tool can't be loaded or
  /// refuses.
  bool OpenTool(int tool);
  /// Sends the command of a soft key in a tool's menu to that tool.
  void SendCommand(int tool, int id);
  /// Asks the tool to close, after what it is doing now.
  void CloseTool(int tool);
  /// For the end of the panel: a tool with rows that aren't saved asks about them and closes. Returns false when it
  /// stays open, for instance because a row can't be saved.
  [[nodiscard]] bool CloseUnsaved();

  [[nodiscard]] pnl::rig::Rig* Rig() const { return rig_; }
  [[nodiscard]] bool HasMachine() const { return machine_ != nullptr; }
  [[nodiscard]] pnl::rig::MachineState Machine() const;
  [[nodiscard]] Word Mode() const;
  [[nodiscard]] std::vector<pnl::rig::CncControl::ErrorSummary> Errors() const;
  [[nodiscard]] ErrorDesk& Desk() { return errors_; }
  [[nodiscard]] const ErrorDesk& Desk() const { return errors_; }
  [[nodiscard]] FileDesk& Files() { return files_; }
  /// Raises a fault of the demo machine. A fault whose cause stands is ended again by the next call, and so is the
  /// emergency stop. spot: the place of a fault in a program; without it that fault can't be raised and a hint says so.
  void RaiseFault(const DemoFault& fault, const std::optional<pnl::rig::ProgramSpot>& spot);
  /// The messages that the demo machine's PLC can raise.
  [[nodiscard]] std::vector<pnl::rig::MachineControl::PlcMessage> PlcMessages() const;
  void RaisePlcMessage(std::uint32_t code);
  [[nodiscard]] bool EmergencyStop() const { return Machine().emergencyStop; }
  /// Whether the cause of that fault stands.
  [[nodiscard]] bool Stands(pnl::rig::MachineFault fault) const;
  [[nodiscard]] const Hint& CurrentHint() const { return hint_; }
  void SetHint(const QString& text, bool warning = false, std::function<bool()> holds = {});
  /// The operator pressed a key or touched the screen, so he has seen the information: it disappears.
  void OnPress();

 signals:
  /// Something to draw has changed. Many changes cause one signal.
  void Changed();
  void InsertBlockWanted(const QString& text);
  /// Asks for a value to be inserted at the caret of the program.
  void InsertValueWanted(const QString& text);
  void KeyForwarded(int key);
  void CloseWanted();

 private:
  void Touch();
  void DropStaleHint();
  void OnCalled(const HostCall& call);
  void OnMessage(std::uint32_t message, qint64 first, qint64 second);
  void DoMachine(Action action);
  void CycleStart();
  /// Says why nothing moves after a press on start. errors: how many there were before it.
  void TellStart(const pnl::rig::MachineState& before, int errors);
  void FeedHold(const pnl::rig::MachineState& before);
  void Inspect(bool on);
  void OpenMdi();
  void OpenCalculator();
  /// Opens the machining calculator, or brings an open one to the front.
  void OpenMachining();
  /// Brings the tool to the front and gives it the keyboard, with its caret where it was.
  void TurnTo(int tool);
  void TakeCalcResult();
  void InsertBlock();
  void SwitchRole();
  void AskHelp();
  void ClearError();
  [[nodiscard]] qint64 Int(const char16_t* name) const;

  HostSession& session_;
  pnl::rig::Rig* rig_;
  pnl::rig::MachineControl* machine_;
  std::vector<int> watches_;
  std::vector<std::int32_t> heldChannels_;
  ErrorDesk errors_;
  FileDesk files_;
  HelpDesk help_;
  Hint hint_;
  bool touched_ = false;  // a Changed is queued
};

}  // namespace panel
