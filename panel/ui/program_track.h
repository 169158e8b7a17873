// SPDX-License-Identifier: MIT
// Follows the edits in the program editor, for the journal. A short program is kept whole. Of a long one only the edits
// since its file was read or saved are kept, or since its last copy. It changes nothing in the editor and touches no
// file.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTextDocument>
#include <optional>

#include "host/edit_pieces.h"
#include "host/journal_file.h"
#include "ui/background.h"

namespace panel {

class ProgramDesk;
class ProgramEditor;

class ProgramTrack : public QObject {
  Q_OBJECT

 public:
  ProgramTrack(ProgramEditor& editor, ProgramDesk& desk, QObject* parent = nullptr);

  /// What the journal says of the program. With a copy, its base is a text that must be on the disc first, and the hash
  /// is still missing.
  struct Taken {
    JournalProgram program;
    std::optional<QString> copy;
  };
  /// Nothing for a program without unsaved changes. After one with a copy, OnCopyWritten must be called before the next
  /// call.
  [[nodiscard]] std::optional<Taken> Take();
  /// The copy is on the disc, or couldn't be written: then hash is nothing, and the next Take makes another one.
  void OnCopyWritten(std::optional<quint64> hash);
  /// Whether a long program that was opened or saved is still being made known.
  [[nodiscard]] bool Working() const { return hasher_.Working(); }
  /// Follows the document that the editor has now. To be called when it has got another one.
  void Follow();
  /// The text isn't that of its file with edits, but one of unknown origin.
  void TreatAsNew();

  /// In characters. A program up to this length is kept whole.
  static constexpr qint64 kWhole = qint64{64} * 1024;
  /// With more typed characters or pieces than this, the next Take makes a copy.
  static constexpr qint64 kMostTyped = qint64{256} * 1024;
  static constexpr std::size_t kMostPieces = 4096;

 signals:
  void Changed();

 private:
  void OnContents(int at, int removed, int added);
  void OnModified(bool modified);
  [[nodiscard]] qint64 Length() const;
  [[nodiscard]] JournalProgram Whole() const;
  [[nodiscard]] Taken Copied();

  ProgramEditor& editor_;
  ProgramDesk& desk_;
  QPointer<QTextDocument> document_;
  EditPieces edits_;
  JournalProgram::Base base_ = JournalProgram::Base::kNone;
  std::optional<quint64> hash_;  // of the base; nothing while it isn't known yet
  qint64 baseLength_ = 0;
  int copy_ = 0;  // which copy was made last
  Background hasher_;
};

}  // namespace panel
