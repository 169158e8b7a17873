// SPDX-License-Identifier: MIT
// The script of the shift watches itself: no key may come from anywhere but the screen, and nothing is touched that
// isn't seen.
#include "panel/shift/qt/key_watch.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>

#include "panel/shift/qt/hands.h"
#include "support/platform_events.h"
#include "ui/code_edit.h"
#include "ui/error_list.h"
#include "ui/panel_key.h"
#include "ui/program_editor.h"
#include "ui/soft_key_bar.h"

namespace panel::shift {
namespace {

class KeyWatchTest : public testing::Test {
 protected:
  [[nodiscard]] std::string Strangers() const { return watch.Strangers().join(u'|').toStdString(); }
  ShiftStage stage{Setting{}};
  Hands hands{stage, {}};
  KeyWatch watch{hands.TheFinger()};
};

TEST_F(KeyWatchTest, AKeyOfTheKeyboardIsAStranger) {
  pnl::test::PressPlatformKey(stage.Window(), Qt::Key_G, QStringLiteral("g"));
  hands.Rest();
  EXPECT_EQ(Strangers().substr(0, 5), "G in ");
  EXPECT_EQ(watch.Typed(), 0);
}

TEST_F(KeyWatchTest, AKeyThatAScriptSendsIsAStranger) {
  QKeyEvent key(QEvent::KeyPress, Qt::Key_Return, {});
  QCoreApplication::sendEvent(QApplication::focusWidget(), &key);
  EXPECT_EQ(Strangers().substr(0, 10), "Return in ");
}

TEST_F(KeyWatchTest, KeysOfTheScreenAreThePanelsOwn) {
  hands.Touch(stage.Window().Editor().Edit().viewport(), QStringLiteral("the program"));
  hands.Type(QStringLiteral("G1 n"));
  hands.Row(RowKey::kEnter);
  EXPECT_EQ(stage.Window().ProgramText().toStdString(), "G1 n\n");
  EXPECT_EQ(Strangers(), "");
  EXPECT_GE(watch.Typed(), 5);
}

TEST_F(KeyWatchTest, NothingIsTouchedThatIsCovered) {
  PanelKey* key = stage.Window().MainBar().Key(0);
  EXPECT_TRUE(Finger::IsSeenAt(*key, key->rect().center()));
  hands.Row(RowKey::kErrors);
  ASSERT_TRUE(stage.Window().ErrorsShown().IsOpen());
  EXPECT_FALSE(hands.TheFinger().Touch(*key, key->rect().center()));
  EXPECT_THROW(hands.Touch(key, QStringLiteral("a key")), Stuck);
}

}  // namespace
}  // namespace panel::shift
