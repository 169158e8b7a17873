// SPDX-License-Identifier: MIT
// Opening, saving and starting programs: between the editor, the chooser and the files. Changes that no file has yet
// are never dropped without asking. Files are read and written in a thread, so that the panel hears every key
// meanwhile.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "ui/background.h"
#include "ui/file_request.h"
#include "ui/program_file.h"

namespace panel {

class FileChooser;
class ProgramEditor;
class Question;

class ProgramDesk : public QObject {
  Q_OBJECT

 public:
  ProgramDesk(ProgramEditor& editor, FileChooser& chooser, Question& question, PathResolver resolve, QObject* parent);
  /// Waits for a program that is being written.
  ~ProgramDesk() override;

  /// Where Open and Save As begin.
  void SetProgramsFolder(const QString& folder) { programsFolder_ = folder; }
  /// folder if it is there, else the programs' own: a request for one that isn't made yet begins among the programs.
  [[nodiscard]] QString FolderOrPrograms(const QString& folder) const;

  void New();
  void Open();
  /// To the file the program came from; a new one is asked for its name.
  void Save();
  void SaveAs();
  /// Runs go when nothing would be lost, else after the operator agreed. A program that is being written is waited for.
  void AskToDiscard(std::function<void()> go);

  /// Without asking. What becomes of it is said when it has ended: Opened, Saved, or why not. A program that was on its
  /// way into the editor is dropped for another one; one that is being written is written, and then the other.
  void Load(const QString& panelPath);
  void Store(const QString& panelPath);
  /// Whether a program is on its way from a file or to one.
  [[nodiscard]] bool Working() const;
  [[nodiscard]] const QString& Path() const { return path_; }
  /// The caret's block in the program's file, and the word in that block, in bytes of the file. Nothing while the text
  /// has no file or differs from it.
  [[nodiscard]] std::optional<pnl::rig::ProgramSpot> CaretSpot() const;

 signals:
  /// Something for the message zone.
  void Said(const QString& text, bool warning);

 private:
  void OnRead(const QString& panelPath, ProgramText program);
  void OnWritten(const QString& panelPath, int revision, FileOutcome outcome);
  void DropReading();
  /// What waited for the program that was being written goes on.
  void Rest();
  ProgramEditor& editor_;
  FileChooser& chooser_;
  Question& question_;
  PathResolver resolve_;
  QString programsFolder_ = QStringLiteral("C:\\PROGRAMS");
  QString path_;
  ProgramLayout layout_;
  Background reader_;
  Background writer_;
  QString storeNext_;                          // to be written after the one under way
  std::vector<std::function<void()>> atRest_;  // what waits for the program that is being written
};

}  // namespace panel
