// SPDX-License-Identifier: MIT
// New programs, opening and saving, between the editor, the explorer and the files. Unsaved changes are never dropped
// without asking. Files are read and written in a thread, so that the panel reacts to every key meanwhile.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "host/file_request.h"
#include "ui/background.h"
#include "ui/program_file.h"

namespace panel {

class ProgramEditor;
class Question;

class ProgramDesk : public QObject {
  Q_OBJECT

 public:
  ProgramDesk(ProgramEditor& editor, FileAsker& asker, Question& question, PathResolver resolve, QObject* parent);
  /// Waits for a program that is being written.
  ~ProgramDesk() override;

  /// Sets the panel folder in which Open and Save As begin.
  void SetProgramsFolder(const QString& folder) { programsFolder_ = folder; }

  /// Asks for the new program's name. Its file is made when it's saved.
  void New();
  void Open();
  /// Shows the files. A file that the operator accepts is opened.
  void Browse();
  /// Saves to the program's file; asks for a name when it has none, or one on the network.
  void Save();
  void SaveAs();
  /// Calls go at once when there are no unsaved changes, else once the operator has agreed to lose them. Waits first
  /// for a program that is being written.
  void AskToDiscard(std::function<void()> go);

  /// Load and Store don't ask. The result is reported through Said at the end: opened, saved, or why not. Load drops a
  /// program that is still being opened. Store refuses while one is being opened; while one is being written, it writes
  /// the new file after it. Load reads from the network too, but Store refuses a path that leads there.
  void Load(const QString& panelPath);
  void Store(const QString& panelPath);
  /// Shows a text that wasn't saved, under the name that it had, as one with unsaved changes. shown is called when all
  /// of it is there.
  void TakeBack(const QString& panelPath, const QString& text, std::function<void()> shown);
  /// Shows a place in a program with its word marked. Another program than the present one is opened first; when that
  /// has changes, the operator is asked.
  void ShowSpot(const pnl::rig::ProgramSpot& spot);
  /// Cancels the opening of a program. The old one stays as it was.
  void CancelOpening();
  /// Whether a program is being read, shown, searched, changed in many places or written.
  [[nodiscard]] bool Working() const;
  [[nodiscard]] const QString& Path() const { return path_; }
  /// The place of the caret in the program's file: the block in bytes of the file, and the word in UTF-16 units from
  /// the start of the block. Nothing while the text has no file or differs from it.
  [[nodiscard]] std::optional<pnl::rig::ProgramSpot> CaretSpot() const;

 signals:
  /// A text for the message zone.
  void Said(const QString& text, bool warning);
  /// A program was saved. What was typed meanwhile may still be unsaved.
  void Stored();

 private:
  void OnNews(const ReadNews& news);
  void OnRead(const QString& panelPath, ProgramText program);
  void Refuse(const QString& panelPath, const ProgramText& program);
  void OnWritten(const QString& panelPath, int revision, FileOutcome outcome);
  void DropReading();
  /// Reads that program, on any thread.
  [[nodiscard]] std::function<ProgramText(const ReadTell& tell)> SourceOf(const QString& panelPath) const;
  void Locate(const pnl::rig::ProgramSpot& spot);
  void StartNew(const QString& panelPath);
  [[nodiscard]] FileRequest RequestFor(const QString& title, quint32 flags) const;
  /// Calls what waited for the program that was being written.
  void Rest();
  ProgramEditor& editor_;
  FileAsker& asker_;
  Question& question_;
  PathResolver resolve_;
  QString programsFolder_ = QStringLiteral("C:\\PROGRAMS");
  QString path_;
  QString opening_;      // the path of the program that is being opened, or was last
  bool stored_ = false;  // the program's file is there
  ProgramLayout layout_;
  Background reader_;
  Background writer_;
  Background locator_;
  std::optional<pnl::rig::ProgramSpot> spot_;  // the place to show when the program is open
  QString storeNext_;                          // the file to write after the current one
  std::vector<std::function<void()>> atRest_;  // calls that wait for the program that is being written
};

}  // namespace panel
