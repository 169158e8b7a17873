// SPDX-License-Identifier: MIT
// What the operator has removed from the MDA list, so that a host can offer it back: single items that Delete has taken
// off the screen, and whole lists. It keeps the rows and knows neither window nor host.
#pragma once

#include <cstdint>
#include <vector>

#include "mdi/mdi_data.h"

namespace pnl {

struct MdiRemoval {
  int number = 0;  // each removal has its own
  std::int8_t channel = 0;
  // An item that Delete has removed from the list box.
  int index = 0;
  Text item;
  int fills = 0;  // how often the box had been filled; when it is filled again, the item is back
  // A list that was cleared: the rows of the box and of the store, those that this session had added, and the selected
  // one.
  bool whole = false;
  TextRows box;
  TextRows store;
  TextRows added;
  int selection = -1;

  [[nodiscard]] std::size_t Rows() const { return whole ? box.size() : 1; }
  [[nodiscard]] Text FirstRow() const { return whole ? (box.empty() ? Text() : box.front()) : item; }
};

class MdiRemoved {
 public:
  void Note(MdiRemoval removal);
  /// The last one, or null.
  [[nodiscard]] const MdiRemoval* Last() const { return removals_.empty() ? nullptr : &removals_.back(); }
  /// The number of the last one, or 0.
  [[nodiscard]] int Number() const { return removals_.empty() ? 0 : removals_.back().number; }
  void DropLast();
  void Forget() { removals_.clear(); }

 private:
  std::vector<MdiRemoval> removals_;
  int last_ = 0;
};

}  // namespace pnl
