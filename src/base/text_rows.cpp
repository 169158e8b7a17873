// SPDX-License-Identifier: MIT
#include "base/text_rows.h"

#include <algorithm>
#include <utility>

namespace pnl {
namespace {

/// No UTF-8 text contains this byte.
constexpr char kRowEnd = '\xFF';
/// A piece is small enough to be copied for one changed row, and large enough that its overhead is small against its
/// text.
constexpr std::size_t kMostBytes = 16u << 10;
constexpr std::size_t kMostRows = 4096;

}  // namespace

TextRows::TextRows(std::initializer_list<TextView> rows) {
  for (const TextView row : rows) push_back(row);
}

TextRows::TextRows(const std::vector<Text>& rows) {
  for (const Text& row : rows) push_back(row);
}

Text TextRows::operator[](std::size_t index) const { return *const_iterator(this, PlaceOf(index)); }

TextRows::const_iterator TextRows::begin() const { return {this, {0, 0}}; }

TextRows::const_iterator TextRows::end() const { return {this, {pieces_.size(), 0}}; }

std::optional<std::size_t> TextRows::Find(TextView text) const {
  const std::string wanted = ToUtf8(text);
  std::size_t index = 0;
  for (auto row = begin(); row != end(); ++row, ++index) {
    if (row.Utf8() == wanted) return index;
  }
  return std::nullopt;
}

void TextRows::push_back(TextView text) {
  std::string row = ToUtf8(text);
  const bool full =
      pieces_.empty() || pieces_.back()->rows >= kMostRows || pieces_.back()->bytes.size() + row.size() > kMostBytes;
  if (full) {
    // The piece before it grew by doubling, so give back the memory that it doesn't need.
    if (!pieces_.empty() && pieces_.back().use_count() == 1) pieces_.back()->bytes.shrink_to_fit();
    pieces_.push_back(std::make_shared<Piece>());
  }
  const std::size_t last = pieces_.size() - 1;
  InsertRow({last, pieces_[last]->bytes.size()}, std::move(row));
}

void TextRows::Insert(std::size_t index, TextView text) {
  if (index >= size_) {
    push_back(text);
    return;
  }
  const Place place = PlaceOf(index);
  InsertRow(place, ToUtf8(text));
  const Piece& piece = *pieces_[place.piece];
  if (piece.rows > kMostRows || piece.bytes.size() > kMostBytes) Split(place.piece);
}

void TextRows::Replace(std::size_t index, TextView text) {
  if (index >= size_) return;
  Insert(index, text);
  Erase(index + 1);
}

void TextRows::Erase(std::size_t index) {
  if (index < size_) EraseRow(PlaceOf(index));
}

void TextRows::clear() { *this = TextRows(); }

bool operator==(const TextRows& left, const TextRows& right) {
  if (left.size_ != right.size_ || left.textBytes_ != right.textBytes_) return false;
  auto other = right.begin();
  for (auto row = left.begin(); row != left.end(); ++row, ++other) {
    if (row.Utf8() != other.Utf8()) return false;
  }
  return true;
}

TextRows::Place TextRows::PlaceOf(std::size_t index) const {
  std::size_t piece = lastPiece_;
  std::size_t first = lastFirst_;
  while (index < first) first -= pieces_[--piece]->rows;
  while (index >= first + pieces_[piece]->rows) first += pieces_[piece++]->rows;
  lastPiece_ = piece;
  lastFirst_ = first;
  const std::string& bytes = pieces_[piece]->bytes;
  std::size_t offset = 0;
  for (std::size_t row = first; row < index; ++row) offset = bytes.find(kRowEnd, offset) + 1;
  return {piece, offset};
}

TextRows::Piece& TextRows::Own(std::size_t piece) {
  std::shared_ptr<Piece>& place = pieces_[piece];
  if (place.use_count() > 1) place = std::make_shared<Piece>(*place);
  return *place;
}

void TextRows::InsertRow(Place place, std::string row) {
  Piece& piece = Own(place.piece);
  textBytes_ += row.size();
  row += kRowEnd;
  piece.bytes.insert(place.offset, row);
  ++piece.rows;
  ++size_;
  lastPiece_ = lastFirst_ = 0;
}

void TextRows::EraseRow(Place place) {
  Piece& piece = Own(place.piece);
  const std::size_t length = piece.bytes.find(kRowEnd, place.offset) - place.offset;
  piece.bytes.erase(place.offset, length + 1);
  textBytes_ -= length;
  --size_;
  if (--piece.rows == 0) pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(place.piece));
  lastPiece_ = lastFirst_ = 0;
}

void TextRows::Split(std::size_t piece) {
  Piece& first = *pieces_[piece];
  if (first.rows < 2) return;
  const std::size_t kept = first.rows / 2;
  std::size_t offset = 0;
  for (std::size_t row = 0; row < kept; ++row) offset = first.bytes.find(kRowEnd, offset) + 1;
  auto second = std::make_shared<Piece>(Piece{first.bytes.substr(offset), first.rows - kept});
  first = Piece{first.bytes.substr(0, offset), kept};
  pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(piece) + 1, std::move(second));
}

std::string_view TextRows::const_iterator::Utf8() const {
  const std::string& bytes = rows_->pieces_[place_.piece]->bytes;
  return std::string_view(bytes).substr(place_.offset, bytes.find(kRowEnd, place_.offset) - place_.offset);
}

TextRows::const_iterator& TextRows::const_iterator::operator++() {
  place_.offset += Utf8().size() + 1;
  if (place_.offset == rows_->pieces_[place_.piece]->bytes.size()) place_ = {place_.piece + 1, 0};
  return *this;
}

}  // namespace pnl
