// SPDX-License-Identifier: MIT
// What a list box draws at the right end of a row, beside the item's text: a few words and a sign. A note is never part
// of the item: whoever copies or picks the item doesn't get it. The signs are drawn, because no font must have them.
#pragma once

#include <QtCore/QRect>
#include <cstdint>

#include "base/text.h"

class QPainter;

namespace pnl {

enum class ListSign : std::uint8_t {
  kNone,
  kPin,    // the row is pinned
  kCross,  // the row was refused
};

struct ListNote {
  Text words;
  ListSign sign = ListSign::kNone;
  bool leads = false;  // the words need to be read whole, and the item's text gives way
  friend bool operator==(const ListNote&, const ListNote&) = default;
};

/// Draws the note with the painter's pen at the right end of the row. Returns the rest of the row. This is at least
/// half of it, unless the note leads: then it is what the words leave, at least a sixth. The words have the painter's
/// font, or if they lead and don't fit, a smaller one that can still be read.
[[nodiscard]] QRect DrawNote(QPainter& painter, const QRect& row, const ListNote& note);

}  // namespace pnl
