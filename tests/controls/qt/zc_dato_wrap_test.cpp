// SPDX-License-Identifier: MIT
#include "controls/zc_dato_wrap.h"

#include "controls/draw_text.h"
#include "controls/fonts.h"
#include "paint_counter.h"
#include "support/widget_probe.h"
#include "window/qt/control_properties.h"

namespace pnl::test {
namespace {

class ZCDatoWrapTest : public testing::Test {
 protected:
  ZCDatoWrapTest() {
    window.resize(300, 100);
    field = new ZCDatoWrap(3034, &window);
    field->setGeometry(10, 10, 120, 30);
    field->SetDigits({5, 4, 0, 1000});
    other = new QLineEdit(&window);
    other->setGeometry(150, 10, 100, 30);
    Activate(window);
    field->setFocus(Qt::TabFocusReason);
    QObject::connect(field, &ZCDatoWrap::Changed, &window, [this] { ++changes; });
  }
  bool Key(int key) { return PressKey(field, key); }
  int changes = 0;
  QWidget window;
  ZCDatoWrap* field;
  QLineEdit* other;
};

TEST_F(ZCDatoWrapTest, KeepsTheTextAsWrittenAndPaintsItByItsDigits) {
  field->SetText("763.800000");
  EXPECT_EQ(field->text(), "763.800000");
  EXPECT_EQ(field->Written(), "763.800000");
  EXPECT_EQ(field->PaintedText(), "763.8000");
  EXPECT_EQ(changes, 0);
  EXPECT_EQ(ControlKind(field), "edit");
  field->SetDigits({5, 1, 0, 1000});
  EXPECT_EQ(field->text(), "763.800000");
  EXPECT_EQ(field->PaintedText(), "763.8");
}

TEST_F(ZCDatoWrapTest, TypingReplacesTheTextAndEnterCommitsAndGoesOn) {
  field->SetText("763.800000");
  Type(field, "12x.55555");
  EXPECT_TRUE(field->IsEditing());
  EXPECT_EQ(field->text(), "12.5555");
  EXPECT_EQ(field->Written(), "763.800000");
  EXPECT_EQ(changes, 0);
  EXPECT_FALSE(Key(Qt::Key_Return)) << "the window may move the focus";
  EXPECT_FALSE(field->IsEditing());
  EXPECT_EQ(field->text(), "12.5555");
  EXPECT_EQ(field->Written(), "12.5555");
  EXPECT_EQ(changes, 1);
  EXPECT_FALSE(Key(Qt::Key_Enter));
  EXPECT_EQ(changes, 1) << "nothing has changed since";
}

TEST_F(ZCDatoWrapTest, TheFirstDigitMayBeTheOldText) {
  field->SetDigits({5, 0, 0, 1000});
  field->SetText("5");
  Type(field, "50");
  EXPECT_EQ(field->text(), "50");
}

TEST_F(ZCDatoWrapTest, ARefusedFirstCharacterOpensNothing) {
  field->SetText("763.800000");
  Type(field, "x-");
  EXPECT_FALSE(field->IsEditing());
  EXPECT_EQ(field->text(), "763.800000");
}

TEST_F(ZCDatoWrapTest, EscapeBringsTheOldTextBack) {
  field->SetText("763.800000");
  Type(field, "12");
  EXPECT_TRUE(Key(Qt::Key_Escape));
  EXPECT_FALSE(field->IsEditing());
  EXPECT_EQ(field->text(), "763.800000");
  EXPECT_FALSE(Key(Qt::Key_Escape)) << "without an edit it reaches the window";
  EXPECT_EQ(changes, 0);
}

TEST_F(ZCDatoWrapTest, ArrowsStayOnlyInAnOpenEdit) {
  for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) EXPECT_FALSE(Key(key)) << key;
  Type(field, "12");
  for (const int key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) EXPECT_TRUE(Key(key)) << key;
  EXPECT_FALSE(Key(Qt::Key_F5)) << "other keys reach the window";
  Key(Qt::Key_Left);
  Type(field, "5");
  EXPECT_EQ(field->text(), "152") << "the caret has moved";
}

TEST_F(ZCDatoWrapTest, EnterWithANumberOutOfRangeLeavesTheEditOpen) {
  field->SetText("5");
  Type(field, "1001");
  EXPECT_TRUE(Key(Qt::Key_Return)) << "the focus doesn't move on";
  EXPECT_TRUE(field->IsEditing());
  EXPECT_EQ(field->selectedText(), "1001");
  EXPECT_EQ(changes, 0);
  Type(field, "1000");
  Key(Qt::Key_Return);
  EXPECT_EQ(field->Written(), "1000");
  EXPECT_EQ(changes, 1);
}

TEST_F(ZCDatoWrapTest, ALostFocusCommitsWhatIsAllowedAndDropsTheRest) {
  field->SetText("5");
  Type(field, "12");
  other->setFocus();
  EXPECT_EQ(field->Written(), "12");
  EXPECT_EQ(changes, 1);
  field->setFocus();
  Type(field, "1001");
  other->setFocus();
  EXPECT_EQ(field->text(), "12");
  EXPECT_EQ(changes, 1);
  field->setFocus();
  other->setFocus();
  EXPECT_EQ(changes, 1) << "nothing was typed";
}

TEST_F(ZCDatoWrapTest, AMenuOrAnotherWindowDoesNotEndAnEdit) {
  Type(field, "12");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::ActiveWindowFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QApplication::sendEvent(field, &out);
    EXPECT_TRUE(field->IsEditing());
  }
  EXPECT_EQ(changes, 0);
}

TEST_F(ZCDatoWrapTest, AnUnchangedEditKeepsTheTextAsWritten) {
  field->SetText("763.800000");
  PressMouse(field, QPoint(60, 15));
  EXPECT_TRUE(field->IsEditing());
  EXPECT_EQ(field->text(), "763.8000") << "the edit begins with what was seen";
  EXPECT_FALSE(Key(Qt::Key_Return)) << "the window may move the focus";
  EXPECT_EQ(field->text(), "763.800000");
  EXPECT_EQ(changes, 0);
}

TEST_F(ZCDatoWrapTest, TheFirstTouchSelectsAllTheSecondPlacesTheCaret) {
  field->SetText("5");
  other->setFocus();
  PressMouse(field, QPoint(60, 15));
  EXPECT_FALSE(field->IsEditing());
  EXPECT_EQ(field->selectedText(), "5");
  PressMouse(field, QPoint(119, 15));
  EXPECT_TRUE(field->IsEditing());
  EXPECT_FALSE(field->hasSelectedText());
  EXPECT_EQ(field->cursorPosition(), 6) << "at the end of 5.0000";
  PressMouse(field, QPoint(1, 15));
  EXPECT_EQ(field->cursorPosition(), 0);
}

TEST_F(ZCDatoWrapTest, APressThatDoesNotBringTheFocusOpensNothing) {
  other->setFocus();
  QMouseEvent press(QEvent::MouseButtonPress, QPoint(60, 15), field->mapToGlobal(QPoint(60, 15)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(field, &press);
  EXPECT_FALSE(field->IsEditing());
}

TEST_F(ZCDatoWrapTest, AFieldThatIsLeftShowsNoSelection) {
  field->SetText("5");
  field->setFocus(Qt::TabFocusReason);
  ASSERT_EQ(field->selectedText(), "5");
  other->setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(field->hasSelectedText());
}

TEST_F(ZCDatoWrapTest, ATextFromOutsideDropsAnOpenEdit) {
  Type(field, "12");
  field->SetText("7");
  EXPECT_FALSE(field->IsEditing());
  EXPECT_EQ(field->text(), "7");
  EXPECT_EQ(changes, 0);
}

TEST_F(ZCDatoWrapTest, ClearingIsAChange) {
  field->SetText("5");
  Key(Qt::Key_Delete);
  EXPECT_TRUE(field->IsEditing());
  EXPECT_EQ(field->text(), "");
  Key(Qt::Key_Return);
  EXPECT_EQ(field->Written(), "");
  EXPECT_EQ(changes, 1);
}

TEST_F(ZCDatoWrapTest, PaintsTheRoundedNumberAndDimsItWhenDisabled) {
  field->SetText("1.99999999");
  other->setFocus();
  const QImage rounded = Paint(*field);
  field->SetText("2.0000");
  EXPECT_EQ(Paint(*field), rounded);
  field->SetText("3.0000");
  EXPECT_NE(Paint(*field), rounded);
  field->SetText("2.0000");
  field->setEnabled(false);
  EXPECT_NE(Paint(*field), rounded);
}

TEST_F(ZCDatoWrapTest, MayBeDestroyedByWhoListens) {
  for (const bool byFocus : {false, true}) {
    auto* own = new ZCDatoWrap(1, &window);
    const QPointer<ZCDatoWrap> alive(own);
    own->setGeometry(10, 50, 100, 30);
    own->show();
    own->setFocus();
    QObject::connect(own, &ZCDatoWrap::Changed, &window, [own] { delete own; });
    Type(own, "1");
    if (byFocus) {
      other->setFocus();
    } else {
      PressKey(own, Qt::Key_Return);
    }
    EXPECT_TRUE(alive.isNull()) << byFocus;
  }
}

/// The colours of the field's edge: outside and one pixel in.
std::pair<QColor, QColor> EdgeOf(ZCDatoWrap& field) {
  const QImage image = Paint(field);
  return {image.pixelColor(60, 0), image.pixelColor(60, 1)};
}

TEST_F(ZCDatoWrapTest, ItsEdgeIsWideWithTheFocusAndRedWhenANumberWasRefused) {
  const QColor focused(0x0A, 0x6E, 0xC8);
  const QColor red(0xB0, 0x10, 0x1C);
  const QColor plain(0x46, 0x56, 0x6A);
  field->SetText("5");
  EXPECT_EQ(EdgeOf(*field), std::pair(focused, focused));
  EXPECT_NE(Paint(*field).pixelColor(60, 2), focused);
  other->setFocus();
  EXPECT_EQ(EdgeOf(*field), std::pair(plain, QColor(Qt::white)));
  field->setFocus(Qt::TabFocusReason);
  Type(field, "1001");
  Key(Qt::Key_Return);
  EXPECT_EQ(EdgeOf(*field), std::pair(red, red));
  EXPECT_EQ(field->palette().color(QPalette::Text), red);
  EXPECT_EQ(field->palette().color(QPalette::Highlight), red);
  Type(field, "7");
  EXPECT_EQ(EdgeOf(*field), std::pair(focused, focused)) << "until it is typed on";
  EXPECT_EQ(field->palette().color(QPalette::Text), QColor(Qt::black));
  EXPECT_EQ(field->palette().color(QPalette::Highlight), QColor(0x00, 0x74, 0xD0));
  EXPECT_EQ(field->palette().color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST_F(ZCDatoWrapTest, ItsNumberLiesAtTheRightMarkedWithTheFocus) {
  const auto expected = [this](bool marked, const QString& text, const QColor& back, const QColor& ink) {
    QImage image(field->size(), QImage::Format_RGB32);
    image.fill(back);
    QPainter painter(&image);
    painter.setFont(field->font());
    const QRect area = field->rect().adjusted(6, 0, -6, 0);
    const int width = QFontMetrics(field->font()).horizontalAdvance(text);
    const int height = CellHeight(QFontMetrics(field->font()));
    if (marked) painter.fillRect(QRect(113 - width, (30 - height) / 2, width + 1, height), QColor(0x00, 0x74, 0xD0));
    painter.setPen(ink);
    DrawText(painter, area, text, 0x20 | 0x4 | 0x800 | 0x8000 | 0x2);
    return image.copy(field->rect().adjusted(2, 2, -2, -2));
  };
  const auto painted = [this] { return Paint(*field).copy(field->rect().adjusted(2, 2, -2, -2)); };
  field->SetFont("Arial", 16, 400);
  field->SetText("763.8");
  EXPECT_EQ(painted(), expected(true, "763.8000", Qt::white, Qt::white));
  other->setFocus();
  EXPECT_EQ(painted(), expected(false, "763.8000", Qt::white, Qt::black));
  field->SetText("123456789012345678901234567890");
  EXPECT_EQ(painted(), expected(false, field->PaintedText(), Qt::white, Qt::black));
  field->SetText("763.8");
  field->SetColors(0x00FFFF, 0x0000FF);
  EXPECT_EQ(painted(), expected(false, "763.8000", Qt::yellow, Qt::red));
  field->setEnabled(false);
  QColor pale(Qt::red);
  pale.setAlpha(165);
  EXPECT_EQ(painted(), expected(false, "763.8000", QColor(Qt::yellow).darker(125), pale));
  field->SetFont("", 40, 400);
  EXPECT_EQ(field->font().pixelSize(), 14) << "a font that can't be had";
}

TEST_F(ZCDatoWrapTest, AKeyBetweenTwoTouchesCountsAsUse) {
  field->SetText("5");
  other->setFocus();
  field->setFocus(Qt::MouseFocusReason);
  Key(Qt::Key_Up);
  QMouseEvent press(QEvent::MouseButtonPress, QPoint(60, 15), field->mapToGlobal(QPoint(60, 15)), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(field, &press);
  EXPECT_TRUE(field->IsEditing()) << "the focus didn't come with this touch";
}

TEST_F(ZCDatoWrapTest, KeysThatChangeNoTextOpenNothing) {
  field->SetText("5");
  EXPECT_FALSE(PressKey(field, Qt::Key_C, "c", Qt::ControlModifier));
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_FALSE(PressKey(field, Qt::Key_1, "1", modifier));
    EXPECT_FALSE(field->IsEditing());
  }
  EXPECT_FALSE(PressKey(field, Qt::Key_F5, {}));
  EXPECT_FALSE(PressKey(field, Qt::Key_Cancel, QString(QChar(3))));
  EXPECT_FALSE(field->IsEditing());
  EXPECT_TRUE(PressKey(field, Qt::Key_Backspace)) << "it clears the number";
  EXPECT_TRUE(field->IsEditing());
  EXPECT_EQ(field->text(), "");
}

TEST_F(ZCDatoWrapTest, ATextThatIsPutBackByHandIsNoChange) {
  field->SetText("763.800000");
  Type(field, "763.8000");
  Key(Qt::Key_Return);
  EXPECT_EQ(changes, 0) << "what was seen";
  EXPECT_EQ(field->Written(), "763.800000");
  Type(field, "763.80");
  Key(Qt::Key_Return);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(field->Written(), "763.80");
}

TEST_F(ZCDatoWrapTest, ADigitsChangeIsPainted) {
  field->SetText("5");
  Settle();
  PaintCounter paints(*field);
  field->SetDigits({5, 1, 0, 1000});
  Settle();
  EXPECT_GE(paints.Count(), 1);
  EXPECT_EQ(field->Digits().decimals, 1);
  EXPECT_EQ(field->contextMenuPolicy(), Qt::NoContextMenu);
  EXPECT_FALSE(field->hasFrame());
}

}  // namespace
}  // namespace pnl::test
