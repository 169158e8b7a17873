// SPDX-License-Identifier: MIT
#include "controls/limited_edit.h"

#include <QtGui/QClipboard>

#include "support/widget_probe.h"
#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

class LimitedEditTest : public testing::Test {
 protected:
  LimitedEdit edit{1008, 5, nullptr};
};

TEST_F(LimitedEditTest, LimitsWhatIsTyped) {
  Type(&edit, "1234567");
  EXPECT_EQ(edit.text(), "12345");
  EXPECT_EQ(edit.property(property::kLimit).toInt(), 5);
  EXPECT_EQ(ControlKind(&edit), "edit");
}

TEST_F(LimitedEditTest, LimitsWhatIsPasted) {
  QApplication::clipboard()->setText("123456789");
  edit.paste();
  EXPECT_EQ(edit.text(), "12345");
}

TEST_F(LimitedEditTest, TakesLongerTextsFromOutsideWithTheCaretAtTheStart) {
  edit.SetText("123456789");
  EXPECT_EQ(edit.text(), "123456789");
  EXPECT_EQ(edit.cursorPosition(), 0);
  Type(&edit, "x");
  EXPECT_EQ(edit.text(), "123456789") << "typing makes it no longer";
}

TEST_F(LimitedEditTest, TheLimitHoldsAgainOnceTheTextIsShorter) {
  edit.SetText("1234567");
  edit.setCursorPosition(7);
  for (int i = 0; i < 4; ++i) PressKey(&edit, Qt::Key_Backspace);
  EXPECT_EQ(edit.text(), "123");
  EXPECT_EQ(edit.cursorPosition(), 3) << "the caret stays";
  Type(&edit, "abcdef");
  EXPECT_EQ(edit.text(), "123ab");
}

TEST_F(LimitedEditTest, TheCaretStaysWhereItIsWhenTheLimitHoldsAgain) {
  // The kit's edit puts the caret to the end with every new limit.
  edit.SetText("123456");
  edit.setCursorPosition(3);
  PressKey(&edit, Qt::Key_Backspace);
  EXPECT_EQ(edit.text(), "12456");
  EXPECT_EQ(edit.cursorPosition(), 2);
  edit.setCursorPosition(1);
  edit.SetLimit(3);
  EXPECT_EQ(edit.cursorPosition(), 1);
  PressKey(&edit, Qt::Key_Delete);
  EXPECT_EQ(edit.text(), "1456");
  EXPECT_EQ(edit.cursorPosition(), 1);
}

TEST_F(LimitedEditTest, AnotherLimitCutsNothingThatIsThere) {
  edit.SetText("12345");
  edit.SetLimit(2);
  EXPECT_EQ(edit.text(), "12345");
  EXPECT_EQ(edit.Limit(), 2);
  edit.SetText("1");
  Type(&edit, "234");
  EXPECT_EQ(edit.text().size(), 2);
}

TEST_F(LimitedEditTest, MayBeDestroyedByWhoListens) {
  const QPointer<LimitedEdit> other = new LimitedEdit(1, 5, nullptr);
  QObject::connect(other, &QLineEdit::textChanged, [other] { other->deleteLater(); });
  other->SetText("1");
  ASSERT_FALSE(other.isNull());
  EXPECT_EQ(other->text(), "1");
  Settle();
  EXPECT_TRUE(other.isNull());
}

}  // namespace
}  // namespace pnl::test
