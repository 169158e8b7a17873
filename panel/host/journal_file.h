// SPDX-License-Identifier: MIT
// The journal as a file: what the operator has typed and not saved, for the next start after a power cut. This turns it
// into bytes and back, and knows neither disc nor widget. Bytes that aren't a whole journal are refused, whatever they
// are. The format is described in docs/formats/journal.md.
#pragma once

#include <QByteArray>
#include <QString>
#include <optional>
#include <vector>

#include "host/edit_pieces.h"

namespace panel {

/// The program that is being edited, as pieces of a base: of nothing, of the program's own file, or of a copy beside
/// the journal.
struct JournalProgram {
  enum class Base { kNone, kFile, kCopy };
  QString path;  // panel path; empty for a program that never had a name
  qint64 caret = 0;
  Base base = Base::kNone;
  int copy = 0;  // which of the two copies
  qint64 baseLength = 0;
  quint64 baseHash = 0;
  std::vector<EditPiece> pieces;
  bool operator==(const JournalProgram&) const = default;
};

/// What is typed in the command line: a block, a new item of the list, or an item that is being changed.
struct JournalBlock {
  enum class Kind { kLine, kNewItem, kChangedItem };
  Kind kind = Kind::kLine;
  int item = -1;     // the place of a changed item
  QString original;  // the changed item as the list has it
  QString text;
  bool operator==(const JournalBlock&) const = default;
};

struct JournalContents {
  qint64 written = 0;  // milliseconds since 1970
  std::optional<JournalProgram> program;
  std::optional<JournalBlock> block;
  QString expression;  // of the calculator

  [[nodiscard]] bool IsEmpty() const { return !program && !block && expression.isEmpty(); }
  /// Whether both say the same, whenever they were written.
  [[nodiscard]] bool SaysTheSameAs(const JournalContents& other) const {
    return program == other.program && block == other.block && expression == other.expression;
  }
};

/// A bigger file is no journal.
inline constexpr qint64 kMostJournalBytes = 16LL * 1024 * 1024;

/// Text that isn't well-formed UTF-16 becomes U+FFFD.
[[nodiscard]] QByteArray JournalBytes(const JournalContents& contents);
/// Returns nothing for bytes that aren't a whole, undamaged journal. The pieces of one that is are all in their base.
[[nodiscard]] std::optional<JournalContents> ReadJournal(const QByteArray& bytes);

}  // namespace panel
