// SPDX-License-Identifier: MIT
// Requests for a file or a folder: of the tools, through "E.XPLRDATA", and of the panel itself. Each opens the explorer
// over whoever asks, and the answer goes back to him when the explorer ends. There is one explorer and one request at a
// time.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <functional>
#include <optional>

#include "host/file_request.h"
#include "host/host_session.h"

namespace panel {

class FileDesk : public QObject, public FileAsker {
  Q_OBJECT

 public:
  /// rig may be null: then the panel itself can ask for nothing.
  FileDesk(HostSession& session, pnl::rig::Rig* rig);
  ~FileDesk() override;

  void Ask(const FileRequest& request, Accepted accepted, Left left) override;
  /// Closes the explorer, and with it the request that waits.
  void Leave();
  /// Whether somebody waits for an answer.
  [[nodiscard]] bool IsWaiting() const { return waiting_.has_value(); }
  /// The record whose number is in "E.XPLRDATA". Null when there is none or its owner has withdrawn it.
  [[nodiscard]] XPLRDATA_ST* Record() const;

 signals:
  /// A text for the message zone.
  void Said(const QString& text, bool warning);
  void Changed();

 private:
  /// Who waits: a tool by its window, or the panel by its two functions.
  struct Waiting {
    PnlWindow tool = 0;
    Accepted accepted;
    Left left;
    bool fromProgram = false;  // the operator worked in the program
  };

  void OnCalled(const HostCall& call);
  void OnToolRequest();
  void OnToolClosed(int tool, int reason);
  /// Opens the explorer for the record in "E.XPLRDATA". Nobody else may wait.
  void Open(Waiting waiting);
  void Wait(Waiting waiting);
  /// Ends the present request without an answer, once the asker has come back from its own call.
  void EndLater();
  void End(bool accepted);
  void AnswerTool(PnlWindow tool, bool accepted);
  void AnswerPanel(const Waiting& waiting, bool accepted);
  /// Puts the panel's record, or none, into "E.XPLRDATA".
  void Publish(std::int32_t number);
  [[nodiscard]] PnlWindow AskerOf(const XPLRDATA_ST& record) const;
  /// Whether the panel itself waits. It answers its own requests also when a script decides about everything else.
  [[nodiscard]] bool IsOwn() const { return waiting_ && waiting_->accepted; }

  HostSession& session_;
  pnl::rig::Rig* rig_;
  XPLRDATA_ST own_{};
  std::int32_t ownNumber_ = 0;
  std::optional<Waiting> waiting_;
  int requests_ = 0;  // so far
  PnlWindow explorer_ = 0;
  bool loading_ = false;
  bool askerSaid_ = false;  // the asker has shown a message since it got its file
};

}  // namespace panel
