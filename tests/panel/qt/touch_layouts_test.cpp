// SPDX-License-Identifier: MIT
// The layouts of the touch keyboard, row by row, and how their keys are spread over pages where there is little room.
#include "ui/touch_layouts.h"

#include <gtest/gtest.h>

#include <QString>

namespace panel {
namespace {

/// A page in words: a blank is "_", a key of several columns has their number after it.
std::vector<std::string> InWords(const TouchPage& page) {
  const char* const acts[] = {"",     "Enter", "Esc",   "Back",    "Left",  "Right", "Up",
                              "Down", "Shift", "Block", "Letters", "Signs", "More",  "Hide"};
  std::vector<std::string> rows;
  for (const TouchRow& row : page) {
    QStringList keys;
    for (const TouchKey& key : row) {
      QString name = QString::fromLatin1(acts[static_cast<int>(key.act)]);
      if (key.act == TouchAct::kCharacter) {
        name = key.plain.isNull() ? QStringLiteral("_") : key.plain == ' ' ? QStringLiteral("Space") : key.plain;
      }
      keys << (key.span == 1 ? name : name + QString::number(key.span));
    }
    rows.push_back(keys.join(QLatin1Char(' ')).toStdString());
  }
  return rows;
}

using Rows = std::vector<std::string>;

TEST(TouchLayoutsTest, EachLayoutHasItsKeysInItsOrder) {
  struct Row {
    TouchLayout layout;
    Rows rows;
  };
  for (const Row& row :
       {Row{TouchLayout::kBlock,
            {"G M X Y Z N 7 8 9 - [ ] Esc Back2", "I J K F S T 4 5 6 . % Up ( ) Hide",
             "R Letters2 Space3 1 2 3 0 Left Down Right Enter2"}},
        Row{TouchLayout::kLetters,
            {"q w e r t y u i o p \\ : _ Back2", "a s d f g h j k l \u00f1 - . / Enter2",
             "Shift2 z x c v b n m Space3 Signs Block Hide"}},
        Row{TouchLayout::kSigns,
            {"1 2 3 4 5 6 7 8 9 0 \u00e1 \u00e9 \u00ed Back2", "( ) [ ] { } < > = + \u00f3 \u00fa \u00fc Enter2",
             "Shift2 * % # & , ; ! ? Space2 Left Right Letters"}}}) {
    const auto pages = TouchPages(row.layout, 15, 3);
    ASSERT_EQ(pages.size(), 1u);
    EXPECT_EQ(InWords(pages[0]), row.rows);
    EXPECT_EQ(ColumnsOf(pages[0]), 15);
    EXPECT_EQ(InWords(TouchPages(row.layout, 100, 100)[0]), row.rows) << "more room changes nothing";
  }
}

TEST(TouchLayoutsTest, ShiftMakesCapitalsAndTheOtherSignOfAKey) {
  const QString plain = QString::fromUtf8("*%#&,;!?=+") + QString::fromUtf8("aq\u00f1\u00e1\u00fc") + "17(]<.-/ ";
  const QString other =
      QString::fromUtf8("^$@|\"'\u00a1\u00bf~`") + QString::fromUtf8("AQ\u00d1\u00c1\u00dc") + "17(]<.-/ ";
  ASSERT_EQ(plain.size(), other.size());
  int found = 0;
  for (const TouchLayout layout : {TouchLayout::kLetters, TouchLayout::kSigns}) {
    const auto pages = TouchPages(layout, 15, 3);
    for (const TouchRow& row : pages[0]) {
      for (const TouchKey& key : row) {
        if (key.act != TouchAct::kCharacter) continue;
        EXPECT_EQ(CharacterOf(key, false), key.plain);
        EXPECT_EQ(CharacterOf(key, true), key.shifted);
        const auto at = plain.indexOf(key.plain);
        if (at < 0) continue;
        ++found;
        EXPECT_EQ(key.shifted, other[at]) << static_cast<int>(key.plain.unicode());
      }
    }
  }
  EXPECT_EQ(found, plain.size() + 1) << "each of them, and both space bars";
}

TEST(TouchLayoutsTest, WithLittleRoomTheKeysGoOnOverPagesThatEndAlike) {
  const auto pages = TouchPages(TouchLayout::kBlock, 10, 2);
  ASSERT_EQ(pages.size(), 3u);
  EXPECT_EQ(InWords(pages[0]), (Rows{"G M X Y Z N 7 8 9 -", "[ ] Esc I J K F More Back Enter"}));
  EXPECT_EQ(InWords(pages[1]), (Rows{"S T 4 5 6 . % Up ( )", "Hide R Letters Space 1 2 3 More Back Enter"}));
  EXPECT_EQ(InWords(pages[2]), (Rows{"0 Left Down Right _ _ _ _ _ _", "_ _ _ _ _ _ _ More Back Enter"}));
}

TEST(TouchLayoutsTest, APageThatIsAloneLeadsToNoOther) {
  const auto pages = TouchPages(TouchLayout::kBlock, 14, 3);
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(InWords(pages[0]), (Rows{"G M X Y Z N 7 8 9 - [ ] Esc I", "J K F S T 4 5 6 . % Up ( ) Hide",
                                     "R Letters Space 1 2 3 0 Left Down Right _ _ Back Enter"}));
  EXPECT_EQ(TouchPages(TouchLayout::kBlock, 15, 2).size(), 2u) << "a row too few";
}

TEST(TouchLayoutsTest, HoweverLittleRoomThereIsAPageHasAKey) {
  for (const auto& [columns, rows] : {std::pair(1, 1), std::pair(0, 0), std::pair(-3, 1)}) {
    const auto pages = TouchPages(TouchLayout::kBlock, columns, rows);
    ASSERT_EQ(pages.size(), 38u);
    EXPECT_EQ(InWords(pages[0]), (Rows{"G", "More", "Back", "Enter"}));
    EXPECT_EQ(InWords(pages[37]), (Rows{"Right", "More", "Back", "Enter"}));
    EXPECT_EQ(ColumnsOf(pages[0]), 1);
  }
}

}  // namespace
}  // namespace panel
