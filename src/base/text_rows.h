// SPDX-License-Identifier: MIT
// A list of many text rows that needs about as many bytes as their file, empty rows included: it keeps UTF-8 in pieces
// of some kilobytes. A copy shares the pieces until one side changes them, so a list and the window that shows it use
// the memory once. Rows are returned by value. As in a file, text that isn't well-formed UTF-16 becomes U+FFFD.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"

namespace pnl {

class TextRows {
 public:
  using value_type = Text;
  class const_iterator;
  using iterator = const_iterator;

  TextRows() = default;
  TextRows(std::initializer_list<TextView> rows);
  explicit TextRows(const std::vector<Text>& rows);

  [[nodiscard]] std::size_t size() const { return size_; }
  [[nodiscard]] bool empty() const { return size_ == 0; }
  /// index must be less than size.
  [[nodiscard]] Text operator[](std::size_t index) const;
  [[nodiscard]] Text front() const { return (*this)[0]; }
  [[nodiscard]] const_iterator begin() const;
  [[nodiscard]] const_iterator end() const;
  /// The index of the first row that equals the text; nothing when there is none.
  [[nodiscard]] std::optional<std::size_t> Find(TextView text) const;

  void push_back(TextView text);
  void push_front(TextView text) { Insert(0, text); }
  /// Inserts the row before the row at index, or at the end when no row has that index.
  void Insert(std::size_t index, TextView text);
  /// Does nothing when no row has that index. Erase likewise.
  void Replace(std::size_t index, TextView text);
  void Erase(std::size_t index);
  void clear();

  /// The number of bytes of the rows' text in UTF-8, without row ends.
  [[nodiscard]] std::size_t TextBytes() const { return textBytes_; }
  friend bool operator==(const TextRows& left, const TextRows& right);

 private:
  /// Consecutive rows, each ended by a byte that occurs in no UTF-8 text.
  struct Piece {
    std::string bytes;
    std::size_t rows = 0;
  };
  struct Place {
    std::size_t piece = 0;
    std::size_t offset = 0;
    friend bool operator==(const Place&, const Place&) = default;
  };
  [[nodiscard]] Place PlaceOf(std::size_t index) const;
  /// Returns the piece for changing. If another copy shares it, replaces it with a copy of its own first.
  Piece& Own(std::size_t piece);
  void InsertRow(Place place, std::string row);
  void EraseRow(Place place);
  void Split(std::size_t piece);

  std::vector<std::shared_ptr<Piece>> pieces_;
  std::size_t size_ = 0;
  std::size_t textBytes_ = 0;
  // The piece of the row that was asked for last, and the index of that piece's first row: rows are mostly asked for in
  // order.
  mutable std::size_t lastPiece_ = 0;
  mutable std::size_t lastFirst_ = 0;

 public:
  /// Valid until the rows change.
  class const_iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = Text;
    using difference_type = std::ptrdiff_t;
    using pointer = const Text*;
    using reference = Text;

    const_iterator() = default;
    Text operator*() const { return FromUtf8(Utf8()); }
    const_iterator& operator++();
    const_iterator operator++(int) {
      const_iterator old = *this;
      ++*this;
      return old;
    }
    /// The row as it is stored, without a conversion.
    [[nodiscard]] std::string_view Utf8() const;
    friend bool operator==(const const_iterator&, const const_iterator&) = default;

   private:
    friend TextRows;
    const_iterator(const TextRows* rows, Place place) : rows_(rows), place_(place) {}
    const TextRows* rows_ = nullptr;
    Place place_{};
  };
};

}  // namespace pnl
