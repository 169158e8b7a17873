// SPDX-License-Identifier: MIT
// The journal on the disc: writes and removes it, finds one that a killed panel has left, and puts its program together
// again. All of it takes its time and is meant for a thread; one call at a time.
#pragma once

#include <QString>
#include <memory>
#include <optional>

#include "host/journal_file.h"
#include "host/journal_slot.h"

namespace panel {

class JournalDisc {
 public:
  explicit JournalDisc(QString folder) : folder_(std::move(folder)) {}

  struct Written {
    bool done = false;
    std::optional<quint64> copyHash;  // of the copy that was asked for
  };
  /// Replaces the journal. With copy, that text is stored first as the base of the program, and its hash is set in the
  /// journal. Empty contents remove the journal. After a failure the old journal stays.
  Written Write(JournalContents contents, const std::optional<QString>& copy);
  /// Removes the journal.
  void Clear();

 private:
  QString folder_;
  std::unique_ptr<JournalSlot> slot_;
};

/// A journal that a killed panel has left. While this exists, no other panel can find it.
struct LeftJournal {
  std::unique_ptr<JournalSlot> slot;
  JournalContents contents;
};
/// The newest one in that folder that can be read and says something.
[[nodiscard]] std::optional<LeftJournal> FindLeftJournal(const QString& folder);

/// The program of a journal as one text.
struct LeftProgram {
  QString text;
  bool whole = true;   // false: its base is gone or another one, so these are only the typed pieces
  bool saved = false;  // its file has this text
};
/// file: the program's own file on this machine; it may be missing.
[[nodiscard]] LeftProgram ProgramOf(const LeftJournal& left, const QString& file);

}  // namespace panel
