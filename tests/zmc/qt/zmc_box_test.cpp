// SPDX-License-Identifier: MIT
// The drop-down lists of the machining calculator's pages, each by itself: how high their rows are, what they draw, and
// what they report.
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>
#include <vector>

#include "controls/fonts.h"
#include "controls/grid_look.h"
#include "controls/qt/paint_counter.h"
#include "support/widget_probe.h"
#include "window/qt/finger.h"
#include "window/qt/qt_text.h"
#include "zmc/qt/zmc_box.h"
#include "zmc/qt/zmc_look.h"

namespace pnl::test {
namespace {

class ZmcBoxTest : public testing::Test {
 protected:
  ZmcBoxTest() {
    window.resize(400, 300);
    // Whatever the panel's colours are.
    QPalette garish(Qt::red, Qt::green);
    for (const auto role : {QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
      garish.setColor(role, Qt::cyan);
    window.setPalette(garish);
    for (ZmcBox* each : {box, typed}) {
      each->setFont(*MakeFont("Arial", 20, 500));
      StyleBox(*each);
      QObject::connect(each, &QComboBox::currentIndexChanged, each, [this] { ++changes; });
    }
    box->setGeometry(10, 10, 160, 30);
    typed->setGeometry(200, 10, 160, 30);
    Activate(window);
    box->Fill({u"one", u"two", u"three"});
  }

  QWidget window;
  ZmcBox* box = new ZmcBox(1, false, &window);
  ZmcBox* typed = new ZmcBox(2, true, &window);
  int changes = 0;
};

TEST_F(ZmcBoxTest, RowsAreHighEnoughForAGlove) {
  EXPECT_EQ(box->maxVisibleItems(), 9);
  for (const int font : {10, 20, 40}) {
    box->setFont(*MakeFont("Arial", font, 500));
    box->view()->setFont(box->font());
    const int height = box->view()->sizeHintForRow(0);
    EXPECT_GE(height, FingerPixels(*box)) << font;
    EXPECT_TRUE(font != 10 || height == FingerPixels(*box)) << "and no higher than needed: " << height;
    EXPECT_GE(height, QFontMetrics(box->font()).height() + 8) << font;
  }
}

TEST_F(ZmcBoxTest, WhatTheLogicDoesIsNotReported) {
  EXPECT_EQ(box->currentIndex(), -1) << "nothing is selected after filling";
  EXPECT_EQ(box->Items(), (std::vector<Text>{u"one", u"two", u"three"}));
  box->SelectIndex(2);
  EXPECT_EQ(box->currentText(), "three");
  box->Fill({u"four"});
  EXPECT_EQ(box->Items(), std::vector<Text>{u"four"});
  EXPECT_EQ(changes, 0);
  box->setCurrentIndex(0);
  EXPECT_EQ(changes, 1) << "the signals are back";
}

TEST_F(ZmcBoxTest, TheListOfANarrowBoxIsWideEnoughForAGlove) {
  for (const int width : {60, 300}) {
    box->resize(width, 20);
    box->Fill(std::vector<Text>(30, u"T1"));
    box->Open(true);
    EXPECT_GE(box->view()->viewport()->width(), 2 * FingerPixels(*box)) << width;
    EXPECT_GE(box->view()->window()->width(), width);
    box->Open(false);
  }
}

TEST_F(ZmcBoxTest, OpensWithItemsOnlyAndClosesAgain) {
  box->Open(false);
  EXPECT_FALSE(box->IsOpen());
  box->Open(true);
  EXPECT_TRUE(box->IsOpen());
  box->Open(true);
  EXPECT_TRUE(box->IsOpen());
  box->Open(false);
  EXPECT_FALSE(box->IsOpen());
  box->Fill({});
  box->Open(true);
  EXPECT_FALSE(box->IsOpen());
}

TEST_F(ZmcBoxTest, TheMarkMovesWithinTheListAndIsTakenOnce) {
  box->SelectIndex(0);
  box->Open(true);
  const auto mark = [this] { return box->view()->currentIndex().row(); };
  box->MoveMark(1);
  EXPECT_EQ(mark(), 1);
  box->MoveMark(5);
  EXPECT_EQ(mark(), 2);
  box->MoveMark(-1);
  EXPECT_EQ(mark(), 1);
  EXPECT_EQ(box->currentIndex(), 0) << "not before it is taken";
  EXPECT_TRUE(box->AcceptMark());
  EXPECT_FALSE(box->IsOpen());
  EXPECT_EQ(box->currentIndex(), 1);
  EXPECT_EQ(changes, 0) << "the caller knows";
  box->Open(true);
  box->MoveMark(-9);
  EXPECT_EQ(mark(), 0);
  box->Open(false);
  EXPECT_EQ(box->currentIndex(), 1);
  box->Fill({});
  EXPECT_FALSE(box->AcceptMark()) << "there is nothing to take";
}

TEST_F(ZmcBoxTest, HasAThinFrameAndABroadOneInTheMarksColourWithTheFocus) {
  typed->setFocus();
  const auto frame = [this](int in) {
    const QImage image = Paint(*box);
    return std::vector<std::uint32_t>{ColorAt(image, in, 15), ColorAt(image, image.width() - 1 - in, 15),
                                      ColorAt(image, 20, in), ColorAt(image, 20, image.height() - 1 - in)};
  };
  EXPECT_EQ(frame(0), std::vector<std::uint32_t>(4, zmc_look::kFrame));
  EXPECT_EQ(frame(1), std::vector<std::uint32_t>(4, zmc_look::kFieldBack));
  box->setFocus();
  EXPECT_EQ(frame(0), std::vector<std::uint32_t>(4, zmc_look::kMark));
  EXPECT_EQ(frame(1), std::vector<std::uint32_t>(4, zmc_look::kMark));
  EXPECT_EQ(frame(2), std::vector<std::uint32_t>(4, zmc_look::kFieldBack));
}

TEST_F(ZmcBoxTest, ALowBoxKeepsItsThinFrameWithTheFocus) {
  box->setFocus();
  for (const auto& [height, inner] : {std::pair(15, zmc_look::kFieldBack), {16, zmc_look::kMark}}) {
    box->resize(160, height);
    EXPECT_EQ(ColorAt(Paint(*box), 0, 8), zmc_look::kMark) << height;
    EXPECT_EQ(ColorAt(Paint(*box), 1, 8), inner) << height;
  }
}

TEST_F(ZmcBoxTest, ATextBeginsAtTheMarginAndIsCutBeforeTheTriangle) {
  typed->setFocus();
  const auto ink = [this](const QRect& area) { return Ink(Paint(*box), zmc_look::kFieldBack, area); };
  const QRect inside = box->rect().adjusted(2, 2, -2, -2);
  const QRect triangle = ink(inside);
  EXPECT_FALSE(triangle.isEmpty()) << "no item is selected, and the triangle is drawn";
  EXPECT_GT(triangle.left(), box->width() / 2);
  EXPECT_NEAR(triangle.center().y(), 15, 2);
  EXPECT_GT(Count(Paint(*box), zmc_look::kFieldText, triangle), 3);
  box->Fill({u"HHH", Text(60, u'H')});
  box->SelectIndex(0);
  const QRect left(2, 2, triangle.left() - 4, 26);
  EXPECT_NEAR(ink(left).left(), 4, 3);
  EXPECT_NEAR(ink(left).center().y(), 15, 3);
  const int at = ink(left).left();
  box->SetTextIndent(30);
  EXPECT_EQ(ink(left).left(), at + 30);
  box->SetTextIndent(0);
  box->SelectIndex(1);
  const QRect cut = ink(QRect(2, 2, box->width() - 4, 26));
  EXPECT_EQ(cut.right(), triangle.right()) << "nothing runs beyond the triangle";
  EXPECT_LT(ink(left).height(), 20);
}

TEST_F(ZmcBoxTest, TheLineOfATypedToolFillsTheBoxUpToTheTriangle) {
  EXPECT_EQ(typed->lineEdit()->geometry(), QRect(2, 2, 160 - 19 - 2, 30 - 4));
  const int free = typed->width() - typed->lineEdit()->width();
  typed->resize(200, 40);
  EXPECT_EQ(typed->lineEdit()->geometry(), QRect(2, 2, 200 - 24 - 2, 40 - 4));
  EXPECT_GE(200 - typed->lineEdit()->width(), free);
  typed->setFont(*MakeFont("Arial", 15, 500));
  EXPECT_EQ(typed->lineEdit()->geometry(), QRect(2, 2, 200 - 24 - 2, 40 - 4)) << "with another font";
  EXPECT_FALSE(typed->lineEdit()->hasFrame());
  EXPECT_EQ(typed->completer(), nullptr);
  EXPECT_EQ(box->lineEdit(), nullptr);
}

TEST_F(ZmcBoxTest, ALineThatIsLeftForAnotherControlSaysSo) {
  int left = 0;
  for (ZmcBox* each : {box, typed}) QObject::connect(each, &ZmcBox::LineLeft, each, [&left] { ++left; });
  typed->setFocus();
  box->setFocus();
  EXPECT_EQ(left, 1);
  typed->setFocus();
  EXPECT_EQ(left, 1) << "a box without a line has none to leave";
  for (const auto& [reason, count] : {std::pair(Qt::PopupFocusReason, 1),
                                      {Qt::ActiveWindowFocusReason, 1},
                                      {Qt::MouseFocusReason, 2},
                                      {Qt::TabFocusReason, 3}}) {
    QFocusEvent event(QEvent::FocusOut, reason);
    QApplication::sendEvent(typed, &event);
    EXPECT_EQ(left, count) << reason;
  }
}

TEST_F(ZmcBoxTest, HasTheColoursOfThePageWithAndWithoutTheFocus) {
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    for (const QPalette& palette : {box->palette(), box->view()->palette()}) {
      EXPECT_EQ(palette.color(group, QPalette::Base), ToQColor(zmc_look::kFieldBack));
      EXPECT_EQ(palette.color(group, QPalette::Button), ToQColor(zmc_look::kFieldBack));
      EXPECT_EQ(palette.color(group, QPalette::Text), ToQColor(zmc_look::kFieldText));
      EXPECT_EQ(palette.color(group, QPalette::ButtonText), ToQColor(zmc_look::kFieldText));
      EXPECT_EQ(palette.color(group, QPalette::Highlight), ToQColor(zmc_look::kMark));
      EXPECT_EQ(palette.color(group, QPalette::HighlightedText), QColor(Qt::white));
    }
  }
}

/// The box without the focus, as it has to look with that text in that font.
QImage Expected(const ZmcBox& box, const QString& text, int pixels, int indent = 0) {
  QImage image(box.size(), QImage::Format_RGB32);
  const int arrow = box.height() / 2 + 4;
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(image.rect(), ToQColor(zmc_look::kFieldBack));
  painter.setPen(QPen(ToQColor(zmc_look::kFrame), 1));
  painter.drawRect(QRectF(0.5, 0.5, box.width() - 1, box.height() - 1));
  const QColor ink = ToQColor(zmc_look::kFieldText);
  DrawTriangle(painter, QRect(box.width() - arrow, 0, arrow, box.height()), arrow * 2 / 5, false, ink);
  QFont font = box.font();
  font.setPixelSize(pixels);
  painter.setFont(font);
  painter.setPen(ink);
  const QRect room(4 + indent, 0, box.width() - arrow - 4 - indent, box.height());
  painter.drawText(room, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, room.width()));
  return image;
}

TEST_F(ZmcBoxTest, ATextThatIsTooLongIsDrawnInTheLargestFontThatFitsUpToTwoThirds) {
  typed->setFocus();
  const QString text = "HHHHHH";
  const QFont font = box->font();
  box->Fill({text.toStdU16String(), Text(80, u'H')});
  box->SelectIndex(0);
  const int arrow = box->height() / 2 + 4;
  const int full = QFontMetrics(font).horizontalAdvance(text) + 2 + 4 + arrow;
  box->resize(full, 30);
  EXPECT_EQ(Paint(*box), Expected(*box, text, font.pixelSize())) << "it just fits";
  box->resize(full - 1, 30);
  EXPECT_EQ(Paint(*box), Expected(*box, text, font.pixelSize() - 1));
  box->resize(full + 20, 30);
  box->SetTextIndent(20);
  EXPECT_EQ(Paint(*box), Expected(*box, text, font.pixelSize(), 20));
  box->SetTextIndent(0);
  box->SelectIndex(1);
  for (const int pixels : {21, 18, 12, 9}) {
    QFont other = font;
    other.setPixelSize(pixels);
    box->setFont(other);
    // No letters are smaller than 12 pixels, but those of a box that has smaller ones anyway.
    const int least = std::min(pixels, std::max(12, pixels * 2 / 3));
    EXPECT_EQ(Paint(*box), Expected(*box, QString(80, 'H'), least)) << pixels;
  }
}

TEST_F(ZmcBoxTest, ATextIsInTheBoxesColour) {
  typed->setFocus();
  QPalette palette = box->palette();
  palette.setColor(QPalette::Text, Qt::red);
  box->setPalette(palette);
  box->Fill({u"HHH"});
  box->SelectIndex(0);
  EXPECT_GT(Count(Paint(*box), 0x0000FF, QRect(2, 2, 100, 26)), 20);
}

TEST_F(ZmcBoxTest, ABoxWithALineDrawsItsTextOnlyThere) {
  box->setFocus();
  typed->Fill({u"HHH"});
  typed->SelectIndex(0);
  typed->lineEdit()->hide();
  EXPECT_TRUE(Ink(Paint(*typed), zmc_look::kFieldBack, QRect(2, 2, 100, 26)).isEmpty());
}

TEST_F(ZmcBoxTest, WhatIsTypedIsNeverAnItemAndALongOneMakesNoWiderBox) {
  typed->setFocus();
  typed->Fill({u"T3"});
  typed->lineEdit()->setText("new");
  PressKey(typed->lineEdit(), Qt::Key_Return);
  EXPECT_EQ(typed->Items(), std::vector<Text>{u"T3"});
  ZmcBox other(3, false, nullptr);
  const int wide = other.sizeHint().width();
  other.Fill({Text(100, u'H')});
  EXPECT_EQ(other.sizeHint().width(), wide);
  ZmcBox filled(4, false, nullptr);
  filled.Fill({Text(100, u'H')});
  EXPECT_EQ(filled.sizeHint().width(), wide);
}

TEST_F(ZmcBoxTest, ALineThatIsLeftShowsNoSelection) {
  typed->setFocus();
  typed->lineEdit()->setText("T3");
  typed->lineEdit()->selectAll();
  box->setFocus();
  EXPECT_FALSE(typed->lineEdit()->hasSelectedText());
}

TEST_F(ZmcBoxTest, AListOfOneOpensAndItsFirstItemIsTaken) {
  box->Fill({u"one"});
  box->Open(true);
  ASSERT_TRUE(box->IsOpen());
  box->MoveMark(1);
  EXPECT_EQ(box->view()->currentIndex().row(), 0);
  EXPECT_TRUE(box->AcceptMark());
  EXPECT_EQ(box->currentIndex(), 0);
}

TEST_F(ZmcBoxTest, OpeningAnOpenListLeavesItsMark) {
  box->SelectIndex(0);
  box->Open(true);
  box->MoveMark(2);
  box->Open(true);
  EXPECT_EQ(box->view()->currentIndex().row(), 2);
  box->Open(false);
}

TEST_F(ZmcBoxTest, TheFrameFollowsTheFocusAtOnce) {
  for (ZmcBox* each : {box, typed}) {
    (each == box ? typed : box)->setFocus();
    Settle();
    const PaintCounter paints(*each);
    each->setFocus();
    Settle();
    EXPECT_EQ(paints.Count(), 1);
    (each == box ? typed : box)->setFocus();
    Settle();
    EXPECT_EQ(paints.Count(), 2);
  }
}

TEST_F(ZmcBoxTest, AnotherIndentIsPaintedAtOnce) {
  Settle();
  const PaintCounter paints(*box);
  box->SetTextIndent(10);
  Settle();
  EXPECT_EQ(paints.Count(), 1);
}

}  // namespace
}  // namespace pnl::test
