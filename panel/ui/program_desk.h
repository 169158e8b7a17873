// SPDX-License-Identifier: MIT
// Opening, saving and starting programs: between the editor, the chooser and the files. Changes that no file has yet
// are never dropped without asking.
#pragma once

#include <pnltools/rig.h>

#include <QObject>
#include <functional>
#include <optional>

#include "ui/file_request.h"

namespace panel {

class FileChooser;
class ProgramEditor;
class Question;

class ProgramDesk : public QObject {
  Q_OBJECT

 public:
  ProgramDesk(ProgramEditor& editor, FileChooser& chooser, Question& question, PathResolver resolve, QObject* parent);

  /// Where Open and Save As begin.
  void SetProgramsFolder(const QString& folder) { programsFolder_ = folder; }
  /// folder if it is there, else the programs' own: a request for one that isn't made yet begins among the programs.
  [[nodiscard]] QString FolderOrPrograms(const QString& folder) const;

  void New();
  void Open();
  /// To the file the program came from; a new one is asked for its name.
  void Save();
  void SaveAs();
  /// Runs go at once when nothing would be lost, else after the operator agreed.
  void AskToDiscard(std::function<void()> go);

  /// Without asking; false, and a message, when it can't be read.
  bool Load(const QString& panelPath);
  bool Store(const QString& panelPath);
  [[nodiscard]] const QString& Path() const { return path_; }
  /// Where the caret stands in the program's file: its block and the word in that. Nothing while the text has no file,
  /// or another one than the file.
  [[nodiscard]] std::optional<pnl::rig::ProgramSpot> CaretSpot() const;

 signals:
  /// Something for the message zone.
  void Said(const QString& text, bool warning);

 private:
  ProgramEditor& editor_;
  FileChooser& chooser_;
  Question& question_;
  PathResolver resolve_;
  QString programsFolder_ = QStringLiteral("C:\\PROGRAMS");
  QString path_;
  bool carriageReturns_ = false;
};

}  // namespace panel
