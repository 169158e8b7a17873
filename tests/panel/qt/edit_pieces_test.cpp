// SPDX-License-Identifier: MIT
// A text as pieces of its base and of what was typed: random edits beside the text itself, and how few pieces they are.
#include "host/edit_pieces.h"

#include <gtest/gtest.h>

#include <random>

namespace panel {
namespace {

const QString kBase = QStringLiteral("N10 G0 X0\nN20 G1 X100 F500\nN30 M30\n");

/// The pieces in words: "0+5 'typed' 7+3".
std::string InWords(const EditPieces& edits) {
  std::string words;
  for (const EditPiece& piece : edits.Pieces()) {
    if (!words.empty()) words += ' ';
    words += piece.IsKept() ? std::to_string(piece.from) + "+" + std::to_string(piece.length)
                            : "'" + piece.text.toStdString() + "'";
  }
  return words;
}

TEST(EditPieces, AnUntouchedTextIsOnePiece) {
  EditPieces edits;
  edits.Reset(36);
  EXPECT_EQ(InWords(edits), "0+36");
  EXPECT_EQ(edits.Length(), 36);
  EXPECT_EQ(edits.Typed(), 0);
  edits.Reset(0);
  EXPECT_EQ(InWords(edits), "");
}

TEST(EditPieces, ATextThatIsReadAnewBeginsAnew) {
  EditPieces edits;
  edits.Reset(1);
  EXPECT_EQ(InWords(edits), "0+1");
  edits.Replace(0, 1, "abc");
  edits.Reset(2);
  EXPECT_EQ(InWords(edits), "0+2");
  EXPECT_EQ(edits.Length(), 2);
  EXPECT_EQ(edits.Typed(), 0);
  edits.Reset(-1);
  EXPECT_EQ(InWords(edits), "");
  EXPECT_EQ(edits.Length(), 0);
}

TEST(EditPieces, WhatIsTypedCharacterByCharacterIsOnePiece) {
  EditPieces edits;
  edits.Reset(10);
  edits.Replace(4, 0, "G");
  edits.Replace(5, 0, "1");
  edits.Replace(6, 0, "X");
  EXPECT_EQ(InWords(edits), "0+4 'G1X' 4+6");
  edits.Replace(5, 1, "0");
  EXPECT_EQ(InWords(edits), "0+4 'G0X' 4+6");
  EXPECT_EQ(edits.Typed(), 3);
}

TEST(EditPieces, WhatIsTypedAndRemovedLeavesTheBaseInOnePiece) {
  EditPieces edits;
  edits.Reset(10);
  edits.Replace(4, 0, "abc");
  edits.Replace(4, 3, "");
  EXPECT_EQ(InWords(edits), "0+10");
  EXPECT_EQ(edits.Typed(), 0);
}

TEST(EditPieces, PlacesBeyondTheTextMeanItsEnd) {
  EditPieces edits;
  edits.Reset(3);
  edits.Replace(100, 100, "x");
  edits.Replace(2, 100, "y");
  EXPECT_EQ(InWords(edits), "0+2 'y'");
  EXPECT_EQ(edits.Length(), 3);
  edits.Replace(-7, 1, "z");
  EXPECT_EQ(InWords(edits), "'z' 1+1 'y'") << "a place before the text means its beginning";
  edits.Replace(1, -7, "");
  EXPECT_EQ(InWords(edits), "'z' 1+1 'y'");
}

TEST(EditPieces, RandomEditsGiveTheSameTextAsOnTheTextItself) {
  std::mt19937 random(7);
  const auto below = [&random](qint64 most) { return std::uniform_int_distribution<qint64>(0, most)(random); };
  for (int run = 0; run < 50; ++run) {
    QString text = kBase;
    EditPieces edits;
    edits.Reset(kBase.size());
    for (int i = 0; i < 60; ++i) {
      const qint64 at = below(text.size());
      const qint64 removed = std::min<qint64>(below(6), text.size() - at);
      const QString added(below(3), QChar(u'a' + static_cast<int>(below(25))));
      text.replace(at, removed, added);
      edits.Replace(at, removed, added);
      ASSERT_EQ(Compose(kBase, edits.Pieces()), text) << "run " << run << " edit " << i;
      ASSERT_EQ(edits.Length(), text.size());
      qint64 typed = 0;
      for (std::size_t k = 0; k < edits.Pieces().size(); ++k) {
        const EditPiece& piece = edits.Pieces()[k];
        ASSERT_GT(piece.Length(), 0);
        typed += piece.text.size();
        if (k == 0) continue;
        const EditPiece& former = edits.Pieces()[k - 1];
        ASSERT_FALSE(!former.IsKept() && !piece.IsKept());
        ASSERT_FALSE(former.IsKept() && piece.IsKept() && former.from + former.length == piece.from);
      }
      ASSERT_EQ(edits.Typed(), typed);
    }
  }
}

TEST(EditPieces, APieceThatIsNotInTheBaseComposesNothing) {
  const EditPiece bad[] = {{-1, 2, {}}, {0, 11, {}},
                           {11, 1, {}}, {5, 6, {}},
                           {0, -1, {}}, {std::numeric_limits<qint64>::max(), std::numeric_limits<qint64>::max(), {}}};
  for (const EditPiece& piece : bad) {
    EXPECT_FALSE(Compose(u"0123456789", {piece})) << piece.from << " " << piece.length;
  }
  EXPECT_EQ(Compose(u"0123456789", {{10, 0, {}}, {3, 0, {}}}), QString()) << "nothing is kept there";
  EXPECT_EQ(Compose(u"0123456789", {{0, 10, {}}, {5, 5, {}}}), QStringLiteral("012345678956789"));
}

TEST(EditPieces, AHashTellsTextsApartButNotTheEndsOfTheirLines) {
  EXPECT_EQ(HashOf(u"a\nb"), HashOf(u"a\u2029b"));
  EXPECT_NE(HashOf(u"a\nb"), HashOf(u"a b"));
  EXPECT_NE(HashOf(u"ab"), HashOf(u"ba"));
  EXPECT_NE(HashOf(u""), HashOf(u"\n"));
}

}  // namespace
}  // namespace panel
