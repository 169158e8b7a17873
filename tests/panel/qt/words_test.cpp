// SPDX-License-Identifier: MIT
// The panel's own words in both languages, and the one table of keys that feeds keyboard, tooltips and page.
#include "common/words.h"

#include <gtest/gtest.h>

#include <set>

#include "common/shortcuts.h"

namespace panel {
namespace {

TEST(WordsTest, EveryWordIsThereInEveryLanguage) {
  for (int word = 0; word < static_cast<int>(Word::kCount); ++word) {
    for (int language = 0; language < 2; ++language) {
      EXPECT_FALSE(WordIn(static_cast<Word>(word), language).trimmed().isEmpty()) << word << " in " << language;
    }
  }
}

TEST(WordsTest, APlaceForAnArgumentIsInBothLanguagesOrInNone) {
  for (int word = 0; word < static_cast<int>(Word::kCount); ++word) {
    EXPECT_EQ(WordIn(static_cast<Word>(word), 0).contains("%1"), WordIn(static_cast<Word>(word), 1).contains("%1"))
        << word;
  }
}

TEST(WordsTest, AnUnknownLanguageSpeaksEnglish) {
  UseWords("es");
  EXPECT_EQ(Say(Word::kReady), "LISTO");
  UseWords("none");
  EXPECT_EQ(Say(Word::kReady), "READY");
  EXPECT_EQ(Say(Word::kErrors, "3"), "Errors: 3");
}

TEST(ShortcutsTest, EveryActionHasItsRowInOrder) {
  ASSERT_EQ(ShortcutTable().size(), static_cast<int>(Action::kCount));
  for (int i = 0; i < ShortcutTable().size(); ++i) EXPECT_EQ(static_cast<int>(ShortcutTable()[i].action), i);
}

TEST(ShortcutsTest, TheKeysOfTheEditorAreThoseForItsText) {
  QList<Action> ofEditor;
  for (const ShortcutRow& row : ShortcutTable()) {
    if (IsOfEditor(row.action)) ofEditor << row.action;
  }
  EXPECT_EQ(ofEditor,
            (QList<Action>{Action::kUndo, Action::kRedo, Action::kFind, Action::kReplace, Action::kGoToLine}));
}

TEST(ShortcutsTest, OnlyTheOverrideGoesOnWhileItsKeyIsHeld) {
  for (const ShortcutRow& row : ShortcutTable()) {
    EXPECT_EQ(Repeats(row.action), row.action == Action::kOverrideDown || row.action == Action::kOverrideUp)
        << row.keys;
  }
}

TEST(ShortcutsTest, TheSoftKeysAreTheFunctionKeys) {
  EXPECT_EQ(kMainKeys, 7);
  EXPECT_EQ(kSideKeys, 6);
  for (int slot = 0; slot < kMainKeys; ++slot) {
    EXPECT_EQ(MainKey(slot).toString(), "F" + QString::number(slot + 1));
    EXPECT_EQ(SideKey(slot).toString(), "Shift+F" + QString::number(slot + 1));
  }
}

TEST(ShortcutsTest, NoKeyMeansTwoThings) {
  std::set<QString> seen;
  for (int slot = 0; slot < kMainKeys; ++slot) EXPECT_TRUE(seen.insert(MainKey(slot).toString()).second);
  for (int slot = 0; slot < kSideKeys; ++slot) EXPECT_TRUE(seen.insert(SideKey(slot).toString()).second);
  for (const ShortcutRow& row : ShortcutTable()) {
    for (const QKeySequence& key : KeysOf(row.action)) {
      EXPECT_FALSE(key.isEmpty()) << row.keys;
      EXPECT_TRUE(seen.insert(key.toString()).second) << key.toString().toStdString();
    }
  }
}

TEST(ShortcutsTest, NoShortcutTakesAKeyThatAnEditorNeeds) {
  const QList<QKeySequence> needed = {
      QKeySequence::Copy,   QKeySequence::Paste,         QKeySequence::Cut,         QKeySequence::Undo,
      QKeySequence::Redo,   QKeySequence::SelectAll,     QKeySequence(Qt::Key_Tab), QKeySequence(Qt::Key_Escape),
      QKeySequence::Delete, QKeySequence(Qt::Key_Return)};
  for (const ShortcutRow& row : ShortcutTable()) {
    if (IsOfEditor(row.action)) continue;
    for (const QKeySequence& key : KeysOf(row.action)) {
      EXPECT_FALSE(needed.contains(key)) << key.toString().toStdString();
    }
  }
}

TEST(ShortcutsTest, ThePageAndTheTooltipsSayWhatTheTableSays) {
  UseWords("en");
  EXPECT_EQ(TooltipOf(Action::kCycleStart), "Start (F9)");
  const QString page = ShortcutPage();
  EXPECT_TRUE(page.contains("| F9, Ctrl+Return, Ctrl+Enter | Start |"));
  EXPECT_TRUE(page.contains("| F1 … F7 |"));
  EXPECT_TRUE(page.contains("| Shift+F1 … Shift+F6 |"));
  EXPECT_TRUE(page.startsWith("| keys | what |\n| --- | --- |\n| F1"));
  for (const ShortcutRow& row : ShortcutTable()) {
    QStringList names;
    for (const QKeySequence& key : KeysOf(row.action)) names << key.toString();
    EXPECT_TRUE(page.contains("| " + names.join(", ") + " | " + Say(WordOf(row.action)) + " |\n")) << row.keys;
    EXPECT_EQ(TooltipOf(row.action), Say(row.what) + " (" + names[0] + ")");
  }
  EXPECT_TRUE(page.contains("| Alt+W | Error window away, and back |"));
  EXPECT_EQ(page.count('\n'), 5 + ShortcutTable().size());
}

}  // namespace
}  // namespace panel
