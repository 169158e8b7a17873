// SPDX-License-Identifier: MIT
// Keeps the journal: what is typed in the program, the command line and the calculator and not saved is on the disc at
// most a second later, and after every block. When nothing is unsaved there is no journal. A panel that was killed
// leaves its journal, and the next start offers to take back what is in it. An idle panel has no timer active. It never
// changes what a tool or the editor does.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>
#include <optional>

#include "host/file_request.h"
#include "host/journal_file.h"
#include "ui/background.h"
#include "ui/journal_disc.h"
#include "ui/program_track.h"

namespace panel {

class HostSession;
class Operator;
class ProgramDesk;
class ProgramEditor;
class Question;

/// The parts of the panel that a journal works on. All must outlive the keeper.
struct JournalParts {
  HostSession& session;
  Operator& op;
  ProgramEditor& editor;
  ProgramDesk& desk;
  Question& question;
};

struct JournalSetup {
  QString folder;  // on this machine
  PathResolver resolve;
  bool manualTime = false;  // time goes by Advance
};

class JournalKeeper : public QObject {
  Q_OBJECT

 public:
  JournalKeeper(const JournalParts& parts, JournalSetup setup, QObject* parent = nullptr);
  /// Removes the journal, because the panel was closed properly. A journal that is still offered stays, and so does a
  /// text that waits for its tool.
  ~JournalKeeper() override;

  /// Looks for the journal of a killed panel and asks whether to take it back.
  void Start();
  /// Something may have changed.
  void Touch();
  /// Moves the manual time.
  void Advance(qint64 milliseconds);
  /// Writes the journal now and leaves it for the next start, because the system ends the panel.
  void LeaveForNextStart();
  /// Whether a thread is at work for the journal.
  [[nodiscard]] bool Working() const { return writer_.Working() || finder_.Working() || track_.Working(); }

  /// In milliseconds: between two journals, and from the first change to its journal.
  static constexpr qint64 kInterval = 1000;
  static constexpr qint64 kSoon = 200;
  /// After a failure, until it is tried again.
  static constexpr qint64 kRetry = 10'000;

 private:
  [[nodiscard]] qint64 Now() const { return setup_.manualTime ? manualNow_ : clock_.elapsed(); }
  void Wait();
  void WaitUntil(qint64 due);
  /// After a failure: says once that nothing can be kept, and tries it again later.
  void LookAtFailures();
  /// Writes the journal when it says something else than the last one, and the rows of the tools.
  void Write();
  void WriteAtOnce();
  [[nodiscard]] JournalContents Collect(std::optional<QString>& copy);
  void OnWritten(const JournalDisc::Written& written, bool copied);
  void OnMachine();
  void OnTools();

  // What a killed panel has left.
  using Found = std::shared_ptr<std::optional<LeftJournal>>;
  void OnFound(const Found& found);
  void OnProgram(const LeftProgram& program);
  void AskAboutLeft();
  void TakeBack();
  void TakeBackProgram();
  void OnProgramBack();
  void TakeBackTexts();
  /// Puts back what waits for its tool, if that can take it now.
  void PutBackPending();
  void Discard();

  JournalParts parts_;
  JournalSetup setup_;
  ProgramTrack track_;
  std::shared_ptr<JournalDisc> disc_;  // also of the thread that writes
  Background writer_;
  Background finder_;
  QTimer timer_;
  QElapsedTimer clock_;
  qint64 manualNow_ = 0;
  std::optional<qint64> due_;   // when the next journal is to be written
  std::optional<qint64> last_;  // when the last one was
  JournalContents kept_;        // what the journal on the disc says
  JournalContents writing_;     // what is being written
  bool again_ = false;          // something has changed since
  bool atOnce_ = false;         // and is to be written without a pause
  bool fileFailed_ = false;     // the journal couldn't be written
  bool rowsFailed_ = false;     // the rows of a tool couldn't be
  bool warned_ = false;
  bool ended_ = false;
  int channelStatus_ = 0;
  std::shared_ptr<LeftJournal> left_;
  LeftProgram leftProgram_;
  bool tookBack_ = false;                     // all is there; the left journal goes with the next one of this panel
  std::optional<JournalBlock> pendingBlock_;  // for the command line when it opens
  QString pendingExpression_;                 // for the calculator
};

}  // namespace panel
