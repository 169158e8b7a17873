// SPDX-License-Identifier: MIT
// A long text as what differs from a base text: pieces that are kept of the base and pieces that were typed. It grows
// with the edits and not with the text. It has no copy of the base. Lengths are in UTF-16 units.
#pragma once

#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

namespace panel {

struct EditPiece {
  qint64 from = 0;    // of a kept piece: where it begins in the base
  qint64 length = 0;  // of a kept piece; a typed one has the length of its text
  QString text;       // of a typed piece; empty for a kept one

  [[nodiscard]] bool IsKept() const { return text.isEmpty(); }
  [[nodiscard]] qint64 Length() const { return IsKept() ? length : text.size(); }
  bool operator==(const EditPiece&) const = default;
};

class EditPieces {
 public:
  /// The text is the whole base, which has that length.
  void Reset(qint64 baseLength);
  /// Replaces that many units at a place by a text. A place or number beyond the end means the end.
  void Replace(qint64 at, qint64 removed, const QString& added);

  [[nodiscard]] qint64 Length() const { return length_; }
  /// How many units were typed and are still there.
  [[nodiscard]] qint64 Typed() const { return typed_; }
  /// In the order of the text. No piece is empty, and no two neighbours could be one piece.
  [[nodiscard]] const std::vector<EditPiece>& Pieces() const { return pieces_; }

 private:
  /// Returns the index of the piece that begins at that place; splits the piece around it if there is one.
  std::size_t SplitAt(qint64 at);
  /// Joins the piece at that index with the one before it if they belong together.
  void JoinWithFormer(std::size_t index);
  std::vector<EditPiece> pieces_;
  qint64 length_ = 0;
  qint64 typed_ = 0;
};

/// Puts the text together. Returns nothing when a kept piece isn't in the base.
[[nodiscard]] std::optional<QString> Compose(QStringView base, const std::vector<EditPiece>& pieces);

/// A number by which a base is known again. Both ends of a line, \n and the paragraph separator, count the same.
[[nodiscard]] quint64 HashOf(QStringView text);

}  // namespace panel
