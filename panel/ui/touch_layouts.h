// SPDX-License-Identifier: MIT
// What is on the touch keyboard: the keys of its layouts as tables, and how they are spread over pages when a page has
// room for fewer. It knows no pixel and no widget.
#pragma once

#include <QChar>
#include <vector>

namespace panel {

/// The layouts: words of a block, letters, and the signs and accents that go with the letters.
enum class TouchLayout { kBlock, kLetters, kSigns };

enum class TouchAct {
  kCharacter,
  kEnter,
  kEscape,
  kBack,
  kLeft,
  kRight,
  kUp,
  kDown,
  kShift,  // the next character is the key's other one; pressed twice, all are
  kBlock,  // another layout
  kLetters,
  kSigns,
  kMore,  // the next page of the same layout
  kHide,
};

struct TouchKey {
  TouchAct act = TouchAct::kCharacter;
  QChar plain;
  QChar shifted;  // the same as plain when Shift makes no difference
  int span = 1;   // columns
};

using TouchRow = std::vector<TouchKey>;
using TouchPage = std::vector<TouchRow>;

/// The pages of a layout for at most that many columns and rows, both at least 1. A layout that fits is one page, as it
/// was drawn. Otherwise its keys follow one another, and each page has the keys that are always needed. No key is left
/// out while a page has room for four.
[[nodiscard]] std::vector<TouchPage> TouchPages(TouchLayout layout, int columns, int rows);

/// The columns and rows of a page.
[[nodiscard]] int ColumnsOf(const TouchPage& page);

/// What a character key types.
[[nodiscard]] QChar CharacterOf(const TouchKey& key, bool shift);

}  // namespace panel
