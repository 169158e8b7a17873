// SPDX-License-Identifier: MIT
// What the controls of the help viewer draw, in which fonts, and how large.
#include <cstdio>

#include "controls/page_browser.h"
#include "controls/qt/paint_counter.h"
#include "help_stage.h"
#include "support/text_catcher.h"
#include "window/qt/qt_text.h"

namespace pnl::test {
namespace {

using testing::EndsWith;
using testing::StartsWith;

class HelpPaint : public HelpStage {
 protected:
  /// On a panel whose font has that height; 17 on one of the usual height.
  HelpScale Scale(int font = 17) {
    EXPECT_TRUE(cnc.Returns("UTIL7340_FitFontSize", {font}));
    return HelpScale(context.cnc.Util());
  }
  void Make() {
    static_cast<void>(Scale());
    HelpStage::Make();
  }
  [[nodiscard]] QRect PlaceOf(int id) const { return {Control(id)->mapTo(tool, QPoint(0, 0)), Control(id)->size()}; }
  /// The line that draws the triangle of a key; empty when it draws none.
  static std::string TriangleOf(HelpKeyButton& key) {
    for (const std::string& stroke : StrokesOf(key)) {
      if (stroke.rfind("polygon", 0) == 0) return stroke;
    }
    return {};
  }
};

TEST_F(HelpPaint, AKeyIsARoundedPlateWithItsWordInTheMiddle) {
  HelpKeyButton key(77, QStringLiteral("Find"), Scale(), area);
  key.resize(121, 45);
  const std::vector<std::string> expected = Drawn([&key](QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(ToQColor(help_look::kEdge));
    painter.setBrush(ToQColor(help_look::kKeyBack));
    painter.drawRoundedRect(QRectF(0.5, 0.5, 120, 44), 4, 4);
    painter.setPen(ToQColor(help_look::kKeyText));
    painter.setFont(key.font());
    painter.drawText(QRect(3, 0, 115, 45), Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("Find"));
  });
  EXPECT_EQ(StrokesOf(key), expected);
}

TEST_F(HelpPaint, ATriangleIsSmoothAndNoLargerThanItsKeyAllows) {
  HelpKeyButton key(77, {}, Scale(), area);
  key.SetSign(HelpKeyButton::Sign::kRight);
  for (const auto& [size, side] :
       {std::pair(QSize(60, 60), 24.0), std::pair(QSize(20, 60), 12.0), std::pair(QSize(60, 20), 12.0)}) {
    key.resize(size);
    const std::string triangle = TriangleOf(key);
    double x = 0;
    double top = 0;
    double bottom = 0;
    ASSERT_EQ(std::sscanf(triangle.c_str(), "polygon %lf,%lf %*f,%*f %*f,%lf", &x, &top, &bottom), 3) << triangle;
    EXPECT_NEAR(bottom - top, side, 0.01) << triangle;
    EXPECT_LT(x, size.width() / 2.0) << "its point is at the right";
    EXPECT_THAT(triangle, EndsWith(" smooth"));
  }
}

// What the triangle before a row turns and moves must not turn and move the row's text.
TEST_F(HelpPaint, TheTextOfEachRowOfTheContentsIsInItsRow) {
  Make();
  OpenAt();
  Contents()->expandAll();
  Settle();
  std::vector<QTreeWidgetItem*> rows;
  for (QTreeWidgetItemIterator at(Contents()); *at != nullptr; ++at) rows.push_back(*at);
  ASSERT_EQ(rows.size(), 4u);
  std::size_t row = 0;
  int triangles = 0;
  for (const std::string& stroke : StrokesOf(*Contents()->viewport())) {
    if (stroke.rfind("polygon", 0) == 0) {
      ++triangles;
      EXPECT_THAT(stroke, EndsWith(" smooth"));
    }
    double x = 0;
    double y = 0;
    if (std::sscanf(stroke.c_str(), "text '%*[^']' at %lf,%lf", &x, &y) != 2) continue;
    ASSERT_LT(row, rows.size());
    const QRect place = Contents()->visualItemRect(rows[row]);
    EXPECT_THAT(stroke, StartsWith("text '" + rows[row]->text(0).toStdString() + "'"));
    EXPECT_TRUE(QRectF(place).contains(x, y)) << stroke;
    ++row;
  }
  EXPECT_EQ(row, 4u);
  EXPECT_EQ(triangles, 2) << "one before each row that has rows inside";
}

TEST_F(HelpPaint, ListsContentsAndPageHaveTheViewersFont) {
  Make();
  OpenAt();
  const HelpScale scale(context.cnc.Util());
  const QFont font = scale.MakeText();
  for (const int id : {help_id::kContents, help_id::kIndexList, help_id::kResults}) {
    EXPECT_EQ(Control(id)->font().families(), font.families()) << id;
    EXPECT_EQ(Control(id)->font().pixelSize(), font.pixelSize()) << id;
    EXPECT_EQ(Control(id)->font().weight(), 500) << id;
  }
  const QFont page = static_cast<PageBrowser*>(Control(help_id::kPage))->TextArea().font();
  EXPECT_EQ(page.families(), font.families());
  EXPECT_EQ(page.pixelSize(), font.pixelSize());
  EXPECT_EQ(page.weight(), QFont::Normal);
}

TEST_F(HelpPaint, TheRowsOfAListGrowWithThePanel) { EXPECT_EQ(MakeHelpList(1015, Scale(40), area)->RowHeight(), 80); }

TEST_F(HelpPaint, TheBarForFindingIsAsWideAsThePage) {
  Make();
  OpenAt();
  Menu(40002);
  EXPECT_EQ(PlaceOf(help_id::kFindLine).left(), PlaceOf(help_id::kPage).left());
  EXPECT_EQ(PlaceOf(help_id::kFindClose).right(), PlaceOf(help_id::kPage).right());
  EXPECT_EQ(PlaceOf(help_id::kFindClose).top(), PlaceOf(help_id::kPage).bottom() + 1 + 4);
  EXPECT_EQ(PlaceOf(help_id::kFindClose).bottom(), 600 - 1 - 4);
  EXPECT_EQ(PlaceOf(help_id::kFindPrevious).left(), PlaceOf(help_id::kFindLine).right() + 1 + 4);
}

TEST_F(HelpPaint, AViewerInWhichNothingWasOpenedIsAnEmptyArea) {
  Make();
  tool->show();
  for (const int id : {help_id::kMissing, help_id::kNotice, help_id::kPage, help_id::kContents, help_id::kFindLine}) {
    EXPECT_FALSE(Shows(id)) << id;
  }
  OpenAt();
  EXPECT_TRUE(Shows(help_id::kPage));
  EXPECT_FALSE(Shows(help_id::kFindLine));
}

TEST_F(HelpPaint, WhileTheFirstManualIsBeingOpenedThePaneOfTheContentsIsChosen) {
  world.slow = true;
  Make();
  OpenAt();
  EXPECT_TRUE(Shows(help_id::kContents));
  EXPECT_TRUE(Control(help_id::kContentsTab)->property("pnlChecked").toBool());
  EXPECT_FALSE(Control(help_id::kIndexTab)->property("pnlChecked").toBool());
  EXPECT_EQ(static_cast<HelpKeyButton*>(Control(help_id::kPanesKey))->ShownSign(), HelpKeyButton::Sign::kLeft);
}

TEST_F(HelpPaint, TheWordsAboutASearchAreThoseThatScriptsRead) {
  SearchForAxis();
  EXPECT_EQ(qobject_cast<QLabel*>(Control(help_id::kSearchStatus))->text(), "Pages found: 1");
  EXPECT_EQ(TextOf(help_id::kSearchStatus), "Pages found: 1");
}

TEST_F(HelpPaint, TheViewerIsPaintedAnewWhenItsParentIsPutInPlace) {
  Make();
  OpenAt();
  const PaintCounter paints(*tool);
  QResizeEvent placed(area->size(), area->size());
  QApplication::sendEvent(area, &placed);
  Settle();
  EXPECT_GT(paints.Count(), 0);
}

TEST_F(HelpPaint, ARowThatIsSelectedAgainIsShownAgain) {
  Make();
  OpenAt();
  QTreeWidgetItem* const top = Contents()->topLevelItem(0);
  Contents()->SelectRow(2);
  ASSERT_TRUE(top->child(0)->isExpanded()) << "the rows around it are open";
  top->child(0)->setExpanded(false);
  Contents()->SelectRow(2);
  EXPECT_TRUE(top->child(0)->isExpanded());
  EXPECT_EQ(Contents()->SelectedRow(), 2);
}

}  // namespace
}  // namespace pnl::test
