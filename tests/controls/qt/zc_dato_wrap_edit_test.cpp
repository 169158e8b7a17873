// SPDX-License-Identifier: MIT
// What an edit of a number field takes and refuses, and how it looks meanwhile.
#include "controls/zc_dato_wrap.h"
#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ZCDatoWrapEditTest : public testing::Test {
 protected:
  ZCDatoWrapEditTest() {
    window.resize(300, 100);
    field = new ZCDatoWrap(3034, &window);
    field->setGeometry(10, 10, 120, 30);
    field->SetDigits({5, 4, 0, 1000});
    Activate(window);
    field->setFocus(Qt::TabFocusReason);
    QObject::connect(field, &ZCDatoWrap::Changed, &window, [this] { ++changes; });
  }
  bool Key(int key) { return PressKey(field, key); }
  int changes = 0;
  QWidget window;
  ZCDatoWrap* field;
};

TEST_F(ZCDatoWrapEditTest, ATextOfAnInputMethodBeginsAnEditToo) {
  field->SetText("763.800000");
  const auto commit = [this](const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(field, &event);
  };
  commit("763.8000");
  EXPECT_TRUE(field->IsEditing());
  Key(Qt::Key_Return);
  EXPECT_EQ(changes, 0) << "it is what was seen";
  EXPECT_EQ(field->Written(), "763.800000");
  commit("7");
  Key(Qt::Key_Return);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(field->Written(), "7");
}

TEST_F(ZCDatoWrapEditTest, ATextThatItsDigitsForbidTakesNoLetterEither) {
  for (const char* text : {"123456.0000", "123456789"}) {
    field->SetText(text);
    Type(field, "x");
    EXPECT_FALSE(field->IsEditing()) << text;
    EXPECT_EQ(field->text(), text);
    PressMouse(field, QPoint(119, 15));
    const QString start = field->text();
    Type(field, "x");
    EXPECT_EQ(field->text(), start);
    Key(Qt::Key_Escape);
  }
}

TEST_F(ZCDatoWrapEditTest, ARefusedCharacterAfterAnEditOpensNoOther) {
  Type(field, "12");
  Key(Qt::Key_Return);
  Type(field, "x");
  EXPECT_FALSE(field->IsEditing());
}

TEST_F(ZCDatoWrapEditTest, AFreshFieldTakesNumbersInTheSystemsColours) {
  QPalette colors;
  colors.setColor(QPalette::HighlightedText, Qt::green);
  window.setPalette(colors);
  auto* fresh = new ZCDatoWrap(1, &window);
  fresh->show();
  fresh->setFocus();
  EXPECT_EQ(fresh->palette().color(QPalette::Highlight), QColor(0x00, 0x74, 0xD0));
  EXPECT_EQ(fresh->palette().color(QPalette::HighlightedText), QColor(Qt::white));
  EXPECT_EQ(fresh->palette().color(QPalette::Text), QColor(Qt::black));
  Type(fresh, "1x");
  EXPECT_EQ(fresh->text(), "1");
}

TEST_F(ZCDatoWrapEditTest, WhatIsTypedHasTheFieldsColoursAndItsPlaceAtTheRight) {
  field->SetColors(0x00FFFF, 0x0000FF);
  EXPECT_EQ(field->palette().color(QPalette::Base), QColor(Qt::yellow));
  EXPECT_EQ(field->palette().color(QPalette::Text), QColor(Qt::red));
  Type(field, "888");
  const QImage image = Paint(*field);
  const QRect inside = field->rect().adjusted(2, 2, -2, -2);
  EXPECT_EQ(ColorAt(image, 20, 15), 0x00FFFFu);
  EXPECT_GT(Count(image, 0x0000FF, inside), 0);
  EXPECT_EQ(field->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignRight);
  EXPECT_EQ(field->textMargins(), QMargins(4, 0, 4, 0));
}

}  // namespace
}  // namespace pnl::test
