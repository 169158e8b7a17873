// SPDX-License-Identifier: MIT
// The reserved row by itself: where its keys are, what they say, and that a key that isn't there leaves its place free.
#include "ui/reserved_row.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <map>
#include <set>

#include "common/words.h"
#include "ui/panel_key.h"

namespace panel {
namespace {

class ReservedRowTest : public ::testing::Test {
 protected:
  ReservedRowTest() {
    UseWords("en");
    row.resize(792, 47);
    row.show();
  }
  ~ReservedRowTest() override { UseWords("en"); }
  [[nodiscard]] std::vector<QRect> Places() const {
    std::vector<QRect> places;
    for (int i = 0; i < kRowKeys; ++i) places.push_back(row.Key(static_cast<RowKey>(i))->geometry());
    return places;
  }
  [[nodiscard]] QStringList Captions() const {
    QStringList captions;
    for (int i = 0; i < kRowKeys; ++i) captions << row.Key(static_cast<RowKey>(i))->text();
    return captions;
  }

  ReservedRow row{nullptr};
};

TEST_F(ReservedRowTest, ItsKeysShareItsWidthAndHeight) {
  const auto places = Places();
  EXPECT_EQ(places.front().left(), 0);
  EXPECT_EQ(places.back().right(), 791);
  for (std::size_t i = 0; i < places.size(); ++i) {
    EXPECT_EQ(places[i].top(), 0);
    EXPECT_EQ(places[i].height(), 47);
    EXPECT_GE(places[i].width(), 95);
    const int left = i == 0 ? 0 : places[i - 1].right() + 1 + 4;
    EXPECT_EQ(places[i].left(), left) << i;
  }
}

TEST_F(ReservedRowTest, AKeyThatIsNotThereIsHiddenAndNoOtherMoves) {
  const auto before = Places();
  row.Show([](RowKey key) { return RowKeyLook{key != RowKey::kCalculator && key != RowKey::kHelp, true, false}; });
  EXPECT_FALSE(row.Key(RowKey::kCalculator)->isVisible());
  EXPECT_FALSE(row.Key(RowKey::kHelp)->isVisible());
  for (const RowKey key :
       {RowKey::kErrors, RowKey::kKeyboard, RowKey::kLanguage, RowKey::kInsert, RowKey::kClose, RowKey::kEnter}) {
    EXPECT_TRUE(row.Key(key)->isVisible());
  }
  EXPECT_EQ(Places(), before);
  row.Show([](RowKey) { return RowKeyLook{}; });
  EXPECT_TRUE(row.Key(RowKey::kCalculator)->isVisible());
  EXPECT_EQ(Places(), before);
}

TEST_F(ReservedRowTest, KeysAreLitAndDimAsTheyAreSaidToBe) {
  row.Show([](RowKey key) { return RowKeyLook{true, key != RowKey::kInsert, key == RowKey::kHelp}; });
  for (int i = 0; i < kRowKeys; ++i) {
    const auto key = static_cast<RowKey>(i);
    EXPECT_EQ(row.Key(key)->isEnabled(), key != RowKey::kInsert) << i;
    EXPECT_EQ(row.Key(key)->isChecked(), key == RowKey::kHelp) << i;
  }
  row.Show([](RowKey) { return RowKeyLook{true, true, true}; });
  EXPECT_FALSE(row.Key(RowKey::kEnter)->isChecked()) << "a key that opens nothing is never lit";
  EXPECT_TRUE(row.Key(RowKey::kErrors)->isChecked());
}

TEST_F(ReservedRowTest, EachKeySaysWhichItIs) {
  std::vector<RowKey> pressed;
  QObject::connect(&row, &ReservedRow::Pressed, [&pressed](RowKey key) { pressed.push_back(key); });
  for (int i = 0; i < kRowKeys; ++i) row.Key(static_cast<RowKey>(i))->click();
  ASSERT_EQ(pressed.size(), static_cast<std::size_t>(kRowKeys));
  for (int i = 0; i < kRowKeys; ++i) EXPECT_EQ(pressed[static_cast<std::size_t>(i)], static_cast<RowKey>(i));
}

TEST_F(ReservedRowTest, EachKeyHasTheNameThatItHasOnAKeyboard) {
  QStringList names;
  for (int i = 0; i < kRowKeys; ++i) names << row.Key(static_cast<RowKey>(i))->KeyName();
  EXPECT_EQ(names, (QStringList{"Ctrl+L", "Ctrl+K", "Ctrl+F1", "", "", "Ins", "Esc", ""}));
}

TEST_F(ReservedRowTest, ItsWordsChangeWithTheLanguage) {
  EXPECT_EQ(Captions(),
            (QStringList{"Errors", "Calculator", "Help", "Keyboard", "Español", "Insert", "Close", "Enter"}));
  UseWords("es");
  QEvent changed(QEvent::LanguageChange);
  QCoreApplication::sendEvent(&row, &changed);
  EXPECT_EQ(Captions(),
            (QStringList{"Errores", "Calculadora", "Ayuda", "Teclado", "English", "Insertar", "Cerrar", "Intro"}));
  EXPECT_EQ(row.Key(RowKey::kHelp)->accessibleName(), "Ayuda");
}

TEST_F(ReservedRowTest, KeysThatActOnTheFocusNeverHaveIt) {
  for (const RowKey key : {RowKey::kEnter, RowKey::kInsert, RowKey::kClose, RowKey::kKeyboard}) {
    EXPECT_EQ(row.Key(key)->focusPolicy(), Qt::NoFocus);
  }
  EXPECT_EQ(row.Key(RowKey::kLanguage)->focusPolicy(), Qt::TabFocus);
}

}  // namespace
}  // namespace panel
