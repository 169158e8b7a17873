// SPDX-License-Identifier: MIT
#include "host/edit_pieces.h"

#include <algorithm>
#include <utility>

namespace panel {
namespace {

EditPiece KeptPiece(qint64 from, qint64 length) { return {from, length, {}}; }

EditPiece TypedPiece(QString text) { return {0, 0, std::move(text)}; }

EditPiece FirstPart(const EditPiece& piece, qint64 length) {
  return piece.IsKept() ? KeptPiece(piece.from, length) : TypedPiece(piece.text.left(length));
}

EditPiece LastPart(const EditPiece& piece, qint64 begin) {
  return piece.IsKept() ? KeptPiece(piece.from + begin, piece.length - begin) : TypedPiece(piece.text.mid(begin));
}

}  // namespace

void EditPieces::Reset(qint64 baseLength) {
  pieces_.clear();
  length_ = std::max<qint64>(0, baseLength);
  typed_ = 0;
  if (length_ > 0) pieces_.push_back(KeptPiece(0, length_));
}

std::size_t EditPieces::SplitAt(qint64 at) {
  std::size_t index = 0;
  while (index < pieces_.size() && pieces_[index].Length() <= at) at -= pieces_[index++].Length();
  if (index == pieces_.size() || at == 0) return index;
  const EditPiece whole = std::exchange(pieces_[index], FirstPart(pieces_[index], at));
  pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(index) + 1, LastPart(whole, at));
  return index + 1;
}

void EditPieces::Replace(qint64 at, qint64 removed, const QString& added) {
  at = std::clamp<qint64>(at, 0, length_);
  removed = std::clamp<qint64>(removed, 0, length_ - at);
  const std::size_t first = SplitAt(at);
  const std::size_t last = SplitAt(at + removed);
  for (std::size_t i = first; i < last; ++i) typed_ -= pieces_[i].text.size();
  const auto begin = pieces_.begin();
  pieces_.erase(begin + static_cast<std::ptrdiff_t>(first), begin + static_cast<std::ptrdiff_t>(last));
  if (!added.isEmpty()) pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(first), TypedPiece(added));
  length_ += added.size() - removed;
  typed_ += added.size();
  // The later place first: a join moves what comes after it.
  if (!added.isEmpty()) JoinWithFormer(first + 1);
  JoinWithFormer(first);
}

void EditPieces::JoinWithFormer(std::size_t index) {
  if (index == 0 || index >= pieces_.size()) return;
  EditPiece& former = pieces_[index - 1];
  EditPiece& piece = pieces_[index];
  if (former.IsKept() != piece.IsKept()) return;
  // Typed pieces have no place, and always belong together.
  if (former.from + former.length != piece.from) return;
  former.length += piece.length;
  former.text += piece.text;
  pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(index));
}

std::optional<QString> Compose(QStringView base, const std::vector<EditPiece>& pieces) {
  QString text;
  for (const EditPiece& piece : pieces) {
    if (!piece.IsKept()) {
      text += piece.text;
      continue;
    }
    if (piece.from < 0 || piece.length < 0 || piece.from > base.size() || piece.length > base.size() - piece.from) {
      return std::nullopt;
    }
    text += base.mid(piece.from, piece.length);
  }
  return text;
}

quint64 HashOf(QStringView text) {
  // FNV-1a over UTF-16 units.
  quint64 hash = 0xcbf29ce484222325u;
  for (const QChar unit : text) {
    hash ^= unit == QChar::ParagraphSeparator ? u'\n' : unit.unicode();
    hash *= 0x100000001b3u;
  }
  return hash;
}

}  // namespace panel
