// SPDX-License-Identifier: MIT
#include "ui/touch_layouts.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace panel {
namespace {

/// In the tables a key that types nothing is a mark: a character of the private area, which no key types.
constexpr char16_t kMarkBase = 0xE000;

constexpr char16_t Mark(TouchAct act, int span) {
  return static_cast<char16_t>(kMarkBase + 16 * static_cast<int>(act) + span);
}

constexpr char16_t kEscape1 = Mark(TouchAct::kEscape, 1);
constexpr char16_t kBack2 = Mark(TouchAct::kBack, 2);
constexpr char16_t kEnter2 = Mark(TouchAct::kEnter, 2);
constexpr char16_t kUp1 = Mark(TouchAct::kUp, 1);
constexpr char16_t kDown1 = Mark(TouchAct::kDown, 1);
constexpr char16_t kLeft1 = Mark(TouchAct::kLeft, 1);
constexpr char16_t kRight1 = Mark(TouchAct::kRight, 1);
constexpr char16_t kShift2 = Mark(TouchAct::kShift, 2);
constexpr char16_t kBlock1 = Mark(TouchAct::kBlock, 1);
constexpr char16_t kLetters1 = Mark(TouchAct::kLetters, 1);
constexpr char16_t kLetters2 = Mark(TouchAct::kLetters, 2);
constexpr char16_t kSigns1 = Mark(TouchAct::kSigns, 1);
constexpr char16_t kHide1 = Mark(TouchAct::kHide, 1);
/// A space bar of two or three columns.
constexpr char16_t kSpace2 = Mark(TouchAct::kCharacter, 2);
constexpr char16_t kSpace3 = Mark(TouchAct::kCharacter, 3);

// Each layout has 15 columns and 3 rows.
constexpr char16_t kBlockTop[] = {'G', 'M', 'X', 'Y', 'Z', 'N', '7', '8', '9', '-', '[', ']', kEscape1, kBack2};
constexpr char16_t kBlockMiddle[] = {'I', 'J', 'K', 'F', 'S', 'T', '4', '5', '6', '.', '%', kUp1, '(', ')', kHide1};
constexpr char16_t kBlockBottom[] = {'R', kLetters2, kSpace3, '1', '2', '3', '0', kLeft1, kDown1, kRight1, kEnter2};

constexpr char16_t kLetterTop[] = {'q', 'w', 'e', 'r', 't', 'y', 'u', 'i', 'o', 'p', '\\', ':', '_', kBack2};
constexpr char16_t kLetterMiddle[] = {'a', 's', 'd', 'f', 'g', 'h', 'j', 'k', 'l', 0xF1, '-', '.', '/', kEnter2};
constexpr char16_t kLetterBottom[] = {kShift2, 'z', 'x', 'c', 'v', 'b', 'n', 'm', kSpace3, kSigns1, kBlock1, kHide1};

constexpr char16_t kSignTop[] = {'1', '2', '3', '4', '5', '6', '7', '8', '9', '0', 0xE1, 0xE9, 0xED, kBack2};
constexpr char16_t kSignMiddle[] = {'(', ')', '[', ']', '{', '}', '<', '>', '=', '+', 0xF3, 0xFA, 0xFC, kEnter2};
constexpr char16_t kSignBottom[] = {kShift2, '*', '%',     '#',    '&',     ',',      ';',
                                    '!',     '?', kSpace2, kLeft1, kRight1, kLetters1};

struct Other {
  char16_t plain;
  char16_t shifted;
};

/// What Shift makes of the signs; of a letter it makes the capital, and the digits stay.
constexpr std::array kOthers = {
    Other{'*', '^'},  Other{'%', '$'},    Other{'#', '@'},    Other{'&', '|'}, Other{',', '"'},
    Other{';', '\''}, Other{'!', 0x00A1}, Other{'?', 0x00BF}, Other{'=', '~'}, Other{'+', '`'},
};

TouchKey KeyOf(char16_t code) {
  TouchKey key;
  if (code >= kMarkBase && code < kMarkBase + 16 * (static_cast<int>(TouchAct::kHide) + 1)) {
    key.act = static_cast<TouchAct>((code - kMarkBase) / 16);
    key.span = (code - kMarkBase) % 16;
    if (key.act == TouchAct::kCharacter) key.plain = key.shifted = QLatin1Char(' ');
    return key;
  }
  key.plain = QChar(code);
  const auto* other = std::find_if(kOthers.begin(), kOthers.end(), [code](const Other& o) { return o.plain == code; });
  key.shifted = other == kOthers.end() ? key.plain.toUpper() : QChar(other->shifted);
  return key;
}

template <std::size_t size>
TouchRow RowOf(const char16_t (&codes)[size]) {
  TouchRow row;
  for (const char16_t code : codes) row.push_back(KeyOf(code));
  return row;
}

TouchPage DrawnPage(TouchLayout layout) {
  switch (layout) {
    case TouchLayout::kLetters:
      return {RowOf(kLetterTop), RowOf(kLetterMiddle), RowOf(kLetterBottom)};
    case TouchLayout::kSigns:
      return {RowOf(kSignTop), RowOf(kSignMiddle), RowOf(kSignBottom)};
    case TouchLayout::kBlock:
      break;
  }
  return {RowOf(kBlockTop), RowOf(kBlockMiddle), RowOf(kBlockBottom)};
}

/// The keys of every page, at its end.
constexpr std::array kAlways = {TouchAct::kMore, TouchAct::kBack, TouchAct::kEnter};

bool IsAlways(const TouchKey& key) { return std::find(kAlways.begin(), kAlways.end(), key.act) != kAlways.end(); }

std::vector<TouchPage> Spread(const TouchPage& drawn, int columns, int rows) {
  std::vector<TouchKey> keys;
  for (const TouchRow& row : drawn) {
    for (TouchKey key : row) {
      key.span = 1;
      if (!IsAlways(key)) keys.push_back(key);
    }
  }
  const int room = std::max(1, columns * rows - static_cast<int>(kAlways.size()));
  std::vector<TouchPage> pages;
  for (std::size_t first = 0; first < keys.size(); first += static_cast<std::size_t>(room)) {
    std::vector<TouchKey> some(
        keys.begin() + static_cast<std::ptrdiff_t>(first),
        keys.begin() + static_cast<std::ptrdiff_t>(std::min(keys.size(), first + static_cast<std::size_t>(room))));
    // On the last page these keys are where they are on the others.
    some.resize(static_cast<std::size_t>(room), TouchKey{TouchAct::kCharacter, {}, {}, 1});
    for (const TouchAct act : kAlways) some.push_back({act, {}, {}, 1});
    TouchPage page;
    for (std::size_t at = 0; at < some.size(); at += static_cast<std::size_t>(columns)) {
      const std::size_t end = std::min(some.size(), at + static_cast<std::size_t>(columns));
      page.emplace_back(some.begin() + static_cast<std::ptrdiff_t>(at),
                        some.begin() + static_cast<std::ptrdiff_t>(end));
    }
    pages.push_back(std::move(page));
  }
  if (pages.size() > 1) return pages;
  // A page that is alone leads to no other.
  for (TouchRow& row : pages.front()) {
    for (TouchKey& key : row) {
      if (key.act == TouchAct::kMore) key.act = TouchAct::kCharacter;
    }
  }
  return pages;
}

}  // namespace

std::vector<TouchPage> TouchPages(TouchLayout layout, int columns, int rows) {
  const TouchPage drawn = DrawnPage(layout);
  if (ColumnsOf(drawn) <= columns && static_cast<int>(drawn.size()) <= rows) return {drawn};
  return Spread(drawn, std::max(1, columns), std::max(1, rows));
}

int ColumnsOf(const TouchPage& page) {
  int most = 0;
  for (const TouchRow& row : page) {
    int columns = 0;
    for (const TouchKey& key : row) columns += key.span;
    most = std::max(most, columns);
  }
  return most;
}

QChar CharacterOf(const TouchKey& key, bool shift) { return shift ? key.shifted : key.plain; }

}  // namespace panel
