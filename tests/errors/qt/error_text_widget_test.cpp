// SPDX-License-Identifier: MIT
#include "errors/qt/error_text_widget.h"

#include <QFontMetrics>

#include "support/widget_probe.h"

namespace pnl::test {
namespace {

class ErrorTextWidgetTest : public testing::Test {
 protected:
  ErrorTextWidgetTest() {
    font.setPixelSize(20);
    widget.SetTextFont(font);
    widget.resize(300, 120);
  }
  /// Around what is written.
  QRect Written() {
    const QImage image = Paint(widget);
    return Ink(image, widget.Back());
  }
  QFont font = QApplication::font();
  ErrorTextWidget widget{1000, true, nullptr};
};

TEST_F(ErrorTextWidgetTest, ACentredTextHasAsMuchRoomOnAllSides) {
  for (const char* text : {"HHHH", "HHHH\nHHHH", "HHHHHHHHHHHHHH HHHHHHHHHHHHHH HHHHHHHHHHHHHH"}) {
    widget.SetText(text);
    const QRect written = Written();
    ASSERT_FALSE(written.isEmpty());
    // The room for signs below the base line isn't written on.
    const int spare = QFontMetrics(font).height();
    EXPECT_NEAR(written.top(), widget.height() - 1 - written.bottom(), spare) << text;
    EXPECT_NEAR(written.left(), widget.width() - 1 - written.right(), 3) << text;
    EXPECT_NEAR(written.center().y(), (widget.height() - widget.HeightOf(text, 300)) / 2 + written.height() / 2,
                spare / 2)
        << text;
  }
}

TEST_F(ErrorTextWidgetTest, MoreLinesThanFindRoomBeginAtTheTop) {
  widget.SetText("H\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH\nH");
  EXPECT_GE(Written().top(), 0);
  EXPECT_LT(Written().top(), QFontMetrics(font).height());
}

TEST_F(ErrorTextWidgetTest, ATextThatIsNotCentredBeginsAtTheTopLeft) {
  widget.SetCentred(false);
  widget.SetText("HHHH");
  const QRect written = Written();
  EXPECT_LT(written.top(), QFontMetrics(font).height() / 2);
  EXPECT_GE(written.left(), 1);
  EXPECT_LT(written.left(), 10);
}

TEST_F(ErrorTextWidgetTest, ItsWidthLeavesTheTextInOneLine) {
  const QString text = "HHHH HHHH";
  const int line = widget.HeightOf("H", 300);
  const int width = widget.WidthOf(text);
  EXPECT_EQ(widget.HeightOf(text, width), line);
  EXPECT_EQ(widget.HeightOf(text, width - 1), 2 * line);
  EXPECT_GT(width, QFontMetrics(font).horizontalAdvance(text));
}

TEST_F(ErrorTextWidgetTest, ATextOfSeveralLinesIsHigherInANarrowWindow) {
  const QString text = QString("HHHH ").repeated(20);
  EXPECT_GT(widget.HeightOf(text, 100), widget.HeightOf(text, 300));
  EXPECT_GT(widget.HeightOf(text, 0), 0) << "no width at all is survived";
}

TEST_F(ErrorTextWidgetTest, IsReadAloudAndTold) {
  widget.SetText("<b>fault</b>");
  EXPECT_EQ(widget.accessibleName(), "<b>fault</b>");
  EXPECT_EQ(widget.property("pnlText").toString(), "<b>fault</b>");
  EXPECT_EQ(widget.property("pnlFore").toUInt(), 0u);
  EXPECT_EQ(widget.property("pnlId").toInt(), 1000);
}

}  // namespace
}  // namespace pnl::test
